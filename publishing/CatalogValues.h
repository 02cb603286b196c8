// What is kept with a catalog among the named values of the database.
#pragma once

#include <QString>

class IVorlinaConnection;

namespace publishing {

// A value of a catalog; "" when it was never kept.
QString KeptWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name);
void KeepWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name,
                     const QString& value);
// Keeps a value that was never kept. False when another one came to be there meanwhile, which stays.
bool KeepOnceWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name,
                         const QString& value);

}  // namespace publishing
