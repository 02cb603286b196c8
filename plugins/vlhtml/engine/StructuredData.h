// What pages tell machines, in the words of schema.org: only what the catalog holds.
#pragma once

#include <QJsonObject>

#include "Site.h"

namespace vlhtml {

// The company, as a business with a place where it has an address.
QJsonObject CompanyData(const Site& site);
// A product; with an offer where its price is a plain number in a known currency.
QJsonObject ProductData(const Site& site, int product);
// The way to a page: names and files, the page last. Empty where the site's address is not known.
QJsonObject PathData(const Site& site, const std::vector<std::pair<std::string, QString>>& steps);

}  // namespace vlhtml
