// The search for products: the boxes of the card as a mask.
#pragma once

#include <QString>

#include "products/ProductStore.h"

namespace vorlina {

// The condition that goes behind the one on the catalog, by the columns of Prodotti: texts begin as what was
// typed, filters (IDFiltro1 to IDFiltro5) are equal, and all hold. "%" stands for whatever there is, and
// nothing else has a meaning of its own. What is empty, or 0 for a filter, asks for nothing: "" for an empty
// mask.
QString SearchCondition(const ProductValues& mask);

}  // namespace vorlina
