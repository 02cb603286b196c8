// What the templates see of each page, and the hash by which an unchanged page is known without being made.
#pragma once

#include <QByteArray>

#include "SitePlan.h"
#include "Skin.h"

namespace vlhtml {

class PageData {
 public:
  PageData(const SitePlan& plan, const QByteArray& skinHash, bool italian);

  // What every page sees besides its own.
  const Data& Site() const { return site_; }
  Data Home() const;
  Data List(const PlannedList& list, int page) const;
  Data OfProduct(int position) const;

  // Hashes of all that goes into a page.
  QByteArray HomeHash() const;
  QByteArray ListHash(const PlannedList& list, int page) const;
  QByteArray ProductHash(int position) const;

 private:
  static Data Page(const std::string& title);
  Data Card(int position) const;
  Data PictureData(const PlannedPicture& picture, bool small) const;
  Data Links(int filter) const;
  QByteArray CardHash(int position) const;
  const std::vector<int>& Featured() const { return featured_; }

  const SitePlan& plan_;
  const CatalogSnapshot& catalog_;
  bool italian_;
  Data site_;            // what all pages have
  QByteArray siteHash_;  // skin, company and filters
  std::vector<int> featured_;
  std::vector<QByteArray> cardHashes_;
};

}  // namespace vlhtml
