#include "SampleCatalog.h"

#include <QDir>
#include <QHash>
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

QJsonObject Over(QJsonObject below, const QJsonObject& above) {
  for (auto it = above.begin(); it != above.end(); ++it) below[it.key()] = it.value();
  return below;
}

// A form, or what another product's form becomes with some of its words changed.
QJsonObject FormOf(const QJsonObject& form, const QHash<QString, QJsonObject>& byCode) {
  const QString as = form[u"as"].toString();
  if (as.isEmpty()) return form;
  if (!byCode.contains(as)) throw Error(u"a form names an unknown product: "_qs + as);
  return Over(byCode[as][u"form"].toObject(), form);
}

// The pieces of a picture with their forms put in: the product's own, or those that "with" names.
QJsonObject Compose(const QJsonObject& product, const QJsonObject& picture,
                    const QHash<QString, QJsonObject>& byCode, const QString& seed) {
  QJsonArray pieces = picture[u"with"].toArray();
  if (pieces.isEmpty()) pieces.append(QJsonObject());
  QJsonArray composed;
  for (const QJsonValue value : pieces) {
    QJsonObject piece = value.toObject();
    const QString code = piece[u"code"].toString(product[u"code"].toString());
    if (!byCode.contains(code)) throw Error(u"a picture names an unknown product: "_qs + code);
    if (!piece.contains(u"form")) piece[u"form"] = FormOf(byCode[code][u"form"].toObject(), byCode);
    composed.append(piece);
  }
  const QJsonObject view = Over(product[u"view"].toObject(), picture[u"view"].toObject());
  return {{u"pieces"_qs, composed}, {u"view"_qs, view}, {u"seed"_qs, seed}};
}

SampleProduct ProductOf(const QJsonObject& o, const SampleCatalog& catalog,
                        const QHash<QString, QJsonObject>& byCode) {
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
  p.composition = Compose(o, {}, byCode, p.code);
  for (const QJsonValue value : o[u"images"].toArray()) {
    const QJsonObject image = value.toObject();
    const QString seed = p.code + u'/' + QString::number(p.pictures.size());
    const int id = image[u"picture"].toInt();
    if (id < 1) throw Error(p.code + u": a picture has no number"_qs);
    p.pictures.push_back({id, TextOrNull(image[u"caption"]), Compose(o, image, byCode, seed)});
  }
  return p;
}

SampleCatalog CatalogOf(const QJsonObject& o) {
  SampleCatalog catalog;
  catalog.id = o[u"id"].toInt();
  catalog.columns = o[u"catalog"].toObject();
  catalog.filterNames = TextsOf(o[u"filterNames"], 5);
  catalog.valueNames = TextsOf(o[u"valueNames"], 3);
  catalog.logo = o[u"logo"].toObject();
  for (const QJsonValue row : o[u"unpublished"].toArray())
    catalog.unpublished.emplace_back(row.toArray().at(0).toInt(), row.toArray().at(1).toString());
  QHash<QString, QJsonObject> byCode;
  const QJsonArray products = o[u"products"].toArray();
  for (const QJsonValue product : products) byCode[product[u"code"].toString()] = product.toObject();
  for (const QJsonValue product : products)
    catalog.products.push_back(ProductOf(product.toObject(), catalog, byCode));
  return catalog;
}

}  // namespace

QJsonObject ReadJsonFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) throw Error(path + u": " + file.errorString());
  QJsonParseError fault;
  const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &fault);
  if (document.isObject()) return document.object();
  throw Error(path + u": at byte " + QString::number(fault.offset) + u": " + fault.errorString());
}

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
