// What a backup says of itself: the last entry of its archive lists every other one with size and hash.
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <map>

namespace vorlina {

inline const QString ManifestName = QStringLiteral("manifest.json");
inline const QString DatabaseName = QStringLiteral("Catalog.db");

struct ManifestFile {
  QString stored;  // its name inside the archive
  qint64 size = 0;
  QByteArray sha256;  // in hexadecimal digits

  bool operator==(const ManifestFile&) const = default;
};

struct BackupManifest {
  int schemaVersion = 0;
  QString applicationPath;  // where it was made, with which the paths in the database begin
  QDateTime created;
  std::map<QString, ManifestFile> files;

  qint64 TotalSize() const;
};

// More of it than this is no manifest.
inline constexpr qint64 LargestManifest = 1 << 28;

// Whether a text is a manifest, of this form or a later one.
bool IsManifest(const QByteArray& json);

QByteArray ToJson(const BackupManifest& manifest);
// Throws Error for a text that is no manifest, or one of a later form.
BackupManifest ManifestFromJson(const QByteArray& json);

// The name under which the archive holds a file. Readers of archives put accents and letters together, so a
// name that has them apart, as other systems write them, would come back as another one: it is held under a
// number.
QString StoredName(const QString& name, std::size_t number);

// Whether a name is one that a backup holds: the database, what lies in "Images" and "Layouts", and
// "CardLayout.lyt".
bool IsBackupName(const QString& name);

}  // namespace vorlina
