// The language that a catalog is written in, and published in: "it", "en", "de", "fr" or "es".
#pragma once

#include <QString>
#include <QStringList>

namespace vorlina {

class Connection;

// The codes, in the order in which they are offered.
const QStringList& LanguageCodes();
// "Italiano" and so on, each in its own language; "" for any other code.
QString LanguageName(const QString& code);
// The code of a language by its English name, such as "Italian"; "" for any other text.
QString CodeOfLanguage(const QString& name);

// The language that was chosen for the catalog; "" where none was. Throws Error.
QString StoredLanguage(Connection& connection, int IDCatalogo);

// The language that the catalog's texts look like, by the commonest words of the five languages; that of the
// program where they do not tell. Throws Error.
QString ProposedLanguage(Connection& connection, int IDCatalogo);

// Throws Error, also for what is none of the codes.
void StoreLanguage(Connection& connection, int IDCatalogo, const QString& code);

}  // namespace vorlina
