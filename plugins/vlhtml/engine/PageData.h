// What the templates see of each page, and the hash by which an unchanged page is known without being made.
// Both come from the same procedures.
#pragma once

#include "Publishing.h"

#include <QByteArray>
#include <array>

#include "Fields.h"
#include "SitePlan.h"
#include "SiteSkin.h"

namespace vlhtml {

// A page of the site. A list has pages counted from 1; a product is told by its position.
struct Page {
  PageKind kind = PageKind::Home;
  const PlannedList* list = nullptr;
  int number = 0;
};

class PageData {
 public:
  // Plan and skin must outlive it. italian is the language of the site.
  PageData(const SitePlan& plan, const Skin& skin, bool italian);

  // What every page sees besides its own.
  void TellSite(Fields& fields) const;
  void TellPage(Fields& fields, const Page& page) const;

 private:
  void TellHome(Fields& fields) const;
  void TellList(Fields& fields, const PlannedList& list, int page) const;
  void TellProduct(Fields& fields, int position) const;
  void TellDetails(Fields& fields, const Product& product) const;
  static void TellTitle(Fields& fields, const std::string& title);
  static void TellPicture(Fields& fields, const PlannedPicture& picture, bool small);
  void TellCard(Fields& fields, int position) const;
  void TellKnownCard(Fields& fields, int position) const;
  void TellLinks(Fields& fields, int filter) const;
  // The links of one filter, or of all for 0.
  void TellLinksAs(Fields& fields, const char* name, int filter) const;
  std::vector<const PlannedList*> Lists(int filter) const;

  const SitePlan& plan_;
  const CatalogSnapshot& catalog_;
  const Skin& skin_;
  bool italian_;
  std::vector<int> featured_;
  struct Link {
    std::string text, file;
  };
  std::vector<Link> filterLinks_;        // to the first pages of the plan's filters
  std::vector<Fragment> links_, cards_;  // by the number of the filter less one; by product
};

}  // namespace vlhtml
