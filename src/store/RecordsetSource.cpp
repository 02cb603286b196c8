#include "store/RecordsetSource.h"

#include <sqlite3.h>

#include "base/Language.h"
#include "store/Query.h"
#include "store/Quoting.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

const QString KeyName = QStringLiteral("vorlina key");

QString StatementFor(const QString& text) {
  const QString trimmed = text.trimmed();
  const bool isStatement = trimmed.startsWith(u"SELECT"_qs, Qt::CaseInsensitive) ||
                           trimmed.startsWith(u"WITH"_qs, Qt::CaseInsensitive);
  return isStatement && trimmed.contains(u' ') ? text : u"SELECT * FROM "_qs + QuotedName(trimmed);
}

QString ListOf(const std::vector<qint64>& keys) {
  QString list;
  for (const qint64 key : keys) list += (list.isEmpty() ? QString() : u","_qs) + QString::number(key);
  return list;
}

RecordsetColumn ColumnOf(sqlite3_stmt* statement, int i) {
  RecordsetColumn column;
  column.name = QString::fromUtf8(sqlite3_column_name(statement, i));
  column.baseTable = QString::fromUtf8(sqlite3_column_table_name(statement, i));
  column.baseColumn = QString::fromUtf8(sqlite3_column_origin_name(statement, i));
  column.type = QString::fromUtf8(sqlite3_column_decltype(statement, i)).toUpper();
  column.isBoolean = column.type == u"BOOLEAN";
  column.isNumeric =
      column.isBoolean || column.type == u"INTEGER" || column.type == u"NUMERIC" || column.type == u"REAL";
  const char* collation = nullptr;
  if (!column.baseColumn.isEmpty())
    sqlite3_table_column_metadata(
        sqlite3_db_handle(statement), nullptr, column.baseTable.toUtf8().constData(),
        column.baseColumn.toUtf8().constData(), nullptr, &collation, nullptr, nullptr, nullptr);
  column.collation = collation == nullptr ? u"BINARY"_qs : QString::fromUtf8(collation);
  return column;
}

bool Same(const QString& a, const QString& b) { return a.compare(b, Qt::CaseInsensitive) == 0; }

}  // namespace

RecordsetSource::RecordsetSource(Connection& connection, const QString& text, const QVariantList& values)
    : connection_(connection), text_(StatementFor(text)), values_(values), parts_(SplitSelect(text_)) {
  ReadColumns();
  if (!CanBeKeyed()) parts_.reset();
  if (parts_) ReadKey();
}

void RecordsetSource::ReadColumns() {
  const Query query(connection_, text_, values_);
  for (int i = 0; i < query.ColumnCount(); ++i) columns_.push_back(ColumnOf(query.Statement(), i));
}

// A view, or a table without row keys, is read as it stands.
bool RecordsetSource::CanBeKeyed() const {
  if (!parts_) return false;
  bool anyBase = false;
  for (const RecordsetColumn& column : columns_) {
    if (column.baseTable.isEmpty()) continue;
    if (!Same(column.baseTable, parts_->table)) return false;
    anyBase = true;
  }
  if (!anyBase) return false;
  try {
    Query(connection_, KeysText(), values_);
    return true;
  } catch (const StoreError& error) {
    qCDebug(StoreLog) << "no row keys:" << error.what();
    return false;
  }
}

void RecordsetSource::ReadKey() {
  Query keys(connection_, u"SELECT name, type FROM pragma_table_info(?) WHERE pk > 0 ORDER BY pk"_qs,
             {parts_->table});
  bool isInteger = false;
  while (keys.Next()) {
    identity_.push_back(keys.Text(0));
    isInteger = Same(keys.Text(1), u"INTEGER"_qs);
  }
  if (identity_.size() != 1 || !isInteger) return;
  keyColumn_ = identity_.front();
  identity_.clear();
  int isCounter = 0;
  sqlite3_table_column_metadata(connection_.Handle(), nullptr, parts_->table.toUtf8().constData(),
                                keyColumn_.toUtf8().constData(), nullptr, nullptr, nullptr, nullptr,
                                &isCounter);
  if (isCounter != 0) counter_ = keyColumn_;
}

int RecordsetSource::IndexOf(const QString& name) const {
  for (std::size_t i = 0; i < columns_.size(); ++i)
    if (Same(columns_[i].name, name)) return int(i);
  return -1;
}

QString RecordsetSource::RowidName() const { return QuotedName(parts_->alias) + u".rowid"_qs; }

QString RecordsetSource::Inner(const QString& condition, const QString& orderBy) const {
  return u"(SELECT "_qs + parts_->columns + u", "_qs + RowidName() + u" AS "_qs + QuotedName(KeyName) +
         u" FROM "_qs + parts_->from + (condition.isEmpty() ? QString() : u" WHERE ("_qs + condition + u')') +
         (orderBy.isEmpty() ? QString() : u" ORDER BY "_qs + orderBy) + u')';
}

QString RecordsetSource::KeysText() const {
  return u"SELECT "_qs + QuotedName(KeyName) + u" FROM "_qs + Inner(parts_->where, parts_->orderBy);
}

QString RecordsetSource::MatchText(const QString& condition, const QString& tail) const {
  return u"SELECT "_qs + QuotedName(KeyName) + u" FROM "_qs + Inner(parts_->where, {}) + u" WHERE ("_qs +
         condition + u") "_qs + tail;
}

QString RecordsetSource::MatchText(const QString& condition, const std::vector<qint64>& keys) const {
  return u"SELECT "_qs + QuotedName(KeyName) + u" FROM "_qs +
         Inner(RowidName() + u" IN ("_qs + ListOf(keys) + u')', {}) + u" WHERE ("_qs + condition + u')';
}

QString RecordsetSource::FullColumns() const {
  QString text = parts_->columns;
  for (const QString& column : identity_)
    text += u", "_qs + QuotedName(parts_->alias) + u'.' + QuotedName(column);
  return text + u", "_qs + RowidName();
}

QString RecordsetSource::RowsText(const std::vector<qint64>& keys) const {
  return u"SELECT "_qs + FullColumns() + u" FROM "_qs + parts_->from + u" WHERE "_qs + RowidName() +
         u" IN ("_qs + ListOf(keys) + u')';
}

QString RecordsetSource::AllRowsText() const {
  return u"SELECT "_qs + FullColumns() + u" FROM "_qs + parts_->from +
         (parts_->where.isEmpty() ? QString() : u" WHERE "_qs + parts_->where) +
         (parts_->orderBy.isEmpty() ? QString() : u" ORDER BY "_qs + parts_->orderBy);
}

}  // namespace vorlina
