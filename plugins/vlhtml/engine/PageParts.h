// What several kinds of pages show: pictures, cards, links to filter values.
#pragma once

#include "Fields.h"
#include "Site.h"

namespace vlhtml {

void TellPicture(Fields& fields, const PublishedPicture& picture);
// Tells what the site has once for many pages, to be called before anything that shows it.
void TellOnce(Site& site, const FieldNames& names);
// Products as lists show them. The pictures of so many stand where a reader looks first, and are not waited
// with.
void TellCards(Fields& fields, const Site& site, const std::vector<int>& products, std::size_t eager);
// A filter and its most frequent values, and the one that the page is of.
void TellGroup(Fields& fields, const Site& site, const PlannedFilter& group, const PlannedList* current);
void TellGroups(Fields& fields, const Site& site, const std::vector<const PlannedFilter*>& groups,
                const PlannedList* current);
// One value of a filter, by its place in the plan's filters.
void TellValue(Fields& fields, const Site& site, int list);
// What stands over further products of a filter value.
void TellSisterHead(Fields& fields, const Site& site, const PlannedList& list);
// The price under a name; nothing where the product has none.
void TellPrice(Fields& fields, const Site& site, const PlannedProduct& product);
// Whether lists show the first value: where nothing is the price, it is what a reader compares; but not one
// that its name says is a price, since the owner does not want it shown as such.
bool FirstValueShows(const CatalogSnapshot& catalog);
// Those of a filter's values that stand beside others, in their order.
std::vector<int> ValuesShown(const SitePlan& plan, const PlannedFilter& group, const PlannedList* current);

}  // namespace vlhtml
