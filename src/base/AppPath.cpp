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

// Where the first catalogs come from. A program that is unpacked and works where it lies has them apart, so
// that a new version that is unpacked over it replaces no catalog and no picture. Where it cannot write by
// now what it worked with goes on being what the user sees.
QString SamplesPath() {
  const QString apart = DeliveredPath() + u"/Samples"_qs;
  const bool hasWorked = QFileInfo::exists(DeliveredPath() + u"/Catalog.db");
  return QFileInfo::exists(apart) && !hasWorked ? apart : DeliveredPath();
}

void CopyMissing(const QString& from, const QString& name) {
  const QString target = AppFile(name);
  if (QFileInfo::exists(target)) return;
  MakeFolder(QFileInfo(target).path());
  CopyFileSafely(from + u'/' + name, target);
}

void CopyMissingBelow(const QString& from, const QString& folder) {
  const QDir delivered(from);
  QDirIterator files(delivered.filePath(folder), QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString name = delivered.relativeFilePath(files.next());
    // Libraries are loaded from where they were delivered, so that they are never older than the program.
    if (!QLibrary::isLibrary(name)) CopyMissing(from, name);
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
  const QString samples = SamplesPath();
  if (QDir(AppPath()) == QDir(samples) || QFileInfo::exists(AppFile(u"Catalog.db"_qs))) return;
  if (QDir(AppPath()) != QDir(DeliveredPath())) CopyMissingBelow(DeliveredPath(), u"PubWiz"_qs);
  CopyMissingBelow(samples, u"Images"_qs);
  CopyMissing(samples, u"Catalog.db"_qs);
}

}  // namespace vorlina
