// What the main window reads from the database, and reads again later where another program's lock has kept
// it from that.
#pragma once

#include <QTimer>
#include <functional>

class QWidget;

namespace vorlina {

class Connection;
class Recordset;

class DatabaseRetry : public QObject {
 public:
  using Step = std::function<void()>;

  // Boxes belong to the owner. All of them outlive it.
  DatabaseRetry(Connection& connection, Recordset& rsCataloghi, QWidget& owner);

  // Asked before it tries again; while it may not, it waits on.
  std::function<bool()> MayRetry;
  // Shows what was read. OnRetried comes behind it, also where there was nothing.
  Step OnRead, OnRetried;
  // At the first start of all; the next steps wait for it. Where a lock kept the database from being read, at
  // the next one.
  Step OnFirstRun;

  // Whether another program's lock has kept something from being read.
  bool IsLocked() const { return locked_; }
  // Opens the database, and settles what each start needs.
  void OpenDatabase();
  // Opens the recordset of all catalogs.
  void OpenCatalogs();
  // Closes both, and opens and shows them again.
  void Close();
  void Reopen();
  // A step whose failure shows its message and lets the next one run.
  void Attempt(const Step& step);
  // A step that does not wait for another program's lock, and is left to the next try then.
  void UnlessLocked(const Step& step);
  // Nothing is tried any more.
  void Stop() { stopped_ = true; }

 private:
  void AttemptOnDatabase(const Step& step);
  void Open();
  void FitPaths();
  void SettleFirstRun();
  void WaitForLock();
  void Retry();

  Connection& connection_;
  Recordset& rsCataloghi_;
  QWidget& owner_;
  QTimer timer_{this};
  bool locked_ = false;
  bool retrying_ = false;
  bool stopped_ = false;
};

}  // namespace vorlina
