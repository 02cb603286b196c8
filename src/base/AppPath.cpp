#include "base/AppPath.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QLibrary>
#include <QStandardPaths>
#include <QTemporaryFile>

#include "base/SafeFile.h"

namespace vorlina {
namespace {

QString appPath;

// An installed program says by a file beside it that data never lie there, also for who may write there, as
// the system's administrator.
bool IsInstalled() { return QFileInfo::exists(DeliveredPath() + u"/installed"); }

// Permissions alone do not tell (a read-only mount, access lists), so a file is tried.
bool IsWritable(const QString& folder) {
  QTemporaryFile probe(folder + u"/.vorlina-XXXXXX"_qs);
  return probe.open();
}

void CopyMissing(const QString& name) {
  const QString target = AppFile(name);
  if (QFileInfo::exists(target)) return;
  MakeFolder(QFileInfo(target).path());
  CopyFileSafely(DeliveredPath() + u'/' + name, target);
}

void CopyMissingBelow(const QString& folder) {
  const QDir delivered(DeliveredPath());
  QDirIterator files(delivered.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString name = delivered.relativeFilePath(files.next());
    // Libraries are loaded from where they were delivered, so that they are never older than the program.
    if (!QLibrary::isLibrary(name)) CopyMissing(name);
  }
}

}  // namespace

QString DeliveredPath() { return QCoreApplication::applicationDirPath(); }

QString AppPath() {
  if (appPath.isEmpty())
    SetAppPath(!IsInstalled() && IsWritable(DeliveredPath())
                   ? DeliveredPath()
                   : QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
  return appPath;
}

void SetAppPath(const QString& folder) {
  appPath = folder.isEmpty()
                ? QString()
                : QDir::toNativeSeparators(QDir::cleanPath(QFileInfo(folder).absoluteFilePath()));
}

QString AppFile(const QString& name) { return QDir::toNativeSeparators(AppPath() + u'/' + name); }

void PrepareAppPath() {
  if (QDir(AppPath()) == QDir(DeliveredPath()) || QFileInfo::exists(AppFile(u"Catalog.db"_qs))) return;
  CopyMissingBelow(u"PubWiz"_qs);
  CopyMissingBelow(u"Images"_qs);
  CopyMissing(u"Catalog.db"_qs);
}

}  // namespace vorlina
