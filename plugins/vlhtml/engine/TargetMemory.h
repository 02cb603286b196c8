// The folder that a catalog was last published into, kept with the catalog among the named values of the
// database.
#pragma once

#include <QString>

class IVorlinaConnection;

namespace vlhtml {

// A value of a catalog; "" when it was never kept.
QString KeptWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name);
void KeepWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name,
                     const QString& value);

// "" when the catalog was never published.
QString RememberedTarget(IVorlinaConnection& connection, int IDCatalogo);
void RememberTarget(IVorlinaConnection& connection, int IDCatalogo, const QString& folder);

}  // namespace vlhtml
