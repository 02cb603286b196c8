// The columns of a recordset: their names as the statement gives them, and the table columns behind them, as
// the prepared statement tells.
#pragma once

#include <QHash>
#include <QString>
#include <QVariant>
#include <vector>

namespace SQLite {
class Database;
class Statement;
}  // namespace SQLite

namespace vorlina {

struct Field {
  QString name;
  QString table;   // empty for an expression
  QString column;  // the base column's name; empty for an expression
  bool boolean = false;
  bool numeric = false;  // declared for numbers, BOOLEAN among them
  bool counter = false;  // the table's AUTOINCREMENT key
};

class RecordsetFields {
 public:
  // Asks a statement over one table of its columns, from one on. Throws SQLite::Exception.
  void Read(const SQLite::Statement& statement, int first, const QString& table, SQLite::Database& database);

  int Count() const { return int(fields_.size()); }
  const Field& At(int index) const { return fields_[std::size_t(index)]; }
  // Position of a column by its name in any letter case. Throws Error.
  int IndexOf(const QString& name) const;
  // The value as the column takes it: a text of digits as a number where the column holds numbers. Throws
  // Error for another text there, which the database would store as it is.
  QVariant Fitted(int index, const QVariant& value) const;

 private:
  std::vector<Field> fields_;
  QHash<QString, int> positions_;
};

}  // namespace vorlina
