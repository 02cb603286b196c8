#include "CatalogSnapshot.h"

#include <IVorlinaPlugin.h>
#include <VorlinaNames.h>

#include <stdexcept>

namespace publishing {
namespace {

std::string Utf8(const QVariant& value) {
  return value.isNull() ? std::string() : value.toString().trimmed().toStdString();
}

void ReadCatalog(IVorlinaConnection& connection, int id, bool italian, CatalogSnapshot& catalog) {
  const auto row = connection.Open(QStringLiteral("SELECT * FROM Cataloghi WHERE IDCatalogo=?"), {id});
  if (!row->Next())
    throw std::runtime_error(italian ? "Il catalogo non esiste più. Sceglierne un altro."
                                     : "The catalog does not exist any more. Choose another one.");
  const auto text = [&](const char* column) { return Utf8(row->Value(QString::fromLatin1(column))); };
  catalog.name = text("NomeCatalogo");
  catalog.title = text("Titolo");
  catalog.subtitle = text("Sottotitolo");
  catalog.information = text("Spalla");
  catalog.company = text("Azienda");
  catalog.address = text("Indirizzo");
  catalog.city = text("Citta");
  catalog.province = text("Provincia");
  catalog.country = text("Stato");
  catalog.postalCode = text("CAP");
  catalog.telephone = text("Tel");
  catalog.fax = text("Fax");
  catalog.email = text("Email");
  catalog.url = text("URL");
  catalog.extras = text("Extras");
  catalog.logo = {row->Value(QStringLiteral("Logo")).toString(), catalog.company};
  const auto name = [&](const QString& column) {
    return vorlina::UnescapeName(row->Value(column)).toStdString();
  };
  for (std::size_t i = 0; i < 3; ++i) catalog.valueNames[i] = name(QStringLiteral("NomeValore%1").arg(i + 1));
  for (std::size_t i = 0; i < 5; ++i)
    catalog.filterNames[i] = name(QStringLiteral("NomeFiltro%1").arg(i + 1));
}

void ReadFilterValues(IVorlinaConnection& connection, int id, CatalogSnapshot& catalog) {
  const auto rows = connection.Open(
      QStringLiteral("SELECT IDValore,IDNomeFiltro,Valore FROM Filtri WHERE IDCatalogo=? AND Pubblica "
                     "ORDER BY IDNomeFiltro,Valore COLLATE VORLINA_LOCALE"),
      {id});
  while (rows->Next()) {
    const int filter = rows->Value(1).toInt();
    if (filter < 1 || filter > 5 || catalog.filterNames[std::size_t(filter) - 1].empty()) continue;
    catalog.filterValues.push_back({rows->Value(0).toInt(), filter, rows->Value(2).toString()});
  }
}

void ReadProducts(IVorlinaConnection& connection, int id, CatalogSnapshot& catalog) {
  const auto rows = connection.Open(
      QStringLiteral(
          "SELECT CodiceProdotto,Descrizione,Valore1,Valore2,Valore3,IDFiltro1,IDFiltro2,IDFiltro3,IDFiltro4,"
          "IDFiltro5,Immagine FROM Prodotti WHERE IDCatalogo=? AND Pubblica "
          "ORDER BY OrdineTemp IS NULL,OrdineTemp,IDProdotto"),
      {id});
  while (rows->Next()) {
    Product product;
    product.code = rows->Value(0).toString();
    product.description = Utf8(rows->Value(1));
    for (int i = 0; i < 3; ++i) product.values[std::size_t(i)] = Utf8(rows->Value(2 + i));
    for (int i = 0; i < 5; ++i) product.filters[std::size_t(i)] = rows->Value(5 + i).toInt();
    if (const QString picture = rows->Value(10).toString(); !picture.isEmpty())
      product.pictures.push_back({picture, product.description});
    catalog.index.insert(product.code.toCaseFolded(), catalog.products.size());
    catalog.products.push_back(std::move(product));
  }
}

// Finds the products of rows that come product by product.
class Finder {
 public:
  explicit Finder(CatalogSnapshot& catalog) : catalog_(catalog) {}

  Product* Find(const QVariant& code) {
    if (QString next = code.toString(); next != code_ || product_ == nullptr) {
      code_ = std::move(next);
      const auto found = catalog_.index.constFind(code_.toCaseFolded());
      product_ = found == catalog_.index.constEnd() ? nullptr : &catalog_.products[*found];
    }
    return product_;
  }

 private:
  CatalogSnapshot& catalog_;
  QString code_;
  Product* product_ = nullptr;
};

void ReadPictures(IVorlinaConnection& connection, int id, CatalogSnapshot& catalog) {
  const auto rows = connection.Open(
      QStringLiteral("SELECT CodiceProdotto,Immagine,Descrizione FROM Immagini WHERE IDCatalogo=? "
                     "ORDER BY CodiceProdotto,IDImmagine"),
      {id});
  Finder products(catalog);
  while (rows->Next()) {
    Product* product = products.Find(rows->Value(0));
    const QString source = rows->Value(1).toString();
    if (product != nullptr && !source.isEmpty()) product->pictures.push_back({source, Utf8(rows->Value(2))});
  }
}

}  // namespace

CatalogSnapshot ReadSnapshot(IVorlinaConnection& connection, int IDCatalogo, bool italian) {
  CatalogSnapshot catalog;
  ReadCatalog(connection, IDCatalogo, italian, catalog);
  ReadFilterValues(connection, IDCatalogo, catalog);
  ReadProducts(connection, IDCatalogo, catalog);
  ReadPictures(connection, IDCatalogo, catalog);
  return catalog;
}

void ReadFeatures(IVorlinaConnection& connection, int IDCatalogo, CatalogSnapshot& catalog) {
  const auto rows = connection.Open(QStringLiteral("SELECT CodiceProdotto,Caratteristica,Valore FROM "
                                                   "SchedeTecniche WHERE IDCatalogo=? "
                                                   "ORDER BY CodiceProdotto,IDScheda"),
                                    {IDCatalogo});
  Finder products(catalog);
  while (rows->Next())
    if (Product* product = products.Find(rows->Value(0)); product != nullptr)
      product->features.push_back({Utf8(rows->Value(1)), Utf8(rows->Value(2))});
}

}  // namespace publishing
