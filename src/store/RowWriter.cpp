#include "store/RowWriter.h"

#include <QStringList>
#include <algorithm>
#include <map>

#include "base/Error.h"
#include "base/Language.h"
#include "store/Connection.h"
#include "store/SelectStatement.h"

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
  // A rollback takes back what sqlite_sequence was told, so the numbers given by this process are remembered
  // besides: a file may already bear one.
  static std::map<QString, qint64> given;
  qint64& last = given[connection_->DataSource() + u'|' + table_.toCaseFolded()];
  Transaction transaction(*connection_);
  const qint64 stored = NumberOf(*connection_, u"SELECT seq FROM sqlite_sequence WHERE name=?"_qs, {table_});
  const qint64 largest =
      NumberOf(*connection_, u"SELECT MAX(%1) FROM %2"_qs.arg(QuoteName(counter_), QuoteName(table_)), {});
  const qint64 number = std::max({stored, largest, last}) + 1;
  connection_->Execute(u"UPDATE sqlite_sequence SET seq=? WHERE name=?"_qs, {number, table_});
  if (connection_->Changes() == 0)
    connection_->Execute(u"INSERT INTO sqlite_sequence (name,seq) VALUES (?,?)"_qs, {table_, number});
  transaction.Commit();
  return last = number;
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
  QStringList unchanged;
  QVariantList values;
  for (const ColumnChange& change : changes) {
    settings += QuoteName(change.column) + u"=?"_qs;
    values += change.value;
  }
  values += key;
  for (const ColumnChange& change : changes) {
    unchanged += QuoteName(change.column) + u" IS ? COLLATE BINARY"_qs;
    values += change.before;
  }
  connection_->Execute(u"UPDATE %1 SET %2 WHERE rowid=? AND %3"_qs.arg(QuoteName(table_), settings.join(u','),
                                                                       unchanged.join(u" AND "_qs)),
                       values);
  if (connection_->Changes() > 0) return;
  if (NumberOf(*connection_, u"SELECT COUNT(*) FROM %1 WHERE rowid=?"_qs.arg(QuoteName(table_)), {key}) == 0)
    throw Error(EitherLanguage(
        u"La riga è stata eliminata nel frattempo da un'altra finestra o da un altro programma."_qs,
        u"The row was deleted meanwhile by another window or program."_qs));
  throw Error(EitherLanguage(
      u"La riga è stata modificata nel frattempo da un'altra finestra o da un altro programma."_qs,
      u"The row was changed meanwhile by another window or program."_qs));
}

void RowWriter::Delete(qint64 key) {
  connection_->Execute(u"DELETE FROM %1 WHERE rowid=?"_qs.arg(QuoteName(table_)), {key});
}

}  // namespace vorlina
