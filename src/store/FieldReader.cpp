#include "store/FieldReader.h"

#include <sqlite3.h>

#include <QVariant>
#include <algorithm>
#include <charconv>

#include "store/Connection.h"
#include "store/KeysetQuery.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

// Rows that one statement fetches by their keys.
constexpr int BlockRows = 64;

// A range is read whole where it holds no more rows than this for each that is wanted.
constexpr qint64 RowsPassedOver = 4;

}  // namespace

RawRow::RawRow(const SQLite::Statement& statement) {
  columns_.reserve(std::size_t(statement.getColumnCount()));
  for (int i = 0; i < statement.getColumnCount(); ++i) columns_.push_back(statement.getColumn(i));
}

std::string_view RawRow::Text(int column) const {
  const SQLite::Column& value = columns_[std::size_t(column) + 1];
  const int type = value.getType();
  if (type == SQLITE_INTEGER) {
    const char* const end = std::to_chars(integer_.begin(), integer_.end(), value.getInt64()).ptr;
    return {integer_.data(), std::size_t(end - integer_.data())};
  }
  if (type == SQLITE_FLOAT) {
    digits_ = QVariant(value.getDouble()).toString().toUtf8();
    return {digits_.constData(), std::size_t(digits_.size())};
  }
  const char* text = value.getText();
  return {text, std::size_t(value.getBytes())};
}

FieldReader::FieldReader(Connection& connection, const QString& table, const QStringList& columns)
    : connection_(&connection), source_(u"SELECT rowid"_qs) {
  for (const QString& column : columns) source_ += u", "_qs + QuoteName(column);
  source_ += u" FROM "_qs + QuoteName(table) + u" WHERE rowid "_qs;
}

SQLite::Statement& FieldReader::Prepared(std::unique_ptr<SQLite::Statement>& statement,
                                         const QString& condition) {
  if (statement == nullptr)
    statement = std::make_unique<SQLite::Statement>(Prepare(connection_->Database(), source_ + condition));
  return *statement;
}

void FieldReader::Read(const std::vector<qint64>& keys, const Visit& visit) {
  if (keys.empty()) return;
  WithStoreErrors([&] {
    if (keys.back() - keys.front() < qint64(keys.size()) * RowsPassedOver) return ReadRange(keys, visit);
    for (std::size_t at = 0; at < keys.size(); at += BlockRows)
      ReadBlock(keys.data() + at, int(std::min<std::size_t>(BlockRows, keys.size() - at)), visit);
  });
}

std::optional<qint64> FieldReader::ChangeMark() const {
  if (connection_->InTransaction()) return {};
  return connection_->ChangeMark();
}

// Rows come by their keys, so that those that are wanted are met one after the other.
void FieldReader::ReadRange(const std::vector<qint64>& keys, const Visit& visit) {
  SQLite::Statement& statement = Prepared(range_, u"BETWEEN ? AND ?"_qs);
  const ResetAtEnd reset{statement};
  statement.bind(1, static_cast<int64_t>(keys.front()));
  statement.bind(2, static_cast<int64_t>(keys.back()));
  if (!statement.executeStep()) return;
  const RawRow row(statement);
  auto wanted = keys.begin();
  do {
    const qint64 key = row.Key();
    while (*wanted < key) ++wanted;
    if (*wanted == key) visit(row);
  } while (statement.executeStep());
}

void FieldReader::ReadBlock(const qint64* keys, int count, const Visit& visit) {
  SQLite::Statement& statement =
      Prepared(block_, u"IN ("_qs + QStringList(BlockRows, u"?"_qs).join(u',') + u')');
  const ResetAtEnd reset{statement};
  statement.clearBindings();
  for (int i = 0; i < count; ++i) statement.bind(i + 1, static_cast<int64_t>(keys[i]));
  if (!statement.executeStep()) return;
  const RawRow row(statement);
  do visit(row);
  while (statement.executeStep());
}

}  // namespace vorlina
