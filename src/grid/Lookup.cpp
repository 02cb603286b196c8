#include "grid/Lookup.h"

#include <QCollator>
#include <algorithm>

#include "store/Ranks.h"

namespace vorlina {
namespace {

QCollator LocaleCollator() {
  QCollator collator;
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  collator.setNumericMode(true);
  return collator;
}

}  // namespace

Lookup::Lookup(std::vector<LookupItem> items) : items_(std::move(items)) {
  byValue_.reserve(qsizetype(items_.size()));
  for (const LookupItem& item : items_) byValue_.insert(item.value, item.text);
}

// Texts that differ in letter case alone keep their order, so that the first of them is the same as before.
const std::vector<LookupItem>& Lookup::Items() const {
  if (sorted_) return items_;
  const QCollator collator = LocaleCollator();
  std::stable_sort(items_.begin(), items_.end(), [&](const LookupItem& a, const LookupItem& b) {
    return collator.compare(a.text, b.text) < 0;
  });
  sorted_ = true;
  return items_;
}

QString Lookup::TextOf(qint64 value) const { return byValue_.value(value); }

std::optional<qint64> Lookup::ValueOf(const QString& text) const {
  const QString folded = text.toCaseFolded();
  const auto found = std::find_if(items_.begin(), items_.end(),
                                  [&](const LookupItem& item) { return item.text.toCaseFolded() == folded; });
  return found != items_.end() ? std::optional<qint64>(found->value) : std::nullopt;
}

QByteArray Lookup::Ranks() const {
  const QCollator collator = LocaleCollator();
  std::vector<RankPair> pairs;
  const std::vector<LookupItem>& items = Items();
  pairs.reserve(items.size());
  qint64 rank = 0;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i > 0 && collator.compare(items[i - 1].text, items[i].text) != 0) ++rank;
    pairs.push_back({items[i].value, rank});
  }
  return RankList(std::move(pairs));
}

}  // namespace vorlina
