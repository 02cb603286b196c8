// What the site's skins are made of.
#pragma once

#include "Publishing.h"

#include "Skin.h"

namespace vlhtml {

// In the order of SiteSkin().pages.
enum class PageKind { Home, Index, Filter, Product };

const SkinKind& SiteSkin();

}  // namespace vlhtml
