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
  const QCollator collator = LocaleCollator();
  std::stable_sort(items_.begin(), items_.end(), [&](const LookupItem& a, const LookupItem& b) {
    return collator.compare(a.text, b.text) < 0;
  });
  for (std::size_t i = 0; i < items_.size(); ++i) {
    byValue_.insert(items_[i].value, qsizetype(i));
    const QString folded = items_[i].text.toCaseFolded();
    if (!byText_.contains(folded)) byText_.insert(folded, items_[i].value);
  }
}

QString Lookup::TextOf(qint64 value) const {
  const auto found = byValue_.constFind(value);
  return found != byValue_.constEnd() ? items_[std::size_t(*found)].text : QString();
}

std::optional<qint64> Lookup::ValueOf(const QString& text) const {
  const auto found = byText_.constFind(text.toCaseFolded());
  return found != byText_.constEnd() ? std::optional<qint64>(*found) : std::nullopt;
}

QByteArray Lookup::Ranks() const {
  const QCollator collator = LocaleCollator();
  std::vector<RankPair> pairs;
  pairs.reserve(items_.size());
  qint64 rank = 0;
  for (std::size_t i = 0; i < items_.size(); ++i) {
    if (i > 0 && collator.compare(items_[i - 1].text, items_[i].text) != 0) ++rank;
    pairs.push_back({items_[i].value, rank});
  }
  return RankList(std::move(pairs));
}

}  // namespace vorlina
