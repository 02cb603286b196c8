// The first page.
#pragma once

#include "Fields.h"
#include "Site.h"

namespace vlhtml {

void TellHome(Fields& fields, const Site& site);

}  // namespace vlhtml
