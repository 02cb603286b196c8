#include "store/Migration.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "base/Language.h"
#include "store/DatabaseBackup.h"
#include "store/Query.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

// "Catalog-v1-backup.db", "Catalog-v1-backup-2.db" and so on: the first name that is free.
QString FreeBackupName(const QString& path, int version) {
  const QFileInfo file(path);
  const QString stem = file.dir().filePath(u"%1-v%2-backup"_qs.arg(file.completeBaseName()).arg(version));
  const QString suffix = file.suffix().isEmpty() ? QString() : u'.' + file.suffix();
  QString name = stem + suffix;
  for (int i = 2; QFileInfo::exists(name); ++i) name = u"%1-%2%3"_qs.arg(stem).arg(i).arg(suffix);
  return name;
}

void RequireEvery(int version, int schemaVersion, const std::vector<Migration>& migrations) {
  for (const Migration& migration : migrations)
    if (migration.version == version + 1) ++version;
  if (version != schemaVersion)
    throw StoreError(
        StoreFault::Other,
        EitherLanguage(u"Il database è di una versione troppo vecchia per questo programma. Aprirlo prima"
                       u" con una versione intermedia di Vorlina."_qs,
                       u"The database is of a version too old for this program. Open it with an"
                       u" intermediate version of Vorlina first."_qs));
}

// The version may have been settled by another program while the copy was made.
int VersionNow(Connection& connection) {
  Query query(connection, u"PRAGMA user_version"_qs);
  return query.Next() ? int(query.Integer(0)) : 0;
}

void RequireForeignKeys(Connection& connection) {
  Query check(connection, u"PRAGMA foreign_key_check"_qs);
  if (check.Next())
    throw StoreError(
        StoreFault::Constraint,
        EitherLanguage(u"L'aggiornamento del database lascerebbe righe senza catalogo o prodotto"_qs,
                       u"The migration of the database would leave rows without a catalog or product"_qs));
}

}  // namespace

std::vector<Migration> DeliveredMigrations() {
  std::vector<Migration> migrations;
  const QDir scripts(u":/migrations"_qs);
  for (const QString& name : scripts.entryList({u"*.sql"_qs}, QDir::Files, QDir::Name)) {
    QFile file(scripts.filePath(name));
    if (file.open(QIODevice::ReadOnly))
      migrations.push_back({QFileInfo(name).completeBaseName().toInt(), QString::fromUtf8(file.readAll())});
  }
  return migrations;
}

void MigrateDatabase(Connection& connection, int version, int schemaVersion,
                     const std::vector<Migration>& migrations) {
  RequireEvery(version, schemaVersion, migrations);
  CopyDatabase(connection, FreeBackupName(connection.DataSource(), version));
  // A script may build a table anew, which must not cascade; the keys are checked at the end instead. The
  // switch has no effect inside a transaction.
  connection.Execute(u"PRAGMA foreign_keys=OFF"_qs);
  try {
    Transaction transaction(connection);
    const int now = VersionNow(connection);
    for (const Migration& migration : migrations)
      if (migration.version > now) {
        connection.Execute(migration.script);
        connection.Execute(u"PRAGMA user_version=%1"_qs.arg(migration.version));
      }
    RequireForeignKeys(connection);
    transaction.Commit();
  } catch (...) {
    connection.Execute(u"PRAGMA foreign_keys=ON"_qs);
    throw;
  }
  connection.Execute(u"PRAGMA foreign_keys=ON"_qs);
}

}  // namespace vorlina
