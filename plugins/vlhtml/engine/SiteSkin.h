// What the site's skins are made of.
#pragma once

#include "Publishing.h"

#include "Skin.h"

namespace vlhtml {

// In the order of SiteSkin().pages and moreKinds. A skin may be without the last two: then no page has all
// values of a filter, and nothing tells that a page was not found.
enum class PageKind { Home, Index, Filter, Product, Values, Message };

const SkinKind& SiteSkin();

}  // namespace vlhtml
