#include "StructuredData.h"

#include <QJsonArray>

#include "Contact.h"

namespace vlhtml {
namespace {

// What is empty is left out.
void Set(QJsonObject& object, const char* name, const std::string& text) {
  if (!text.empty()) object.insert(QLatin1String(name), QString::fromStdString(text));
}

QJsonObject OfType(const char* type) { return {{QStringLiteral("@type"), QLatin1String(type)}}; }

}  // namespace

QJsonObject CompanyData(const Site& site) {
  const CatalogSnapshot& catalog = site.Catalog();
  const bool hasPlace = !catalog.address.empty() && !catalog.city.empty();
  const std::string map = SafeUrl(site.profile.mapLink.toStdString());
  // An address alone does not say that people can come.
  const bool isOpen = hasPlace && !(map.empty() && site.profile.hours.trimmed().isEmpty());
  QJsonObject company = OfType(isOpen ? "LocalBusiness" : "Organization");
  Set(company, "name", site.Brand());
  Set(company, "telephone", catalog.telephone);
  Set(company, "faxNumber", catalog.fax);
  Set(company, "email", SafeMail(catalog.email));
  const std::string address = site.Address();
  const std::string own = SafeUrl(catalog.url);
  Set(company, "url", address.empty() ? own : address);
  if (!address.empty() && own != address) Set(company, "sameAs", own);
  if (isOpen) Set(company, "hasMap", map);
  if (const PublishedPicture* logo = site.pictures.Logo(); logo != nullptr && !address.empty())
    Set(company, isOpen ? "image" : "logo", address + logo->file.toStdString());
  if (hasPlace) {
    QJsonObject place = OfType("PostalAddress");
    Set(place, "streetAddress", catalog.address);
    Set(place, "postalCode", catalog.postalCode);
    Set(place, "addressLocality", catalog.city);
    Set(place, "addressRegion", catalog.province);
    Set(place, "addressCountry", catalog.country);
    company.insert(QStringLiteral("address"), place);
  }
  return company;
}

QJsonObject ProductData(const Site& site, int product) {
  const PlannedProduct& planned = site.plan.products[std::size_t(product)];
  const Product& told = *planned.product;
  const std::string address = site.Address();
  QJsonObject data = OfType("Product");
  Set(data, "name", told.name);
  Set(data, "sku", told.code.toStdString());
  Set(data, "description", told.description);
  if (!address.empty()) {
    Set(data, "url", address + planned.file.toStdString());
    QJsonArray images;
    for (const PublishedPicture& picture : site.pictures.Of(std::size_t(product)))
      images.append(QString(QString::fromStdString(address) + picture.file));
    if (!images.isEmpty()) data.insert(QStringLiteral("image"), images);
  }
  const std::string amount = site.plan.price.Amount(told.price);
  const std::string currency = site.plan.price.Currency(told.price);
  if (amount.empty() || currency.empty()) return data;
  QJsonObject offer = OfType("Offer");
  Set(offer, "price", amount);
  Set(offer, "priceCurrency", currency);
  data.insert(QStringLiteral("offers"), offer);
  return data;
}

QJsonObject PathData(const Site& site, const std::vector<std::pair<std::string, QString>>& steps) {
  const QString address = QString::fromStdString(site.Address());
  if (address.isEmpty()) return {};
  QJsonArray items;
  for (const auto& [name, file] : steps) {
    QJsonObject item = OfType("ListItem");
    item.insert(QStringLiteral("position"), items.size() + 1);
    Set(item, "name", name);
    item.insert(QStringLiteral("item"), file == u"index.html" ? address : QString(address + file));
    items.append(item);
  }
  QJsonObject path = OfType("BreadcrumbList");
  path.insert(QStringLiteral("itemListElement"), items);
  return path;
}

}  // namespace vlhtml
