// What a drop-down column offers: numbers that its cells hold, and the texts that the user sees for them.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <optional>
#include <vector>

namespace vorlina {

struct LookupItem {
  qint64 value = 0;
  QString text;

  bool operator==(const LookupItem&) const = default;
};

class Lookup {
 public:
  Lookup() = default;
  explicit Lookup(std::vector<LookupItem> items);

  // As they are shown: sorted by the user's locale. Sorting waits until somebody asks, since showing a page
  // of rows does not.
  const std::vector<LookupItem>& Items() const;
  // "" for a value that is not offered.
  QString TextOf(qint64 value) const;
  // The value of a text in any letter case, the first of those that share it.
  std::optional<qint64> ValueOf(const QString& text) const;
  // The values with their places among the texts, for VORLINA_RANK; values that share a text share a place.
  QByteArray Ranks() const;

 private:
  mutable std::vector<LookupItem> items_;
  mutable bool sorted_ = false;
  QHash<qint64, QString> byValue_;
};

}  // namespace vorlina
