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

void TellHero(Fields& fields, const Site& site) {
  const PublishedPicture* wide = site.pictures.Wide();
  fields.GroupIf(wide != nullptr, "hero", [&](Fields& hero) {
    TellPicture(hero, *wide);
    hero.Flag("wide", wide->size.width() > wide->size.height() * WideRatio);
    // A product's own picture leads to the product.
    const auto shown = std::find_if(site.plan.featured.begin(), site.plan.featured.end(), [&](int product) {
      return site.Catalog().products[std::size_t(product)].pictures.front().source == wide->picture->source;
    });
    const bool found = shown != site.plan.featured.end();
    hero.TextIf("product", found ? site.Link(site.plan.products[std::size_t(*shown)].file) : std::string());
    hero.Text("caption", found ? site.Catalog().products[std::size_t(*shown)].name : site.Brand());
  });
}

// The first filter's values, each with a picture of one of its products where most of them have one.
void TellTiles(Fields& fields, const Site& site) {
  const SitePlan& plan = site.plan;
  fields.GroupIf(!plan.groups.empty(), "tiles", [&](Fields& tiles) {
    const PlannedFilter& group = plan.groups.front();
    TellGroup(tiles, site, group, nullptr);
    const std::vector<int> shown = ValuesShown(plan, group, nullptr);
    std::size_t pictured = 0;
    tiles.List("values", shown.size(), [&](Fields& value, std::size_t i) {
      const PlannedList& list = plan.filters[std::size_t(shown[i])];
      TellValue(value, site, list);
      const auto first = std::find_if(list.products.begin(), list.products.end(), [&](int product) {
        return !site.pictures.Of(std::size_t(product)).empty();
      });
      pictured += first != list.products.end() ? 1 : 0;
      value.GroupIf(first != list.products.end(), "picture", [&](Fields& picture) {
        TellPicture(picture, site.pictures.Of(std::size_t(*first)).front());
      });
    });
    tiles.Flag("pictured", pictured * 2 >= shown.size() && pictured > 0);
  });
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
  Head head{PageTitle(site.Title(), {named ? std::string() : CompanyInTitle(catalog.company)}),
            !catalog.subtitle.empty() && !catalog.information.empty()
                ? catalog.subtitle + ". " + catalog.information
                : catalog.subtitle + catalog.information,
            QStringLiteral("index.html"),
            "website",
            site.pictures.Wide(),
            {},
            {}};
  if (!catalog.company.empty()) head.data.append(CompanyData(site));
  TellHead(fields, site, head);
  TellAlternates(fields, site);
  fields.Flag("isHome", true);
  TellHero(fields, site);
  TellTiles(fields, site);
  fields.GroupIf(!plan.featured.empty(), "featured",
                 [&](Fields& featured) { TellCards(featured, site, plan.featured, 0); });
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
