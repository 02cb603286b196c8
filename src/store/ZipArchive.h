// Zip archives, written and read with suspicion. It knows nothing of the database, so that skins and backups
// are read by the same rules.
//
// What an archive may hold: regular files and folders, in relative paths whose separators are "/". A name is
// made of letters, marks, digits, punctuation, symbols and blanks of any script, but of no character that a
// file system or a shell window takes for something else, and two names never differ in letter case alone.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <limits>
#include <map>
#include <optional>

#include "base/Progress.h"

struct archive;
class QIODevice;

namespace vorlina {

// How much an archive may hold. A ratio of 0 is none; it is the unpacked size over that of the archive.
struct ZipLimits {
  qint64 files;
  qint64 bytes;
  qint64 ratio;
};

// For an archive that comes from somewhere else, such as a skin.
inline constexpr ZipLimits ForeignZip{500, 50'000'000, 100};

// For one whose content is bounded otherwise.
inline constexpr ZipLimits UnlimitedZip{std::numeric_limits<qint64>::max(),
                                        std::numeric_limits<qint64>::max(), 0};

// What is wrong with a name inside an archive, fit to be shown; empty when nothing is.
QString ProblemOfZipName(const QString& name);

// The names of one archive, which must differ by more than letter case, also in the folders they lie in.
class ZipNames {
 public:
  // Takes a name in. Throws Error for one that ProblemOfZipName refuses, and for the twin of another.
  void Add(const QString& name, bool folder);

 private:
  void AddSpelling(const QString& path, bool folder);

  std::map<QString, QString> spellings_;  // by folded path: how a folder is spelled, Null for a file
};

// Writes an archive to a device that stays open. All members throw Error.
class ZipWriter {
 public:
  explicit ZipWriter(QIODevice& device);
  ~ZipWriter();
  ZipWriter(const ZipWriter&) = delete;
  ZipWriter& operator=(const ZipWriter&) = delete;

  enum class Packing { Store, Deflate };
  // Adds a file of this size, whose content the source gives piece by piece and ends with an empty piece.
  // Throws also when the content turns out to be of another size.
  void Add(const QString& name, qint64 size, Packing packing, const std::function<QByteArray()>& source);
  void Add(const QString& name, const QByteArray& content, Packing packing);
  // Writes the directory of the archive, without which it is none.
  void Close();

 private:
  void Check(qint64 result);

  QIODevice& device_;
  ZipNames names_;
  archive* archive_;
};

// A file inside an archive that is being read. Its content can be taken once.
struct ZipEntry {
  QString name;
  // The next piece; empty at the end. Throws Error for damage and beyond the limits.
  std::function<QByteArray()> nextPiece;
};

// Walks through the files of an archive in their order; folders that hold nothing are passed over. What the
// visitor leaves of a file is read all the same, so that its checksum is compared. Throws Error: for an
// archive that is damaged, beyond the limits, or holds anything but files and folders with good names.
void ReadZip(const QString& path, const ZipLimits& limits, const std::function<void(ZipEntry&)>& visitor);

// The content of one file of an archive by its name, found without reading the others; nothing where there is
// none. Throws Error as ReadZip does, and for a content of more than so many bytes.
std::optional<QByteArray> ReadZipFile(const QString& path, const QString& name, qint64 mostBytes);

// The names in an archive as they stand there, which nobody has checked, found without reading the files.
// Throws Error for a file that is no zip archive.
QStringList ListZip(const QString& path);

// Unpacks into a folder that exists and is empty. What was unpacked stays when it throws, for the caller to
// remove. The progress counts the bytes of the archive.
void UnpackZip(const QString& path, const QString& folder, const ZipLimits& limits,
               const Progress& progress = {});

}  // namespace vorlina
