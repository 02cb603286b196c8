#include "SampleCatalog.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

#include "base/Error.h"

namespace vorlina {
namespace {

// Null for null; the empty text for the number 0.
QString TextOrNull(const QJsonValue& value) {
  return value.isString() ? value.toString() : value.isDouble() ? QStringLiteral("") : QString();
}

QStringList TextsOf(const QJsonValue& value, qsizetype count) {
  QStringList texts;
  const QJsonArray array = value.toArray();
  for (qsizetype i = 0; i < count; ++i) texts << TextOrNull(array.at(i));
  return texts;
}

SampleProduct ProductOf(const QJsonObject& o, const SampleCatalog& catalog) {
  SampleProduct p;
  p.catalog = catalog.id;
  p.position = int(catalog.products.size()) + 1;
  p.code = o[u"code"].toString();
  if (p.code.isEmpty()) throw Error(u"a product has no code"_qs);
  p.text = TextOrNull(o[u"text"]);
  p.filters = TextsOf(o[u"filters"], 5);
  p.values = TextsOf(o[u"values"], 3);
  p.publish = o[u"publish"].toBool(true);
  for (const QJsonValue row : o[u"tech"].toArray())
    p.tech.emplace_back(row.toArray().at(0).toString(), row.toArray().at(1).toString());
  for (const QJsonValue value : o[u"images"].toArray()) {
    const int id = value[u"picture"].toInt();
    if (id < 1) throw Error(p.code + u": a picture has no number"_qs);
    p.pictures.push_back({id, TextOrNull(value[u"caption"])});
  }
  return p;
}

SampleCatalog CatalogOf(const QJsonObject& o) {
  SampleCatalog catalog;
  catalog.id = o[u"id"].toInt();
  catalog.columns = o[u"catalog"].toObject();
  catalog.filterNames = TextsOf(o[u"filterNames"], 5);
  catalog.valueNames = TextsOf(o[u"valueNames"], 3);
  for (const QJsonValue row : o[u"unpublished"].toArray())
    catalog.unpublished.emplace_back(row.toArray().at(0).toInt(), row.toArray().at(1).toString());
  for (const QJsonValue product : o[u"products"].toArray())
    catalog.products.push_back(ProductOf(product.toObject(), catalog));
  return catalog;
}

QJsonObject ReadJsonFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw Error(path + u": " + file.errorString());
  QJsonParseError fault;
  const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &fault);
  if (document.isObject()) return document.object();
  throw Error(path + u": at byte " + QString::number(fault.offset) + u": " + fault.errorString());
}

}  // namespace

std::vector<SampleCatalog> ReadSampleCatalogs(const QString& folder) {
  std::vector<SampleCatalog> catalogs;
  const QStringList names = QDir(folder).entryList({u"catalog-*.json"_qs}, QDir::Files, QDir::Name);
  for (const QString& name : names) {
    const QJsonObject o = ReadJsonFile(folder + u'/' + name);
    try {
      catalogs.push_back(CatalogOf(o));
    } catch (const Error& error) {
      throw Error(name + u": " + error.Description());
    }
  }
  if (catalogs.empty()) throw Error(u"no sample catalogs in "_qs + folder);
  return catalogs;
}

}  // namespace vorlina
