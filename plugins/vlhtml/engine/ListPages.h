// Pages of lists: of all products, of those of a filter value, and of all values of a filter.
#pragma once

#include "Fields.h"
#include "Site.h"

namespace vlhtml {

// page is counted from 1.
void TellList(Fields& fields, const Site& site, const PlannedList& list, int page);
void TellAllValues(Fields& fields, const Site& site, const PlannedFilter& group);

}  // namespace vlhtml
