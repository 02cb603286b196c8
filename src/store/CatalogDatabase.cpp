#include "store/CatalogDatabase.h"

#include <SQLiteCpp/Backup.h>
#include <sqlite3.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>
#include <optional>

#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "store/Connection.h"
#include "store/DeliveredSchema.h"
#include "store/RowErrors.h"
#include "store/Sqlite.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// The most time that the check at start may take; a database too large for it is checked by "check" and
// before backups.
constexpr qint64 QuickCheckMilliseconds = 300;

[[noreturn]] void Refuse(const QString& path, const QString& why) {
  const QString name = QDir::toNativeSeparators(path);
  throw Error(Texts::tr("Il file %1 non può essere usato: ").arg(name) + why);
}

int Number(Connection& connection, const QString& pragma) {
  Rows rows(connection, u"PRAGMA "_qs + pragma);
  return rows.Next() ? rows.Value(0).toInt() : 0;
}

QStringList TextColumn(Connection& connection, const QString& sql) {
  QStringList texts;
  Rows rows(connection, sql);
  while (rows.Next()) texts += rows.Value(0).toString();
  return texts;
}

int StopAfterAWhile(void* timer) {
  return static_cast<QElapsedTimer*>(timer)->elapsed() > QuickCheckMilliseconds ? 1 : 0;
}

// A check lists a page that the disk did not give among what is damaged; who restores a backup for it loses
// work.
void RequireReadable(const QString& finding) {
  static const QRegularExpression unread(
      u"failed to get page|(?:unable to get the page. error|btreeInitPage.. returns error) code[= ](\\d+)"_qs);
  const QRegularExpressionMatch found = unread.match(finding);
  constexpr int PrimaryCode = 0xFF;
  if (!found.hasMatch() ||
      (found.hasCaptured(1) && (found.capturedView(1).toInt() & PrimaryCode) != SQLITE_IOERR))
    return;
  WithStoreErrors([] { throw SQLite::Exception("disk I/O error", SQLITE_IOERR); });
}

// Stops what a connection does when the time is over, as long as it lives.
class TimeLimit {
 public:
  explicit TimeLimit(sqlite3* connection) : connection_(connection) {
    timer_.start();
    sqlite3_progress_handler(connection_, 10000, StopAfterAWhile, &timer_);
  }
  ~TimeLimit() { sqlite3_progress_handler(connection_, 0, nullptr, nullptr); }
  TimeLimit(const TimeLimit&) = delete;
  TimeLimit& operator=(const TimeLimit&) = delete;

 private:
  sqlite3* connection_;
  QElapsedTimer timer_;
};

// What a quick check tells within the time; "ok" when the time is over. What fails otherwise than by damage
// is thrown.
QString QuickFinding(SQLite::Database& database) {
  const TimeLimit limit(database.getHandle());
  try {
    SQLite::Statement check = Prepare(database, u"PRAGMA quick_check(1)"_qs);
    return check.executeStep() ? QString::fromUtf8(check.getColumn(0).getText()) : u"ok"_qs;
  } catch (const SQLite::Exception& failure) {
    if (MeansDamage(failure)) return QString::fromUtf8(failure.what());
    if (failure.getErrorCode() == SQLITE_INTERRUPT) return u"ok"_qs;
    throw;
  }
}

// Damage found within the time. Throws Error where the file cannot be read.
QString QuickDamage(Connection& connection) {
  const QString finding = WithStoreErrors([&] { return QuickFinding(connection.Database()); });
  RequireReadable(finding);
  return finding == u"ok" ? QString() : finding;
}

struct Header {
  int applicationId;
  int version;
};

Header HeaderOf(SQLite::Database& database) {
  return {database.execAndGet("PRAGMA application_id").getInt(),
          database.execAndGet("PRAGMA user_version").getInt()};
}

// Reads the header as it lies: without a lock, a recovery or a file beside it, all of which would be writes.
// Nothing where an unfinished transaction has left it unreadable; it can then be read only after the
// recovery.
std::optional<Header> HeaderAsItLies(const QString& path) {
  QUrl uri = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
  uri.setQuery(u"immutable=1"_qs);
  const bool unfinished = QFileInfo(path + u"-journal"_qs).size() > 0;
  return WithStoreErrors([&]() -> std::optional<Header> {
    try {
      SQLite::Database database(uri.toEncoded().toStdString(), SQLite::OPEN_READONLY | SQLite::OPEN_URI);
      return HeaderOf(database);
    } catch (const SQLite::Exception&) {
      if (unfinished) return {};
      throw;
    }
  });
}

