// Takes a backup apart and puts it together again, changed.
#pragma once

#include <QCryptographicHash>
#include <map>

#include "catalogs/BackupManifest.h"
#include "store/ZipArchive.h"
#include "support/CatalogFixture.h"

namespace vorlina {

using BackupFiles = std::map<QString, QByteArray>;

inline BackupFiles ReadBackupFiles(const QString& path) {
  BackupFiles files;
  ReadZip(path, {1 << 20, 1 << 30, 0}, [&](ZipEntry& entry) {
    QByteArray& content = files[entry.name];
    for (QByteArray piece = entry.nextPiece(); !piece.isEmpty(); piece = entry.nextPiece()) content += piece;
  });
  return files;
}

// The manifest that fits the files, with what the former one says besides.
inline void FitManifest(BackupFiles& files, const std::function<void(BackupManifest&)>& edit = {}) {
  BackupManifest manifest = ManifestFromJson(files[ManifestName]);
  manifest.files.clear();
  for (const auto& [name, content] : files)
    if (name != ManifestName)
      manifest.files[name] = {name, content.size(),
                              QCryptographicHash::hash(content, QCryptographicHash::Sha256).toHex()};
  if (edit) edit(manifest);
  files[ManifestName] = ToJson(manifest);
}

inline void WriteBackupFiles(const QString& path, const BackupFiles& files) {
  WriteFileSafely(path, [&](QIODevice& device) {
    ZipWriter writer(device);
    for (const auto& [name, content] : files) writer.Add(name, content, ZipWriter::Packing::Deflate);
    writer.Close();
    return true;
  });
}

}  // namespace vorlina
