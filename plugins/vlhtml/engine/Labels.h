// The words that the site itself says, in the language of the catalog.
#pragma once

#include "Publishing.h"

#include <string>

#include "Fields.h"

namespace vlhtml {

// Whether Italian or English is spoken: to the user, and by the site to its readers.
struct Languages {
  bool italian;
  bool siteItalian;
};

// Every word as {{L.key}} in a skin. docs/plugins.md lists the keys.
void TellLabels(Fields& fields, bool italian);

// "Page 2 of 5".
std::string PageOf(bool italian, int page, int pages);

}  // namespace vlhtml
