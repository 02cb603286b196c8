#include "store/Connection.h"

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>
#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>

#include "base/Language.h"
#include "store/Query.h"
#include "store/Quoting.h"
#include "store/SqlFunctions.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

const QString DataSourcePrefix = QStringLiteral("Data Source=");

QString PathIn(const QString& connectionText) {
  if (!connectionText.startsWith(DataSourcePrefix, Qt::CaseInsensitive) ||
      connectionText.size() == DataSourcePrefix.size())
    throw StoreError(StoreFault::Other, EitherLanguage(u"Testo di connessione non valido: %1"_qs,
                                                       u"The connection text is not valid: %1"_qs)
                                            .arg(connectionText));
  return QDir::cleanPath(QFileInfo(connectionText.mid(DataSourcePrefix.size())).absoluteFilePath());
}

// The rows, prices and texts of a user are worth more than speed: each setting keeps data whole on a loss of
// power, or keeps a file of unknown origin from doing harm.
const char* const Settings[] = {
    "PRAGMA cell_size_check=ON", "PRAGMA mmap_size=0",       "PRAGMA foreign_keys=ON",
    "PRAGMA synchronous=EXTRA",  "PRAGMA temp_store=MEMORY", "PRAGMA journal_mode=DELETE",
};

struct Switch {
  int option;
  int value;
};

const Switch Switches[] = {
    {SQLITE_DBCONFIG_DEFENSIVE, 1}, {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},        {SQLITE_DBCONFIG_DQS_DML, 0},
    {SQLITE_DBCONFIG_DQS_DDL, 0},   {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
};

}  // namespace

QString ConnectionTextFor(const QString& path) { return DataSourcePrefix + QDir::toNativeSeparators(path); }

Connection::Connection() = default;

Connection::~Connection() { Close(); }

void Connection::Open(const QString& connectionText) {
  Close();
  // An absolute path also keeps ":memory:" and "file:" names from being anything else than files.
  const QString path = PathIn(connectionText);
  if (!QFileInfo::exists(path))
    throw StoreError(StoreFault::Missing,
                     EitherLanguage(u"Il database %1 non esiste"_qs, u"The database %1 does not exist"_qs)
                         .arg(QDir::toNativeSeparators(path)));
  try {
    database_ = std::make_shared<SQLite::Database>(path.toStdString(), SQLite::OPEN_READWRITE, busyTimeout_);
    Configure();
  } catch (const SQLite::Exception& error) {
    Close();
    ThrowStoreError(error.getExtendedErrorCode(), QString::fromUtf8(error.what()));
  } catch (...) {
    Close();
    throw;
  }
  connectionText_ = connectionText;
}

void Connection::Configure() {
  for (const Switch& setting : Switches)
    if (sqlite3_db_config(Handle(), setting.option, setting.value, nullptr) != SQLITE_OK)
      ThrowStoreError(Handle());
  RegisterSqlFunctions(Handle());
  for (const char* setting : Settings) Execute(QString::fromLatin1(setting));
}

void Connection::Close() {
  if (database_ != nullptr) RollbackIfOpen();
  database_.reset();
}

SQLite::Database& Connection::Database() const {
  if (database_ == nullptr)
    throw StoreError(StoreFault::Other, EitherLanguage(u"La connessione al database è chiusa"_qs,
                                                       u"The database connection is closed"_qs));
  return *database_;
}

sqlite3* Connection::Handle() const { return Database().getHandle(); }

QString Connection::DataSource() const {
  return QDir::toNativeSeparators(QString::fromUtf8(sqlite3_db_filename(Handle(), "main")));
}

bool Connection::IsReadOnly() const { return sqlite3_db_readonly(Handle(), "main") == 1; }

void Connection::SetBusyTimeout(int milliseconds) {
  busyTimeout_ = milliseconds;
  if (IsOpen()) sqlite3_busy_timeout(Handle(), milliseconds);
}

