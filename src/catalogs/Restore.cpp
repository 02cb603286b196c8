#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QStorageInfo>

#include "base/AppPath.h"
#include "base/FolderHold.h"
#include "base/SafeFile.h"
#include "catalogs/Backup.h"
#include "catalogs/RestoreSwap.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"
#include "store/SampleData.h"

namespace vorlina {
namespace {

// Alone in the folder: neither one of our programs nor another one in the middle of a change.
void TakeFolder(FolderHold& hold, const QString& folder) {
  if (hold.TakeAlone(folder, 0) && !IsDatabaseLocked(QDir(folder).filePath(DatabaseName))) return;
  throw Error(
      EitherLanguage(u"I cataloghi in %1 sono aperti in un altro programma. Chiuderlo e riprovare."_qs,
                     u"The catalogs in %1 are open in another program. Close it and try again."_qs)
          .arg(QDir::toNativeSeparators(folder)));
}

BackupManifest Unpack(const QString& file, const QString& staging, const Progress& progress) {
  const QDir target(staging);
  const qint64 room = QStorageInfo(staging).bytesAvailable();
  const qint64 total = QFileInfo(file).size();
  // The pictures are stored as they are, so that an archive is hardly smaller than what it holds.
  if (total > room)
    throw Error(
        EitherLanguage(u"Sul disco non c'è spazio per il ripristino: servono almeno altri %1"_qs,
                       u"There is no room on the disk for the restore: at least %1 more are needed"_qs)
            .arg(QLocale().formattedDataSize(total - room)));
  qint64 done = 0;
  BackupManifest manifest = ReadBackup(file, room, [&](const QString& stored, const auto& nextPiece) {
    MakeFolder(QFileInfo(target.filePath(stored)).path());
    WriteStagedFile(target.filePath(stored), [&](QIODevice& device) {
      for (QByteArray piece = nextPiece(); !piece.isEmpty(); piece = nextPiece()) {
        Report(progress, std::min(done += piece.size(), total), total, stored);
        if (device.write(piece) != piece.size()) return false;
      }
      return true;
    });
  });
  // Files that the archive holds under a number get their names.
  for (const auto& [name, entry] : manifest.files)
    if (entry.stored != name && !QFile::rename(target.filePath(entry.stored), target.filePath(name)))
      throw Error(EitherLanguage(u"Impossibile scrivere il file %1"_qs, u"The file %1 cannot be written"_qs)
                      .arg(name));
  return manifest;
}

// Puts one folder in the place of another at the beginning of the stored paths; separators become those of
// this system.
void MovePaths(Connection& connection, const QString& from, const QString& to) {
  Transaction transaction(connection);
  for (const SamplePath& path : SamplePaths) {
    const QString update =
        u"UPDATE %1 SET %2=? || REPLACE(SUBSTR(%2,LENGTH(?)+1),?,?) WHERE SUBSTR(%2,1,LENGTH(?))=?"_qs.arg(
            QString::fromUtf16(path.table), QString::fromUtf16(path.column));
    for (const QChar separator : {u'/', u'\\'}) {
      const QString beginning = from + separator;
      connection.Execute(update,
                         {to, from, QString(separator), QString(QDir::separator()), beginning, beginning});
    }
  }
  transaction.Commit();
}

// Opens the unpacked database as the program would, which refuses a foreign or a newer one and brings an
// older one up to date, and fits its paths to where it is going to lie.
void PrepareDatabase(const QString& path, const QString& from, const QString& to) {
  Connection connection;
  OpenCatalogDatabase(connection, path);
  if (const QStringList broken = CheckDatabase(connection); !broken.isEmpty())
    throw Error(EitherLanguage(u"Il database della copia di sicurezza non è integro: %1"_qs,
                               u"The database of the backup is not whole: %1"_qs)
                    .arg(broken.first()));
  if (!from.isEmpty() && from != to) MovePaths(connection, from, to);
}

}  // namespace

BackupManifest RestoreBackup(const QString& file, const Progress& progress) {
  const QString folder = AppPath();
  MakeFolder(folder);
  FolderHold hold;
  TakeFolder(hold, folder);
  FinishInterruptedRestore(folder);
  const QString staging = StagingFolder(folder);
  try {
    MakeFolder(staging + u"/Images"_qs);
    BackupManifest manifest = Unpack(file, staging, progress);
    PrepareDatabase(QDir(staging).filePath(DatabaseName), manifest.applicationPath, folder);
    SyncVolume(staging);
    SwapIn(folder);
    return manifest;
  } catch (...) {
    // A swap that could be neither finished nor taken back leaves its journal, and needs what is staged.
    if (!IsSwapPending(folder)) QDir(staging).removeRecursively();
    throw;
  }
}

}  // namespace vorlina
