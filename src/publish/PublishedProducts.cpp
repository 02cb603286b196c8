#include "publish/PublishedProducts.h"

#include "base/Helpers.h"
#include "publish/EscapedNames.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

QString FirstLine(const QString& description) {
  QString text = description.trimmed();
  text.replace(u"\r\n"_qs, u"\n"_qs).replace(u'\r', u'\n');
  return OneLine(text.section(u'\n', 0, 0));
}

}  // namespace

CatalogNames ReadCatalogNames(Connection& connection, int IDCatalogo) {
  CatalogNames names;
  Rows row(connection, u"SELECT * FROM Cataloghi WHERE IDCatalogo=?"_qs, {IDCatalogo});
  if (!row.Next()) return names;
  names.catalog = NullToEmpty(row.Value(u"NomeCatalogo"_qs));
  for (std::size_t i = 0; i < names.values.size(); ++i)
    names.values[i] = UnescapeName(row.Value(u"NomeValore%1"_qs.arg(i + 1)));
  for (std::size_t i = 0; i < names.filters.size(); ++i)
    names.filters[i] = UnescapeName(row.Value(u"NomeFiltro%1"_qs.arg(i + 1)));
  return names;
}

std::vector<PublishedProduct> ReadPublishedProducts(Connection& connection, int IDCatalogo) {
  std::vector<PublishedProduct> products;
  Rows rows(connection,
            u"SELECT CodiceProdotto,Descrizione,IFNULL(Immagine,'')<>'' OR EXISTS (SELECT * FROM Immagini I "
            "WHERE I.IDCatalogo=P.IDCatalogo AND I.CodiceProdotto=P.CodiceProdotto) "
            "FROM Prodotti P WHERE IDCatalogo=? AND Pubblica "
            "ORDER BY OrdineTemp IS NULL,OrdineTemp,IDProdotto"_qs,
            {IDCatalogo});
  while (rows.Next()) {
    QString description = NullToEmpty(rows.Value(1));
    products.push_back(
        {NullToEmpty(rows.Value(0)), FirstLine(description), std::move(description), rows.Value(2).toBool()});
  }
  return products;
}

QHash<QString, QString> NamesByCode(const std::vector<PublishedProduct>& products) {
  QHash<QString, QString> names;
  names.reserve(qsizetype(products.size()));
  for (const PublishedProduct& product : products) names.insert(product.code, product.name);
  return names;
}

}  // namespace vorlina
