// The keys of a query's rows in their order: all that is held of a result, 8 bytes a row. A copy shares them
// until one of the two reads them anew.
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <memory>
#include <vector>

#include "store/KeysetQuery.h"

namespace vorlina {

class Connection;

class Keyset {
 public:
  Keyset() = default;
  // Reads the keys. Throws Error, as all that reads.
  Keyset(Connection& connection, KeysetQuery query);

  // After a failure the former keys are still there.
  void Load();
  // Reads the keys anew in the order of an SQL expression ("?" for each value), before the query's own, which
  // "" is again. Where it fails, all is as before.
  void SetOrder(const QString& expression, const QVariantList& values);

  qint64 Count() const { return keys_ == nullptr ? 0 : qint64(keys_->size()); }
  // The key at an index counted from 0, and the index of a key; 0 and -1 where there is none.
  qint64 At(qint64 index) const { return index >= 0 && index < Count() ? (*keys_)[std::size_t(index)] : 0; }
  qint64 IndexOf(qint64 key) const;
  // The index of the first row whose column has the value, as the column compares; -1 for none.
  qint64 Find(const QString& column, const QVariant& value) const;
  // In all copies.
  void Append(qint64 key) { keys_->push_back(key); }
  void Drop(std::vector<qint64> keys);

 private:
  std::vector<qint64> Read(const QString& where, const QString& order, const QVariantList& values) const;

  Connection* connection_ = nullptr;
  KeysetQuery query_;
  QString order_;
  QVariantList orderValues_;
  std::shared_ptr<std::vector<qint64>> keys_;
};

}  // namespace vorlina
