// What a product's code must not be: that of another product of its catalog.
#pragma once

#include <QString>

namespace vorlina {

class Connection;

// Whether another product of the catalog has the code but for letter case, in every script: codes become file
// names. A new product has no number yet. Throws Error.
bool IsCodeTaken(int IDCatalogo, const QString& code, qint64 exceptIDProdotto, Connection& connection);

// For a row that is being written: throws DuplicateError where the code differs from another product's in the
// case of a letter beyond ASCII alone. That of the others is the database's own to refuse.
void RequireFreeCode(int IDCatalogo, const QString& code, qint64 IDProdotto, Connection& connection);

}  // namespace vorlina
