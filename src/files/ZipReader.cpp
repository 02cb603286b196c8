#include "ZipReader.h"

#include <archive.h>
#include <archive_entry.h>

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <cstdio>
#include <exception>
#include <memory>

namespace files {
namespace {

constexpr std::size_t PieceSize = 1 << 18;

[[noreturn]] void Refuse(const ZipFail& fail, ZipFault fault, const QString& about = {}) {
  fail(fault, about);
  std::terminate();  // it did not throw
}

// Counts what comes out of an archive against its limits.
class Meter {
 public:
  Meter(const ZipLimits& limits, qint64 archiveSize, const ZipFail& fail)
      : limits_(limits), archiveSize_(archiveSize), fail_(fail) {}

  void CountFile() {
    if (++files_ > limits_.files) Refuse(fail_, ZipFault::TooManyFiles);
  }
  void CountBytes(qint64 bytes) {
    bytes_ += bytes;
    if (bytes_ > limits_.bytes || (limits_.ratio > 0 && bytes_ / limits_.ratio >= archiveSize_))
      Refuse(fail_, ZipFault::TooLarge, QString::number(limits_.bytes / 1'000'000));
  }

 private:
  ZipLimits limits_;
  qint64 archiveSize_;
  const ZipFail& fail_;
  qint64 files_ = 0;
  qint64 bytes_ = 0;
};

// An archive that is open, by the directory at its end: what stands before the entries by themselves is not
// looked at. Going through QFile lets every path be opened on every system.
class Archive {
 public:
  Archive(const QString& path, const ZipFail& fail) : fail_(fail), file_(path) {
    // A pipe would be waited for.
    if (QFileInfo::exists(path) && !QFileInfo(path).isFile()) Refuse(fail_, ZipFault::NoFile);
    if (!file_.open(QIODevice::ReadOnly)) Refuse(fail_, ZipFault::Unreadable, file_.errorString());
    archive_read_support_format_zip_seekable(handle_.get());
    archive_read_set_read_callback(handle_.get(), ReadFile);
    archive_read_set_seek_callback(handle_.get(), SeekTo);
    archive_read_set_callback_data(handle_.get(), this);
    if (archive_read_open1(handle_.get()) != ARCHIVE_OK) Refuse(fail_, ZipFault::NoArchive, Reason());
  }
  Archive(const Archive&) = delete;
  Archive& operator=(const Archive&) = delete;

  qint64 Size() const { return file_.size(); }

  // Steps to the next entry; false at the end.
  bool Next() {
    const int result = archive_read_next_header(handle_.get(), &entry_);
    if (result != ARCHIVE_OK && result != ARCHIVE_EOF) Refuse(fail_, ZipFault::Damaged, Reason());
    return result == ARCHIVE_OK;
  }

  QString Name() const {
    const char* bytes = archive_entry_pathname_utf8(entry_);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString name = bytes == nullptr ? QString() : QString(decoder(QByteArrayView(bytes)));
    if (bytes == nullptr || decoder.hasError()) Refuse(fail_, ZipFault::NoText);
    return name;
  }

  // Whether the entry is a folder; everything that is neither file nor folder is refused.
  bool IsFolder(const QString& name) const {
    const bool link = archive_entry_symlink(entry_) != nullptr || archive_entry_hardlink(entry_) != nullptr;
    const auto type = archive_entry_filetype(entry_);
    if (link || (type != AE_IFREG && type != AE_IFDIR)) Refuse(fail_, ZipFault::SpecialFile, name);
    return type == AE_IFDIR;
  }

  // The next piece of the entry; empty at its end.
  QByteArray NextPiece(Meter& meter) {
    const la_ssize_t got = archive_read_data(handle_.get(), piece_.data(), std::size_t(piece_.size()));
    if (got < 0) Refuse(fail_, ZipFault::Damaged, Reason());
    meter.CountBytes(got);
    return QByteArray(piece_.constData(), got);
  }

 private:
  static la_ssize_t ReadFile(archive*, void* data, const void** bytes) {
    auto* self = static_cast<Archive*>(data);
    *bytes = self->buffer_.constData();
    return la_ssize_t(self->file_.read(self->buffer_.data(), self->buffer_.size()));
  }
  static la_int64_t SeekTo(archive*, void* data, la_int64_t offset, int whence) {
    QFile& file = static_cast<Archive*>(data)->file_;
    const qint64 base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.pos() : file.size();
    return file.seek(base + offset) ? file.pos() : ARCHIVE_FATAL;
  }
  QString Reason() const { return QString::fromUtf8(archive_error_string(handle_.get())); }

  const ZipFail& fail_;
  QFile file_;
  QByteArray buffer_{qsizetype(PieceSize), Qt::Uninitialized};  // as it lies in the file
  QByteArray piece_{qsizetype(PieceSize), Qt::Uninitialized};   // unpacked
  std::unique_ptr<archive, int (*)(archive*)> handle_{archive_read_new(), archive_read_free};
  archive_entry* entry_ = nullptr;
};

}  // namespace

void ReadZip(const QString& path, const ZipLimits& limits, const ZipFail& fail,
             const std::function<void(ZipEntry&)>& visitor) {
  Archive archive(path, fail);
  Meter meter(limits, archive.Size(), fail);
  ZipNames names(fail);
  const auto nextPiece = [&] { return archive.NextPiece(meter); };
  while (archive.Next()) {
    QString name = archive.Name();
    const bool folder = archive.IsFolder(name);
    if (folder && name.endsWith(u'/')) name.chop(1);
    names.Add(name, folder);
    meter.CountFile();
    if (folder) continue;
    ZipEntry file{name, nextPiece};
    visitor(file);
    while (!nextPiece().isEmpty()) {
    }
  }
}

std::optional<QByteArray> ReadZipFile(const QString& path, const QString& name, qint64 mostBytes,
                                      const ZipFail& fail) {
  Archive archive(path, fail);
  while (archive.Next()) {
    if (archive.Name() != name || archive.IsFolder(name)) continue;
    Meter meter({1, mostBytes, 0}, archive.Size(), fail);
    QByteArray content;
    for (QByteArray piece = archive.NextPiece(meter); !piece.isEmpty(); piece = archive.NextPiece(meter))
      content += piece;
    return content;
  }
  return {};
}

QStringList ListZip(const QString& path, const ZipFail& fail) {
  Archive archive(path, fail);
  QStringList names;
  while (archive.Next()) names += archive.Name();
  return names;
}

}  // namespace files