void Connection::Execute(const QString& sql, const QVariantList& values) {
  RequireTransactionAlive();
  if (!values.isEmpty()) {
    Query query(*this, sql, values);
    while (query.Next()) continue;
    return;
  }
  if (sqlite3_exec(Handle(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
    ThrowStoreError(Handle());
}

qint64 Connection::Changes() const { return sqlite3_changes64(Handle()); }

bool Connection::InTransaction() const { return IsOpen() && sqlite3_get_autocommit(Handle()) == 0; }

void Connection::RequireTransactionAlive() const {
  if (transactionBegun_ && !InTransaction())
    throw StoreError(
        StoreFault::Other,
        EitherLanguage(u"La transazione è stata annullata dal database: nessuna modifica è stata salvata"_qs,
                       u"The database gave up the transaction: no change was saved"_qs));
}

void Connection::BeginTrans() {
  Execute(u"BEGIN IMMEDIATE"_qs);
  transactionBegun_ = true;
}

void Connection::CommitTrans() {
  Execute(u"COMMIT"_qs);
  transactionBegun_ = false;
  reserved_.clear();
}

void Connection::RollbackTrans() {
  transactionBegun_ = false;
  if (InTransaction()) Execute(u"ROLLBACK"_qs);
  // All is rolled back by now; a disk that takes nothing more can at worst give a number twice.
  try {
    RestoreCounters();
  } catch (const StoreError& error) {
    qCWarning(StoreLog) << "keeping the counters:" << error.Description();
  }
  reserved_.clear();
}

void Connection::RollbackIfOpen() noexcept {
  try {
    if (transactionBegun_ || InTransaction()) RollbackTrans();
  } catch (const std::exception& error) {
    qCWarning(StoreLog) << "rolling back:" << error.what();
  }
}

qint64 Connection::ReserveCounter(const QString& table) {
  Transaction transaction(*this);
  // The table's own maximum counts too, for rows that came in past the counter.
  qint64 next = 1;
  {
    Query last(*this,
               u"SELECT max(coalesce((SELECT max(rowid) FROM %1), 0),"
               u" coalesce((SELECT max(seq) FROM sqlite_sequence WHERE name=? COLLATE NOCASE), 0))"_qs.arg(
                   QuotedName(table)),
               {table});
    if (last.Next()) next = last.Integer(0) + 1;
  }
  reserved_[table] = next;
  RestoreCounters();
  transaction.Commit();
  return next;
}

void Connection::RestoreCounters() {
  for (const auto& [table, number] : reserved_) {
    Execute(u"UPDATE sqlite_sequence SET seq=max(seq, ?) WHERE name=? COLLATE NOCASE"_qs, {number, table});
    if (Changes() == 0)
      Execute(
          u"INSERT INTO sqlite_sequence (name, seq) SELECT name, ? FROM sqlite_schema"
          u" WHERE type='table' AND name=? COLLATE NOCASE"_qs,
          {number, table});
  }
}

Transaction::Transaction(Connection& connection)
    : connection_(connection), joined_(connection.InTransaction()) {
  if (joined_)
    connection_.Execute(u"SAVEPOINT vorlina"_qs);
  else
    connection_.BeginTrans();
}

Transaction::~Transaction() {
  if (done_) return;
  if (!joined_) connection_.RollbackIfOpen();
  if (!joined_ || !connection_.InTransaction()) return;
  try {
    connection_.Execute(u"ROLLBACK TO vorlina"_qs);
    connection_.Execute(u"RELEASE vorlina"_qs);
    connection_.RestoreCounters();
  } catch (const std::exception& error) {
    qCWarning(StoreLog) << "rolling back to the savepoint:" << error.what();
  }
}

void Transaction::Commit() {
  if (joined_)
    connection_.Execute(u"RELEASE vorlina"_qs);
  else
    connection_.CommitTrans();
  done_ = true;
}

}  // namespace vorlina
