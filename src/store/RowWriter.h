// Inserts, updates and deletes single rows of one table. Updates are optimistic: a row that somebody else has
// changed or deleted meanwhile is not overwritten.
#pragma once

#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariantList>
#include <vector>

namespace vorlina {

class Connection;

// A column that is being written: its new value, and for a row that exists the value that was read.
struct ColumnChange {
  QString column;
  QVariant value;
  QVariant before;
};

class RowWriter {
 public:
  RowWriter() = default;
  RowWriter(Connection& connection, QString table);

  // The name of the table's counter column; empty where it has none.
  const QString& Counter() const { return counter_; }
  // The columns of the primary key where that is not the row's key. The database gives the key of a deleted
  // row to a later one, so a row is written to only if these are still as they were read.
  const QStringList& Identity() const { return identity_; }
  // The next number of the counter. A number is never given twice, whatever becomes of the row. Throws Error.
  qint64 ReserveNumber();

  // Each throws Error, with nothing written; a row that was changed is told apart from one that was deleted.
  // identity holds the values of the identity columns as they were read.
  qint64 Insert(const std::vector<ColumnChange>& changes);
  void Update(qint64 key, const std::vector<QVariant>& identity, const std::vector<ColumnChange>& changes);
  void Delete(qint64 key, const std::vector<QVariant>& identity);

 private:
  QString KeyCondition(qint64 key, const std::vector<QVariant>& identity, QVariantList& values) const;
  void RequireOneRow(qint64 key, const std::vector<QVariant>& identity) const;

  Connection* connection_ = nullptr;
  QString table_;
  QString counter_;
  QStringList identity_;
};

}  // namespace vorlina
