// The folder that a catalog was last published into, kept with the catalog among the named values of the
// database.
#pragma once

#include <QString>

class IVorlinaConnection;

namespace vlhtml {

// "" when the catalog was never published.
QString RememberedTarget(IVorlinaConnection& connection, int IDCatalogo);
void RememberTarget(IVorlinaConnection& connection, int IDCatalogo, const QString& folder);

}  // namespace vlhtml
