#include "store/DatabaseBackup.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Exception.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>

#include "base/Language.h"
#include "base/SafeFile.h"
#include "store/CatalogDatabase.h"
#include "store/Query.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

[[noreturn]] void Fail(const QString& path, const QString& reason) {
  throw StoreError(StoreFault::Other, EitherLanguage(u"Impossibile copiare il database in %1: %2"_qs,
                                                     u"The database cannot be copied to %1: %2"_qs)
                                          .arg(QDir::toNativeSeparators(path), reason));
}

void CopyPages(Connection& connection, const QString& target) {
  SQLite::Database copy(target.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE, 0);
  // A full sync before the copy counts, as for every other file.
  copy.exec("PRAGMA synchronous=FULL");
  SQLite::Backup backup(copy, connection.Database());
  backup.executeStep(-1);
}

void Verify(const QString& path) {
  Connection copy;
  copy.Open(ConnectionTextFor(path));
  const QStringList findings = CheckDatabase(copy);
  if (!findings.isEmpty()) throw StoreError(StoreFault::Corrupt, findings.join(u'\n'));
}

// Removes the file unless it was kept.
class Unfinished {
 public:
  explicit Unfinished(QString path) : path_(std::move(path)) {}
  ~Unfinished() {
    if (kept_) return;
    QFile::remove(path_);
    QFile::remove(path_ + u"-journal"_qs);
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;
  void Keep() { kept_ = true; }

 private:
  QString path_;
  bool kept_ = false;
};

}  // namespace

void CopyDatabase(Connection& connection, const QString& target) {
  if (QFileInfo::exists(target))
    Fail(target, EitherLanguage(u"il file esiste già"_qs, u"the file already exists"_qs));
  Unfinished unfinished(target);
  try {
    CopyPages(connection, target);
    Verify(target);
  } catch (const SQLite::Exception& error) {
    qCDebug(StoreLog) << "copying to" << target << error.what();
    if (error.getErrorCode() > 0)
      ThrowStoreError(error.getExtendedErrorCode(), QString::fromUtf8(error.what()));
    Fail(target, QString::fromUtf8(error.what()));
  }
  SyncFolder(QFileInfo(target).absolutePath());
  unfinished.Keep();
}

void BackupDatabase(Connection& connection, const QString& target) {
  // A name of its own beside the target, made free for the copy.
  QString temporary;
  {
    QTemporaryFile place(target + u".XXXXXX"_qs);
    if (!place.open()) Fail(target, place.errorString());
    temporary = place.fileName();
  }
  CopyDatabase(connection, temporary);
  Unfinished unfinished(temporary);
  // Replaces the target in one step where the system has it.
  std::error_code failure;
  std::filesystem::rename(QFileInfo(temporary).filesystemAbsoluteFilePath(),
                          QFileInfo(target).filesystemAbsoluteFilePath(), failure);
  if (failure) Fail(target, QString::fromLocal8Bit(failure.message().c_str()));
  unfinished.Keep();
  SyncFolder(QFileInfo(target).absolutePath());
}

QStringList CheckDatabase(Connection& connection) {
  QStringList findings;
  Query integrity(connection, u"PRAGMA integrity_check"_qs);
  while (integrity.Next())
    if (integrity.Text(0) != u"ok") findings += integrity.Text(0);
  Query foreign(connection, u"PRAGMA foreign_key_check"_qs);
  while (foreign.Next())
    findings += EitherLanguage(u"%1, riga %2: rimanda a una riga di %3 che non esiste"_qs,
                               u"%1, row %2: refers to a row of %3 that does not exist"_qs)
                    .arg(foreign.Text(0), foreign.Text(1), foreign.Text(2));
  return findings;
}

}  // namespace vorlina
