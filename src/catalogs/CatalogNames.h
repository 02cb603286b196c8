// What the main window does with the rows of the catalogs themselves: renaming one and listing all in a file.
#pragma once

#include <QString>

#include "base/Error.h"
#include "store/Recordset.h"

namespace vorlina {

// What is told of a catalog that was deleted by another window or program.
Error CatalogGone();

// Sets NomeCatalogo of the catalog through a connection of its own. Throws Error.
void RenameCatalog(const QString& connectionText, int IDCatalogo, const QString& name);

// Replaces the file by three lines a catalog: the identifier with the blank that precedes a positive number,
// the name, the description. Leaves the recordset at its end. Throws Error.
void WriteCatalogList(Recordset& catalogs, const QString& path);

}  // namespace vorlina
