// What every page of the site shows, and the pages that only say something.
#pragma once

#include "Fields.h"
#include "Site.h"

namespace vlhtml {

void TellSite(Fields& fields, const Site& site);
// For an address that leads nowhere. It may be shown for any path, so it refers to the site's files by their
// paths on its host; where those are not known, by names that are right beside the other pages.
void TellNotFound(Fields& fields, const Site& site);
// Where the links of a preview lead whose pages it does not have.
void TellNotInPreview(Fields& fields, const Site& site);

}  // namespace vlhtml
