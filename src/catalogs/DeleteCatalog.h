// The deletion of a catalog with all that belongs to it.
#pragma once

namespace vorlina {

class Connection;

// Deletes the catalog's rows in one transaction, and then its picture files, thumbnails and logo. A file that
// a row of another catalog names stays, as does one outside of "Images" and one that cannot be deleted. Its
// grid layout stays too. Throws Error when the rows cannot be deleted; rows and files are then as they were.
// A disk that fails once the rows are gone is an Error too, which says so; the files are then there.
void DeleteCatalog(int IDCatalogo, Connection& connection);

}  // namespace vorlina
