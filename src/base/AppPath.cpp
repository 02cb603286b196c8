#include "base/AppPath.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QLibrary>
#include <QStandardPaths>
#include <QTemporaryFile>

#include "base/SafeFile.h"
#include "base/Texts.h"

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
// now what it worked with goes on being what the user sees, unless a restore was cut short there: what lies
// beside its journal belongs together only by chance.
QString SamplesPath() {
  const QString apart = DeliveredPath() + u"/Samples"_qs;
  const bool hasWorked = QFileInfo(DeliveredPath() + u"/Catalog.db").isReadable() &&
                         !QFileInfo::exists(DeliveredPath() + u"/.restore-journal");
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

// Tells whether somebody wrote the database of a folder, or its journal, meanwhile.
QString StampOf(const QString& folder) {
  QString stamp;
  for (const QString& name : {u"/Catalog.db"_qs, u"/Catalog.db-journal"_qs}) {
    const QFileInfo file(folder + name);
    stamp += u"%1 %2;"_qs.arg(file.size()).arg(file.lastModified().toMSecsSinceEpoch());
  }
  return stamp;
}

// With the journal of a transaction that was cut short, without which the database is half changed. It has
// its name last, so that a copy that was cut short is none.
void CopyDatabaseFrom(const QString& folder) {
  const QString partial = AppFile(u"Catalog.db.partial"_qs);
  const QString journal = AppFile(u"Catalog.db-journal"_qs);
  const QString before = StampOf(folder);
  QFile::remove(journal);
  if (QFileInfo::exists(folder + u"/Catalog.db-journal"))
    CopyFileSafely(folder + u"/Catalog.db-journal"_qs, journal);
  CopyFileSafely(folder + u"/Catalog.db"_qs, partial);
  if (StampOf(folder) != before) {
    QFile::remove(partial);
    throw Error(Texts::tr("I cataloghi in %1 sono aperti in un altro programma. Chiuderlo e riprovare.")
                    .arg(QDir::toNativeSeparators(folder)));
  }
  MoveFileSafely(partial, AppFile(u"Catalog.db"_qs));
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
  for (const QString& folder : {u"Images"_qs, u"Layouts"_qs}) CopyMissingBelow(samples, folder);
  if (QFileInfo::exists(samples + u"/CardLayout.lyt")) CopyMissing(samples, u"CardLayout.lyt"_qs);
  CopyDatabaseFrom(samples);
}

}  // namespace vorlina
