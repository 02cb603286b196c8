#include "products/ProductGridQuery.h"

#include <QStringList>

#include "base/Helpers.h"
#include "store/Recordset.h"

namespace vorlina {

ProductGridFields ProductGridFields::Of(const Recordset& rsCatalogo) {
  ProductGridFields fields;
  for (std::size_t i = 0; i < fields.values.size(); ++i) {
    const QString number = QString::number(i + 1);
    const QString name = NullToEmpty(rsCatalogo.Value(u"NomeValore"_qs + number));
    const bool inUse = !name.isEmpty();
    fields.values[i] = {u"Valore"_qs + number, inUse ? name : HiddenMark + u"Valore"_qs + number, inUse};
  }
  for (std::size_t i = 0; i < fields.filters.size(); ++i) {
    const QString number = QString::number(i + 1);
    const QVariant name = rsCatalogo.Value(u"NomeFiltro"_qs + number);
    const bool inUse = !name.isNull();
    fields.filters[i] = {u"IDFiltro"_qs + number,
                         inUse ? NullToEmpty(name) : HiddenMark + u"NomeFiltro"_qs + number, inUse};
    fields.NumeroFiltri += inUse ? 1 : 0;
  }
  return fields;
}

QString ProductGridStatement(const ProductGridFields& fields, const QString& CondizioneRicerca) {
  QStringList columns{u"Prodotti.CodiceProdotto AS Codice"_qs, u"Prodotti.Descrizione AS Descrizione"_qs};
  const auto add = [&](const NamedField& field) {
    columns += u"Prodotti."_qs + field.column + u" AS "_qs + QuoteName(field.key);
  };
  for (const NamedField& field : fields.values) add(field);
  for (const NamedField& field : fields.filters) add(field);
  columns += {u"Prodotti.Pubblica AS Pubblica"_qs, u"Prodotti.SchedaTecnica AS _SchedaTecnica"_qs,
              u"Prodotti.Immagine AS _Immagine"_qs, u"Prodotti.IDCatalogo AS _IDCatalogo"_qs,
              u"Prodotti.OrdineTemp AS Ordine"_qs};
  return u"SELECT "_qs + columns.join(u", "_qs) + u" FROM Prodotti WHERE Prodotti.IDCatalogo=?"_qs +
         CondizioneRicerca;
}

}  // namespace vorlina
