// A connection to the catalog database. Every window that needs one of its own opens it with the connection
// text of another. Recordsets and queries on it must be closed before it is destroyed.
#pragma once

#include <QString>
#include <QVariant>
#include <map>
#include <memory>

namespace SQLite {
class Database;
}
struct sqlite3;

namespace vorlina {

// "Data Source=" and the path.
QString ConnectionTextFor(const QString& path);

class Connection {
 public:
  Connection();
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  // Opens an existing file; one that cannot be written is opened for reading. Throws StoreError: Missing,
  // Locked, Corrupt and so on. An open connection is closed first.
  void Open(const QString& connectionText);
  bool IsOpen() const { return database_ != nullptr; }
  // Rolls back a transaction that is still open. Closing twice does nothing.
  void Close();

  // "" when it was never opened.
  const QString& ConnectionText() const { return connectionText_; }
  // Full path of the file in native separators.
  QString DataSource() const;
  bool IsReadOnly() const;
  // How long a lock of another program is waited for, 5000 ms unless told otherwise.
  void SetBusyTimeout(int milliseconds);
  int BusyTimeout() const { return busyTimeout_; }

  // Runs one statement with a "?" for each value, or, without values, any number of statements.
  void Execute(const QString& sql, const QVariantList& values = {});
  // Rows that the last statement changed, cascades not counted.
  qint64 Changes() const;

  // One transaction at a time: Begin throws when one is open, Commit when none is. Rolling back what the
  // database has already rolled back by itself, on a full disk for instance, is no error.
  void BeginTrans();
  void CommitTrans();
  void RollbackTrans();
  bool InTransaction() const;
  void RollbackIfOpen() noexcept;

  // The next number of the table's counter, given to nobody else and never again, even if the row is not
  // saved or the transaction is rolled back. Throws StoreError.
  qint64 ReserveCounter(const QString& table);

  // Throws Error when the connection is closed.
  SQLite::Database& Database() const;
  sqlite3* Handle() const;

 private:
  friend class Transaction;
  friend class Query;
  void Configure();
  // Throws when the database gave up the transaction by itself: what follows must not be saved alone.
  void RequireTransactionAlive() const;
  void RestoreCounters();

  std::shared_ptr<SQLite::Database> database_;
  QString connectionText_;
  int busyTimeout_ = 5000;
  bool transactionBegun_ = false;
  // The highest numbers reserved inside the open transaction, by table: a rollback must not free them.
  std::map<QString, qint64> reserved_;
};

// Begins a transaction, or joins the open one by a savepoint, and takes back its part unless committed.
class Transaction {
 public:
  explicit Transaction(Connection& connection);
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;
  void Commit();

 private:
  Connection& connection_;
  bool joined_;
  bool done_ = false;
};

}  // namespace vorlina
