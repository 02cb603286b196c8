// Zip archives as the program writes and reads them, by the rules of src/files. All of it throws Error.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <functional>
#include <limits>
#include <optional>

#include "base/Progress.h"
#include "files/ZipReader.h"

struct archive;
class QIODevice;

namespace vorlina {

using files::ForeignZip;
using files::ZipEntry;
using files::ZipLimits;

// For an archive whose content is bounded otherwise.
inline constexpr ZipLimits UnlimitedZip{std::numeric_limits<qint64>::max(),
                                        std::numeric_limits<qint64>::max(), 0};

// What is wrong with a name inside an archive, fit to be shown; empty when nothing is.
QString ProblemOfZipName(const QString& name);

// Writes an archive to a device that stays open.
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
  files::ZipNames names_;
  archive* archive_;
};

// As those of src/files, which tell what is wrong in the user's language.
void ReadZip(const QString& path, const ZipLimits& limits, const std::function<void(ZipEntry&)>& visitor);
std::optional<QByteArray> ReadZipFile(const QString& path, const QString& name, qint64 mostBytes);
QStringList ListZip(const QString& path);

// Unpacks into a folder that exists and is empty. What was unpacked stays when it throws, for the caller to
// remove. The progress counts the bytes of the archive.
void UnpackZip(const QString& path, const QString& folder, const ZipLimits& limits,
               const Progress& progress = {});

}  // namespace vorlina
