#include "shell/DatabaseRetry.h"

#include <QScopedValueRollback>
#include <QWidget>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Settings.h"
#include "images/PicturePaths.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"
#include "store/LockPatience.h"
#include "store/Recordset.h"
#include "store/RowErrors.h"

namespace vorlina {
namespace {

constexpr int RetryMilliseconds = 2000;

}  // namespace

DatabaseRetry::DatabaseRetry(Connection& connection, Recordset& rsCataloghi, QWidget& owner)
    : QObject(&owner), connection_(connection), rsCataloghi_(rsCataloghi), owner_(owner) {
  timer_.setObjectName(u"retry"_qs);
  timer_.setSingleShot(true);
  timer_.setInterval(RetryMilliseconds);
  connect(&timer_, &QTimer::timeout, this, &DatabaseRetry::Retry);
}

void DatabaseRetry::Attempt(const Step& step) {
  try {
    step();
  } catch (const std::exception& error) {
    ShowError(&owner_, DescriptionOf(error));
  }
}

// Another program's lock would fail every one of them: it is waited for and told once, and the rest is left
// to Retry.
void DatabaseRetry::AttemptOnDatabase(const Step& step) {
  if (locked_) return;
  Attempt([&] {
    const LockPatience patience(retrying_ ? 0 : LockPatience::UsualMilliseconds);
    try {
      step();
    } catch (const LockedError&) {
      WaitForLock();
      if (!retrying_) throw;
    }
  });
}

void DatabaseRetry::UnlessLocked(const Step& step) {
  if (locked_) return;
  try {
    const LockPatience none(0);
    step();
  } catch (const LockedError&) {
    WaitForLock();
  }
}

void DatabaseRetry::WaitForLock() {
  locked_ = true;
  timer_.start();
}

void DatabaseRetry::OpenDatabase() {
  Open();
  // Later the window is there already, and its list must not wait.
  if (!locked_) SettleFirstRun();
}

void DatabaseRetry::Open() {
  AttemptOnDatabase([this] { OpenCatalogDatabase(connection_, AppFile(u"Catalog.db"_qs)); });
  FitPaths();
}

// At every start: the folder may have been copied or moved since.
void DatabaseRetry::FitPaths() {
  AttemptOnDatabase([this] {
    if (connection_.IsOpen()) FitPicturePaths(connection_);
  });
}

void DatabaseRetry::SettleFirstRun() {
  const QString title = ApplicationTitle();
  if (GetSetting(title, u"Riservati"_qs, u"FirstRun"_qs, u"True"_qs) != u"True") return;
  Attempt([this] {
    if (OnFirstRun) OnFirstRun();
  });
  Attempt([&] { SaveSetting(title, u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs); });
}

void DatabaseRetry::OpenCatalogs() {
  AttemptOnDatabase([this] {
    rsCataloghi_.Close();
    rsCataloghi_.Open({.table = u"Cataloghi"_qs}, connection_);
  });
}

void DatabaseRetry::Close() {
  rsCataloghi_.Close();
  connection_.Close();
}

void DatabaseRetry::Reopen() {
  timer_.stop();
  locked_ = false;
  Open();
  if (connection_.IsOpen()) {
    OpenCatalogs();
    AttemptOnDatabase(OnRead);
  }
  OnRetried();
}

void DatabaseRetry::Retry() {
  if (stopped_) return;
  if (!MayRetry()) return timer_.start();
  const QScopedValueRollback<bool> retrying(retrying_, true);
  locked_ = false;
  if (!connection_.IsOpen())
    Open();
  else if (!rsCataloghi_.IsOpen())
    FitPaths();
  if (!rsCataloghi_.IsOpen()) OpenCatalogs();
  AttemptOnDatabase(OnRead);
  OnRetried();
}

}  // namespace vorlina
