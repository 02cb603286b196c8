// What a text that is being typed can become: the first of some texts, in their alphabetical order, that
// begins so. Letter case does not count, in any script, nor do blanks around a text.
#pragma once

#include <QString>
#include <vector>

#include "grid/Lookup.h"

namespace vorlina {

class Completion {
 public:
  Completion() = default;
  // Of texts that differ in letter case alone the first one counts.
  explicit Completion(std::vector<LookupItem> items);

  // The first text that begins as what was typed; null where none does, or nothing was typed.
  const LookupItem* First(const QString& typed) const;
  // The text itself, null where there is none.
  const LookupItem* Exactly(const QString& text) const;

  const std::vector<LookupItem>& Items() const { return items_; }

 private:
  struct Entry {
    QString folded;
    std::size_t item;
  };
  const Entry* FirstFrom(const QString& folded) const;

  std::vector<LookupItem> items_;
  std::vector<Entry> entries_;  // sorted by the folded text
};

}  // namespace vorlina
