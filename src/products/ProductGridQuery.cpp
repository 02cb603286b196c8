#include "products/ProductGridQuery.h"

#include <QStringList>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "products/FilterValues.h"
#include "publish/EscapedNames.h"
#include "store/Recordset.h"

namespace vorlina {
namespace {

const QStringList LeadingKeys{u"Codice"_qs, u"Descrizione"_qs};
const QStringList TrailingKeys{u"Pubblica"_qs, u"_SchedaTecnica"_qs, u"_Immagine"_qs, u"_IDCatalogo"_qs,
                               u"Ordine"_qs,   u"Scheda"_qs,         u"Immagine"_qs};
const QStringList LeadingSources{u"CodiceProdotto"_qs, u"Descrizione"_qs};
const QStringList TrailingSources{u"Pubblica"_qs, u"SchedaTecnica"_qs, u"Immagine"_qs, u"IDCatalogo"_qs,
                                  u"OrdineTemp"_qs};

// Behind a name that another column bears.
constexpr char16_t TakenMark = u'~';

QString FreeKey(QString name, QStringList& taken) {
  while (taken.contains(name, Qt::CaseInsensitive)) name += TakenMark;
  taken += name;
  return name;
}

GridColumn Described(const QString& key, const QString& caption, ColumnKind kind = ColumnKind::Text) {
  GridColumn column;
  column.key = key;
  column.caption = caption.isEmpty() ? key : caption;
  column.kind = kind;
  column.visible = !key.startsWith(HiddenMark);
  return column;
}

// A picture takes its caption's place, which the tool tip then gives.
GridColumn Picture(const QString& key, const QString& toolTip) {
  GridColumn column;
  column.key = key;
  column.bound = false;
  column.toolTip = toolTip;
  return column;
}

}  // namespace

ProductGridFields ProductGridFields::Of(const Recordset& rsCatalogo) {
  ProductGridFields fields;
  QStringList taken = LeadingKeys + TrailingKeys;
  for (std::size_t i = 0; i < fields.values.size(); ++i) {
    const QString number = QString::number(i + 1);
    const QString name = NullToEmpty(rsCatalogo.Value(u"NomeValore"_qs + number));
    const bool inUse = !name.isEmpty();
    const QString key = FreeKey(inUse ? name : HiddenMark + u"Valore"_qs + number, taken);
    fields.values[i] = {u"Valore"_qs + number, key, name, inUse};
  }
  for (std::size_t i = 0; i < fields.filters.size(); ++i) {
    const QString number = QString::number(i + 1);
    const QString name = NullToEmpty(rsCatalogo.Value(u"NomeFiltro"_qs + number));
    const bool inUse = !name.isEmpty();
    const QString key = FreeKey(inUse ? name : HiddenMark + u"NomeFiltro"_qs + number, taken);
    fields.filters[i] = {u"IDFiltro"_qs + number, key, name, inUse};
    fields.NumeroFiltri += inUse ? 1 : 0;
  }
  return fields;
}

ProductGridFields ProductGridFields::Of(int IDCatalogo, Connection& connection) {
  Recordset catalog;
  catalog.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {IDCatalogo}}, connection);
  return Of(catalog);
}

QStringList ProductGridKeys(const ProductGridFields& fields) {
  QStringList keys = LeadingKeys;
  for (const NamedField& field : fields.values) keys += field.key;
  for (const NamedField& field : fields.filters) keys += field.key;
  return keys + TrailingKeys;
}

KeysetQuery ProductGridQuery(const ProductGridFields& fields, int IDCatalogo,
                             const QString& CondizioneRicerca) {
  QStringList sources = LeadingSources;
  for (const NamedField& field : fields.values) sources += field.column;
  for (const NamedField& field : fields.filters) sources += field.column;
  sources += TrailingSources;
  const QStringList keys = ProductGridKeys(fields);
  QStringList columns;
  columns.reserve(sources.size());
  for (qsizetype i = 0; i < sources.size(); ++i) columns += sources[i] + u" AS "_qs + QuoteName(keys[i]);
  return {columns.join(u", "_qs),
          u"Prodotti"_qs,
          u"Prodotti.IDCatalogo=?"_qs + CondizioneRicerca,
          u"IDProdotto"_qs,
          {IDCatalogo}};
}

std::vector<GridColumn> ProductGridColumns(const ProductGridFields& fields, int IDCatalogo,
                                           Connection& connection) {
  std::vector<GridColumn> columns{Described(LeadingKeys[0], Texts::tr("Codice")),
                                  Described(LeadingKeys[1], Texts::tr("Descrizione"))};
  columns.reserve(ProductColumn::ImmaginePicture + 1);
  for (const NamedField& field : fields.values)
    columns.push_back(Described(field.key, UnescapeName(field.name)));
  for (std::size_t i = 0; i < fields.filters.size(); ++i) {
    const NamedField& field = fields.filters[i];
    GridColumn column =
        Described(field.key, UnescapeName(field.name), field.inUse ? ColumnKind::Lookup : ColumnKind::Number);
    if (field.inUse) column.lookup = FilterValues(IDCatalogo, int(i) + 1, connection);
    columns.push_back(std::move(column));
  }
  columns.push_back(Described(TrailingKeys[0], Texts::tr("Pubblica"), ColumnKind::Boolean));
  columns.back().defaultValue = true;  // the table's own, so that a new row shows what it will be
  columns.push_back(Described(TrailingKeys[1], {}, ColumnKind::Boolean));
  columns.push_back(Described(TrailingKeys[2], {}));
  columns.push_back(Described(TrailingKeys[3], {}, ColumnKind::Number));
  columns.back().defaultValue = IDCatalogo;
  columns.push_back(Described(TrailingKeys[4], Texts::tr("Ordine"), ColumnKind::Number));
  columns.push_back(Picture(TrailingKeys[5], Texts::tr("Scheda tecnica")));
  columns.push_back(Picture(TrailingKeys[6], Texts::tr("Immagine")));
  for (std::size_t i = 0; i < ProductColumn::BoundCount; ++i) columns[i].field = int(i);
  return columns;
}

}  // namespace vorlina
