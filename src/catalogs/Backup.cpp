#include "catalogs/Backup.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#include "base/SafeFile.h"
#include "base/Texts.h"
#include "catalogs/BackupPacker.h"
#include "catalogs/BackupPlace.h"
#include "store/Connection.h"
#include "store/ZipArchive.h"

namespace vorlina {
namespace {

constexpr int MostAttempts = 3;

BackupReport PackAndVerify(Connection& connection, const BackupStaging& staging, const Progress& progress,
                           MissingPictures missing) {
  BackupPacker packer(connection, staging, progress, missing);
  BackupReport report = packer.Pack();
  SyncVolume(QFileInfo(staging.Archive()).absolutePath());
  const BackupManifest read = ReadBackup(staging.Archive(), [&](const QString& name, const auto& nextPiece) {
    for (QByteArray piece = nextPiece(); !piece.isEmpty(); piece = nextPiece())
      packer.Advance(piece.size(), name);
  });
  if (read.files != report.manifest.files)
    throw Error(Texts::tr("La copia di sicurezza non è leggibile così come è stata scritta"));
  return report;
}

}  // namespace

BackupReport WriteBackup(Connection& connection, const QString& file, const Progress& progress,
                         MissingPictures missing) {
  const QString root = QFileInfo(connection.DataSource()).absolutePath();
  RequireReplaceable(file, root);
  try {
    const BackupStaging staging(file);
    for (int attempt = 1;; ++attempt) {
      try {
        BackupReport report = PackAndVerify(connection, staging, progress, missing);
        RequireReplaceable(file, root);
        MoveFileSafely(staging.Archive(), file);
        return report;
      } catch (const ChangingError&) {
        if (attempt == MostAttempts) throw;
      }
    }
  } catch (const DiskFullError& full) {
    throw DiskFullError(file, full.Cause());
  }
}

BackupManifest ReadManifest(const QString& file) {
  return ManifestFromJson(ReadZipFile(file, ManifestName, LargestManifest).value_or(QByteArray()));
}

BackupManifest ReadBackup(const QString& file, const BackupVisitor& visitor) {
  const auto require = [&](bool whole) {
    if (whole) return;
    throw Error(Texts::tr("La copia di sicurezza %1 non è integra: il contenuto non è quello del suo elenco")
                    .arg(QDir::toNativeSeparators(file)));
  };
  BackupManifest manifest = ReadManifest(file);
  std::map<QString, ManifestFile> meant;  // by stored name
  for (const auto& [name, entry] : manifest.files) meant[entry.stored] = entry;
  require(meant.size() == manifest.files.size() && meant.count(DatabaseName) == 1);
  ReadZip(file, UnlimitedZip, [&](ZipEntry& entry) {
    if (entry.name == ManifestName) return;
    if (!IsBackupName(entry.name))
      throw Error(Texts::tr("\"%1\" non appartiene a una copia di sicurezza di Vorlina").arg(entry.name));
    const auto found = meant.find(entry.name);
    require(found != meant.end());
    QCryptographicHash hash(QCryptographicHash::Sha256);
    qint64 size = 0;
    const auto nextPiece = [&] {
      QByteArray piece = entry.nextPiece();
      hash.addData(piece);
      require((size += piece.size()) <= found->second.size);
      return piece;
    };
    visitor(entry.name, nextPiece);
    while (!nextPiece().isEmpty()) {
    }
    require(size == found->second.size && hash.result().toHex() == found->second.sha256);
    meant.erase(found);
  });
  require(meant.empty());
  return manifest;
}

}  // namespace vorlina
