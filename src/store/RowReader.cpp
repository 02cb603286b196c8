#include "store/RowReader.h"

#include <QStringList>
#include <algorithm>

#include "store/Connection.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

// Rows that one statement fetches.
constexpr int BlockRows = 64;

}  // namespace

RowReader::RowReader(Connection& connection, const KeysetQuery& query)
    : connection_(connection),
      table_(query.table),
      source_(u"SELECT rowid, "_qs + query.columns + u" FROM "_qs + QuoteName(query.table)) {
  WithStoreErrors([&] { fields_.Read(Prepared(one_, 1), 1, query.table, connection.Database()); });
}

SQLite::Statement& RowReader::Prepared(std::unique_ptr<SQLite::Statement>& statement, int keys) const {
  if (statement == nullptr)
    statement = std::make_unique<SQLite::Statement>(
        Prepare(connection_.Database(),
                source_ + u" WHERE rowid IN ("_qs + QStringList(keys, u"?"_qs).join(u',') + u')'));
  return *statement;
}

Row RowReader::RowOf(const SQLite::Statement& statement) const {
  Row row;
  row.reserve(std::size_t(fields_.Count()));
  for (int i = 0; i < fields_.Count(); ++i)
    row.push_back(ColumnValue(statement, i + 1, fields_.At(i).boolean));
  return row;
}

std::optional<Row> RowReader::Read(qint64 key) {
  return WithStoreErrors([&]() -> std::optional<Row> {
    SQLite::Statement& statement = Prepared(one_, 1);
    const ResetAtEnd reset{statement};
    statement.bind(1, static_cast<int64_t>(key));
    if (!statement.executeStep()) return {};
    return RowOf(statement);
  });
}

void RowReader::Read(std::vector<FetchedRow>& rows) {
  for (std::size_t block = 0; block < rows.size(); block += BlockRows)
    ReadBlock(rows.data() + block, int(std::min<std::size_t>(BlockRows, rows.size() - block)));
}

// The rows come in the order of their keys, whatever the order asked for.
void RowReader::ReadBlock(FetchedRow* rows, int count) {
  std::vector<FetchedRow*> byKey;
  byKey.reserve(std::size_t(count));
  for (int i = 0; i < count; ++i) byKey.push_back(rows + i);
  std::sort(byKey.begin(), byKey.end(),
            [](const FetchedRow* a, const FetchedRow* b) { return a->bookmark < b->bookmark; });
  WithStoreErrors([&] {
    SQLite::Statement& statement = Prepared(block_, BlockRows);
    const ResetAtEnd reset{statement};
    statement.clearBindings();
    for (int i = 0; i < count; ++i) statement.bind(i + 1, static_cast<int64_t>(rows[i].bookmark));
    while (statement.executeStep()) {
      const qint64 key = statement.getColumn(0).getInt64();
      const auto found = std::lower_bound(byKey.begin(), byKey.end(), key,
                                          [](const FetchedRow* row, qint64 k) { return row->bookmark < k; });
      if (found == byKey.end() || (*found)->bookmark != key) continue;
      (*found)->exists = true;
      (*found)->values = RowOf(statement);
    }
  });
}

}  // namespace vorlina
