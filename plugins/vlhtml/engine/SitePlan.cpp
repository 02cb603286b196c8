#include "SitePlan.h"

#include <QSet>
#include <algorithm>
#include <numeric>

#include "Contact.h"
#include "PlainText.h"
#include "PublishedNames.h"
#include "PublishedPictures.h"
#include "Words.h"

namespace vlhtml {
namespace {

// The first page has one of them as its wide picture.
constexpr std::size_t EvenlyFeatured = 9;
constexpr std::size_t MostFeatured = 24;
constexpr std::size_t Sisters = 4;

// The positions in the order in which things came into the catalog. Names are given in it: what comes later
// never takes the name of what was there before.
template <typename Things, typename IdOf>
std::vector<std::size_t> ByAge(const Things& things, IdOf idOf) {
  std::vector<std::size_t> order(things.size());
  std::iota(order.begin(), order.end(), std::size_t(0));
  std::stable_sort(order.begin(), order.end(),
                   [&](std::size_t a, std::size_t b) { return idOf(things[a]) < idOf(things[b]); });
  return order;
}

}  // namespace

PlannedList::PlannedList(QString titled, int ofFilter, QString named)
    : title(std::move(titled)),
      text(title.toStdString()),
      filter(ofFilter),
      file(std::move(named)),
      firstFile(PageFile(1).toStdString()) {}

// The number of a page follows a sign that no text has in its name, but for the list of all products.
QString PlannedList::PageFile(int page) const {
  const QString number = QLatin1Char(filter == 0 ? '-' : '_') + QString::number(page);
  return file + (page > 1 ? number : QString()) + QStringLiteral(".html");
}

SitePlan::SitePlan(const CatalogSnapshot& snapshot, const Words& words, bool preview, bool moreValues)
    : catalog(&snapshot),
      price(snapshot.price > 0 ? snapshot.valueNames[std::size_t(snapshot.price) - 1] : std::string(),
            words.Language() != "en"),
      all(QString::fromStdString(words.Text("allProducts")), 0, QStringLiteral("products")) {
  NameProducts();
  PlanFilters(moreValues);
  ChooseFeatured();
  if (preview && !products.empty()) previewed = featured.empty() ? 0 : featured.front();
}

void SitePlan::NameProducts() {
  PublishedNames names;
  products.resize(catalog->products.size());
  for (const std::size_t i : ByAge(catalog->products, [](const Product& product) { return product.id; }))
    products[i].file =
        names.NameOf(QStringLiteral("p-"), catalog->products[i].code) + QStringLiteral(".html");
  for (std::size_t i = 0; i < products.size(); ++i) {
    products[i].product = &catalog->products[i];
    products[i].price = price.Text(catalog->products[i].price);
    all.products.push_back(int(i));
  }
}

// Values without products get no page.
void SitePlan::PlanFilters(bool moreValues) {
  QHash<int, std::vector<int>> having;
  for (std::size_t i = 0; i < products.size(); ++i)
    for (const int id : products[i].product->filters)
      if (id != 0) having[id].push_back(int(i));
  QHash<int, QString> files;
  PublishedNames names;
  QSet<QString> used;
  for (const std::size_t i :
       ByAge(catalog->filterValues, [](const FilterValue& value) { return value.id; })) {
    const FilterValue& value = catalog->filterValues[i];
    if (!having.contains(value.id)) continue;
    const QString prefix = QStringLiteral("f%1-").arg(value.filter);
    QString text = value.text;
    QString file = names.NameOf(prefix, text);
    // Two values may have one text: each has its page.
    while (used.contains(file)) file = names.NameOf(prefix, text += QStringLiteral(" %1").arg(value.id));
    used.insert(file);
    files.insert(value.id, file);
  }
  for (const FilterValue& value : catalog->filterValues) {
    if (!having.contains(value.id)) continue;
    if (groups.empty() || groups.back().number != value.filter)
      groups.push_back({value.filter, catalog->filterNames[std::size_t(value.filter) - 1], {}, QString()});
    groups.back().lists.push_back(int(filters.size()));
    filterList.insert(value.id, int(filters.size()));
    const auto namesakes = std::count_if(filters.begin(), filters.end(), [&](const PlannedList& other) {
      return other.filter == value.filter && other.title == value.text;
    });
    PlannedList& list = filters.emplace_back(value.text, value.filter, files[value.id]);
    list.products = std::move(having[value.id]);
    list.namesakes = int(namesakes);
  }
  for (PlannedFilter& group : groups)
    if (moreValues && group.lists.size() > ValuesAtOnce)
      group.allFile = QStringLiteral("f%1.html").arg(group.number);
}

void SitePlan::ChooseFeatured() {
  for (const std::size_t i : catalog->highlights)
    if (HasPicture(int(i)) && featured.size() < MostFeatured) featured.push_back(int(i));
  if (!featured.empty()) return;
  std::vector<int> shown;
  for (std::size_t i = 0; i < products.size(); ++i)
    if (HasPicture(int(i))) shown.push_back(int(i));
  const std::size_t step = std::max<std::size_t>(1, shown.size() / EvenlyFeatured);
  for (std::size_t i = 0; i < shown.size() && featured.size() < EvenlyFeatured; i += step)
    featured.push_back(shown[i]);
}

QStringList SitePlan::PictureNames() const {
  QStringList names;
  for (const PlannedProduct& product : products) names += product.file.chopped(5);
  if (previewed < 0) return names;
  QSet<int> shown{previewed};
  for (const int product : featured) shown.insert(product);
  for (const int product : SistersOf(previewed)) shown.insert(product);
  if (!groups.empty())
    for (const int list : groups.front().lists) shown.insert(PicturedOf(filters[std::size_t(list)]));
  for (int i = 0; i < int(names.size()); ++i)
    if (!shown.contains(i)) names[i].clear();
  return names;
}

int SitePlan::PicturedOf(const PlannedList& list) const {
  int pictured = -1;
  for (const int product : list.products) {
    if (!HasPicture(product)) continue;
    if (std::find(featured.begin(), featured.end(), product) == featured.end()) return product;
    if (pictured < 0) pictured = product;
  }
  return pictured;
}

bool SitePlan::HasPicture(int product) const {
  return pictures != nullptr ? !pictures->Of(std::size_t(product)).empty()
                             : !products[std::size_t(product)].product->pictures.empty();
}

void SitePlan::SetPictures(const PublishedPictures& published) {
  pictures = &published;
  const auto hasNone = [&](int i) { return !HasPicture(i); };
  const auto choose = [&](PlannedList& list) {
    const auto without = std::count_if(list.products.begin(), list.products.end(), hasNone);
    list.rows = without * 3 > std::ptrdiff_t(list.products.size()) * 2;
  };
  choose(all);
  std::for_each(filters.begin(), filters.end(), choose);
  featured.erase(std::remove_if(featured.begin(), featured.end(), hasNone), featured.end());
}

// What readers miss though the catalog has it.
QList<VorlinaNote> SitePlan::Notes(bool italian) const {
  const QSet<int> shown(featured.begin(), featured.end());
  const auto left = std::count_if(catalog->highlights.begin(), catalog->highlights.end(),
                                  [&](std::size_t i) { return !shown.contains(int(i)); });
  QList<VorlinaNote> notes;
  const auto add = [&](const QString& text) { notes += {VorlinaNote::Kind::Other, {}, text}; };
  if (left > 0)
    add((italian ? QStringLiteral("Prodotti in evidenza che nella prima pagina non si vedono: %1. Ne mostra "
                                  "al più %2, con un'immagine.")
                 : QStringLiteral("Highlights that do not show on the first page: %1. It shows at most %2, "
                                  "those with a picture."))
            .arg(left)
            .arg(MostFeatured));
  if (const QString mail = OneLine(QString::fromStdString(catalog->email));
      !mail.isEmpty() && SafeMail(catalog->email).empty())
    add((italian ? QStringLiteral("\"%1\" non è un indirizzo e-mail: in nessuna pagina i lettori possono "
                                  "chiedere di un prodotto per e-mail.")
                 : QStringLiteral("\"%1\" is no e-mail address: on no page can readers ask about a product "
                                  "by e-mail."))
            .arg(mail));
  return notes;
}

const PlannedList* SitePlan::FirstList(int product) const {
  for (const int id : products[std::size_t(product)].product->filters)
    if (const auto list = filterList.constFind(id); list != filterList.constEnd())
      return &filters[std::size_t(*list)];
  return nullptr;
}

std::vector<int> SitePlan::SistersOf(int product) const {
  const PlannedList* list = FirstList(product);
  if (list == nullptr) return {};
  const std::vector<int>& having = list->products;
  const auto place = std::size_t(std::lower_bound(having.begin(), having.end(), product) - having.begin());
  std::vector<int> sisters;
  for (std::size_t i = 1; i < having.size() && sisters.size() < Sisters; ++i)
    sisters.push_back(having[(place + i) % having.size()]);
  return sisters;
}

}  // namespace vlhtml