void ExamineHeader(const Header& header, const QString& path, int schemaVersion) {
  if (header.applicationId != ApplicationId)
    Refuse(path, Texts::tr("non è un database di Vorlina. Ripristinare una copia di sicurezza."));
  if (header.version > schemaVersion)
    Refuse(path,
           Texts::tr("è stato creato da una versione più recente di Vorlina. Aggiornare il programma."));
}

// Everything else that is asked before the first write.
void Examine(Connection& connection, const QString& path, int schemaVersion) {
  const Header header = WithStoreErrors([&] { return HeaderOf(connection.Database()); });
  ExamineHeader(header, path, schemaVersion);
  if (const QString damage = QuickDamage(connection); !damage.isEmpty())
    Refuse(path, Texts::tr("è danneggiato. Ripristinare una copia di sicurezza. (") + damage + u')');
}

// A name beside the database that is not taken.
QString CopyName(const QString& path, int version) {
  const QFileInfo file(path);
  const QString base = file.path() + u'/' + file.completeBaseName() + u"-v%1-backup"_qs.arg(version);
  QString name = base + u".db"_qs;
  for (int i = 2; QFileInfo::exists(name); ++i) name = base + u"-%1.db"_qs.arg(i);
  return name;
}

// Writes beside the path what stands in the database at one moment, and gives it the name where it has no
// damage.
void CopyChecked(SQLite::Database& from, const QString& path, QString (*damageOf)(Connection&)) {
  const QString temporary = path + u".partial"_qs;
  QFile::remove(temporary);
  try {
    WithStoreErrors([&] {
      SQLite::Database copy(temporary.toUtf8().toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
      copy.exec("PRAGMA synchronous=FULL");
      SQLite::Backup backup(copy, from);
      if (const int result = backup.executeStep(-1); result != SQLITE_DONE)
        throw SQLite::Exception(from.getHandle(), result);
    });
    Connection copied;
    copied.Open(ConnectionTextFor(temporary));
    if (const QString damage = damageOf(copied); !damage.isEmpty())
      throw Error(Texts::tr("La copia del database non è integra: %1").arg(damage));
    copied.Close();
    MoveFileSafely(temporary, path);
  } catch (...) {
    QFile::remove(temporary);
    throw;
  }
}

// SQLite copies for no connection that is writing.
void KeepCopy(const QString& path, int version) {
  Connection reader;
  reader.Open(ConnectionTextFor(path));
  BackupDatabase(reader, CopyName(path, version));
}

// Of several programs that find an older file one brings it up to date, and the others wait for it.
void RunMigrations(Connection& connection, const QString& path, const std::vector<Migration>& migrations,
                   int schemaVersion) {
  Transaction transaction(connection);
  const int from = Number(connection, u"user_version"_qs);
  if (from == schemaVersion) return;
  KeepCopy(path, from);
  for (const Migration& migration : migrations)
    if (migration.version > from && migration.version <= schemaVersion)
      WithStoreErrors([&] { connection.Database().exec(migration.sql.toUtf8().toStdString()); });
  if (const QStringList broken = CheckDatabase(connection); !broken.isEmpty()) throw Error(broken.first());
  connection.Execute(u"PRAGMA user_version=%1"_qs.arg(schemaVersion));
  transaction.Commit();
}

void MigrateWithoutKeys(Connection& connection, const QString& path, const std::vector<Migration>& migrations,
                        int schemaVersion) {
  // Tables that are made anew would take rows of other tables with them.
  connection.Execute(u"PRAGMA foreign_keys=OFF"_qs);
  try {
    RunMigrations(connection, path, migrations, schemaVersion);
  } catch (...) {
    connection.Execute(u"PRAGMA foreign_keys=ON"_qs);
    throw;
  }
  connection.Execute(u"PRAGMA foreign_keys=ON"_qs);
}

void Migrate(Connection& connection, const QString& path, const std::vector<Migration>& migrations,
             int schemaVersion) {
  if (Number(connection, u"user_version"_qs) == schemaVersion) return;
  try {
    if (!IsDatabaseWritable(connection))
      WithStoreErrors([] { throw SQLite::Exception("read-only", SQLITE_READONLY); });
    MigrateWithoutKeys(connection, path, migrations, schemaVersion);
  } catch (const LockedError&) {
    throw;
  } catch (const Error& error) {
    Refuse(path,
           Texts::tr("non è stato possibile aggiornarlo, ed è rimasto com'era. ") + error.Description());
  }
}

void OpenExamined(Connection& connection, const QString& path, int schemaVersion) {
  const QFileInfo file(path);
  if (file.isFile() && file.size() == 0)
    Refuse(path, Texts::tr("è vuoto. Ripristinare una copia di sicurezza."));
  if (file.isFile())
    if (const auto header = HeaderAsItLies(path)) ExamineHeader(*header, path, schemaVersion);
  connection.Open(ConnectionTextFor(path));
  Examine(connection, path, schemaVersion);
}

}  // namespace

