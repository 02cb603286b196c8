// What the windows of publishing show of a catalog: the names that its owner gave, and its products.
#pragma once

#include <QHash>
#include <QString>
#include <array>
#include <vector>

namespace vorlina {

class Connection;

// As they are shown; "" for what is not in use.
struct CatalogNames {
  QString catalog;
  std::array<QString, 3> values;
  std::array<QString, 5> filters;
};

struct PublishedProduct {
  QString code;
  QString name;         // the first line of its description
  QString description;  // the whole of it
  bool hasPicture = false;
};

// Throw Error.
CatalogNames ReadCatalogNames(Connection& connection, int IDCatalogo);
// Those that are published, in the order of publication.
std::vector<PublishedProduct> ReadPublishedProducts(Connection& connection, int IDCatalogo);
// The names by the codes.
QHash<QString, QString> NamesByCode(const std::vector<PublishedProduct>& products);

}  // namespace vorlina
