#include "store/RowWriter.h"

#include <QStringList>
#include <algorithm>

#include "base/Error.h"
#include "base/Language.h"
#include "store/Connection.h"
#include "store/RowErrors.h"
#include "store/SelectStatement.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// A table's counter is its INTEGER PRIMARY KEY declared AUTOINCREMENT.
QString CounterOf(Connection& connection, const QString& table) {
  Rows declared(connection, u"SELECT sql FROM sqlite_schema WHERE type='table' AND name=? COLLATE NOCASE"_qs,
                {table});
  if (!declared.Next() || !declared.Value(0).toString().contains(u"AUTOINCREMENT", Qt::CaseInsensitive))
    return {};
  Rows key(connection, u"SELECT name FROM pragma_table_info(?) WHERE pk=1"_qs, {table});
  return key.Next() ? key.Value(0).toString() : QString();
}

qint64 NumberOf(Connection& connection, const QString& sql, const QVariantList& values) {
  Rows rows(connection, sql, values);
  return rows.Next() ? rows.Value(0).toLongLong() : 0;
}

}  // namespace

RowWriter::RowWriter(Connection& connection, QString table)
    : connection_(&connection), table_(std::move(table)) {
  counter_ = CounterOf(connection, table_);
}

qint64 RowWriter::ReserveNumber() {
  Transaction transaction(*connection_);
  const qint64 stored =
      NumberOf(*connection_, u"SELECT seq FROM sqlite_sequence WHERE name=? COLLATE NOCASE"_qs, {table_});
  const qint64 largest =
      NumberOf(*connection_, u"SELECT MAX(%1) FROM %2"_qs.arg(QuoteName(counter_), QuoteName(table_)), {});
  const qint64 number = std::max(stored, largest) + 1;
  connection_->KeepCounter(table_, number);
  transaction.Commit();
  return number;
}

qint64 RowWriter::Insert(const std::vector<ColumnChange>& changes) {
  QStringList columns;
  QStringList marks;
  QVariantList values;
  for (const ColumnChange& change : changes) {
    columns += QuoteName(change.column);
    marks += u"?"_qs;
    values += change.value;
  }
  const QString content =
      columns.isEmpty() ? u" DEFAULT VALUES"_qs
                        : QString(u" ("_qs + columns.join(u',') + u") VALUES ("_qs + marks.join(u',') + u')');
  connection_->Execute(u"INSERT INTO "_qs + QuoteName(table_) + content, values);
  return connection_->LastInsertId();
}

void RowWriter::Update(qint64 key, const std::vector<ColumnChange>& changes) {
  if (changes.empty()) return;
  QStringList settings;
  QString condition = u" WHERE rowid=?"_qs;
  QVariantList values;
  for (const ColumnChange& change : changes) {
    settings += QuoteName(change.column) + u"=?"_qs;
    values += change.value;
  }
  values += key;
  for (const ColumnChange& change : changes) {
    condition += u" AND "_qs + QuoteName(change.column) + u" IS ? COLLATE BINARY"_qs;
    values += change.before;
  }
  connection_->Execute(u"UPDATE "_qs + QuoteName(table_) + u" SET "_qs + settings.join(u',') + condition,
                       values);
  RequireOneRow(key);
}

void RowWriter::RequireOneRow(qint64 key) const {
  if (connection_->Changes() > 0) return;
  const QString count = u"SELECT COUNT(*) FROM "_qs + QuoteName(table_) + u" WHERE rowid=?"_qs;
  if (NumberOf(*connection_, count, {key}) == 0) throw ConflictError::Deleted();
  throw ConflictError::Changed();
}

void RowWriter::Delete(qint64 key) {
  connection_->Execute(u"DELETE FROM "_qs + QuoteName(table_) + u" WHERE rowid=?"_qs, {key});
  RequireOneRow(key);
}

}  // namespace vorlina
