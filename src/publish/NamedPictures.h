// The pictures that the rows of a catalog name, before it is published.
#pragma once

#include <QString>

namespace vorlina {

class Connection;

// Why none of the pictures of the published products can be published, which leaves a publication without
// any; "" where one can, and where none is named. Throws Error.
QString FaultOfAllPictures(Connection& connection, int IDCatalogo);

}  // namespace vorlina
