// What the templates see of each page.
#pragma once

#include "Publishing.h"

#include "Fields.h"
#include "Site.h"
#include "SiteSkin.h"

namespace vlhtml {

// A page of the site. A list has pages counted from 1; a product, and a filter of which all values are
// shown, is told by its position.
struct Page {
  // What a message's number tells.
  static constexpr int NotFound = 0;
  static constexpr int NotInPreview = 1;

  PageKind kind = PageKind::Home;
  const PlannedList* list = nullptr;
  int number = 0;
};

// What a page shows besides what every page does.
void TellPage(Fields& fields, const Site& site, const Page& page);

}  // namespace vlhtml
