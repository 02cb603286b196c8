#include "store/CatalogSchema.h"

#include <sqlite3.h>

#include <QRegularExpression>
#include <QStringList>

#include "base/Error.h"
#include "base/Texts.h"
#include "store/Connection.h"
#include "store/DeliveredSchema.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

[[noreturn]] void Refuse(const QString& what) {
  throw Error(Texts::tr("Il database non ha la struttura di un database di Vorlina (%1). Scegliere "
                        "un'altra copia di sicurezza.")
                  .arg(what));
}

// The rows of a query, each as one line.
QStringList Lines(SQLite::Database& database, const QString& sql, const QString& argument = {}) {
  SQLite::Statement statement = Prepare(database, sql);
  if (statement.getBindParameterCount() > 0) BindValues(statement, {argument});
  QStringList lines;
  while (statement.executeStep()) {
    QStringList values;
    for (int i = 0; i < statement.getColumnCount(); ++i)
      values += QString::fromUtf8(statement.getColumn(i).getText());
    lines += values.join(u' ');
  }
  return lines;
}

// What the pragmas do not tell of a column, and a table's checks.
QString RestOfColumn(SQLite::Database& database, const QString& table, const QString& column) {
  const char* collation = nullptr;
  int counter = 0;
  sqlite3_table_column_metadata(database.getHandle(), "main", table.toUtf8().constData(),
                                column.toUtf8().constData(), nullptr, &collation, nullptr, nullptr, &counter);
  return QString::fromUtf8(collation) + (counter != 0 ? u" counter" : u"");
}

QStringList TableLines(SQLite::Database& database, const QString& table) {
  QStringList lines =
      Lines(database, u"SELECT wr,strict FROM pragma_table_list(?) WHERE schema='main'"_qs, table);
  const QStringList columns =
      Lines(database, u"SELECT name FROM pragma_table_xinfo(?) ORDER BY cid"_qs, table);
  lines += Lines(
      database,
      u"SELECT name,type,\"notnull\",coalesce(dflt_value,'-'),pk,hidden FROM pragma_table_xinfo(?) ORDER BY cid"_qs,
      table);
  for (const QString& column : columns) lines += column + u' ' + RestOfColumn(database, table, column);
  lines += Lines(database,
                 u"SELECT \"from\",\"table\",coalesce(\"to\",'-'),on_update,on_delete,match,seq FROM "
                 u"pragma_foreign_key_list(?) ORDER BY \"table\",seq,\"from\""_qs,
                 table);
  const QString sql = Lines(database, u"SELECT sql FROM sqlite_schema WHERE name=?"_qs, table).value(0);
  static const QRegularExpression check(u"\\bCHECK\\b"_qs, QRegularExpression::CaseInsensitiveOption);
  if (sql.contains(check)) lines += u"CHECK"_qs;
  return lines;
}

QStringList IndexLines(SQLite::Database& database, const QString& index) {
  return Lines(database, u"SELECT cid,coalesce(name,'-'),\"desc\",coll,key FROM pragma_index_xinfo(?)"_qs,
               index) +
         Lines(database, u"SELECT tbl_name,coalesce(sql,'-') FROM sqlite_schema WHERE name=?"_qs, index)
             .replaceInStrings(QRegularExpression(u"\\s+"_qs), u" "_qs);
}

// Each table and index by its name, with all that makes it what it is.
std::map<QString, QStringList> StructureOf(SQLite::Database& database) {
  std::map<QString, QStringList> structure;
  for (const QString& name :
       Lines(database, u"SELECT name FROM sqlite_schema WHERE type='table' AND name NOT GLOB 'sqlite_*'"_qs))
    structure[name] = TableLines(database, name);
  // Those that a key makes have names of the database's own.
  for (const QString& name :
       Lines(database,
             u"SELECT name FROM sqlite_schema WHERE type='index' AND tbl_name NOT GLOB 'sqlite_*'"_qs))
    structure[name] = IndexLines(database, name);
  return structure;
}

std::map<QString, QStringList> OwnStructure() {
  SQLite::Database database(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  database.exec(DeliveredSchema);
  return StructureOf(database);
}

}  // namespace

void RequireTablesAlone(Connection& connection) {
  const QStringList others = WithStoreErrors([&] {
    return Lines(connection.Database(),
                 u"SELECT type,name FROM sqlite_schema WHERE type NOT IN ('table','index') UNION ALL "
                 u"SELECT type,name FROM pragma_table_list WHERE schema='main' AND type NOT IN ('table') AND "
                 u"name NOT GLOB 'sqlite_*'"_qs);
  });
  if (!others.isEmpty()) Refuse(others.first());
}

void RequireOwnSchema(Connection& connection) {
  const auto [own, found] =
      WithStoreErrors([&] { return std::pair(OwnStructure(), StructureOf(connection.Database())); });
  for (const auto& [name, lines] : own)
    if (found.count(name) == 0 || found.at(name) != lines) Refuse(name);
  const QStringList indexes = WithStoreErrors([&] {
    return Lines(connection.Database(), u"SELECT name,tbl_name FROM sqlite_schema WHERE type='index'"_qs);
  });
  for (const QString& line : indexes) {
    const qsizetype blank = line.lastIndexOf(u' ');
    if (own.count(line.mid(blank + 1)) != 0 && own.count(line.left(blank)) == 0) Refuse(line.left(blank));
  }
}

}  // namespace vorlina
