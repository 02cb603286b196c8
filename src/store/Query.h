// The rows of one statement, walked forward. It holds a read lock from the first row to the last, so it must
// not outlive the procedure that made it.
#pragma once

#include <QString>
#include <QVariant>
#include <memory>
#include <vector>

#include "store/Connection.h"

struct sqlite3_stmt;

namespace vorlina {

// Binds from parameter number first on; Null and the empty QVariant are bound as Null, a bool as 0 or 1.
// Throws StoreError when there are not as many parameters.
void BindValues(sqlite3_stmt* statement, const QVariantList& values, int first = 1);

class Query {
 public:
  // Throws StoreError when the text is no statement or the number of values differs from that of the "?".
  Query(Connection& connection, const QString& sql, const QVariantList& values = {});

  // Steps to the next row, at first to row one; false at the end, where the read lock is given back.
  bool Next();

  int ColumnCount() const;
  QString ColumnName(int column) const;
  // -1 for a name that does not exist; any letter case.
  int ColumnIndex(const QString& name) const;

  // A value of the current row: NullValue(), qlonglong, double, QString or QByteArray, and bool for columns
  // declared BOOLEAN. Throws StoreError for an unknown column or where there is no row.
  QVariant Value(int column) const;
  QVariant Value(const QString& name) const;
  // The same without the way over QVariant; 0 and "" for Null.
  qint64 Integer(int column) const;
  QString Text(int column) const;
  // As Value, with BOOLEAN left as the number that is stored.
  QVariant StoredValue(int column) const;

  // Starts again with other values.
  void Restart(const QVariantList& values);
  sqlite3_stmt* Statement() const { return statement_.get(); }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const;
  };
  void RequireColumn(int column) const;
  bool IsBoolean(int column) const;

  // Keeps the database open as long as the statement lives.
  std::shared_ptr<SQLite::Database> database_;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
  bool onRow_ = false;
};

}  // namespace vorlina
