// What the filters of a catalog offer: the values of Filtri. A filter is 1 to 5.
#pragma once

#include <QString>
#include <vector>

#include "grid/Lookup.h"

namespace vorlina {

class Connection;

// The values of a filter, as a drop-down. Throws Error.
Lookup FilterValues(int IDCatalogo, int filter, Connection& connection);

// The same in the order in which they came: nothing has to sort what is only looked up. Throws Error.
std::vector<LookupItem> FilterItems(int IDCatalogo, int filter, Connection& connection);

// The text of one value; "" where the filter does not have it. Throws Error.
QString FilterText(int IDCatalogo, int filter, qint64 IDValore, Connection& connection);

// What another window has removed meanwhile is not written to. Throw Error, within the transaction that
// writes: where the filter has no name; where it does not have a value either, which 0 is none of.
void RequireFilter(int IDCatalogo, int filter, Connection& connection);
void RequireFilterValue(int IDCatalogo, int filter, qint64 IDValore, const QString& name,
                        Connection& connection);

}  // namespace vorlina
