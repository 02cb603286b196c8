// The words that the site itself says, in the language of the catalog's user.
#pragma once

#include "Skin.h"

namespace vlhtml {

// Every word as {{L.key}} in a skin. docs/plugins.md lists the keys.
Data Labels(bool italian);

// "Page 2 of 5".
std::string PageOf(bool italian, int page, int pages);

}  // namespace vlhtml
