// Inserts, updates and deletes single rows of one table, by the key that a row has for good. Updates are
// optimistic: a row that somebody else has changed or deleted meanwhile is not overwritten.
#pragma once

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <utility>
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
  RowWriter(Connection& connection, QString table) : connection_(&connection), table_(std::move(table)) {}

  Connection& Database() const { return *connection_; }
  // The next number of the table's counter. A number is never given twice, whatever becomes of the row.
  // Throws Error.
  qint64 ReserveNumber(const QString& counter);

  // Each throws Error, with nothing written; a row that was changed is told apart from one that was deleted.
  qint64 Insert(const std::vector<ColumnChange>& changes);
  void Update(qint64 key, const std::vector<ColumnChange>& changes);
  void Delete(qint64 key);

 private:
  void RequireOneRow(qint64 key) const;

  Connection* connection_ = nullptr;
  QString table_;
};

}  // namespace vorlina
