// A product's own page.
#pragma once

#include "Fields.h"
#include "Site.h"

namespace vlhtml {

void TellProduct(Fields& fields, const Site& site, int product);

}  // namespace vlhtml
