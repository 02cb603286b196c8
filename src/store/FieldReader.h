// Reads some columns of many rows by their keys, as the database holds them: for whoever looks through all
// rows and keeps none.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QByteArray>
#include <QStringList>
#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace vorlina {

class Connection;

// A row while it is read; what it gives holds until the next column is asked for.
class RawRow {
 public:
  explicit RawRow(const SQLite::Statement& statement);

  qint64 Key() const { return columns_[0].getInt64(); }
  // In UTF-8; of a number its digits as a grid shows them, of Null nothing.
  std::string_view Text(int column) const;
  // 0 for Null.
  qint64 Integer(int column) const { return columns_[std::size_t(column) + 1].getInt64(); }

 private:
  std::vector<SQLite::Column> columns_;  // the key, and the columns asked for
  mutable QByteArray digits_;
  mutable std::array<char, 24> integer_{};
};

class FieldReader {
 public:
  using Visit = std::function<void(const RawRow& row)>;

  // The columns are the table's own.
  FieldReader(Connection& connection, const QString& table, const QStringList& columns);

  // Visits the rows of the keys, which ascend; those that are gone are passed over. Keys close together are
  // read in one go. Throws Error.
  void Read(const std::vector<qint64>& keys, const Visit& visit);
  // As Connection::ChangeMark; none within a transaction, which may take back what is read. Throws Error.
  std::optional<qint64> ChangeMark() const;

 private:
  void ReadRange(const std::vector<qint64>& keys, const Visit& visit);
  void ReadBlock(const qint64* keys, int count, const Visit& visit);
  SQLite::Statement& Prepared(std::unique_ptr<SQLite::Statement>& statement, const QString& condition);

  Connection* connection_;
  QString source_;  // up to the condition on the key
  std::unique_ptr<SQLite::Statement> range_;
  std::unique_ptr<SQLite::Statement> block_;
};

}  // namespace vorlina
