// Everything that a site consists of, settled before the first file is written: the pages with their names,
// and which product belongs where.
#pragma once

#include "Publishing.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <string>
#include <vector>

#include "CatalogSnapshot.h"
#include "PriceTag.h"

namespace publishing {
class PublishedPictures;
class Words;
}  // namespace publishing

namespace vlhtml {

// Products on a list page.
inline constexpr int ProductsOnPage = 24;
// Values of a filter that stand beside others; a page of their own has all of them.
inline constexpr std::size_t ValuesAtOnce = 12;

struct PlannedProduct {
  const Product* product = nullptr;
  QString file;
  std::string price;  // as it is shown; "" where there is none
};

// A list of products over several pages: the whole catalog, or one filter value.
struct PlannedList {
  QString title;
  std::string text;           // the title, as pages have it
  int filter = 0;             // 0 for the whole catalog
  QString file;               // name of the first page, without ".html"
  std::string firstFile;      // its whole name
  std::vector<int> products;  // by position
  bool rows = false;          // few of them have a picture
  int namesakes = 0;          // how many lists before it have its title, in the same filter

  PlannedList(QString title, int filter, QString file);
  int Pages() const { return std::max(1, (int(products.size()) + ProductsOnPage - 1) / ProductsOnPage); }
  QString PageFile(int page) const;  // counted from 1
};

// A filter with the values that have products.
struct PlannedFilter {
  int number = 0;  // 1 to 5
  std::string name;
  std::vector<int> lists;  // positions in SitePlan::filters, in the order of their texts
  QString allFile;         // the page of all its values; "" where there is none
};

struct SitePlan {
  const CatalogSnapshot* catalog = nullptr;
  const PublishedPictures* pictures = nullptr;
  PriceTag price;
  std::vector<PlannedProduct> products;
  PlannedList all;
  std::vector<PlannedList> filters;  // those with products, in the order of the snapshot
  QHash<int, int> filterList;        // Filtri.IDValore to position in filters
  std::vector<PlannedFilter> groups;
  std::vector<int> featured;  // positions of the highlights, or of products with a picture from all over
  int previewed = -1;         // the one product of a preview; -1 where everything is published

  // The snapshot must outlive the plan. moreValues: whether there are pages of all values of a filter.
  SitePlan(const CatalogSnapshot& snapshot, const Words& words, bool preview, bool moreValues);

  // The names of the products' pictures; "" for those of which a preview shows none.
  QStringList PictureNames() const;
  // The pictures must outlive the plan.
  void SetPictures(const PublishedPictures& published);
  // Highlights that the first page does not show, and an address that is none. Once the pictures are set.
  QList<VorlinaNote> Notes(bool italian) const;
  // The product whose picture stands for the list on the first page: one that is not featured there if there
  // is such a one; -1 where none has a picture.
  int PicturedOf(const PlannedList& list) const;
  // Products of the same first filter value, those behind this one first.
  std::vector<int> SistersOf(int product) const;
  // The list of the product's first filter value; null where it has none.
  const PlannedList* FirstList(int product) const;

 private:
  bool HasPicture(int product) const;
  void NameProducts();
  void PlanFilters(bool moreValues);
  void ChooseFeatured();
};

}  // namespace vlhtml
