#include "products/Completion.h"

#include <algorithm>

namespace vorlina {

Completion::Completion(std::vector<LookupItem> items) : items_(std::move(items)) {
  entries_.reserve(items_.size());
  for (std::size_t i = 0; i < items_.size(); ++i)
    entries_.push_back({items_[i].text.trimmed().toCaseFolded(), i});
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const Entry& a, const Entry& b) { return a.folded < b.folded; });
}

// Whatever begins as a text stands right behind the place that it would have.
const Completion::Entry* Completion::FirstFrom(const QString& folded) const {
  const auto found =
      std::lower_bound(entries_.begin(), entries_.end(), folded,
                       [](const Entry& entry, const QString& text) { return entry.folded < text; });
  return found != entries_.end() && found->folded.startsWith(folded) ? &*found : nullptr;
}

const LookupItem* Completion::First(const QString& typed) const {
  const Entry* entry = typed.isEmpty() ? nullptr : FirstFrom(typed.toCaseFolded());
  return entry != nullptr ? &items_[entry->item] : nullptr;
}

const LookupItem* Completion::Exactly(const QString& text) const {
  const QString folded = text.toCaseFolded();
  const Entry* entry = FirstFrom(folded);
  return entry != nullptr && entry->folded == folded ? &items_[entry->item] : nullptr;
}

}  // namespace vorlina
