#include "CatalogSnapshot.h"

#include <IVorlinaPlugin.h>
#include <VorlinaNames.h>
#include <VorlinaPrice.h>

#include <QCollator>
#include <QSet>
#include <algorithm>
#include <stdexcept>

#include "Description.h"

namespace publishing {
namespace {

std::string Utf8(const QVariant& value) {
  return value.isNull() ? std::string() : value.toString().trimmed().toStdString();
}

void ReadNames(const IVorlinaRows& row, const VorlinaProfile& profile, CatalogSnapshot& catalog) {
  const auto name = [&](bool shown, const QString& column) {
    return shown ? vorlina::UnescapeName(row.Value(column)) : QString();
  };
  std::array<QString, 3> values;
  for (std::size_t i = 0; i < values.size(); ++i) {
    values[i] = name(profile.values[i], QStringLiteral("NomeValore%1").arg(i + 1));
    catalog.valueNames[i] = values[i].toStdString();
  }
  for (std::size_t i = 0; i < catalog.filterNames.size(); ++i)
    catalog.filterNames[i] =
        name(profile.filters[i], QStringLiteral("NomeFiltro%1").arg(i + 1)).toStdString();
  catalog.price = vorlina::PriceValue(values, profile);
}

void ReadCatalog(IVorlinaConnection& connection, const VorlinaJob& job, bool italian,
                 CatalogSnapshot& catalog) {
  const auto row =
      connection.Open(QStringLiteral("SELECT * FROM Cataloghi WHERE IDCatalogo=?"), {job.IDCatalogo});
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
  const VorlinaProfile& profile = job.profile;
  if (profile.showLogo) {
    const QString own = row->Value(QStringLiteral("Logo")).toString();
    catalog.logo = {profile.logo.isEmpty() ? own : profile.logo, catalog.company};
  }
  if (!profile.widePicture.isEmpty()) catalog.widePicture = {profile.widePicture, catalog.title};
  ReadNames(*row, profile, catalog);
}

// In the order in which readers of the language look for them, whoever publishes.
void Sort(std::vector<FilterValue>& values, const QString& language) {
  QCollator collator{QLocale(language)};
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  collator.setNumericMode(true);
  std::stable_sort(values.begin(), values.end(), [&](const FilterValue& a, const FilterValue& b) {
    return a.filter != b.filter ? a.filter < b.filter : collator.compare(a.text, b.text) < 0;
  });
}

void ReadFilterValues(IVorlinaConnection& connection, const VorlinaJob& job, CatalogSnapshot& catalog) {
  const auto rows = connection.Open(
      QStringLiteral("SELECT IDValore,IDNomeFiltro,Valore FROM Filtri WHERE IDCatalogo=? AND Pubblica "
                     "ORDER BY IDValore"),
      {job.IDCatalogo});
  while (rows->Next()) {
    const int filter = rows->Value(1).toInt();
    if (filter < 1 || filter > 5 || catalog.filterNames[std::size_t(filter) - 1].empty()) continue;
    catalog.filterValues.push_back({rows->Value(0).toInt(), filter, rows->Value(2).toString()});
  }
  Sort(catalog.filterValues, job.profile.language);
}

void Describe(const QVariant& text, Product& product) {
  product.description = Utf8(text);
  Description description = DescriptionOf(text.toString());
  product.name = description.name.empty() ? product.code.toStdString() : std::move(description.name);
  product.paragraphs = std::move(description.paragraphs);
}

Product ReadProduct(const IVorlinaRows& row, const CatalogSnapshot& catalog) {
  Product product;
  product.id = row.Value(12).toInt();
  product.code = row.Value(0).toString();
  Describe(row.Value(1), product);
  for (std::size_t i = 0; i < 3; ++i)
    if (!catalog.valueNames[i].empty()) product.values[i] = Utf8(row.Value(2 + int(i)));
  if (catalog.price > 0) product.price = product.values[std::size_t(catalog.price) - 1];
  for (std::size_t i = 0; i < 5; ++i)
    if (!catalog.filterNames[i].empty()) product.filters[i] = row.Value(5 + int(i)).toInt();
  if (const QString picture = row.Value(10).toString(); !picture.isEmpty())
    product.pictures.push_back({picture, product.name});
  if (const QVariant order = row.Value(11); !order.isNull()) product.order = order.toDouble();
  return product;
}

void ReadProducts(IVorlinaConnection& connection, const VorlinaJob& job, CatalogSnapshot& catalog) {
  const auto count = connection.Open(
      QStringLiteral("SELECT COUNT(*) FROM Prodotti WHERE IDCatalogo=? AND Pubblica"), {job.IDCatalogo});
  if (count->Next()) catalog.products.reserve(count->Value(0).toUInt());
  const auto rows = connection.Open(
      QStringLiteral(
          "SELECT CodiceProdotto,Descrizione,Valore1,Valore2,Valore3,IDFiltro1,IDFiltro2,IDFiltro3,IDFiltro4,"
          "IDFiltro5,Immagine,OrdineTemp,IDProdotto FROM Prodotti WHERE IDCatalogo=? AND Pubblica "
          "ORDER BY OrdineTemp IS NULL,OrdineTemp,IDProdotto"),
      {job.IDCatalogo});
  QSet<QString> highlights;
  for (const QString& code : job.profile.highlights) highlights.insert(FoldedCode(code));
  while (rows->Next()) {
    Product product = ReadProduct(*rows, catalog);
    const QString key = FoldedCode(product.code);
    product.highlight = highlights.contains(key);
    if (product.highlight) catalog.highlights.push_back(catalog.products.size());
    catalog.index.insert(key, catalog.products.size());
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
      const auto found = catalog_.index.constFind(FoldedCode(code_));
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

// The highlights come in publication order.
void ChooseWidePicture(CatalogSnapshot& catalog) {
  for (std::size_t i = 0; catalog.widePicture.source.isEmpty() && i < catalog.highlights.size(); ++i)
    if (const Product& product = catalog.products[catalog.highlights[i]]; !product.pictures.empty())
      catalog.widePicture = product.pictures[0];
}

// What the owner of the catalog may have overlooked.
void Note(bool italian, CatalogSnapshot& catalog) {
  using Kind = VorlinaNote::Kind;
  const auto told = [&](const char* inItalian, const char* inEnglish) {
    return QString::fromUtf8(italian ? inItalian : inEnglish);
  };
  // A text is there once, however many products it is told of.
  const QString sameOrder =
      told("Ha lo stesso ordine di pubblicazione di %1.", "It has the same order of publication as %1.");
  const QString noPicture = told("Non ha immagini.", "It has no picture.");
  const QString noDescription = told("Non ha descrizione: al suo posto sta il codice.",
                                     "It has no description: its code stands instead.");
  // Products of one number come one after the other.
  const Product* former = nullptr;
  for (const Product& product : catalog.products) {
    if (former != nullptr && product.order.has_value() && product.order == former->order)
      catalog.notes.push_back({Kind::DoubleOrder, product.code, sameOrder.arg(former->code)});
    former = &product;
  }
  for (const Product& product : catalog.products) {
    if (product.pictures.empty()) catalog.notes.push_back({Kind::NoPicture, product.code, noPicture});
    if (product.description.empty())
      catalog.notes.push_back({Kind::NoDescription, product.code, noDescription});
  }
}

}  // namespace

QString FoldedCode(QString code) {
  for (QChar& c : code)
    if (c >= u'A' && c <= u'Z') c = QChar(c.unicode() + (u'a' - u'A'));
  return code;
}

CatalogSnapshot ReadSnapshot(IVorlinaConnection& connection, const VorlinaJob& job, bool italian) {
  CatalogSnapshot catalog;
  ReadCatalog(connection, job, italian, catalog);
  ReadFilterValues(connection, job, catalog);
  ReadProducts(connection, job, catalog);
  ReadPictures(connection, job.IDCatalogo, catalog);
  ChooseWidePicture(catalog);
  Note(italian, catalog);
  return catalog;
}

void ReadFeatures(IVorlinaConnection& connection, const VorlinaJob& job, CatalogSnapshot& catalog) {
  if (!job.profile.techData) return;
  const auto rows = connection.Open(QStringLiteral("SELECT CodiceProdotto,Caratteristica,Valore FROM "
                                                   "SchedeTecniche WHERE IDCatalogo=? "
                                                   "ORDER BY CodiceProdotto,IDScheda"),
                                    {job.IDCatalogo});
  Finder products(catalog);
  // One product's after the other, in as much memory as they need.
  Product* owner = nullptr;
  std::vector<Feature> features;
  const auto give = [&] {
    if (owner != nullptr)
      owner->features.assign(std::make_move_iterator(features.begin()),
                             std::make_move_iterator(features.end()));
    features.clear();
  };
  while (rows->Next()) {
    Product* product = products.Find(rows->Value(0));
    if (product != owner) give();
    owner = product;
    if (product != nullptr) features.push_back({Utf8(rows->Value(1)), Utf8(rows->Value(2))});
  }
  give();
}

}  // namespace publishing
