#include <QCollator>
#include <QLocale>
#include <algorithm>
#include <numeric>

#include "store/Quoting.h"
#include "store/RowReading.h"
#include "store/RowSet.h"

namespace vorlina {
namespace {

// Null first, then numbers, then texts, as the database orders them.
int Rank(const QVariant& value) {
  if (value.isNull()) return 0;
  return value.typeId() == QMetaType::QString || value.typeId() == QMetaType::QByteArray ? 2 : 1;
}

bool Before(const QCollator& collator, const QVariant& a, const QVariant& b) {
  if (Rank(a) != Rank(b)) return Rank(a) < Rank(b);
  if (Rank(a) == 1) return a.toDouble() < b.toDouble();
  return Rank(a) == 2 && collator.compare(a.toString(), b.toString()) < 0;
}

}  // namespace

StaticRows::StaticRows(std::shared_ptr<const RecordsetSource> source) : RowSet(std::move(source)) {
  const bool keyed = source_->IsKeyed();
  Query query(source_->Owner(), keyed ? source_->AllRowsText() : source_->Text(), source_->Values());
  const std::size_t width = keyed ? RowWidth(*source_) : source_->Columns().size();
  while (query.Next()) {
    rows_.push_back(std::make_unique<Row>(ReadRow(query, width)));
    if (keyed) keys_.push_back(query.Integer(int(width)));
  }
}

const Row* StaticRows::At(qint64 index, const Neighbours&) { return rows_[std::size_t(index)].get(); }

qint64 StaticRows::Append(qint64 key) {
  keys_.push_back(key);
  rows_.emplace_back();
  RowWritten(Count() - 1, key, 0);
  return Count() - 1;
}

void StaticRows::RowWritten(qint64 index, qint64 key, qint64) {
  keys_[std::size_t(index)] = key;
  std::unique_ptr<Row>& row = rows_[std::size_t(index)];
  Query query(source_->Owner(), source_->RowsText({key}));
  row = query.Next() ? std::make_unique<Row>(ReadRow(query, RowWidth(*source_))) : nullptr;
}

// The database itself judges the condition, on the values of the snapshot.
std::vector<qint64> StaticRows::Match(const QString& condition, const QVariantList& values) {
  QStringList names;
  QStringList parameters;
  for (const RecordsetColumn& column : source_->Columns()) {
    names += QuotedName(column.name);
    parameters += u"?%1 COLLATE %2"_qs.arg(names.size()).arg(QuotedName(column.collation));
  }
  const QString sql = u"WITH snapshot("_qs + names.join(u',') + u") AS (SELECT "_qs + parameters.join(u',') +
                      u") SELECT 1 FROM snapshot WHERE ("_qs + condition + u')';
  const auto valuesOf = [&](const Row* row) {
    QVariantList bound;
    for (qsizetype i = 0; i < names.size(); ++i)
      bound += row == nullptr ? QVariant() : (*row)[std::size_t(i)];
    return bound + values;
  };
  Query query(source_->Owner(), sql, valuesOf(nullptr));
  std::vector<qint64> indices;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i] == nullptr) continue;
    query.Restart(valuesOf(rows_[i].get()));
    if (query.Next()) indices.push_back(qint64(i));
  }
  return indices;
}

std::vector<qint64> StaticRows::Sorted(int column, bool descending) {
  QCollator collator((QLocale()));
  collator.setCaseSensitivity(Qt::CaseInsensitive);
  std::vector<qint64> sorted(rows_.size());
  std::iota(sorted.begin(), sorted.end(), 0);
  const auto value = [&](qint64 index) {
    const Row* row = rows_[std::size_t(index)].get();
    return row == nullptr ? QVariant() : (*row)[std::size_t(column)];
  };
  std::stable_sort(sorted.begin(), sorted.end(), [&](qint64 a, qint64 b) {
    return descending ? Before(collator, value(b), value(a)) : Before(collator, value(a), value(b));
  });
  return sorted;
}

}  // namespace vorlina
