// The connection to a catalog database: SQL without a result and queries walked forward. What writes does so
// inside a transaction (store/Transaction.h). Every connection has the safe settings (docs/decisions.md) and
// the collations and functions that the program's SQL uses:
//
//   VORLINA_TEXT    compares texts without regard to letter case, in every script
//   VORLINA_LOCALE  sorts as the user's locale does; for ORDER BY alone
//   LIKE            without regard to letter case, in every script
//   VORLINA_RANK    the place of a number in a list that is bound as a whole; for ORDER BY
//   MID, LEN        a part of a text counted from 1, and a text's length, in characters
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QString>
#include <QVariant>
#include <QVariantList>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "files/FolderLock.h"
#include "store/ChangeLabel.h"

namespace vorlina {

// "Data Source=" and the path: the connection text of a database file.
QString ConnectionTextFor(const QString& path);

class Connection {
 public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // Opens the database file that the text names, which must exist; it is never created. Until it is closed,
  // no restore takes the file's folder. Throws Error.
  void Open(const QString& connectionText);
  // Rolls back what is open and closes. Nothing happens when it is closed already.
  void Close();
  bool IsOpen() const { return database_ != nullptr; }

  const QString& ConnectionText() const { return text_; }
  // Full path of the database file.
  QString DataSource() const;

  // Runs one statement without a result; "?" stands for each value. Throws Error, also for one that writes
  // while no transaction is open: nothing of it is stored then.
  void Execute(const QString& sql, const QVariantList& values = {});
  // How many rows the last statement changed.
  int Changes() const;
  // The counter value of the last row inserted.
  qint64 LastInsertId() const;

  // A transaction that writes, taken at once. Throws Error, also when one is open. Where the database gave it
  // up by itself, on a full disk for instance, every statement throws until it is rolled back: nothing that
  // belongs to it is saved alone.
  void BeginTrans();
  void CommitTrans();
  // What was enlisted in the transaction runs behind its end, in either case.
  void RollbackTrans();
  bool InTransaction() const;
  // Rolls back a transaction that somebody left open. Never throws.
  void RollbackIfOpen() noexcept;
  // The table's counter has given this number: a rollback must not free it again.
  void KeepCounter(const QString& table, qint64 number);

  // Differs from an earlier answer once this connection or another one, of this program or not, has written
  // to the database. Throws Error.
  qint64 ChangeMark() const;

  // The database of SQLiteCpp. Throws Error when the connection is closed.
  SQLite::Database& Database() const;

 private:
  friend class Transaction;
  friend class Rows;
  // What a transaction brings along besides its statements.
  struct Steps {
    std::vector<std::function<void()>> onCommit;
    std::vector<std::function<void()>> onRollback;
    ChangeLabel label;
  };
  void OpenFile(const QString& path);
  void RequireTransaction() const;
  void RestoreCounters() noexcept;
  void AfterRollback() noexcept;
  void TakeBack(std::size_t commits, std::size_t rollbacks) noexcept;

  files::FolderLock hold_;
  std::unique_ptr<SQLite::Database> database_;
  mutable std::unique_ptr<SQLite::Statement> versionStatement_;
  QString text_;
  bool begun_ = false;                  // a transaction, which the database may have given up since
  std::map<QString, qint64> counters_;  // given in the open transaction, by table
  Steps steps_;                         // of the open transaction
  qint64 takenBack_ = 0;                // transactions and parts of them
};

// The rows of a query, walked forward. They are read while they are walked, so they must not outlive the
// procedure.
class Rows {
 public:
  // Throws Error.
  Rows(Connection& connection, const QString& sql, const QVariantList& values = {});

  // Steps to the next row, at first to row one. False at the end. Throws Error.
  bool Next();
  int ColumnCount() const;
  QString ColumnName(int column) const;
  // The value of the current row: NullValue() for Null, bool for a column declared BOOLEAN. By name in any
  // letter case; throws Error for a column that does not exist.
  QVariant Value(int column) const;
  QVariant Value(const QString& column) const;

 private:
  std::shared_ptr<SQLite::Statement> statement_;
  std::vector<bool> boolean_;  // columns declared BOOLEAN
};

}  // namespace vorlina
