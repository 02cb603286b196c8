// What the filters of a catalog offer: the values of Filtri. A filter is 1 to 5.
#pragma once

#include <QString>

#include "grid/Lookup.h"

namespace vorlina {

class Connection;

// The values of a filter, as a drop-down. Throws Error.
Lookup FilterValues(int IDCatalogo, int filter, Connection& connection);

}  // namespace vorlina
