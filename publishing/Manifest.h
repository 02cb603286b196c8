// What the publisher itself has put into a folder: the only files that it ever replaces or deletes there. The
// list is public, as it lies in the site: it tells nothing of the computer that it was made on.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>

#include "Fingerprint.h"

namespace publishing {

struct ManifestEntry {
  QByteArray input;  // digest of what the file was made from; empty where that is not known
  FileFingerprint file;
  // Of a site that the file is no part of any more: it could not be deleted, and that is tried again.
  bool IsLeftOver() const { return input.isEmpty(); }
  bool operator==(const ManifestEntry&) const = default;
};

class Manifest {
 public:
  static QString FileName();

  // Reads a manifest file. Nothing where it is missing, was cut short or is damaged otherwise, or names a
  // file outside its folder.
  static std::optional<Manifest> Read(const QString& path);
  // The manifest of a folder; where it cannot be read, what the marks of the folder's own pages tell. Empty
  // where nothing there is ours.
  static Manifest OfFolder(const QString& folder);
  QByteArray ToText() const;

  // The folders that these files lie in, below the site's own, each behind those that hold it.
  static QStringList Folders(const QStringList& files);

  bool isKept = false;  // it is the list that lies in the folder, word by word
  QByteArray site;      // which catalog's site it is
  QString title;        // its title, for the user
  QByteArray profile;   // digest of the one that it was published with; empty where that is not known
  QHash<QString, ManifestEntry> entries;
};

}  // namespace publishing
