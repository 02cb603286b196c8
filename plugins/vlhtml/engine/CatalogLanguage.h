// The language of a catalog's site: Italian or English, asked for once and kept with the catalog.
#pragma once

#include "Publishing.h"

#include <QString>

class IVorlinaConnection;

namespace vlhtml {

// "Italian" or "English"; "" when it was never chosen.
QString RememberedLanguage(IVorlinaConnection& connection, int IDCatalogo);
void RememberLanguage(IVorlinaConnection& connection, int IDCatalogo, const QString& language);

// Whether the texts of a catalog look Italian, by the commonest words of both languages; the given answer
// where they do not tell.
bool LooksItalian(IVorlinaConnection& connection, int IDCatalogo, bool otherwise);

}  // namespace vlhtml
