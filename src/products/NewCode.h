// The code that a new product is offered.
#pragma once

#include <QString>

namespace vorlina {

class Connection;

// The smallest free number above the catalog's number of products, as text: codes stay numeric and dense, and
// no existing code's value is looked at. It is also above the other bound. Throws Error.
QString NuovoCodice(int IDCatalogo, Connection& connection, qint64 above = 0);

}  // namespace vorlina
