// Everything that a site consists of, settled before the first file is written: the pages and pictures with
// their names, and which belongs where.
#pragma once

#include "Publishing.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <vector>

#include "CatalogSnapshot.h"
#include "Labels.h"

namespace vlhtml {

// Products on a list page.
inline constexpr int ProductsOnPage = 24;

// A picture of the site: where it comes from and what it is called.
struct PlannedPicture {
  QString source;       // full path of the file to copy
  QString file;         // "images/p-101.jpg"
  QByteArray stamp;     // size and time of the source: changes when the picture does
  QString smallSource;  // the thumbnail's file; the picture's own where there is none
  QString smallFile;
  QByteArray smallStamp;
  const Picture* picture = nullptr;
};

struct PlannedProduct {
  const Product* product = nullptr;
  QString file;
  std::vector<PlannedPicture> pictures;  // those whose file can be published
};

// A list of products over several pages: the whole catalog, or one filter value.
struct PlannedList {
  QString title;
  int filter = 0;  // 0 for the whole catalog
  QString file;    // name of the first page, without ".html"
  std::vector<int> products;

  int Pages() const { return std::max(1, (int(products.size()) + ProductsOnPage - 1) / ProductsOnPage); }
  QString PageFile(int page) const;  // counted from 1
};

struct SitePlan {
  const CatalogSnapshot* catalog = nullptr;
  std::vector<PlannedProduct> products;
  PlannedList all;
  std::vector<PlannedList> filters;  // those with products, in the order of the snapshot
  QHash<int, int> filterList;        // Filtri.IDValore to position in filters
  std::vector<PlannedPicture> logo;  // one or none
  QStringList warnings;              // what is left out, for the user

  // The snapshot must outlive the plan. Only pictures in the application folder's "Images" are published.
  SitePlan(const CatalogSnapshot& snapshot, const QString& imagesFolder, const Languages& languages);
};

}  // namespace vlhtml
