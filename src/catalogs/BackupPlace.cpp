#include "catalogs/BackupPlace.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>

#include "base/SafeFile.h"
#include "base/Texts.h"
#include "catalogs/BackupManifest.h"
#include "store/ZipArchive.h"

namespace vorlina {
namespace {

const QString StagingName = QStringLiteral(".vorlina-backup-");
const QString ArchiveName = QStringLiteral("archive.zip");

// The files of ours alone, whatever else somebody may have put there.
void RemoveStaging(const QString& path) {
  const QDir folder(path);
  for (const QString& name : {ArchiveName, DatabaseName})
    for (const QString& ending : {u""_qs, u"-journal"_qs, u".partial"_qs, u".partial-journal"_qs})
      QFile::remove(folder.filePath(name + ending));
  QDir().rmdir(path);
}

void RemoveLeftovers(const QString& folder) {
  const QStringList names =
      QDir(folder).entryList({StagingName + u"??????"_qs}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
  for (const QString& name : names) {
    const QString path = QDir(folder).filePath(name);
    files::FolderLock hold;
    if (hold.TakeAlone(path, 0) && hold.IsHeld()) RemoveStaging(path);
  }
}

bool IsBackup(const QString& file) {
  try {
    const QStringList names = ListZip(file);
    return names.contains(DatabaseName) &&
           std::all_of(names.begin(), names.end(),
                       [](const QString& name) { return name == ManifestName || IsBackupName(name); }) &&
           IsManifest(ReadZipFile(file, ManifestName, LargestManifest).value_or(QByteArray()));
  } catch (const Error&) {
    return false;
  }
}

}  // namespace

void RequireReplaceable(const QString& file, const QString& root) {
  const QFileInfo target(file);
  const bool isThere = target.exists() || target.isSymLink();
  if (isThere && (target.isSymLink() || !target.isFile() || !IsBackup(file)))
    throw Error(Texts::tr("%1 esiste e non è una copia di sicurezza. Scegliere un altro nome.")
                    .arg(QDir::toNativeSeparators(file)));
  const QString folder = QFileInfo(target.absolutePath()).canonicalFilePath() + u'/';
  const QString inside =
      QDir(QFileInfo(root).canonicalFilePath()).relativeFilePath(folder + target.fileName());
  for (const QString& own :
       {u"Images/"_qs, u"Layouts/"_qs, u"Web pictures/"_qs, u".restore"_qs, DatabaseName})
    if (inside.startsWith(own))
      throw Error(Texts::tr("La copia di sicurezza non può stare in %1. Scegliere un'altra cartella.")
                      .arg(QDir::toNativeSeparators(file)));
}

BackupStaging::BackupStaging(const QString& target) {
  const QString folder = QFileInfo(target).absolutePath();
  RemoveLeftovers(folder);
  // Another run may take a new one for left behind until this one holds it.
  while (folder_.isEmpty()) {
    errno = 0;
    QTemporaryDir made(QDir(folder).filePath(StagingName + u"XXXXXX"_qs));
    if (!made.isValid()) FailWriting(target, errno, made.errorString());
    made.setAutoRemove(false);
    if (hold_.Share(made.path(), 0) && QFileInfo(made.path()).isDir()) folder_ = made.path();
  }
}

BackupStaging::~BackupStaging() { RemoveStaging(folder_); }

QString BackupStaging::Archive() const { return QDir(folder_).filePath(ArchiveName); }
QString BackupStaging::Database() const { return QDir(folder_).filePath(DatabaseName); }

}  // namespace vorlina
