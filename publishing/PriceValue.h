// Which of a catalog's values is the price.
#pragma once

#include <VorlinaJob.h>

#include <QString>
#include <array>

namespace publishing {

// 1 to 3, 0 for none: what the profile says, or the value whose name says so, such as "Prezzo" or "Price £".
// The names are those of the values that are shown, "" for the others, which are no price.
int PriceValue(const std::array<QString, 3>& names, const VorlinaProfile& profile);

}  // namespace publishing
