// What all pages of a site are made from.
#pragma once

#include "Publishing.h"

#include <VorlinaJob.h>

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "Fields.h"
#include "PublishedPictures.h"
#include "SitePlan.h"
#include "Words.h"

namespace vlhtml {

// What stands on many pages.
struct ToldOnce {
  std::vector<Fragment> cards;                // of the plan's products
  std::vector<Fragment> groups;               // the plan's, on pages that are not of one of their values
  std::vector<Fragment> values, sisterHeads;  // the plan's filters: as one value of several, and over sisters
  std::string mail;                           // where readers ask about a product; "" where they cannot
  std::string call;                           // the words for calling; "" where there is no telephone
  std::uint64_t headsFrom = 0;                // the fingerprint of what the heads of all pages are made from
};

struct Site {
  const SitePlan& plan;
  const PublishedPictures& pictures;
  const Words& words;
  const VorlinaProfile& profile;
  bool hasTheme = false;     // there is a file "theme.css"
  bool hasSearch = false;    // there are "search.js" and its index
  bool hasMessages = false;  // the skin has pages that only say something

  ToldOnce once;

  const CatalogSnapshot& Catalog() const { return *plan.catalog; }
  // The site's own name: its title, or the name by which its owner knows it.
  const std::string& Title() const;
  // Who it is of: the company, or the title.
  const std::string& Brand() const;
  // Where a reader finds the first page, ending in "/"; "" where that is not known.
  std::string Address() const;
  // The same on its own host: "/catalog/".
  std::string Root() const;
  // A file of the site as a page refers to it. In a preview, what is not there leads to a page that says so.
  std::string Link(const QString& file) const;
  // Its first page.
  const std::string& Link(const PlannedList& list) const;

 private:
  const std::string& NotInPreview() const;
};

}  // namespace vlhtml
