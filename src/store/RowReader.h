// Reads rows of a query by their keys. Its statements stay prepared.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <memory>
#include <optional>
#include <vector>

#include "store/KeysetQuery.h"
#include "store/RecordsetFields.h"

namespace vorlina {

class Connection;

using Row = std::vector<QVariant>;

// A row as it was fetched, apart from the current one.
struct FetchedRow {
  qint64 bookmark = 0;
  bool exists = false;  // false where it was deleted meanwhile
  Row values;           // of the query's columns
};

class RowReader {
 public:
  // Asks the database what the columns are. Throws Error, as all that reads.
  RowReader(Connection& connection, const KeysetQuery& query);

  const RecordsetFields& Fields() const { return fields_; }
  const QString& Table() const { return table_; }
  // Nothing where the row is not there any more.
  std::optional<Row> Read(qint64 key);
  // Fills in the rows of the bookmarks, by as few statements as may be.
  void Read(std::vector<FetchedRow>& rows);

 private:
  void ReadBlock(FetchedRow* rows, int count);
  Row RowOf(const SQLite::Statement& statement) const;
  SQLite::Statement& Prepared(std::unique_ptr<SQLite::Statement>& statement, int keys) const;

  Connection& connection_;
  QString table_;
  QString source_;  // up to the condition on the key, which is the first column
  RecordsetFields fields_;
  std::unique_ptr<SQLite::Statement> one_;
  std::unique_ptr<SQLite::Statement> block_;
};

}  // namespace vorlina
