// The query behind the product grid, made of the names that the user gave the catalog's values and filters.
#pragma once

#include <QString>
#include <array>
#include <vector>

#include "grid/GridColumn.h"

namespace vorlina {

class Connection;
class Recordset;
struct KeysetQuery;

// A column that begins so is not for the user.
inline constexpr char16_t HiddenMark = u'_';

// The grid's columns, bound and unbound, by their place.
struct ProductColumn {
  enum Place : int {
    Codice = 0,
    Descrizione = 1,
    Valore1 = 2,
    IDFiltro1 = 5,
    Pubblica = 10,
    SchedaTecnica = 11,
    Immagine = 12,
    IDCatalogo = 13,
    Ordine = 14,
    BoundCount = 15,
    SchedaPicture = 15,
    ImmaginePicture = 16,
  };
};

// One value or filter field of the catalog as a column of the grid.
struct NamedField {
  QString column;      // of Prodotti
  QString key;         // the grid column's key: the stored name, or the hidden mark and the field
  QString name;        // as it is stored
  bool inUse = false;  // the catalog has a name for it

  bool operator==(const NamedField&) const = default;
};

// What a catalog's names make of the grid. A field is in use when its name is not empty. A name that
// another column bears already gets a mark behind it in its key.
struct ProductGridFields {
  std::array<NamedField, 3> values;
  std::array<NamedField, 5> filters;
  int NumeroFiltri = 0;

  // From the row of Cataloghi on which the recordset stands. Throws Error.
  static ProductGridFields Of(const Recordset& rsCatalogo);
  // From the row as it is stored. Throws Error.
  static ProductGridFields Of(int IDCatalogo, Connection& connection);

  bool operator==(const ProductGridFields&) const = default;
};

// The grid's fifteen bound columns of the catalog's products, in the order in which products came. The
// condition of a search goes behind the one on the catalog as it stands.
KeysetQuery ProductGridQuery(const ProductGridFields& fields, int IDCatalogo,
                             const QString& CondizioneRicerca);

// The keys of the grid's seventeen columns.
QStringList ProductGridKeys(const ProductGridFields& fields);

// The seventeen columns in the program's language, with what the catalog's filters offer. Throws Error.
std::vector<GridColumn> ProductGridColumns(const ProductGridFields& fields, int IDCatalogo,
                                           Connection& connection);

}  // namespace vorlina
