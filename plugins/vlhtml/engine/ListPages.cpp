#include "ListPages.h"

#include <algorithm>

#include "Fingerprint.h"
#include "Head.h"
#include "PageParts.h"
#include "PlainText.h"
#include "StructuredData.h"

namespace vlhtml {
namespace {

// Pictures that a reader sees before anything moves: a row on a desk, two on a phone.
constexpr std::size_t EagerCards = 4;
// From this number on, values stand under their first letters.
constexpr std::size_t LettersFrom = 40;

// The pages that are linked: the first, the last, and those beside this one; 0 stands for a gap. What a gap
// of one page would hide stands there itself.
std::vector<int> LinkedPages(int page, int pages) {
  std::vector<int> linked;
  int last = 0;
  for (int i = 1; i <= pages; ++i) {
    const bool isNear = std::abs(i - page) <= 1 || (page == 1 && i == 3) || (page == pages && i == pages - 2);
    if (i != 1 && i != pages && !isNear) continue;
    if (i - last == 2) linked.push_back(i - 1);
    if (i - last > 2) linked.push_back(0);
    linked.push_back(i);
    last = i;
  }
  return linked;
}

void TellPageLinks(Fields& fields, const Site& site, const PlannedList& list, int page) {
  const std::vector<int> linked = LinkedPages(page, list.Pages());
  const auto link = [&](int other) { return site.Link(list.PageFile(other)); };
  fields.Flag("paged", list.Pages() > 1);
  fields.List("numbers", linked.size(), [&](Fields& number, std::size_t i) {
    const std::string shown = site.words.Number(linked[i]);
    number.Text("number", shown);
    number.Text("label", site.words.Text("page", {{"n", shown}}));
    number.TextIf("file", linked[i] == 0 || linked[i] == page ? std::string() : link(linked[i]));
    number.Flag("current", linked[i] == page);
    number.Flag("gap", linked[i] == 0);
  });
  fields.GroupIf(page > 1, "previous", [&](Fields& other) { other.Text("file", link(page - 1)); });
  fields.GroupIf(page < list.Pages(), "next", [&](Fields& other) { other.Text("file", link(page + 1)); });
}

// The product whose picture stands for the page: the first that has one; -1 where none has.
int PicturedOn(const Site& site, const PlannedList& list, int page) {
  const auto first = list.products.begin() + std::ptrdiff_t(page - 1) * ProductsOnPage;
  const auto end = first + std::min<std::ptrdiff_t>(ProductsOnPage, list.products.end() - first);
  const auto pictured =
      std::find_if(first, end, [&](int product) { return !site.pictures.Of(std::size_t(product)).empty(); });
  return pictured == end ? -1 : *pictured;
}

// All that the head is made from.
std::uint64_t HeadFrom(const Site& site, const PlannedList& list, int page, const std::string& filter) {
  FingerprintOfMany from;
  from.Add(site.once.headsFrom);
  from.Add(filter);
  from.Add(list.text);
  from.Add(list.firstFile);
  for (const int number : {page, list.Pages(), list.namesakes}) from.Add(std::uint64_t(number));
  from.Add(FirstNames(site, list, page));
  if (const int pictured = PicturedOn(site, list, page); pictured >= 0) {
    AddPicture(site.pictures.Of(std::size_t(pictured)).front(), from);
    from.Add(site.plan.products[std::size_t(pictured)].product->name);
  }
  return from.Value();
}

void TellListHead(Fields& fields, const Site& site, const PlannedList& list, int page,
                  const std::string& filter) {
  const std::string& title = list.text;
  const std::string pageOf =
      site.words.Text("pageOf", {{"n", site.words.Number(page)}, {"total", site.words.Number(list.Pages())}});
  Head head;
  const std::string twin =
      list.namesakes > 0 ? " (" + std::to_string(list.namesakes + 1) + ')' : std::string();
  head.title = PageTitle(
      title, {filter + twin, list.Pages() > 1 ? pageOf : std::string(), CompanyInTitle(site.Brand())});
  head.shared = (filter.empty() ? std::string() : filter + ": ") + title;
  const std::string names = FirstNames(site, list, page);
  head.description = head.shared;
  if (!names.empty()) head.description += " – " + (list.Pages() > 1 ? pageOf + ": " : std::string()) + names;
  head.file = list.PageFile(page);
  if (const int pictured = PicturedOn(site, list, page); pictured >= 0) {
    head.picture = &site.pictures.Of(std::size_t(pictured)).front();
    head.pictured = site.plan.products[std::size_t(pictured)].product->name;
  }
  std::vector<std::pair<std::string, QString>> steps{
      {site.words.Text("home"), QStringLiteral("index.html")},
      {site.words.Text("products"), site.plan.all.PageFile(1)}};
  if (list.filter > 0) steps.emplace_back(title, list.PageFile(1));
  if (const QJsonObject path = PathData(site, steps); !path.isEmpty()) head.data.append(path);
  TellHead(fields, site, head);
}

// The first values of a filter, for a description of the page of all.
std::string FirstValues(const Site& site, const PlannedFilter& group) {
  std::string values;
  for (std::size_t i = 0; i < std::min(ValuesAtOnce, group.lists.size()); ++i)
    values += (i == 0 ? "" : ", ") + site.plan.filters[std::size_t(group.lists[i])].title.toStdString();
  return values;
}

// The letter that a value stands under: its first one, whatever sign is before it, without accents. What
// begins with a figure stands under a sign.
QString LetterOf(const QString& text) {
  for (const char32_t c : PlainLetters(text).toUcs4()) {
    if (QChar::isLetter(c)) return QString::fromUcs4(&c, 1).toUpper();
    if (QChar::isNumber(c)) break;
  }
  return QStringLiteral("0–9");
}

struct Letter {
  QString text;
  std::vector<int> lists;
};

// The values of a filter under their letters, each of which stands once, whatever the order of the language
// makes of its accents; under none where they are few.
std::vector<Letter> LettersOf(const Site& site, const PlannedFilter& group) {
  std::vector<Letter> letters;
  for (const int list : group.lists) {
    const QString text =
        group.lists.size() < LettersFrom ? QString() : LetterOf(site.plan.filters[std::size_t(list)].title);
    auto letter =
        std::find_if(letters.begin(), letters.end(), [&](const Letter& known) { return known.text == text; });
    if (letter == letters.end()) letter = letters.insert(letters.end(), {text, {}});
    letter->lists.push_back(list);
  }
  // One letter that all have tells nothing.
  if (letters.size() == 1) letters.front().text.clear();
  return letters;
}

}  // namespace

void TellList(Fields& fields, const Site& site, const PlannedList& list, int page) {
  const SitePlan& plan = site.plan;
  const auto group = std::find_if(plan.groups.begin(), plan.groups.end(),
                                  [&](const PlannedFilter& filter) { return filter.number == list.filter; });
  const std::string filter = group == plan.groups.end() ? std::string() : group->name;
  fields.Later(HeadFrom(site, list, page, filter), [&site, &list, page, filter](Fields& later) {
    TellListHead(later, site, list, page, filter);
  });
  fields.Flag("isProducts", list.filter == 0 && page == 1);
  fields.Text("heading", list.text);
  fields.TextIf("filterName", filter);
  fields.TextIf("filterNumber", list.filter > 0 ? std::to_string(list.filter) : std::string());
  fields.Text("browseBy", site.words.Text("browseBy", {{"name", filter}}));
  const int first = (page - 1) * ProductsOnPage;
  const int end = std::min(first + ProductsOnPage, int(list.products.size()));
  const int count = int(list.products.size());
  fields.Text("range", list.Pages() == 1 ? site.words.Counted("product", count)
                                         : site.words.Text("range", {{"from", site.words.Number(first + 1)},
                                                                     {"to", site.words.Number(end)},
                                                                     {"total", site.words.Number(count)}}));
  fields.Flag("rows", list.rows);
  TellCards(fields, site, {list.products.begin() + first, list.products.begin() + end}, EagerCards);
  fields.Flag("empty", list.products.empty());
  std::vector<const PlannedFilter*> groups;
  for (const PlannedFilter& other : plan.groups)
    if (list.filter == 0 || other.number == list.filter) groups.push_back(&other);
  fields.GroupIf(!groups.empty(), "browse", [&](Fields& browse) { TellGroups(browse, site, groups, &list); });
  TellPageLinks(fields, site, list, page);
}

void TellAllValues(Fields& fields, const Site& site, const PlannedFilter& group) {
  const std::vector<Letter> letters = LettersOf(site, group);
  const std::string all = site.words.Text("allValues");
  TellHead(fields, site,
           {PageTitle(group.name, {all, CompanyInTitle(site.Brand())}),
            group.name + ": " + FirstValues(site, group),
            group.allFile,
            "website",
            nullptr,
            {},
            {},
            {}});
  fields.Text("heading", group.name);
  fields.Text("total", all + " (" + site.words.Number(int(group.lists.size())) + ")");
  fields.List("letters", letters.size(), [&](Fields& letter, std::size_t i) {
    letter.TextIf("letter", letters[i].text.toStdString());
    letter.List("values", letters[i].lists.size(),
                [&](Fields& value, std::size_t j) { TellValue(value, site, letters[i].lists[j]); });
  });
}

}  // namespace vlhtml
