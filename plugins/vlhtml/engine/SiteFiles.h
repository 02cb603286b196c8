// The files of a site, as a publication takes them in.
#pragma once

#include "PageData.h"
#include "Publication.h"

namespace vlhtml {

// Adds the pages, each followed by the files that are published with it, and what the site has besides.
// Gives the pages by their numbers. What is added refers to the site, which must outlive the publication.
std::vector<Page> AddFiles(const Site& site, const Skin& skin, Publication& publication);

}  // namespace vlhtml
