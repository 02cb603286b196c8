#include <sqlite3.h>

#include <algorithm>

#include "store/Quoting.h"
#include "store/RowReading.h"
#include "store/RowSet.h"

namespace vorlina {
namespace {

constexpr std::chrono::milliseconds CacheLife(250);
constexpr std::size_t CacheRows = 512;

qint64 ChangesOf(const RecordsetSource& source) { return sqlite3_total_changes64(source.Owner().Handle()); }

}  // namespace

KeysetRows::KeysetRows(std::shared_ptr<const RecordsetSource> source) : RowSet(std::move(source)) {
  keys_ = KeysOf(source_->KeysText(), source_->Values());
}

std::vector<qint64> KeysetRows::KeysOf(const QString& sql, const QVariantList& values) const {
  std::vector<qint64> keys;
  Query query(source_->Owner(), sql, values);
  while (query.Next()) keys.push_back(sqlite3_column_int64(query.Statement(), 0));
  return keys;
}

void KeysetRows::DropStale() {
  const auto now = std::chrono::steady_clock::now();
  const qint64 changes = ChangesOf(*source_);
  if (changes == cacheChanges_ && now - cacheTime_ < CacheLife && cache_.size() < CacheRows) return;
  cache_.clear();
  cacheTime_ = now;
  cacheChanges_ = changes;
}

const Row* KeysetRows::At(qint64 index, const Neighbours& around) {
  DropStale();
  auto found = cache_.find(index);
  if (found == cache_.end()) {
    Fetch(around());
    found = cache_.find(index);
  }
  return found == cache_.end() ? nullptr : found->second.get();
}

void KeysetRows::Fetch(const std::vector<qint64>& indices) {
  std::vector<qint64> keys;
  std::unordered_map<qint64, qint64> indexOf;
  for (const qint64 index : indices) {
    keys.push_back(Key(index));
    indexOf[Key(index)] = index;
    cache_[index] = nullptr;
  }
  Query query(source_->Owner(), source_->RowsText(keys));
  const std::size_t width = RowWidth(*source_);
  while (query.Next())
    cache_[indexOf[query.Integer(int(width))]] = std::make_unique<Row>(ReadRow(query, width));
}

qint64 KeysetRows::Append(qint64 key) {
  keys_.push_back(key);
  touched_.insert(key);
  return Count() - 1;
}

void KeysetRows::RowWritten(qint64 index, qint64 key, qint64 changesBefore) {
  keys_[std::size_t(index)] = key;
  touched_.insert(key);
  cache_.erase(index);
  // Where this row is all that has changed, what was read ahead of the others is still right.
  if (cacheChanges_ == changesBefore && ChangesOf(*source_) == changesBefore + 1) ++cacheChanges_;
}

std::vector<qint64> KeysetRows::Match(const QString& condition, const QVariantList& values) {
  std::vector<qint64> keys = KeysOf(source_->MatchText(condition), source_->Values() + values);
  const std::vector<qint64> touched(touched_.begin(), touched_.end());
  if (!touched.empty()) {
    const std::vector<qint64> more = KeysOf(source_->MatchText(condition, touched), values);
    keys.insert(keys.end(), more.begin(), more.end());
  }
  std::sort(keys.begin(), keys.end());
  std::vector<qint64> indices;
  if (keys.empty()) return indices;
  const qint64 lowest = keys.front();
  const qint64 highest = keys.back();
  for (std::size_t i = 0; i < keys_.size(); ++i)
    if (keys_[i] >= lowest && keys_[i] <= highest && std::binary_search(keys.begin(), keys.end(), keys_[i]))
      indices.push_back(qint64(i));
  return indices;
}

std::vector<qint64> KeysetRows::Sorted(int column, bool descending) {
  const QString order = u"ORDER BY "_qs + QuotedName(source_->Columns()[std::size_t(column)].name) +
                        u" COLLATE VORLINA_LOCALE"_qs + (descending ? u" DESC"_qs : QString());
  std::unordered_map<qint64, qint64> indexOf;
  for (std::size_t i = 0; i < keys_.size(); ++i) indexOf[keys_[i]] = qint64(i);
  std::vector<qint64> sorted;
  std::vector<bool> placed(keys_.size(), false);
  for (const qint64 key : KeysOf(source_->MatchText(u"1"_qs, order), source_->Values()))
    if (const auto found = indexOf.find(key); found != indexOf.end()) {
      sorted.push_back(found->second);
      placed[std::size_t(found->second)] = true;
    }
  for (std::size_t i = 0; i < keys_.size(); ++i)
    if (!placed[i]) sorted.push_back(qint64(i));
  return sorted;
}

}  // namespace vorlina
