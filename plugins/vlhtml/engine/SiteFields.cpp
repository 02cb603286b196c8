#include "SiteFields.h"

#include <QLocale>

#include "Contact.h"
#include "Head.h"
#include "PageParts.h"

namespace vlhtml {
namespace {

// The lines of a text as paragraphs.
void Paragraphs(Fields& fields, const char* name, const std::string& text) {
  QStringList lines;
  for (const QString& line : QString::fromStdString(text).split(u'\n'))
    if (const QString trimmed = line.simplified(); !trimmed.isEmpty()) lines += trimmed;
  fields.List(name, std::size_t(lines.size()),
              [&](Fields& line, std::size_t i) { line.Text("text", lines[qsizetype(i)].toStdString()); });
}

void TellContact(Fields& fields, const Site& site) {
  const CatalogSnapshot& catalog = site.Catalog();
  const std::string place = catalog.postalCode + (catalog.postalCode.empty() ? "" : " ") + catalog.city +
                            (catalog.province.empty() ? "" : " (" + catalog.province + ")");
  const std::string hours = site.profile.hours.trimmed().toStdString();
  const bool reachable = !(catalog.telephone + catalog.fax + catalog.email + catalog.url).empty();
  fields.TextIf("company", catalog.company);
  fields.TextIf("address", catalog.address);
  fields.TextIf("place", place);
  fields.TextIf("country", catalog.country);
  fields.TextIf("telephone", Unbroken(catalog.telephone));
  fields.TextIf("telephoneDialled", Dialled(catalog.telephone));
  fields.TextIf("fax", Unbroken(catalog.fax));
  fields.TextIf("email", catalog.email);
  fields.TextIf("emailLink", SafeMail(catalog.email));
  const std::string url = SafeUrl(catalog.url);
  fields.TextIf("url", catalog.url);
  fields.TextIf("urlLink", url);
  fields.TextIf("urlShown", ShownAddress(url));
  fields.TextIf("hours", hours);
  fields.TextIf("mapLink", SafeUrl(site.profile.mapLink.toStdString()));
  fields.Flag("reachable", reachable);
  fields.Flag("contact",
              reachable || !(catalog.company + catalog.address + place + catalog.country + hours).empty());
}

// The same catalog in other languages.
void TellSisters(Fields& fields, const Site& site) {
  std::vector<std::pair<std::string, std::string>> sisters;
  for (const VorlinaSister& sister : site.profile.sisters)
    if (const std::string address = SafeUrl(sister.address.toStdString()); !address.empty())
      sisters.emplace_back(sister.language.toStdString(), address);
  fields.GroupIf(!sisters.empty(), "sisters", [&](Fields& group) {
    group.List("list", sisters.size(), [&](Fields& sister, std::size_t i) {
      QString key = QString::fromStdString(sisters[i].first);
      if (!key.isEmpty()) key[0] = key[0].toUpper();
      sister.Text("language", sisters[i].first);
      sister.Text("address", sisters[i].second);
      sister.Text("name", site.words.Text("language" + key.toStdString()));
    });
  });
}

void TellIcons(Fields& fields, const Site& site) {
  const auto& icons = site.pictures.Icons();
  fields.List("icons", icons.size(), [&](Fields& icon, std::size_t i) {
    const std::string side = std::to_string(icons[i].side);
    icon.Text("file", icons[i].file.toStdString());
    icon.Text("rel", icons[i].side >= 180 ? "apple-touch-icon" : "icon");
    icon.Text("sizes", side + 'x' + side);
  });
}

// The logo as it is may not be published.
void TellLogo(Fields& fields, const Site& site, bool withOriginal) {
  const PublishedPicture* logo = site.pictures.Logo();
  fields.GroupIf(logo != nullptr, "logo", [&](Fields& picture) {
    PublishedPicture told = *logo;
    if (!withOriginal) {
      told.file = told.sizes.back().jpeg;
      told.size = told.sizes.back().size;
    }
    TellPicture(picture, told);
  });
}

void TellMessage(Fields& fields, const Site& site, const char* heading, const char* text) {
  TellHead(
      fields, site,
      {PageTitle(site.words.Text(heading), {CompanyInTitle(site.Brand())}), {}, {}, "", nullptr, {}, {}, {}});
  fields.Text("heading", site.words.Text(heading));
  fields.Text("text", site.words.Text(text));
}

}  // namespace

void TellSite(Fields& fields, const Site& site) {
  fields.Group("L", [&](Fields& words) { site.words.Tell(words); });
  fields.Text("siteTitle", site.Title());
  fields.Text("brand", site.Brand());
  fields.TextIf("subtitle", site.Catalog().subtitle);
  Paragraphs(fields, "information", site.Catalog().information);
  Paragraphs(fields, "extras", site.Catalog().extras);
  TellContact(fields, site);
  TellSisters(fields, site);
  TellIcons(fields, site);
  const std::string address = site.Address();
  TellLogo(fields, site, !address.empty());
  fields.TextIf("printedFrom", address.empty()
                                   ? std::string()
                                   : site.words.Text("printedFrom", {{"address", ShownAddress(address)}}));
  fields.Text("homeFile", "index.html");
  fields.Text("productsFile", site.Link(site.plan.all.PageFile(1)));
  fields.TextIf("themeFile", site.hasTheme ? "theme.css" : "");
  fields.TextIf("searchScript", site.hasSearch ? "search.js" : "");
  fields.List("filters", site.plan.groups.size(),
              [&](Fields& group, std::size_t i) { TellGroup(group, site, site.plan.groups[i], nullptr); });
}

void TellNotFound(Fields& fields, const Site& site) {
  TellMessage(fields, site, "notFound", "notFoundText");
  fields.TextIf("root", site.Root());
  fields.Flag("hasProducts", !site.plan.products.empty());
}

void TellNotInPreview(Fields& fields, const Site& site) {
  TellMessage(fields, site, "preview", "previewText");
}

}  // namespace vlhtml
