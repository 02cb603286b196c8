#include "Head.h"

#include <QJsonObject>
#include <algorithm>

#include "PlainText.h"

namespace vlhtml {
namespace {

constexpr qsizetype LongestTitle = 100;
constexpr qsizetype ShortestName = 60;  // whatever stands behind it
constexpr qsizetype LongestCompany = 60;
constexpr qsizetype LongestPart = 260;
constexpr qsizetype LongestExcerpt = 155;
// From this longer side on, a picture beside a shared link is shown large and sharp.
constexpr int SharedSide = 1200;
// So many products a search engine is told of a page.
constexpr std::size_t NamesInDescription = 3;

// Cut at a word, so that it stays readable, and never within a character.
QString Cut(QString text, qsizetype longest) {
  if (text.size() <= longest) return text;
  while (!text.isEmpty() && text.size() >= longest) {
    const qsizetype blank = text.lastIndexOf(u' ');
    text.truncate(blank > longest / 3 ? blank : text.size() - 1);
    if (!text.isEmpty() && text.back().isHighSurrogate()) text.chop(1);
  }
  while (!text.isEmpty() && (text.back().isPunct() || text.back().isSpace())) text.chop(1);
  return text + u'…';
}

// The smallest one that is large enough where a link is shown, or the largest.
std::pair<QSize, QString> SharedSize(const PublishedPicture& picture) {
  for (const PublishedSize& size : picture.sizes)
    if (std::max(size.size.width(), size.size.height()) >= SharedSide) return {size.size, size.jpeg};
  return {picture.size, picture.file};
}

}  // namespace

std::string PageTitle(const std::string& text, const std::vector<std::string>& parts) {
  QString behind;
  for (const std::string& part : parts)
    if (const QString plain = OneLine(QString::fromStdString(part)); !plain.isEmpty())
      behind += QStringLiteral(" – ") + Cut(plain, LongestPart);
  const QString title = OneLine(QString::fromStdString(text));
  const QString cut = Cut(title, std::max(ShortestName, LongestTitle - behind.size()));
  return cut.toStdString() + behind.toStdString();
}

std::string CompanyInTitle(const std::string& company) {
  return Cut(OneLine(QString::fromStdString(company).section(u',', 0, 0)), LongestCompany).toStdString();
}

std::string FirstNames(const Site& site, const PlannedList& list, int page) {
  const std::size_t first = std::size_t(page - 1) * ProductsOnPage;
  const std::size_t end = std::min(first + NamesInDescription, list.products.size());
  std::string names;
  for (std::size_t i = first; i < end; ++i)
    names += (i == first ? "" : "; ") + site.plan.products[std::size_t(list.products[i])].product->name;
  return names;
}

std::string Excerpt(const std::string& text) {
  return Cut(OneLine(QString::fromStdString(text)), LongestExcerpt).toStdString();
}

void AddPicture(const PublishedPicture& picture, FingerprintOfMany& to) {
  to.Add(picture.file);
  to.Add(std::string_view(picture.stamp.constData(), std::size_t(picture.stamp.size())));
  for (const PublishedSize& size : picture.sizes) to.Add(size.jpeg);
}

void TellHead(Fields& fields, const Site& site, const Head& head) {
  const std::string address = site.Address();
  const bool known = !address.empty() && !head.file.isEmpty();
  fields.Text("pageTitle", head.title);
  fields.TextIf("metaDescription", Excerpt(head.description));
  fields.Flag("noIndex", head.file.isEmpty());
  // The first page is that of the folder.
  fields.TextIf("canonical", !known                       ? std::string()
                             : head.file == u"index.html" ? address
                                                          : address + head.file.toStdString());
  fields.GroupIf(!head.file.isEmpty(), "openGraph", [&](Fields& graph) {
    graph.Text("type", head.type);
    graph.Text("title",
               head.shared.empty() ? head.title : OneLine(QString::fromStdString(head.shared)).toStdString());
    graph.GroupIf(known && head.picture != nullptr, "image", [&](Fields& image) {
      const auto [size, file] = SharedSize(*head.picture);
      image.Text("address", address + file.toStdString());
      image.Text("width", std::to_string(size.width()));
      image.Text("height", std::to_string(size.height()));
      image.Text("alt", Excerpt(head.pictured));
    });
  });
  if (head.data.isEmpty())
    fields.Flag("jsonLd", false);
  else
    fields.Json("jsonLd", QJsonObject{{QStringLiteral("@context"), QStringLiteral("https://schema.org")},
                                      {QStringLiteral("@graph"), head.data}});
}

}  // namespace vlhtml
