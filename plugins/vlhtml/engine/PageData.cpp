#include "PageData.h"

#include <QCryptographicHash>
#include <QUrl>
#include <algorithm>

#include "JpegHead.h"
#include "Labels.h"

namespace vlhtml {
namespace {

constexpr int FeaturedProducts = 8;
constexpr qsizetype LongestTitle = 68;

using kainjow::mustache::list;

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
Data Paragraphs(const std::string& text) {
  Data paragraphs{kainjow::mustache::data::type::list};
  for (const QString& line : QString::fromStdString(text).split(u'\n', Qt::SkipEmptyParts))
    if (const QString trimmed = line.simplified(); !trimmed.isEmpty())
      paragraphs.push_back(Data{"text", Std(trimmed)});
  return paragraphs;
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

class Hash {
 public:
  Hash& operator<<(const QByteArray& bytes) {
    hash_.addData(QByteArray(QByteArray::number(bytes.size()) + ':'));
    hash_.addData(bytes);
    return *this;
  }
  Hash& operator<<(const std::string& text) {
    return *this << QByteArray::fromRawData(text.data(), qsizetype(text.size()));
  }
  Hash& operator<<(const QString& text) { return *this << text.toUtf8(); }
  Hash& operator<<(int number) { return *this << QByteArray::number(number); }
  QByteArray Result() { return hash_.result().left(16); }

 private:
  QCryptographicHash hash_{QCryptographicHash::Sha1};
};

void SetIf(Data& data, const char* key, const std::string& value) {
  data.set(key, value.empty() ? Data{false} : Data{value});
}

}  // namespace

PageData::PageData(const SitePlan& plan, const QByteArray& skinHash, bool italian)
    : plan_(plan), catalog_(*plan.catalog), italian_(italian) {
  const std::string title = !catalog_.title.empty() ? catalog_.title : catalog_.name;
  site_.set("L", Labels(italian));
  site_.set("siteTitle", title);
  SetIf(site_, "subtitle", catalog_.subtitle);
  site_.set("information", Paragraphs(catalog_.information));
  site_.set("extras", Paragraphs(catalog_.extras));
  SetIf(site_, "company", catalog_.company);
  SetIf(site_, "address", catalog_.address);
  const std::string place = catalog_.postalCode + (catalog_.postalCode.empty() ? "" : " ") + catalog_.city +
                            (catalog_.province.empty() ? "" : " (" + catalog_.province + ")");
  SetIf(site_, "place", place);
  SetIf(site_, "country", catalog_.country);
  SetIf(site_, "telephone", Unbroken(catalog_.telephone));
  SetIf(site_, "telephoneDialled", Dialled(catalog_.telephone));
  SetIf(site_, "fax", Unbroken(catalog_.fax));
  SetIf(site_, "email", catalog_.email);
  SetIf(site_, "emailLink", SafeMail(catalog_.email));
  SetIf(site_, "url", catalog_.url);
  SetIf(site_, "urlLink", SafeUrl(catalog_.url));
  site_.set("logo", plan_.logo.empty() ? Data{false} : PictureData(plan_.logo[0], false));
  site_.set("productsFile", Std(plan_.all.PageFile(1)));
  site_.set("filters", Links(0));

  Hash hash;
  hash << skinHash << int(italian) << title << catalog_.subtitle << catalog_.information << catalog_.extras
       << catalog_.company << catalog_.address << place << catalog_.country << catalog_.telephone
       << catalog_.fax << catalog_.email << catalog_.url
       << (plan_.logo.empty() ? QByteArray() : plan_.logo[0].stamp);
  for (const std::string& name : catalog_.filterNames) hash << name;
  for (const std::string& name : catalog_.valueNames) hash << name;
  for (const PlannedList& list : plan_.filters) hash << list.title << list.file << list.filter;
  siteHash_ = hash.Result();

  // The highlights are taken evenly from the whole catalog, from products that have a picture.
  const int count = int(plan_.products.size());
  for (int i = 0, step = std::max(1, count / FeaturedProducts);
       i < count && int(featured_.size()) < FeaturedProducts; i += step)
    featured_.push_back(i);
  cardHashes_.reserve(plan_.products.size());
  for (int i = 0; i < count; ++i) cardHashes_.push_back(CardHash(i));
}

Data PageData::Page(const std::string& title) { return Data{"pageTitle", ShortTitle(title)}; }

// The published values of a filter, or of all filters for 0, each with its page.
Data PageData::Links(int filter) const {
  Data groups{Data::type::list};
  for (int n = 1; n <= 5; ++n) {
    if (filter != 0 && filter != n) continue;
    Data values{Data::type::list};
    for (const PlannedList& list : plan_.filters) {
      if (list.filter != n) continue;
      Data value;
      value.set("text", Std(list.title));
      value.set("file", Std(list.PageFile(1)));
      value.set("count", std::to_string(list.products.size()));
      values.push_back(value);
    }
    if (values.is_empty_list()) continue;
    Data group;
    group.set("name", catalog_.filterNames[std::size_t(n) - 1]);
    group.set("values", values);
    groups.push_back(group);
  }
  return groups;
}

Data PageData::PictureData(const PlannedPicture& picture, bool small) const {
  Data data;
  const QSize size = JpegSize(small ? picture.smallSource : picture.source);
  data.set("file", Std(small ? picture.smallFile : picture.file));
  data.set("full", Std(picture.file));
  data.set("width", std::to_string(std::max(1, size.width())));
  data.set("height", std::to_string(std::max(1, size.height())));
  SetIf(data, "caption", picture.picture->caption);
  if (small) data.set("fullWidth", std::to_string(std::max(1, JpegSize(picture.source).width())));
  return data;
}

Data PageData::Card(int position) const {
  const PlannedProduct& planned = plan_.products[std::size_t(position)];
  Data card;
  card.set("file", Std(planned.file));
  card.set("code", Std(planned.product->code));
  SetIf(card, "description", planned.product->description);
  card.set("picture", planned.pictures.empty() ? Data{false} : PictureData(planned.pictures[0], true));
  SetIf(card, "value", planned.product->values[0]);
  card.set("valueName", catalog_.valueNames[0]);
  if (catalog_.valueNames[0].empty()) card.set("value", Data{false});
  return card;
}

QByteArray PageData::CardHash(int position) const {
  const PlannedProduct& planned = plan_.products[std::size_t(position)];
  Hash hash;
  hash << planned.file << planned.product->code << planned.product->description << planned.product->values[0];
  if (!planned.pictures.empty()) hash << planned.pictures[0].stamp << planned.pictures[0].smallStamp;
  return hash.Result();
}

Data PageData::Home() const {
  Data page = Page(catalog_.title.empty() ? catalog_.name : catalog_.title);
  Data cards{Data::type::list};
  for (const int position : featured_) cards.push_back(Card(position));
  page.set("featured", cards.is_empty_list() ? Data{false} : Data{"cards", cards});
  return page;
}

QByteArray PageData::HomeHash() const {
  Hash hash;
  hash << siteHash_ << QByteArray("home");
  for (const PlannedList& list : plan_.filters) hash << int(list.products.size());
  for (const int position : featured_) hash << cardHashes_[std::size_t(position)];
  return hash.Result();
}

Data PageData::List(const PlannedList& list, int page) const {
  const std::string title = Std(list.title);
  Data data = Page(list.Pages() > 1 ? title + " – " + PageOf(italian_, page, list.Pages()) : title);
  data.set("heading", title);
  if (list.filter > 0) data.set("filterName", catalog_.filterNames[std::size_t(list.filter) - 1]);
  Data cards{Data::type::list};
  const int first = (page - 1) * ProductsOnPage;
  const int end = std::min(first + ProductsOnPage, int(list.products.size()));
  for (int i = first; i < end; ++i) cards.push_back(Card(list.products[std::size_t(i)]));
  data.set("cards", cards);
  data.set("empty", list.products.empty());
  data.set("values", list.filter > 0 ? Links(list.filter) : Links(0));
  data.set("paged", list.Pages() > 1);
  data.set("position", PageOf(italian_, page, list.Pages()));
  data.set("previous", page > 1 ? Data{"file", Std(list.PageFile(page - 1))} : Data{false});
  data.set("next", page < list.Pages() ? Data{"file", Std(list.PageFile(page + 1))} : Data{false});
  return data;
}

QByteArray PageData::ListHash(const PlannedList& list, int page) const {
  Hash hash;
  hash << siteHash_ << list.title << list.file << list.filter << page << list.Pages();
  for (const PlannedList& other : plan_.filters)
    if (list.filter == 0 || list.filter == other.filter) hash << int(other.products.size());
  const int first = (page - 1) * ProductsOnPage;
  const int end = std::min(first + ProductsOnPage, int(list.products.size()));
  for (int i = first; i < end; ++i) hash << cardHashes_[std::size_t(list.products[std::size_t(i)])];
  return hash.Result();
}

Data PageData::OfProduct(int position) const {
  const PlannedProduct& planned = plan_.products[std::size_t(position)];
  const Product& product = *planned.product;
  const std::string code = Std(product.code);
  Data page = Page(product.description.empty() ? code : product.description + " – " + code);
  page.set("code", code);
  page.set("heading", product.description.empty() ? code : product.description);

  Data pictures{Data::type::list};
  for (std::size_t i = 1; i < planned.pictures.size(); ++i)
    pictures.push_back(PictureData(planned.pictures[i], false));
  page.set("picture", planned.pictures.empty() ? Data{false} : PictureData(planned.pictures[0], false));
  page.set("pictures", pictures.is_empty_list() ? Data{false} : Data{"list", pictures});

  Data details{Data::type::list};
  for (std::size_t i = 0; i < 3; ++i) {
    if (catalog_.valueNames[i].empty() || product.values[i].empty()) continue;
    Data detail{"name", catalog_.valueNames[i]};
    detail.set("value", product.values[i]);
    detail.set("file", false);
    details.push_back(detail);
  }
  for (std::size_t i = 0; i < 5; ++i) {
    const auto found = plan_.filterList.constFind(product.filters[i]);
    if (found == plan_.filterList.constEnd()) continue;
    const PlannedList& list = plan_.filters[std::size_t(*found)];
    Data detail{"name", catalog_.filterNames[i]};
    detail.set("value", Std(list.title));
    detail.set("file", Std(list.PageFile(1)));
    details.push_back(detail);
  }
  page.set("details", details);

  Data features{Data::type::list};
  for (const Feature& feature : product.features) {
    Data row{"name", feature.name};
    row.set("value", feature.value);
    features.push_back(row);
  }
  page.set("techData", features.is_empty_list() ? Data{false} : Data{"features", features});
  page.set("previous", position > 0 ? Card(position - 1) : Data{false});
  page.set("next", position + 1 < int(plan_.products.size()) ? Card(position + 1) : Data{false});
  return page;
}

QByteArray PageData::ProductHash(int position) const {
  const PlannedProduct& planned = plan_.products[std::size_t(position)];
  const Product& product = *planned.product;
  Hash hash;
  hash << siteHash_ << cardHashes_[std::size_t(position)] << product.values[1] << product.values[2];
  for (const int id : product.filters) {
    const auto found = plan_.filterList.constFind(id);
    hash << (found == plan_.filterList.constEnd() ? QString() : plan_.filters[std::size_t(*found)].file);
  }
  for (const PlannedPicture& picture : planned.pictures) hash << picture.stamp << picture.picture->caption;
  for (const Feature& feature : product.features) hash << feature.name << feature.value;
  if (position > 0) hash << cardHashes_[std::size_t(position) - 1];
  if (position + 1 < int(plan_.products.size())) hash << cardHashes_[std::size_t(position) + 1];
  return hash.Result();
}

}  // namespace vlhtml
