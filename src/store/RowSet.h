// The rows that a recordset and its clones walk over. An index keeps its meaning until the recordset is
// requeried: rows are only appended.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "store/RecordsetSource.h"

namespace vorlina {

class RowSet {
 public:
  // Names the rows around one that will be looked at next.
  using Neighbours = std::function<std::vector<qint64>()>;

  explicit RowSet(std::shared_ptr<const RecordsetSource> source) : source_(std::move(source)) {}
  virtual ~RowSet() = default;

  const RecordsetSource& Source() const { return *source_; }
  virtual qint64 Count() const = 0;
  // The stored values of a row, the identity columns behind them, or null when the row is gone. The
  // pointer is good until the next call.
  virtual const Row* At(qint64 index, const Neighbours& around) = 0;
  // Key of the row; only where the source is keyed.
  virtual qint64 Key(qint64 index) const = 0;
  // A row was added; gives its index.
  virtual qint64 Append(qint64 key) = 0;
  // A recordset wrote the row, which has this key now. changesBefore is the connection's count of changes
  // before.
  virtual void RowWritten(qint64 index, qint64 key, qint64 changesBefore) = 0;
  // The indices for which the condition on the columns holds, ascending.
  virtual std::vector<qint64> Match(const QString& condition, const QVariantList& values) = 0;
  // All indices by this column, in the user's alphabet.
  virtual std::vector<qint64> Sorted(int column, bool descending) = 0;
  // Forgets what was read ahead.
  virtual void Refresh() {}

  // Rows deleted through a recordset, which the views leave out.
  void MarkDeleted(qint64 index) { deleted_.insert(index); }
  bool IsDeleted(qint64 index) const { return deleted_.count(index) != 0; }
  bool HasDeleted() const { return !deleted_.empty(); }

 protected:
  std::shared_ptr<const RecordsetSource> source_;

 private:
  std::unordered_set<qint64> deleted_;
};

// The row keys alone, 8 bytes a row; rows are fetched by key when looked at. What was read ahead is kept for
// a quarter of a second, or until this connection changes anything.
class KeysetRows : public RowSet {
 public:
  explicit KeysetRows(std::shared_ptr<const RecordsetSource> source);

  qint64 Count() const override { return qint64(keys_.size()); }
  const Row* At(qint64 index, const Neighbours& around) override;
  qint64 Key(qint64 index) const override { return keys_[std::size_t(index)]; }
  qint64 Append(qint64 key) override;
  void RowWritten(qint64 index, qint64 key, qint64 changesBefore) override;
  std::vector<qint64> Match(const QString& condition, const QVariantList& values) override;
  std::vector<qint64> Sorted(int column, bool descending) override;
  void Refresh() override { cache_.clear(); }

 private:
  void Fetch(const std::vector<qint64>& indices);
  void DropStale();
  std::vector<qint64> KeysOf(const QString& sql, const QVariantList& values) const;

  std::vector<qint64> keys_;
  // Keys appended or changed since the opening: they may no longer fit the statement's own condition.
  std::unordered_set<qint64> touched_;
  std::unordered_map<qint64, std::unique_ptr<Row>> cache_;  // by index; null for a row that is gone
  std::chrono::steady_clock::time_point cacheTime_;
  qint64 cacheChanges_ = 0;
};

// A snapshot of all values.
class StaticRows : public RowSet {
 public:
  explicit StaticRows(std::shared_ptr<const RecordsetSource> source);

  qint64 Count() const override { return qint64(rows_.size()); }
  const Row* At(qint64 index, const Neighbours& around) override;
  qint64 Key(qint64 index) const override { return keys_[std::size_t(index)]; }
  qint64 Append(qint64 key) override;
  void RowWritten(qint64 index, qint64 key, qint64 changesBefore) override;
  std::vector<qint64> Match(const QString& condition, const QVariantList& values) override;
  std::vector<qint64> Sorted(int column, bool descending) override;

 private:
  std::vector<qint64> keys_;  // empty when the source is not keyed
  std::vector<std::unique_ptr<Row>> rows_;
};

}  // namespace vorlina
