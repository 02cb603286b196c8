// The file "search-index.js", from which the site's search.js finds products: their texts in columns, as the
// argument of one call.
#pragma once

#include "Publishing.h"

#include <QString>
#include <string>
#include <vector>

#include "CatalogSnapshot.h"
#include "Words.h"

namespace vlhtml {

// A product as it is found.
struct SearchHit {
  const Product* product = nullptr;
  QString file;     // of its page: "p-101.html"
  QString picture;  // of its first picture's smallest size: "images/p-101_400w.jpg"; "" where it has none
  std::string price;
  std::string value;  // what lists show where nothing is the price
};

// The hits are in the order of publication. Of long texts the beginning is taken in, of the more products the
// less: the texts stay within what a phone fetches gladly, and each product adds its name. The label stands
// before prices or values.
std::string SearchIndex(const CatalogSnapshot& catalog, const std::vector<SearchHit>& hits,
                        const std::string& label, const Words& words);

}  // namespace vlhtml
