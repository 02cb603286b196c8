#include "SiteFiles.h"

#include <algorithm>

#include "Fingerprint.h"
#include "PageParts.h"
#include "SearchIndex.h"
#include "Theme.h"

namespace vlhtml {
namespace {

// The most addresses that a sitemap may have.
constexpr std::size_t LongestSitemap = 50000;

std::string Sitemap(const std::string& address, const std::vector<QString>& files) {
  std::string map =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<urlset xmlns=\"http://www.sitemaps.org/schemas/sitemap/0.9\">\n";
  const std::string escaped = QString::fromStdString(address).toHtmlEscaped().toStdString();
  for (std::size_t i = 0; i < std::min(files.size(), LongestSitemap); ++i)
    map +=
        "<url><loc>" + escaped + (files[i] == u"index.html" ? "" : files[i].toStdString()) + "</loc></url>\n";
  return map + "</urlset>\n";
}

std::string IndexOf(const Site& site) {
  const bool firstValue = FirstValueShows(site.Catalog());
  std::string label = firstValue ? site.Catalog().valueNames[0] : std::string();
  std::vector<SearchHit> hits;
  hits.reserve(site.plan.products.size());
  for (std::size_t i = 0; i < site.plan.products.size(); ++i) {
    const auto& pictures = site.pictures.Of(i);
    const PlannedProduct& planned = site.plan.products[i];
    if (label.empty() && !planned.price.empty())
      label = site.plan.price.Label(planned.product->price, planned.price);
    hits.push_back({planned.product, planned.file,
                    pictures.empty() ? QString() : pictures.front().sizes.front().jpeg, planned.price,
                    firstValue ? planned.product->values[0] : std::string()});
  }
  return SearchIndex(site.Catalog(), hits, label, site.words);
}

QByteArray StampOf(const std::string& bytes) {
  return QByteArray::number(qulonglong(Fingerprint(bytes)), 36);
}

class Adder {
 public:
  Adder(const Site& site, const Skin& skin, Publication& publication)
      : site_(site), skin_(skin), publication_(publication) {}

  std::vector<Page> AddAll() {
    AddPage(QStringLiteral("index.html"), {PageKind::Home, nullptr, 0});
    AddShared();
    if (site_.plan.previewed >= 0) {
      AddPreview();
    } else {
      AddLists();
      for (std::size_t i = 0; i < site_.plan.products.size(); ++i) AddProduct(int(i));
      AddForSearch();
    }
    return std::move(pages_);
  }

 private:
  void AddPage(const QString& file, const Page& page) {
    publication_.AddPage(file, pages_.size());
    pages_.push_back(page);
    files_.push_back(file);
  }

  void AddBytes(const QString& file, const std::string& bytes) {
    publication_.AddMade(file, StampOf(bytes), [bytes] { return bytes; });
  }

  // All files of a picture are one picture.
  void AddPicture(const PublishedPicture& picture, bool withOriginal = true) {
    bool isFirst = true;
    for (const PictureCopy& copy : picture.copies) {
      if (!withOriginal && copy.file == picture.file && copy.file != picture.sizes.back().jpeg) continue;
      if (isFirst)
        publication_.AddPicture(copy.file, copy.source, copy.stamp);
      else
        publication_.AddCopy(copy.file, copy.source, copy.stamp);
      isFirst = false;
    }
  }

  // What all pages have.
  void AddShared() {
    // The logo as it is stands in the structured data alone, which need an address.
    if (site_.pictures.Logo() != nullptr) AddPicture(*site_.pictures.Logo(), !site_.Address().empty());
    if (site_.pictures.Wide() != nullptr) AddPicture(*site_.pictures.Wide());
    for (const PublishedIcon& icon : site_.pictures.Icons())
      publication_.AddMade(icon.file, icon.stamp,
                           [this_ = &site_.pictures, icon] { return this_->Draw(icon).toStdString(); });
    for (const Skin::File& file : skin_.StaticFiles()) {
      publication_.AddCopy(file.name, skin_.Folder() + u'/' + file.name, file.hash);
      ofSkin_ += file.name;
    }
    if (site_.hasTheme) AddBytes(QStringLiteral("theme.css"), ThemeOf(site_.profile).toStdString());
    // It is large, and is not kept until it may be needed.
    if (site_.hasSearch)
      publication_.AddMade(QStringLiteral("search-index.js"), StampOf(IndexOf(site_)),
                           [site = &site_] { return IndexOf(*site); });
  }

  void AddPreview() {
    AddProduct(site_.plan.previewed);
    for (std::size_t i = 0; i < site_.plan.products.size(); ++i)
      if (int(i) != site_.plan.previewed)
        for (const PublishedPicture& picture : site_.pictures.Of(i)) AddPicture(picture);
    if (site_.hasMessages)
      AddPage(QStringLiteral("preview.html"), {PageKind::Message, nullptr, Page::NotInPreview});
  }

  void AddList(const PlannedList& list) {
    const PageKind kind = list.filter > 0 ? PageKind::Filter : PageKind::Index;
    for (int page = 1; page <= list.Pages(); ++page) AddPage(list.PageFile(page), {kind, &list, page});
  }

  void AddLists() {
    AddList(site_.plan.all);
    for (std::size_t i = 0; i < site_.plan.groups.size(); ++i)
      if (const QString& file = site_.plan.groups[i].allFile; !file.isEmpty())
        AddPage(file, {PageKind::Values, nullptr, int(i)});
    for (const PlannedList& list : site_.plan.filters) AddList(list);
  }

  void AddProduct(int product) {
    AddPage(site_.plan.products[std::size_t(product)].file, {PageKind::Product, nullptr, product});
    for (const PublishedPicture& picture : site_.pictures.Of(std::size_t(product))) AddPicture(picture);
  }

  // What search engines and lost readers ask for; a skin may have its own.
  void AddForSearch() {
    const QString sitemap = QStringLiteral("sitemap.xml");
    const QString notFound = QStringLiteral("404.html");
    if (const std::string address = site_.Address(); !address.empty() && !ofSkin_.contains(sitemap))
      AddBytes(sitemap, Sitemap(address, files_));
    if (site_.hasMessages && !ofSkin_.contains(notFound))
      AddPage(notFound, {PageKind::Message, nullptr, Page::NotFound});
  }

  const Site& site_;
  const Skin& skin_;
  Publication& publication_;
  std::vector<Page> pages_;
  std::vector<QString> files_;  // of the pages
  QStringList ofSkin_;
};

}  // namespace

std::vector<Page> AddFiles(const Site& site, const Skin& skin, Publication& publication) {
  return Adder(site, skin, publication).AddAll();
}

}  // namespace vlhtml
