#include "store/CatalogDatabase.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include "base/Language.h"
#include "store/Migration.h"
#include "store/Query.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

// The start of the program does not wait for longer than reading this much takes; a larger file is read
// through by the full check before each backup.
constexpr qint64 FullyCheckedSize = 32 << 20;

[[noreturn]] void Refuse(StoreFault fault, const QString& path, const QString& italian,
                         const QString& english) {
  throw StoreError(fault, EitherLanguage(italian, english).arg(QDir::toNativeSeparators(path)));
}

[[noreturn]] void RefuseDamaged(const QString& path) {
  Refuse(StoreFault::Corrupt, path,
         u"Il database %1 è danneggiato, o non è un database. Il file non è stato toccato: ripristinare una "
         u"copia di"
         u" riserva."_qs,
         u"The database %1 is damaged, or is no database. The file was not touched: restore a backup."_qs);
}

struct Header {
  int applicationId = 0;
  int userVersion = 0;
};

Header ReadHeader(SQLite::Database& database) {
  return {database.execAndGet("PRAGMA application_id").getInt(),
          database.execAndGet("PRAGMA user_version").getInt()};
}

// Reads the header as it lies, without a lock, a recovery or a file beside it. Nothing where an unfinished
// transaction has left it unreadable: it can then be told only after the recovery.
std::optional<Header> ReadHeaderOf(const QString& path) {
  QUrl uri = QUrl::fromLocalFile(path);
  uri.setQuery(u"immutable=1"_qs);
  try {
    SQLite::Database database(uri.toEncoded().toStdString(), SQLite::OPEN_READONLY | SQLite::OPEN_URI);
    return ReadHeader(database);
  } catch (const SQLite::Exception&) {
    if (QFileInfo(path + u"-journal"_qs).size() == 0) throw;
    return {};
  }
}

void CheckFile(const QString& path) {
  const QFileInfo file(path);
  if (!file.isFile())
    Refuse(
        StoreFault::Missing, path,
        u"Il database %1 non esiste. Rimetterlo al suo posto, oppure ripristinare una copia di riserva."_qs,
        u"The database %1 does not exist. Put it back in its place, or restore a backup."_qs);
  if (file.size() == 0)
    Refuse(
        StoreFault::Empty, path,
        u"Il database %1 è vuoto (0 byte). Il file non è stato toccato: ripristinare una copia di riserva."_qs,
        u"The database %1 is empty (0 bytes). The file was not touched: restore a backup."_qs);
}

void CheckHeader(const Header& header, const QString& path, int schemaVersion) {
  if (header.applicationId != CatalogApplicationId || header.userVersion < 1)
    Refuse(
        StoreFault::Foreign, path,
        u"Il file %1 è il database di un altro programma, non quello dei cataloghi. Il file non è stato "
        u"toccato:"
        u" rimettere al suo posto quello di Vorlina."_qs,
        u"The file %1 is the database of another program, not that of the catalogs. It was not touched: put"
        u" Vorlina's own back in its place."_qs);
  if (header.userVersion > schemaVersion)
    Refuse(
        StoreFault::Newer, path,
        u"Il database %1 è stato creato da una versione più recente di Vorlina. Il file non è stato toccato:"
        u" aggiornare il programma."_qs,
        u"The database %1 was made by a later version of Vorlina. The file was not touched: update the program."_qs);
}

// quick_check without its index comparison is linear in the file; of a large file only the small tables are
// read.
void CheckPages(Connection& connection, const QString& path) {
  const bool large = QFileInfo(path).size() > FullyCheckedSize;
  Query check(connection, large ? u"PRAGMA quick_check(Cataloghi)"_qs : u"PRAGMA quick_check(1)"_qs);
  if (!check.Next() || check.Text(0) != u"ok") RefuseDamaged(path);
  Query tables(connection,
               u"SELECT count(*) FROM sqlite_schema WHERE type='table' AND name IN ('Cataloghi',"
               u"'Prodotti','Filtri','Immagini','SchedeTecniche','Extensions','CExtension','PExtension')"_qs);
  if (!tables.Next() || tables.Integer(0) != 8) RefuseDamaged(path);
}

void RequireUsable(Connection& connection, const QString& path, int schemaVersion,
                   const std::vector<Migration>& migrations) {
  if (const auto header = ReadHeaderOf(QFileInfo(path).absoluteFilePath()))
    CheckHeader(*header, path, schemaVersion);
  connection.Open(ConnectionTextFor(path));
  const Header header = ReadHeader(connection.Database());
  CheckHeader(header, path, schemaVersion);
  CheckPages(connection, path);
  if (header.userVersion < schemaVersion)
    MigrateDatabase(connection, header.userVersion, schemaVersion, migrations);
}

}  // namespace

void OpenCatalogDatabase(Connection& connection, const QString& path) {
  OpenCatalogDatabase(connection, path, CatalogSchemaVersion, DeliveredMigrations());
}

void OpenCatalogDatabase(Connection& connection, const QString& path, int schemaVersion,
                         const std::vector<Migration>& migrations) {
  connection.Close();
  CheckFile(path);
  try {
    RequireUsable(connection, path, schemaVersion, migrations);
  } catch (const SQLite::Exception& error) {
    connection.Close();
    if (error.getErrorCode() == SQLITE_NOTADB || error.getErrorCode() == SQLITE_CORRUPT) RefuseDamaged(path);
    ThrowStoreError(error.getExtendedErrorCode(), QString::fromUtf8(error.what()));
  } catch (const StoreError& error) {
    connection.Close();
    if (error.Fault() == StoreFault::Corrupt) RefuseDamaged(path);
    throw;
  } catch (...) {
    connection.Close();
    throw;
  }
}

}  // namespace vorlina
