// The keys of the windows in which products are edited.
#pragma once

#include "support/KeyOverview.h"

namespace vorlina {

std::vector<KeyGroup> ProductKeys();

}  // namespace vorlina
