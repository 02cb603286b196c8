#include "SearchIndex.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <algorithm>
#include <array>

namespace vlhtml {
namespace {

constexpr std::size_t TextsOfAll = 500'000;  // bytes
constexpr std::size_t ShortestText = 80;
constexpr std::size_t LongestText = 1500;
constexpr std::size_t UsualHit = 160;  // bytes in the file

// What search.js says.
constexpr std::array WordsOfSearch = {"searchFor", "any",           "clear",    "filters",   "foundMany",
                                      "foundNone", "foundNoneHint", "foundOne", "showFound", "showMore"};

// Whatever a script, or a page that it were put into, may take for its end is written as an escape.
void AddText(std::string& script, std::string_view text) {
  static constexpr char Digits[] = "0123456789abcdef";
  script += '"';
  std::size_t plain = 0;  // from here on all stand as they are
  const auto isPlain = [](char c) {
    return static_cast<unsigned char>(c) >= 0x20 && c != '<' && c != '>' && c != '&' && c != '"' &&
           c != '\\' && c != '\xE2';
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (isPlain(c)) continue;
    script.append(text.substr(plain, i - plain));
    const auto byte = static_cast<unsigned char>(c);
    const bool isLineEnd = text.substr(i, 2) == "\xE2\x80" &&
                           (text.substr(i, 3) == "\xE2\x80\xA8" || text.substr(i, 3) == "\xE2\x80\xA9");
    if (isLineEnd) {
      script += text[i + 2] == '\xA8' ? "\\u2028" : "\\u2029";
      i += 2;
    } else if (c == '"' || c == '\\') {
      script += '\\';
      script += c;
    } else if (byte < 0x20 || c == '<' || c == '>' || c == '&') {
      script += "\\u00";
      script += Digits[byte >> 4U];
      script += Digits[byte & 15U];
    } else {
      script += c;
    }
    plain = i + 1;
  }
  script.append(text.substr(plain));
  script += '"';
}

void AddText(std::string& script, const QString& text) { AddText(script, text.toStdString()); }

// A column "name:[...],"; item writes the one of a position.
template <typename Item>
void AddColumn(std::string& script, std::string_view name, std::size_t count, const Item& item) {
  script.append(name).append(":[");
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) script += ',';
    item(i);
  }
  script += "],\n";
}

// 0 stands for what is empty, which is most of some columns.
void AddTextIf(std::string& script, std::string_view text) {
  if (text.empty())
    script += '0';
  else
    AddText(script, text);
}

// The beginning of a text, up to the end of a word, in white space as one blank.
std::string Beginning(std::string text, std::size_t limit) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  if (text.size() <= limit) return text;
  const std::size_t blank = text.rfind(' ', limit);
  std::size_t end = blank == std::string::npos ? limit : blank;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) --end;
  text.resize(end);
  return text;
}

// What a product is found by besides its code and name, and the value that has a column of its own.
std::string FurtherText(const CatalogSnapshot& catalog, const SearchHit& hit, std::size_t limit) {
  const Product& product = *hit.product;
  std::string text;
  for (std::size_t i = 0; i < product.values.size(); ++i)
    if (int(i) + 1 != catalog.price && !(i == 0 && hit.value == product.values[0]) &&
        !product.values[i].empty())
      text += product.values[i] + ' ';
  for (const std::string& paragraph : product.paragraphs) text += paragraph + ' ';
  if (!text.empty()) text.pop_back();
  return Beginning(std::move(text), limit);
}

// The values of one filter by text: two of the same text are one choice.
class FilterColumn {
 public:
  FilterColumn(const CatalogSnapshot& catalog, std::size_t filter, const std::vector<SearchHit>& hits)
      : filter_(filter), name_(catalog.filterNames[filter]) {
    QSet<int> having;
    for (const SearchHit& hit : hits) having.insert(hit.product->filters[filter]);
    QHash<QString, int> places;
    for (const FilterValue& value : catalog.filterValues) {
      if (value.filter != int(filter) + 1 || !having.contains(value.id)) continue;
      if (!places.contains(value.text)) {
        values_ += value.text;
        places.insert(value.text, int(values_.size()));
      }
      places_.insert(value.id, places.value(value.text));
    }
  }

  bool IsEmpty() const { return values_.isEmpty(); }

