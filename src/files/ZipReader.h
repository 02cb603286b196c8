// Zip archives, read with suspicion: regular files and folders under good names, within limits, and nothing
// else.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "ZipNames.h"

namespace files {

// How much an archive may hold. A ratio of 0 is none; it is the unpacked size over that of the archive.
struct ZipLimits {
  qint64 files;
  qint64 bytes;
  qint64 ratio;
};

// For an archive that comes from somewhere else, such as a skin.
inline constexpr ZipLimits ForeignZip{500, 50'000'000, 100};

// A file inside an archive that is being read. Its content can be taken once.
struct ZipEntry {
  QString name;
  // The next piece; empty at the end. Fails for damage and beyond the limits.
  std::function<QByteArray()> nextPiece;
};

// Walks through the files of an archive in their order; folders that hold nothing are passed over. What the
// visitor leaves of a file is read all the same, so that its checksum is compared. Fails for an archive that
// is damaged, beyond the limits, or holds anything but files and folders with good names.
void ReadZip(const QString& path, const ZipLimits& limits, const ZipFail& fail,
             const std::function<void(ZipEntry&)>& visitor);

// The content of one file of an archive by its name, found without reading the others; nothing where there is
// none. Fails as ReadZip does, and for a content of more than so many bytes.
std::optional<QByteArray> ReadZipFile(const QString& path, const QString& name, qint64 mostBytes,
                                      const ZipFail& fail);

// The names in an archive as they stand there, which nobody has checked, found without reading the files.
// Fails for a file that is no zip archive.
QStringList ListZip(const QString& path, const ZipFail& fail);

}  // namespace files
