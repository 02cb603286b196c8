#include "HomePage.h"

#include <algorithm>

#include "Contact.h"
#include "Head.h"
#include "PageParts.h"
#include "StructuredData.h"

namespace vlhtml {
namespace {

// From this proportion on a picture takes the whole width; another one stands beside the words.
constexpr double WideRatio = 1.7;
// Two rows of cards on a desk, four on a phone.
constexpr std::size_t WholeRows = 8;

// The wide picture; where its file is missing, the first highlight's.
const PublishedPicture* WidePicture(const Site& site) {
  if (const PublishedPicture* wide = site.pictures.Wide(); wide != nullptr || site.plan.featured.empty())
    return wide;
  return &site.pictures.Of(std::size_t(site.plan.featured.front())).front();
}

// The highlight whose own picture it is; -1 for none.
int ShownBy(const Site& site, const PublishedPicture& picture) {
  const auto shown = std::find_if(site.plan.featured.begin(), site.plan.featured.end(), [&](int product) {
    return site.Catalog().products[std::size_t(product)].pictures.front().source == picture.picture->source;
  });
  return shown == site.plan.featured.end() ? -1 : *shown;
}

std::string CaptionOf(const Site& site, const PublishedPicture& picture) {
  const int product = ShownBy(site, picture);
  return product < 0 ? site.Brand() : site.Catalog().products[std::size_t(product)].name;
}

void TellHero(Fields& fields, const Site& site) {
  const PublishedPicture* wide = WidePicture(site);
  fields.GroupIf(wide != nullptr, "hero", [&](Fields& hero) {
    TellPicture(hero, *wide);
    hero.Flag("wide", wide->size.width() > wide->size.height() * WideRatio);
    // A product's own picture leads to the product.
    const int product = ShownBy(site, *wide);
    hero.TextIf("product",
                product < 0 ? std::string() : site.Link(site.plan.products[std::size_t(product)].file));
    hero.Text("caption", CaptionOf(site, *wide));
  });
}

// Those on the first page, and whether the owner chose them. Others that it shows are not in the wide picture
// too.
std::vector<int> Featured(const Site& site, bool isChosen) {
  std::vector<int> featured = site.plan.featured;
  const PublishedPicture* wide = WidePicture(site);
  if (isChosen || wide == nullptr || featured.size() < 2) return featured;
  featured.erase(std::remove(featured.begin(), featured.end(), ShownBy(site, *wide)), featured.end());
  if (featured.size() > WholeRows) featured.resize(WholeRows);
  return featured;
}

// The first filter's values, each with a picture of one of its products where at least half have one.
void TellTiles(Fields& fields, const Site& site) {
  const SitePlan& plan = site.plan;
  fields.GroupIf(!plan.groups.empty(), "tiles", [&](Fields& tiles) {
    const PlannedFilter& group = plan.groups.front();
    TellGroup(tiles, site, group, nullptr);
    const std::vector<int> shown = ValuesShown(plan, group, nullptr);
    std::size_t pictured = 0;
    tiles.List("values", shown.size(), [&](Fields& value, std::size_t i) {
      const PlannedList& list = plan.filters[std::size_t(shown[i])];
      TellValue(value, site, shown[i]);
      const int product = plan.PicturedOf(list);
      if (product >= 0) ++pictured;
      value.GroupIf(product >= 0, "picture", [&](Fields& picture) {
        TellPicture(picture, site.pictures.Of(std::size_t(product)).front());
      });
    });
    tiles.Flag("pictured", pictured > 0 && pictured * 2 >= shown.size());
  });
}

std::string Description(const Site& site) {
  const CatalogSnapshot& catalog = site.Catalog();
  if (!catalog.subtitle.empty() && !catalog.information.empty())
    return catalog.subtitle + ". " + catalog.information;
  if (!(catalog.subtitle + catalog.information).empty() || site.plan.products.empty())
    return catalog.subtitle + catalog.information;
  return site.words.Counted("product", int(site.plan.products.size())) + " – " +
         FirstNames(site, site.plan.all, 1);
}

void TellAlternates(Fields& fields, const Site& site) {
  std::vector<std::pair<std::string, std::string>> alternates;
  for (const VorlinaSister& sister : site.profile.sisters)
    if (const std::string address = SafeUrl(sister.address.toStdString()); !address.empty())
      alternates.emplace_back(sister.language.toStdString(), address);
  const std::string address = site.Address();
  if (!alternates.empty() && !address.empty())
    alternates.insert(alternates.begin(), {site.words.Language(), address});
  else
    alternates.clear();
  fields.List("alternates", alternates.size(), [&](Fields& alternate, std::size_t i) {
    alternate.Text("language", alternates[i].first);
    alternate.Text("address", alternates[i].second);
  });
}

}  // namespace

void TellHome(Fields& fields, const Site& site) {
  const CatalogSnapshot& catalog = site.Catalog();
  const SitePlan& plan = site.plan;
  const bool named = catalog.company.empty() || site.Title().find(catalog.company) != std::string::npos;
  Head head;
  head.title = PageTitle(site.Title(), {named ? std::string() : CompanyInTitle(catalog.company)});
  head.description = Description(site);
  head.file = QStringLiteral("index.html");
  head.picture = WidePicture(site);
  if (head.picture != nullptr) head.pictured = CaptionOf(site, *head.picture);
  head.shared = site.Title();
  if (!catalog.company.empty()) head.data.append(CompanyData(site));
  TellHead(fields, site, head);
  TellAlternates(fields, site);
  fields.Flag("isHome", true);
  TellHero(fields, site);
  TellTiles(fields, site);
  fields.Flag("hasProducts", !plan.products.empty());
  fields.GroupIf(!plan.featured.empty(), "featured", [&](Fields& featured) {
    const auto& chosen = catalog.highlights;
    const bool isChosen = std::find(chosen.begin(), chosen.end(), plan.featured.front()) != chosen.end();
    featured.Text("heading", site.words.Text(isChosen ? "featured" : "fromCatalog"));
    TellCards(featured, site, Featured(site, isChosen), 0);
  });
  // Where no product has a picture, the first ones stand in rows.
  const std::size_t rows = plan.featured.empty() ? std::min(plan.all.products.size(), ValuesAtOnce) : 0;
  fields.GroupIf(rows > 0, "some", [&](Fields& some) {
    TellCards(some, site, {plan.all.products.begin(), plan.all.products.begin() + std::ptrdiff_t(rows)}, 0);
  });
  std::vector<const PlannedFilter*> others;
  for (std::size_t i = 1; i < plan.groups.size(); ++i) others.push_back(&plan.groups[i]);
  fields.GroupIf(!others.empty(), "others", [&](Fields& more) { TellGroups(more, site, others, nullptr); });
  fields.Flag("about", !(catalog.information + catalog.extras).empty());
}

}  // namespace vlhtml