  void AddTo(std::string& script, const std::vector<SearchHit>& hits) const {
    script += "{number:" + std::to_string(filter_ + 1) + ",name:";
    AddText(script, name_);
    script += ',';
    AddColumn(script, "values", std::size_t(values_.size()),
              [&](std::size_t i) { AddText(script, values_[qsizetype(i)]); });
    AddColumn(script, "of", hits.size(), [&](std::size_t i) {
      script += std::to_string(places_.value(hits[i].product->filters[filter_]));
    });
    script += '}';
  }

 private:
  std::size_t filter_;
  std::string name_;
  QStringList values_;
  QHash<int, int> places_;  // by Filtri.IDValore, counted from 1
};

// Pages without their ending, and pictures by what follows the page's name: few are written out.
class FileColumns {
 public:
  explicit FileColumns(const std::vector<SearchHit>& hits) {
    QHash<QString, int> known;
    for (const SearchHit& hit : hits) {
      const QString page = hit.file.chopped(5);
      const bool byCode = page == u"p-" + hit.product->code.toLower();
      pages_.push_back(byCode ? QString() : page);
      if (hit.picture.isEmpty()) {
        pictures_.push_back(0);
        continue;
      }
      const QString begin = QStringLiteral("images/") + page;
      const QString end = hit.picture.startsWith(begin) ? hit.picture.mid(begin.size()) : hit.picture;
      int& place = known[end];
      if (place == 0) {
        ends_ += end;
        place = int(ends_.size());
      }
      pictures_.push_back(place);
    }
  }

  void AddTo(std::string& script) const {
    AddColumn(script, "page", pages_.size(),
              [&](std::size_t i) { AddTextIf(script, pages_[i].toStdString()); });
    AddColumn(script, "picture", pictures_.size(),
              [&](std::size_t i) { script += std::to_string(pictures_[i]); });
    AddColumn(script, "ends", std::size_t(ends_.size()),
              [&](std::size_t i) { AddText(script, ends_[qsizetype(i)]); });
  }

 private:
  std::vector<QString> pages_;
  std::vector<int> pictures_;  // of ends_, counted from 1
  QStringList ends_;
};

void AddWords(std::string& script, const Words& words) {
  script += "words:{lang:";
  AddText(script, words.Language());
  for (const char* word : WordsOfSearch) {
    script.append(",").append(word).append(":");
    AddText(script, words.Text(word));
  }
  script += "},\n";
}

// Prices, or the values that stand in their place.
void AddLabelled(std::string& script, const std::vector<SearchHit>& hits, const std::string& label) {
  const auto add = [&](std::string_view name, std::string SearchHit::*text) {
    AddColumn(script, name, hits.size(), [&](std::size_t i) { AddTextIf(script, hits[i].*text); });
  };
  script += "label:";
  AddText(script, label);
  script += ",\n";
  const bool hasValues =
      std::any_of(hits.begin(), hits.end(), [](const SearchHit& hit) { return !hit.value.empty(); });
  add(hasValues ? "value" : "price", hasValues ? &SearchHit::value : &SearchHit::price);
}

}  // namespace

std::string SearchIndex(const CatalogSnapshot& catalog, const std::vector<SearchHit>& hits,
                        const std::string& label, const Words& words) {
  const std::size_t count = hits.size();
  const std::size_t limit =
      std::clamp(TextsOfAll / std::max<std::size_t>(count, 1), ShortestText, LongestText);
  std::string script;
  script.reserve(count * UsualHit);
  script += "vorlinaIndex({\n";
  AddWords(script, words);
  AddColumn(script, "code", count, [&](std::size_t i) { AddText(script, hits[i].product->code); });
  AddColumn(script, "name", count, [&](std::size_t i) {
    const Product& product = *hits[i].product;
    AddTextIf(script, product.name == product.code.toStdString() ? std::string() : product.name);
  });
  AddColumn(script, "text", count,
            [&](std::size_t i) { AddTextIf(script, FurtherText(catalog, hits[i], limit)); });
  AddLabelled(script, hits, label);
  FileColumns(hits).AddTo(script);
  std::vector<FilterColumn> filters;
  for (std::size_t filter = 0; filter < catalog.filterNames.size(); ++filter)
    if (FilterColumn column(catalog, filter, hits); !column.IsEmpty()) filters.push_back(std::move(column));
  AddColumn(script, "filters", filters.size(), [&](std::size_t i) { filters[i].AddTo(script, hits); });
  script += "});\n";
  return script;
}

}  // namespace vlhtml
