#include "PageData.h"

#include <QUrl>
#include <algorithm>

#include "JpegHead.h"
#include "Labels.h"

namespace vlhtml {
namespace {

constexpr int FeaturedProducts = 8;
constexpr qsizetype LongestTitle = 68;

std::string Std(const QString& text) { return text.toStdString(); }

// A title is cut at a word, so that it stays readable in tabs and search results. It is measured as it stands
// in the page.
std::string ShortTitle(const std::string& title) {
  QString text = QString::fromStdString(title).simplified();
  const auto fits = [](const QString& cut) {
    return cut.toHtmlEscaped().size() + cut.count(u'\'') * 5 <= LongestTitle;
  };
  if (fits(text)) return Std(text);
  while (!fits(text)) {
    const qsizetype blank = text.lastIndexOf(u' ');
    text.truncate(blank > 20 ? blank : text.size() - 1);
  }
  return Std(text + u'…');
}

// The lines of a text as paragraphs.
void Paragraphs(Fields& fields, const char* name, const std::string& text) {
  QStringList lines;
  for (const QString& line : QString::fromStdString(text).split(u'\n'))
    if (const QString trimmed = line.simplified(); !trimmed.isEmpty()) lines += trimmed;
  fields.List(name, std::size_t(lines.size()),
              [&](Fields& line, std::size_t i) { line.Text("text", Std(lines[qsizetype(i)])); });
}

// A telephone number does not break over two lines.
std::string Unbroken(const std::string& number) {
  return Std(
      QString::fromStdString(number).simplified().replace(u' ', QChar(0xA0)).replace(u'-', QChar(0x2011)));
}

// A web address that a link may have: http or https and nothing else. "www.example.com" gets its scheme.
std::string SafeUrl(const std::string& address) {
  QString text = QString::fromStdString(address).trimmed();
  if (!text.contains(u"://") && text.startsWith(u"www.", Qt::CaseInsensitive)) text.prepend(u"https://");
  const QUrl url(text, QUrl::StrictMode);
  const bool web = url.scheme() == u"http" || url.scheme() == u"https";
  return url.isValid() && web && !url.host().isEmpty() ? url.toEncoded().toStdString() : std::string();
}

std::string SafeMail(const std::string& address) {
  const QString text = QString::fromStdString(address).trimmed();
  const auto allowed = [](QChar c) {
    return c.unicode() < 128 && (c.isLetterOrNumber() || QStringView(u"@._+-").contains(c));
  };
  return text.count(u'@') == 1 && std::all_of(text.begin(), text.end(), allowed) ? Std(text) : std::string();
}

std::string Dialled(const std::string& number) {
  QString digits;
  for (const QChar c : QString::fromStdString(number))
    if ((c >= u'0' && c <= u'9') || (c == u'+' && digits.isEmpty())) digits += c;
  return digits.size() >= 5 ? Std(digits) : std::string();
}

}  // namespace

PageData::PageData(const SitePlan& plan, const Skin& skin, bool italian)
    : plan_(plan), catalog_(*plan.catalog), skin_(skin), italian_(italian) {
  // The highlights are taken evenly from the whole catalog.
  const int count = int(plan_.products.size());
  for (int i = 0, step = std::max(1, count / FeaturedProducts);
       i < count && int(featured_.size()) < FeaturedProducts; i += step)
    featured_.push_back(i);
  for (const PlannedList& list : plan_.filters)
    filterLinks_.push_back({Std(list.title), Std(list.PageFile(1))});
  // Parts that stand on many pages are told once.
  for (int filter = 1; filter <= 5; ++filter)
    links_.emplace_back(skin.Names(), [&](Fields& fields) { TellLinks(fields, filter); });
  cards_.reserve(plan_.products.size());
  for (int i = 0; i < count; ++i)
    cards_.emplace_back(skin.Names(), [&](Fields& fields) { TellCard(fields, i); });
}

void PageData::TellSite(Fields& fields) const {
  fields.Group("L", [&](Fields& words) { TellLabels(words, italian_); });
  fields.Text("siteTitle", !catalog_.title.empty() ? catalog_.title : catalog_.name);
  fields.TextIf("subtitle", catalog_.subtitle);
  Paragraphs(fields, "information", catalog_.information);
  Paragraphs(fields, "extras", catalog_.extras);
  fields.TextIf("company", catalog_.company);
  fields.TextIf("address", catalog_.address);
  fields.TextIf("place", catalog_.postalCode + (catalog_.postalCode.empty() ? "" : " ") + catalog_.city +
                             (catalog_.province.empty() ? "" : " (" + catalog_.province + ")"));
  fields.TextIf("country", catalog_.country);
  fields.TextIf("telephone", Unbroken(catalog_.telephone));
  fields.TextIf("telephoneDialled", Dialled(catalog_.telephone));
  fields.TextIf("fax", Unbroken(catalog_.fax));
  fields.TextIf("email", catalog_.email);
  fields.TextIf("emailLink", SafeMail(catalog_.email));
  fields.TextIf("url", catalog_.url);
  fields.TextIf("urlLink", SafeUrl(catalog_.url));
  fields.GroupIf(!plan_.logo.empty(), "logo", [&](Fields& logo) { TellPicture(logo, plan_.logo[0], false); });
  fields.Text("productsFile", Std(plan_.all.PageFile(1)));
  TellLinksAs(fields, "filters", 0);
}

void PageData::TellPage(Fields& fields, const Page& page) const {
  if (page.kind == PageKind::Home)
    TellHome(fields);
  else if (page.kind == PageKind::Product)
    TellProduct(fields, page.number);
  else
    TellList(fields, *page.list, page.number);
}

void PageData::TellTitle(Fields& fields, const std::string& title) {
  fields.Text("pageTitle", ShortTitle(title));
}

void PageData::TellLinksAs(Fields& fields, const char* name, int filter) const {
  std::vector<int> used;
  for (int n = 1; n <= 5; ++n)
    if ((filter == 0 || filter == n) && !Lists(n).empty()) used.push_back(n);
  fields.List(name, used.size(),
              [&](Fields& group, std::size_t i) { group.Include(links_[std::size_t(used[i]) - 1]); });
}

// The published values of a filter, each with its page.
void PageData::TellLinks(Fields& fields, int filter) const {
  const std::vector<const PlannedList*> lists = Lists(filter);
  if (lists.empty()) return;
  fields.Text("name", catalog_.filterNames[std::size_t(filter) - 1]);
  fields.List("values", lists.size(), [&](Fields& value, std::size_t i) {
    value.Text("text", Std(lists[i]->title));
    value.Text("file", Std(lists[i]->PageFile(1)));
    value.Text("count", std::to_string(lists[i]->products.size()));
  });
}

std::vector<const PlannedList*> PageData::Lists(int filter) const {
  std::vector<const PlannedList*> lists;
  for (const PlannedList& list : plan_.filters)
    if (list.filter == filter) lists.push_back(&list);
  return lists;
}

// Sizes are read from the files, which is left for when the page is made: they follow from the stamps.
void PageData::TellPicture(Fields& fields, const PlannedPicture& picture, bool small) {
  fields.Text("file", Std(small ? picture.smallFile : picture.file));
  fields.Text("full", Std(picture.file));
  fields.TextIf("caption", picture.picture->caption);
  fields.Derived(picture.stamp + '|' + (small ? picture.smallStamp : QByteArray()), [&](Fields& sizes) {
    const QSize size = JpegSize(small ? picture.smallSource : picture.source);
    sizes.Text("width", std::to_string(std::max(1, size.width())));
    sizes.Text("height", std::to_string(std::max(1, size.height())));
    if (!small) return;
    const int full = picture.smallFile == picture.file ? size.width() : JpegSize(picture.source).width();
    sizes.Text("fullWidth", std::to_string(std::max(1, full)));
    sizes.Flag("larger", full > size.width());
  });
}

void PageData::TellKnownCard(Fields& fields, int position) const {
  fields.Include(cards_[std::size_t(position)]);
}

void PageData::TellCard(Fields& fields, int position) const {
  const PlannedProduct& planned = plan_.products[std::size_t(position)];
  fields.Text("file", Std(planned.file));
  fields.Text("code", Std(planned.product->code));
  fields.TextIf("description", planned.product->description);
  fields.GroupIf(!planned.pictures.empty(), "picture",
                 [&](Fields& picture) { TellPicture(picture, planned.pictures[0], true); });
  fields.TextIf("value", catalog_.valueNames[0].empty() ? std::string() : planned.product->values[0]);
  fields.Text("valueName", catalog_.valueNames[0]);
}

void PageData::TellHome(Fields& fields) const {
  TellTitle(fields, catalog_.title.empty() ? catalog_.name : catalog_.title);
  fields.GroupIf(!featured_.empty(), "featured", [&](Fields& featured) {
    featured.List("cards", featured_.size(),
                  [&](Fields& card, std::size_t i) { TellKnownCard(card, featured_[i]); });
  });
}

void PageData::TellList(Fields& fields, const PlannedList& list, int page) const {
  const std::string title = Std(list.title);
  const std::string position = PageOf(italian_, page, list.Pages());
  TellTitle(fields, list.Pages() > 1 ? title + " – " + position : title);
  fields.Text("heading", title);
  if (list.filter > 0) fields.Text("filterName", catalog_.filterNames[std::size_t(list.filter) - 1]);
  const std::size_t first = std::size_t(page - 1) * ProductsOnPage;
  const std::size_t end = std::min(first + ProductsOnPage, list.products.size());
  fields.List("cards", end - first,
              [&](Fields& card, std::size_t i) { TellKnownCard(card, list.products[first + i]); });
  fields.Flag("empty", list.products.empty());
  TellLinksAs(fields, "values", list.filter);
  fields.Flag("paged", list.Pages() > 1);
  fields.Text("position", position);
  fields.GroupIf(page > 1, "previous",
                 [&](Fields& link) { link.Text("file", Std(list.PageFile(page - 1))); });
  fields.GroupIf(page < list.Pages(), "next",
                 [&](Fields& link) { link.Text("file", Std(list.PageFile(page + 1))); });
}

void PageData::TellProduct(Fields& fields, int position) const {
  const PlannedProduct& planned = plan_.products[std::size_t(position)];
  const Product& product = *planned.product;
  const std::string code = Std(product.code);
  TellTitle(fields, product.description.empty() ? code : product.description + " – " + code);
  fields.Text("code", code);
  fields.Text("heading", product.description.empty() ? code : product.description);

  const std::size_t pictures = planned.pictures.size();
  fields.GroupIf(pictures > 0, "picture",
                 [&](Fields& picture) { TellPicture(picture, planned.pictures[0], false); });
  fields.GroupIf(pictures > 1, "pictures", [&](Fields& more) {
    more.List("list", pictures - 1,
              [&](Fields& picture, std::size_t i) { TellPicture(picture, planned.pictures[i + 1], false); });
  });
  TellDetails(fields, product);
  fields.GroupIf(!product.features.empty(), "techData", [&](Fields& data) {
    data.List("features", product.features.size(), [&](Fields& feature, std::size_t i) {
      feature.Text("name", product.features[i].name);
      feature.Text("value", product.features[i].value);
    });
  });
  fields.GroupIf(position > 0, "previous", [&](Fields& card) { TellKnownCard(card, position - 1); });
  fields.GroupIf(position + 1 < int(plan_.products.size()), "next",
                 [&](Fields& card) { TellKnownCard(card, position + 1); });
}

// The values and filter values that the product has; one with a page of its own leads there.
void PageData::TellDetails(Fields& fields, const Product& product) const {
  struct Detail {
    const std::string& name;
    const std::string& value;
    const std::string& file;
  };
  const std::string noFile;
  std::vector<Detail> details;
  for (std::size_t i = 0; i < 3; ++i)
    if (!catalog_.valueNames[i].empty() && !product.values[i].empty())
      details.push_back({catalog_.valueNames[i], product.values[i], noFile});
  for (std::size_t i = 0; i < 5; ++i)
    if (const auto found = plan_.filterList.constFind(product.filters[i]);
        found != plan_.filterList.constEnd()) {
      const Link& link = filterLinks_[std::size_t(*found)];
      details.push_back({catalog_.filterNames[i], link.text, link.file});
    }
  fields.List("details", details.size(), [&](Fields& detail, std::size_t i) {
    detail.Text("name", details[i].name);
    detail.Text("value", details[i].value);
    detail.TextIf("file", details[i].file);
  });
}

}  // namespace vlhtml