std::vector<Migration> KnownMigrations() {
  return {{2, QString::fromUtf8(MigrationTo2)}, {3, QString::fromUtf8(MigrationTo3)}};
}

void OpenCatalogDatabase(Connection& connection, const QString& path) {
  OpenCatalogDatabase(connection, path, KnownMigrations(), SchemaVersion);
}

void OpenCatalogDatabase(Connection& connection, const QString& path,
                         const std::vector<Migration>& migrations, int schemaVersion) {
  const LockPatience patience;
  const QString name = QDir::toNativeSeparators(path);
  try {
    OpenExamined(connection, path, schemaVersion);
    Migrate(connection, path, migrations, schemaVersion);
    // A file that somebody set to another mode; a no-op otherwise.
    if (TextColumn(connection, u"PRAGMA journal_mode"_qs).value(0) != u"delete")
      TextColumn(connection, u"PRAGMA journal_mode=DELETE"_qs);
  } catch (const LockedError& error) {
    connection.Close();
    throw LockedError(name + u": "_qs + error.Description());
  } catch (const Error& error) {
    connection.Close();
    if (error.Description().contains(name)) throw;
    throw Error(name + u": "_qs + error.Description());
  }
}

void BackupDatabase(Connection& connection, const QString& path) {
  CopyChecked(connection.Database(), path,
              [](Connection& copy) { return CheckDatabase(copy).value(0, QString()); });
}

void CopyDatabase(const QString& source, const QString& path) {
  WithStoreErrors([&] {
    SQLite::Database from(source.toUtf8().toStdString(), SQLite::OPEN_READWRITE);
    LockPatience::Rule(from.getHandle());
    CopyChecked(from, path, QuickDamage);
  });
}

bool IsOwnDatabase(const QString& path) {
  const std::optional<Header> header = HeaderAsItLies(path);
  return header && header->applicationId == ApplicationId;
}

std::map<QString, qint64> CountersOf(const QString& path) {
  std::map<QString, qint64> counters;
  try {
    SQLite::Database database(path.toUtf8().toStdString(), SQLite::OPEN_READWRITE);
    // What damage makes of a number would leave none for the next rows.
    SQLite::Statement rows =
        Prepare(database, u"SELECT name,seq FROM sqlite_sequence WHERE seq BETWEEN 1 AND 1000000000"_qs);
    while (rows.executeStep())
      counters[QString::fromUtf8(rows.getColumn(0).getText())] = rows.getColumn(1).getInt64();
  } catch (const SQLite::Exception& failure) {
    qCDebug(StoreLog) << "no counters of" << path << failure.what();
  }
  return counters;
}

bool IsDatabaseLocked(const QString& path) {
  try {
    SQLite::Database database(path.toUtf8().toStdString(), SQLite::OPEN_READWRITE);
    database.exec("BEGIN EXCLUSIVE; ROLLBACK");
    return false;
  } catch (const SQLite::Exception& failure) {
    return failure.getErrorCode() == SQLITE_BUSY;
  }
}

bool IsDatabaseWritable(Connection& connection) {
  // The folder takes the journal.
  return sqlite3_db_readonly(connection.Database().getHandle(), "main") == 0 &&
         QFileInfo(QFileInfo(connection.DataSource()).absolutePath()).isWritable();
}

QStringList CheckDatabase(Connection& connection) {
  QStringList findings = TextColumn(connection, u"PRAGMA integrity_check"_qs);
  findings.removeAll(u"ok"_qs);
  for (const QString& finding : findings) RequireReadable(finding);
  Rows orphans(connection, u"PRAGMA foreign_key_check"_qs);
  while (orphans.Next())
    findings +=
        Texts::tr("%1, riga %2: fa riferimento a una riga di %3 che non esiste")
            .arg(orphans.Value(0).toString(), orphans.Value(1).toString(), orphans.Value(2).toString());
  return findings;
}

}  // namespace vorlina
