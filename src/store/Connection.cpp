#include "store/Connection.h"

#include <sqlite3.h>

#include <QDir>
#include <QFileInfo>
#include <utility>

#include "base/Error.h"
#include "base/Texts.h"
#include "store/LockPatience.h"
#include "store/Sqlite.h"

namespace vorlina {
namespace {

const char16_t DataSourceKey[] = u"Data Source=";

QString SourceOf(const QString& text) {
  const QString key = QString::fromUtf16(DataSourceKey);
  if (!text.startsWith(key, Qt::CaseInsensitive))
    throw Error(Texts::tr("Testo di connessione non valido: %1").arg(text));
  return text.mid(key.size());
}

// What docs/decisions.md says of the database's settings. DQS off: a text in double quotes that names no
// column is an error instead of a text.
void Configure(SQLite::Database& database) {
  sqlite3* handle = database.getHandle();
  LockPatience::Rule(handle);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
  sqlite3_db_config(handle, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  RegisterSqlExtensions(database);
  database.exec(
      "PRAGMA foreign_keys=ON; PRAGMA cell_size_check=ON; PRAGMA mmap_size=0; PRAGMA synchronous=EXTRA;"
      "PRAGMA temp_store=MEMORY");
}

// Called by SQLite before it stores anything. What is refused is taken back.
int RefuseUnlessBegun(void* begun) { return *static_cast<const bool*>(begun) ? 0 : 1; }

// A step with files behind the end of a transaction: the rows are as they are.
void RunStep(const std::function<void()>& step) noexcept {
  try {
    step();
  } catch (const std::exception& error) {
    qCWarning(StoreLog) << "a step behind a transaction:" << DescriptionOf(error);
  }
}

}  // namespace

QString ConnectionTextFor(const QString& path) { return QString::fromUtf16(DataSourceKey) + path; }

Connection::Connection() = default;
Connection::~Connection() { Close(); }

void Connection::Open(const QString& connectionText) {
  Close();
  try {
    OpenFile(SourceOf(connectionText));
    text_ = connectionText;
  } catch (...) {
    Close();
    throw;
  }
}

void Connection::OpenFile(const QString& path) {
  if (!hold_.Share(QFileInfo(path).absolutePath(), LockPatience::UsualMilliseconds))
    throw Error(Texts::tr("È in corso un ripristino dei cataloghi. Attendere che finisca e riprovare."));
  if (!QFileInfo(path).isFile())
    throw Error(
        Texts::tr(
            "Il database %1 non esiste. Ripristinare una copia di sicurezza o reinstallare il programma.")
            .arg(QDir::toNativeSeparators(path)));
  database_ = WithStoreErrors([&] {
    auto database = std::make_unique<SQLite::Database>(path.toUtf8().toStdString(),
                                                       SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX);
    Configure(*database);
    sqlite3_commit_hook(database->getHandle(), RefuseUnlessBegun, &begun_);
    return database;
  });
}

void Connection::Close() {
  RollbackIfOpen();
  versionStatement_.reset();
  database_.reset();
  hold_.Release();
}

QString Connection::DataSource() const { return SourceOf(text_); }

SQLite::Database& Connection::Database() const {
  if (database_ == nullptr) throw Error(Texts::tr("Il database non è aperto"));
  return *database_;
}

void Connection::Execute(const QString& sql, const QVariantList& values) {
  RequireTransaction();
  WithStoreErrors([&] {
    SQLite::Statement statement = Prepare(Database(), sql);
    BindValues(statement, values);
    while (statement.executeStep()) {
    }
  });
}

int Connection::Changes() const { return Database().getChanges(); }

// The database's own number tells what other connections wrote, the others what this one did: what it took
// back is a change again.
qint64 Connection::ChangeMark() const {
  return WithStoreErrors([&] {
    if (versionStatement_ == nullptr)
      versionStatement_ = std::make_unique<SQLite::Statement>(Database(), "PRAGMA data_version");
    versionStatement_->executeStep();
    const qint64 others = versionStatement_->getColumn(0).getInt64();
    versionStatement_->reset();
    return others * (qint64(1) << 32) + Database().getTotalChanges() + takenBack_;
  });
}

qint64 Connection::LastInsertId() const { return Database().getLastInsertRowid(); }

void Connection::RequireTransaction() const {
  if (begun_ && !InTransaction())
    throw Error(
        Texts::tr("Il database ha annullato l'operazione in corso: nessuna sua modifica è stata salvata."));
}

void Connection::BeginTrans() {
  Execute(u"BEGIN IMMEDIATE"_qs);
  begun_ = true;
}

void Connection::CommitTrans() {
  Execute(u"COMMIT"_qs);
  begun_ = false;
  counters_.clear();
  const Steps steps = std::exchange(steps_, {});
  if (!steps.label.IsEmpty()) qCDebug(StoreLog) << "stored:" << steps.label.Shown();
  for (const auto& step : steps.onCommit) RunStep(step);
}

void Connection::RollbackTrans() {
  const bool givenUp = std::exchange(begun_, false) && !InTransaction();
  if (!givenUp) Execute(u"ROLLBACK"_qs);
  AfterRollback();
}

bool Connection::InTransaction() const {
  return IsOpen() && sqlite3_get_autocommit(database_->getHandle()) == 0;
}

void Connection::RollbackIfOpen() noexcept {
  begun_ = false;
  if (InTransaction()) sqlite3_exec(database_->getHandle(), "ROLLBACK", nullptr, nullptr, nullptr);
  AfterRollback();
}

void Connection::AfterRollback() noexcept {
  ++takenBack_;
  RestoreCounters();
  steps_.label = {};
  TakeBack(0, 0);
}

// Runs what takes back all steps but the first ones, and forgets them.
void Connection::TakeBack(std::size_t commits, std::size_t rollbacks) noexcept {
  steps_.onCommit.resize(commits);
  while (steps_.onRollback.size() > rollbacks) {
    const auto step = std::move(steps_.onRollback.back());
    steps_.onRollback.pop_back();
    RunStep(step);
  }
}

void Connection::KeepCounter(const QString& table, qint64 number) {
  counters_[table] = number;
  Execute(u"UPDATE sqlite_sequence SET seq=max(seq,?) WHERE name=? COLLATE NOCASE"_qs, {number, table});
  if (Changes() == 0)
    Execute(
        u"INSERT INTO sqlite_sequence (name,seq) SELECT name,? FROM sqlite_schema WHERE type='table' AND"
        u" name=? COLLATE NOCASE"_qs,
        {number, table});
}

// The rollback is done by now; a disk that takes nothing more can at worst let a number be given twice.
void Connection::RestoreCounters() noexcept {
  if (counters_.empty()) return;
  const bool ended = !InTransaction();
  try {
    if (ended) BeginTrans();
    const std::map<QString, qint64> given = counters_;
    for (const auto& [table, number] : given) KeepCounter(table, number);
    if (ended) Execute(u"COMMIT"_qs);
  } catch (const std::exception& error) {
    qCWarning(StoreLog) << "keeping the counters:" << error.what();
    if (ended && InTransaction()) sqlite3_exec(database_->getHandle(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
  if (!ended) return;
  begun_ = false;
  counters_.clear();
}

Rows::Rows(Connection& connection, const QString& sql, const QVariantList& values) {
  connection.RequireTransaction();
  WithStoreErrors([&] {
    statement_ = std::make_shared<SQLite::Statement>(Prepare(connection.Database(), sql));
    BindValues(*statement_, values);
    for (int i = 0; i < statement_->getColumnCount(); ++i)
      boolean_.push_back(IsBooleanColumn(*statement_, i));
  });
}

bool Rows::Next() {
  return WithStoreErrors([&] { return statement_->executeStep(); });
}

int Rows::ColumnCount() const { return statement_->getColumnCount(); }

QString Rows::ColumnName(int column) const { return QString::fromUtf8(statement_->getColumnName(column)); }

QVariant Rows::Value(int column) const {
  return WithStoreErrors([&] { return ColumnValue(*statement_, column, boolean_.at(std::size_t(column))); });
}

QVariant Rows::Value(const QString& column) const {
  for (int i = 0; i < ColumnCount(); ++i)
    if (ColumnName(i).compare(column, Qt::CaseInsensitive) == 0) return Value(i);
  throw Error(Texts::tr("La colonna %1 non esiste").arg(column));
}

}  // namespace vorlina
