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

QByteArray ToJson(const BackupManifest& manifest);
// Throws Error for a text that is no manifest, or one of a later form.
BackupManifest ManifestFromJson(const QByteArray& json);

// Whether a name is one that a backup holds: the database, what lies in "Images" and "Layouts", and
// "CardLayout.lyt".
bool IsBackupName(const QString& name);

}  // namespace vorlina
