// A catalog as a job publishes it, read once: plain UTF-8 text and paths, without the database. What the
// job's profile hides is not in it, so that nothing of it can be published by an oversight.
#pragma once

#include <VorlinaJob.h>

#include <QHash>
#include <QList>
#include <QString>
#include <array>
#include <optional>
#include <string>
#include <vector>

class IVorlinaConnection;

namespace publishing {

// A picture of a product or of the catalog: the source file as the database names it.
struct Picture {
  QString source;
  std::string caption;
};

struct Feature {
  std::string name;
  std::string value;
};

struct Product {
  int id = 0;  // Prodotti.IDProdotto: who came into the catalog later has a larger one
  QString code;
  std::string description;              // as it was typed
  std::string name;                     // its first line or sentence; the code where there is none
  std::vector<std::string> paragraphs;  // the rest of it; line breaks in one are "\n"
  std::array<std::string, 3> values;    // empty for a value that is not shown
  std::string price;                    // that of the values which is the price; it stands among them too
  std::array<int, 5> filters{};         // Filtri.IDValore; 0 for none, and for a filter that is not shown
  std::vector<Picture> pictures;        // the main picture first
  std::vector<Feature> features;
  std::optional<double> order;  // its number in the order of publication
  bool highlight = false;
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
  Picture logo, widePicture;               // no source: none
  std::array<std::string, 3> valueNames;   // empty: not in use, or not shown
  std::array<std::string, 5> filterNames;  // empty: not in use, or not shown
  int price = 0;                           // which value is the price, 1 to 3; 0 for none
  std::vector<FilterValue> filterValues;   // published ones, by filter and text
  std::vector<Product> products;           // published ones, in publication order
  std::vector<std::size_t> highlights;     // positions of products, ascending
  QHash<QString, std::size_t> index;       // of products, by FoldedCode
  QList<VorlinaNote> notes;                // no picture, no description, double order
};

// What is equal for two ways of writing one product's code: the database takes only A to Z for a to z, and
// has products that other letters tell apart.
QString FoldedCode(QString code);

// Reads the job's catalog but for its features. Throws std::runtime_error when there is none with this
// identifier, and what the connection throws.
CatalogSnapshot ReadSnapshot(IVorlinaConnection& connection, const VorlinaJob& job, bool italian);
// Reads the products' features, where the profile shows them, while nothing else of the snapshot changes.
void ReadFeatures(IVorlinaConnection& connection, const VorlinaJob& job, CatalogSnapshot& catalog);

}  // namespace publishing
