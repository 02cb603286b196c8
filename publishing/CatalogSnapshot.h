// A catalog as it is published, read once: plain UTF-8 text and paths, without the database.
#pragma once

#include <QHash>
#include <QString>
#include <array>
#include <string>
#include <vector>

class IVorlinaConnection;

namespace publishing {

// A picture of a product or the logo: the source file as the database names it.
struct Picture {
  QString source;
  std::string caption;
};

struct Feature {
  std::string name;
  std::string value;
};

struct Product {
  QString code;
  std::string description;
  std::array<std::string, 3> values;
  std::array<int, 5> filters{};   // Filtri.IDValore; 0 for none
  std::vector<Picture> pictures;  // the main picture first
  std::vector<Feature> features;
};

// A published value of a filter.
struct FilterValue {
  int id = 0;
  int filter = 0;  // 1 to 5
  QString text;
};

struct CatalogSnapshot {
  std::string name, title, subtitle, information;
  std::string company, address, city, province, country, postalCode, telephone, fax, email, url, extras;
  Picture logo;
  std::array<std::string, 3> valueNames;   // empty: not in use
  std::array<std::string, 5> filterNames;  // empty: not in use
  std::vector<FilterValue> filterValues;   // published ones, by filter and text
  std::vector<Product> products;           // published ones, in publication order
  QHash<QString, std::size_t> index;       // of products, by code in folded case
};

// Reads a catalog but for its features. Throws std::runtime_error when there is none with this identifier,
// and what the connection throws.
CatalogSnapshot ReadSnapshot(IVorlinaConnection& connection, int IDCatalogo, bool italian);
// Reads the products' features, while nothing else of the snapshot changes.
void ReadFeatures(IVorlinaConnection& connection, int IDCatalogo, CatalogSnapshot& catalog);

}  // namespace publishing
