#include "store/RowWriter.h"

#include <QStringList>
#include <algorithm>

#include "store/Connection.h"
#include "store/KeysetQuery.h"
#include "store/RowErrors.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

qint64 NumberOf(Connection& connection, const QString& sql, const QVariantList& values) {
  Rows rows(connection, sql, values);
  return rows.Next() ? rows.Value(0).toLongLong() : 0;
}

}  // namespace

qint64 RowWriter::ReserveNumber(const QString& counter) {
  Transaction transaction(*connection_);
  const qint64 stored =
      NumberOf(*connection_, u"SELECT seq FROM sqlite_sequence WHERE name=? COLLATE NOCASE"_qs, {table_});
  const qint64 largest =
      NumberOf(*connection_, u"SELECT MAX(%1) FROM %2"_qs.arg(QuoteName(counter), QuoteName(table_)), {});
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
