#include "CatalogWriter.h"

#include <QDir>
#include <QImageReader>
#include <QSet>
#include <algorithm>

#include "base/Error.h"
#include "store/SampleData.h"

namespace vorlina {
namespace {

// A null text binds Null.
void BindText(SQLite::Statement& statement, int column, const QString& text) {
  if (text.isNull())
    statement.bind(column);
  else
    statement.bind(column, text.toStdString());
}

QString StoredPath(const QString& file) {
  return QDir::toNativeSeparators(SampleDataRoot + u"/Images/" + file);
}

}  // namespace

QString StoredName(const QString& name) {
  QString stored;
  for (const QChar c : name) {
    if (c == u'\\')
      stored += u"\\\\"_qs;
    else if (QStringView(u"./*:#&-%$").contains(c))
      stored += u'\\' + QString::number(c.unicode()).rightJustified(3, u'0');
    else
      stored += c;
  }
  return name.isNull() ? QString() : stored;
}

CatalogWriter::CatalogWriter(SQLite::Database& database, QString images)
    : database_(database), images_(std::move(images)) {}

void CatalogWriter::Write(const SampleCatalog& catalog) {
  WriteCatalogRow(catalog);
  WriteFilters(catalog);
  // The rows stand in the order of their codes, as after years of use; OrdineTemp has the publication order.
  std::vector<SampleProduct> products = catalog.products;
  std::sort(products.begin(), products.end(), [](const SampleProduct& a, const SampleProduct& b) {
    return a.code.compare(b.code, Qt::CaseInsensitive) < 0;
  });
  for (const SampleProduct& product : products) {
    WriteProduct(product);
    WriteTechData(product);
  }
  for (const SampleProduct& product : catalog.products) WritePictures(product);
}

// Binds path, width and height from that column on.
void CatalogWriter::BindPicture(SQLite::Statement& statement, int column, const QString& file) const {
  QImageReader reader(images_ + u'/' + file, "jpeg");
  const QSize size = reader.size();
  if (!size.isValid()) throw Error(u"no picture "_qs + file + u": " + reader.errorString());
  BindText(statement, column, StoredPath(file));
  statement.bind(column + 1, size.width());
  statement.bind(column + 2, size.height());
}

void CatalogWriter::WriteCatalogRow(const SampleCatalog& catalog) {
  QStringList names{u"IDCatalogo"_qs, u"Logo"_qs, u"Width"_qs, u"Height"_qs};
  QStringList texts;
  const auto add = [&](const QString& name, const QString& text) {
    names << name;
    texts << text;
  };
  for (qsizetype i = 0; i < catalog.filterNames.size(); ++i)
    add(u"NomeFiltro"_qs + QString::number(i + 1), StoredName(catalog.filterNames[i]));
  for (qsizetype i = 0; i < catalog.valueNames.size(); ++i)
    add(u"NomeValore"_qs + QString::number(i + 1), StoredName(catalog.valueNames[i]));
  for (auto it = catalog.columns.begin(); it != catalog.columns.end(); ++it)
    add(it.key(), it.value().toString());

  const QString marks = QStringList(names.size(), u"?"_qs).join(u", "_qs);
  const QString sql = u"INSERT INTO Cataloghi ("_qs + names.join(u", "_qs) + u") VALUES (" + marks + u')';
  SQLite::Statement insert(database_, sql.toStdString());
  insert.bind(1, catalog.id);
  BindPicture(insert, 2, catalog.LogoName());
  for (qsizetype i = 0; i < texts.size(); ++i) BindText(insert, int(i) + 5, texts[i]);
  insert.exec();
}

void CatalogWriter::WriteFilters(const SampleCatalog& catalog) {
  valueIds_.clear();
  QSet<std::pair<int, QString>> hidden(catalog.unpublished.begin(), catalog.unpublished.end());
  SQLite::Statement insert(
      database_, "INSERT INTO Filtri (IDCatalogo, IDNomeFiltro, Valore, Pubblica) VALUES (?, ?, ?, ?)");
  for (const SampleProduct& product : catalog.products)
    for (int n = 1; n <= 5; ++n) {
      const std::pair<int, QString> key{n, product.filters[n - 1]};
      if (key.second.isEmpty() || valueIds_.contains(key)) continue;
      insert.reset();
      insert.bind(1, catalog.id);
      insert.bind(2, n);
      BindText(insert, 3, key.second);
      insert.bind(4, hidden.remove(key) ? 0 : 1);
      insert.exec();
      valueIds_.insert(key, database_.getLastInsertRowid());
    }
  for (const auto& [number, value] : hidden)
    throw Error(u"no product has the unpublished value "_qs + value + u" of filter " +
                QString::number(number));
}

void CatalogWriter::WriteProduct(const SampleProduct& p) {
  SQLite::Statement insert(
      database_,
      "INSERT INTO Prodotti (IDCatalogo, CodiceProdotto, Descrizione, Pubblica, SchedaTecnica, OrdineTemp,"
      " Immagine, Width, Height, Valore1, Valore2, Valore3, IDFiltro1, IDFiltro2, IDFiltro3, IDFiltro4,"
      " IDFiltro5) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
  insert.bind(1, p.catalog);
  BindText(insert, 2, p.code);
  BindText(insert, 3, p.text);
  insert.bind(4, p.publish ? 1 : 0);
  insert.bind(5, p.tech.empty() ? 0 : 1);
  insert.bind(6, p.position);
  BindPicture(insert, 7, p.FileName());
  for (int i = 0; i < 3; ++i) BindText(insert, 10 + i, p.values[i]);
  for (int n = 1; n <= 5; ++n) {
    const QString& value = p.filters[n - 1];
    if (value.isNull())
      insert.bind(12 + n);
    else
      insert.bind(12 + n, static_cast<std::int64_t>(value.isEmpty() ? 0 : valueIds_.value({n, value})));
  }
  insert.exec();
}

void CatalogWriter::WriteTechData(const SampleProduct& p) {
  SQLite::Statement insert(
      database_,
      "INSERT INTO SchedeTecniche (IDCatalogo, CodiceProdotto, Caratteristica, Valore) VALUES (?, ?, ?, ?)");
  for (const auto& [feature, value] : p.tech) {
    insert.reset();
    insert.bind(1, p.catalog);
    BindText(insert, 2, p.code);
    BindText(insert, 3, feature);
    BindText(insert, 4, value);
    insert.exec();
  }
}

void CatalogWriter::WritePictures(const SampleProduct& p) {
  SQLite::Statement insert(
      database_,
      "INSERT INTO Immagini (IDImmagine, IDCatalogo, CodiceProdotto, Descrizione, Immagine,"
      " Width, Height) VALUES (?, ?, ?, ?, ?, ?, ?)");
  for (const SamplePicture& picture : p.pictures) {
    insert.reset();
    insert.bind(1, picture.id);
    insert.bind(2, p.catalog);
    BindText(insert, 3, p.code);
    BindText(insert, 4, picture.caption);
    BindPicture(insert, 5, picture.FileName());
    insert.exec();
  }
}

}  // namespace vorlina
