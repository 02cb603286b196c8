// What the publisher itself has put into a folder: the only files that it ever replaces or deletes there.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

namespace vlhtml {

struct ManifestEntry {
  QByteArray input;  // hash or stamp of what the file was made from
  qint64 size = 0;
  qint64 time = 0;  // modification, milliseconds since 1970
};

class Manifest {
 public:
  static QString FileName();

  // Reads a folder's manifest; empty where there is none. Lines that are damaged, or name a file outside the
  // folder, are passed over: what they name is then not ours. An English or Italian error is never due.
  static Manifest Read(const QString& folder);
  QByteArray ToText() const;

  QHash<QString, ManifestEntry> entries;
};

}  // namespace vlhtml
