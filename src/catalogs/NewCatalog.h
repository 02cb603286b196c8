// A catalog that is being made: the rules of its names, the company data that are offered for it, and how it
// is stored. The wizard collects it.
#pragma once

#include <QMap>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QVariant>

namespace vorlina {

class Connection;

struct NewCatalog {
  QString NomeCatalogo;
  QString Descrizione;
  // As they were typed; slot n of the database is at index n - 1, and an empty one is not in use.
  QStringList valueNames;
  QStringList filterNames;
  // Texts of the company, the path of the logo among them, by column.
  QMap<QString, QString> company;
  // The file to copy as logo, and its size upright; "" for none.
  QString LogoPath;
  QSize logoSize;
  // The row that holds the catalog; 0 until it is stored.
  int IDCatalogo = 0;
};

// The checks give their messages in the order in which they are shown; none when all is well. With a language
// that has no messages the list still holds one empty text for each fault.
//
// Name and value names: a name is there, no two values are named alike, none as a column of the product grid.
QStringList CheckGeneral(const NewCatalog& catalog);
// The same of the filter names, of which the first one must be there.
QStringList CheckFilters(const NewCatalog& catalog);
// Whether the product grid has a column of its own by that name, in the language in use.
bool IsReservedName(const QString& name);
// A value and a filter may not be named alike: a message for each such pair.
QStringList CheckValueFilterNames(const NewCatalog& catalog);

// The company data of the most recent catalog, the two samples left aside: text by column for those columns
// that are asked for. Empty where there is no catalog. Throws Error.
QMap<QString, QString> OfferedCompany(Connection& connection, const QStringList& columns);

// Stores the row, then copies the logo into "Images", then writes where it is. Throws Error; where the logo
// alone failed, the row is stored with the logo's own path. Storing again writes the same row.
void StoreCatalog(Connection& connection, NewCatalog& catalog);

// What a window on a catalog is called: its name and, where there is one, its description. A long
// description is cut to its beginning.
QString CatalogCaption(const QString& name, const QVariant& description);

}  // namespace vorlina
