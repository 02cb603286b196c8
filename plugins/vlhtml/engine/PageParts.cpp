#include "PageParts.h"

#include <VorlinaPrice.h>

#include <algorithm>

#include "Contact.h"
#include "Fingerprint.h"

namespace vlhtml {
namespace {

// A picture whose longer side has less is never shown larger than it is.
constexpr int SmallestSide = 280;

std::string Share(double share) { return QString::number(share, 'g', 4).toStdString(); }

std::string Number(int number) { return std::to_string(number); }

}  // namespace

void TellPicture(Fields& fields, const PublishedPicture& picture) {
  const PublishedSize& largest = picture.sizes.back();
  const double ratio = double(std::max(1, largest.size.width())) / std::max(1, largest.size.height());
  fields.Text("file", picture.sizes.front().jpeg.toStdString());
  fields.TextIf("srcset", picture.sizes.size() > 1 ? picture.JpegSet() : std::string());
  const std::string webp = picture.WebpSet();
  fields.TextIf("webp", webp);
  // What a phone is offered: a list of pictures with all the pixels of its screen would weigh too much.
  fields.TextIf("smallWebp", webp.empty() ? webp : picture.sizes.front().webp.toStdString());
  fields.Text("width", Number(largest.size.width()));
  fields.Text("height", Number(largest.size.height()));
  fields.Text("full", picture.file.toStdString());
  fields.Text("fullWidth", Number(picture.size.width()));
  fields.Text("fullHeight", Number(picture.size.height()));
  const bool larger = picture.size.width() > largest.size.width();
  fields.TextIf("fullSet", larger ? largest.jpeg.toStdString() + ' ' + Number(largest.size.width()) + "w, " +
                                        picture.file.toStdString() + ' ' + Number(picture.size.width()) + 'w'
                                  : std::string());
  fields.Text("ratio", Share(ratio));
  fields.Text("share", Share(std::min(1.0, ratio)));
  fields.Text("cover", Share(std::max(1.0, ratio)));
  fields.Flag("tall", ratio < 1);
  fields.Flag("tiny", std::max(largest.size.width(), largest.size.height()) < SmallestSide);
}

void TellPrice(Fields& fields, const Site& site, const PlannedProduct& product) {
  fields.GroupIf(!product.price.empty(), "price", [&](Fields& price) {
    price.TextIf("label", site.plan.price.Label(product.product->price, product.price));
    price.Text("text", product.price);
  });
}

void TellCards(Fields& fields, const Site& site, const std::vector<int>& products, std::size_t eager) {
  fields.List("cards", products.size(), [&](Fields& card, std::size_t i) {
    card.Include(site.once.cards[std::size_t(products[i])]);
    card.Flag("eager", i < eager);
  });
}

std::vector<int> ValuesShown(const SitePlan& plan, const PlannedFilter& group, const PlannedList* current) {
  if (group.allFile.isEmpty()) return group.lists;
  const auto listOf = [&](int list) -> const PlannedList& { return plan.filters[std::size_t(list)]; };
  std::vector<int> shown = group.lists;
  std::stable_sort(shown.begin(), shown.end(), [&](int a, int b) {
    if (&listOf(a) == current || &listOf(b) == current) return &listOf(a) == current && a != b;
    return listOf(a).products.size() > listOf(b).products.size();
  });
  shown.resize(ValuesAtOnce);
  std::sort(shown.begin(), shown.end());
  return shown;
}

void TellValue(Fields& fields, const Site& site, int list) {
  fields.Include(site.once.values[std::size_t(list)]);
}

void TellSisterHead(Fields& fields, const Site& site, const PlannedList& list) {
  fields.Include(site.once.sisterHeads[std::size_t(&list - site.plan.filters.data())]);
}

bool FirstValueShows(const CatalogSnapshot& catalog) {
  return catalog.price == 0 && vorlina::PriceValue({QString::fromStdString(catalog.valueNames[0])}, {}) == 0;
}

namespace {

void TellCard(Fields& fields, const Site& site, std::size_t product, bool firstValue) {
  const PlannedProduct& planned = site.plan.products[product];
  const std::string code = planned.product->code.toStdString();
  const auto& pictures = site.pictures.Of(product);
  fields.Text("file", site.Link(planned.file));
  fields.Text("name", planned.product->name);
  fields.TextIf("code", code == planned.product->name ? std::string() : code);
  fields.GroupIf(!pictures.empty(), "picture",
                 [&](Fields& picture) { TellPicture(picture, pictures.front()); });
  TellPrice(fields, site, planned);
  fields.TextIf("value", firstValue ? planned.product->values[0] : std::string());
  fields.Text("valueName", site.Catalog().valueNames[0]);
}

void TellGroupOf(Fields& fields, const Site& site, const PlannedFilter& group, const PlannedList* current) {
  const std::vector<int> shown = ValuesShown(site.plan, group, current);
  fields.Text("name", group.name);
  fields.List("values", shown.size(), [&](Fields& value, std::size_t i) {
    TellValue(value, site, shown[i]);
    value.Flag("current", &site.plan.filters[std::size_t(shown[i])] == current);
  });
  fields.TextIf("allFile", group.allFile.isEmpty() ? std::string() : site.Link(group.allFile));
  fields.Text("allText", site.words.Text("allOf", {{"n", site.words.Number(int(group.lists.size()))}}));
}

// Of what the heads of all pages say, each of them besides its own.
std::uint64_t HeadsFrom(const Site& site) {
  FingerprintOfMany from;
  for (const char* word : {"home", "products", "pageOf", "askSubject", "askSubjectCode"})
    from.Add(site.words.Text(word));
  for (const std::string& text :
       {site.words.Language(), site.Brand(), site.Address(), site.plan.all.firstFile, site.once.mail})
    from.Add(text);
  return from.Value();
}

// What the plan's lists are on many pages.
void TellLists(Site& site, const FieldNames& names) {
  for (const PlannedList& list : site.plan.filters) {
    site.once.values.emplace_back(names, [&](Fields& value) {
      value.Text("text", list.text);
      value.Text("file", site.Link(list));
      value.Text("count", site.words.Number(int(list.products.size())));
    });
    site.once.sisterHeads.emplace_back(names, [&](Fields& group) {
      group.Text("title", site.words.Text("alsoIn", {{"value", list.text}}));
      group.Text("file", site.Link(list));
      group.Flag("fourInRow", true);
    });
  }
}

}  // namespace

void TellOnce(Site& site, const FieldNames& names) {
  const CatalogSnapshot& catalog = site.Catalog();
  site.once.mail = SafeMail(catalog.email);
  if (!Dialled(catalog.telephone).empty())
    site.once.call = Unbroken(site.words.Text("call", {{"telephone", catalog.telephone}}));
  site.once.headsFrom = HeadsFrom(site);
  TellLists(site, names);
  const bool firstValue = FirstValueShows(site.Catalog());
  site.once.cards.reserve(site.plan.products.size());
  for (std::size_t i = 0; i < site.plan.products.size(); ++i)
    site.once.cards.emplace_back(names, [&](Fields& card) { TellCard(card, site, i, firstValue); });
  for (const PlannedFilter& group : site.plan.groups)
    site.once.groups.emplace_back(names, [&](Fields& fields) { TellGroupOf(fields, site, group, nullptr); });
}

void TellGroup(Fields& fields, const Site& site, const PlannedFilter& group, const PlannedList* current) {
  if (current != nullptr && current->filter == group.number)
    TellGroupOf(fields, site, group, current);
  else
    fields.Include(site.once.groups[std::size_t(&group - site.plan.groups.data())]);
}

void TellGroups(Fields& fields, const Site& site, const std::vector<const PlannedFilter*>& groups,
                const PlannedList* current) {
  fields.List("groups", groups.size(),
              [&](Fields& group, std::size_t i) { TellGroup(group, site, *groups[i], current); });
}

}  // namespace vlhtml
