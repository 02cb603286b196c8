#include "store/ZipArchive.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <algorithm>
#include <cerrno>

#include "base/SafeFile.h"

namespace vorlina {
namespace {

constexpr std::size_t PieceSize = 1 << 18;

[[noreturn]] void Refuse(const QString& italian, const QString& english) {
  throw Error(EitherLanguage(italian, english));
}

[[noreturn]] void RefuseDamaged(const QString& path, const char* reason) {
  throw Error(EitherLanguage(u"L'archivio %1 è danneggiato o non è un archivio zip (%2)"_qs,
                             u"The archive %1 is damaged, or is no zip archive (%2)"_qs)
                  .arg(QDir::toNativeSeparators(path), QString::fromUtf8(reason)));
}

la_ssize_t WritePiece(archive* handle, void* device, const void* bytes, std::size_t size) {
  auto* target = static_cast<QIODevice*>(device);
  errno = 0;
  if (target->write(static_cast<const char*>(bytes), qint64(size)) == qint64(size)) return la_ssize_t(size);
  archive_set_error(handle, errno, "%s", target->errorString().toUtf8().constData());
  return -1;
}

// The archive file as libarchive reads it. Going through QFile lets every path be opened on every system.
struct Source {
  QFile file;
  QByteArray buffer{qsizetype(PieceSize), Qt::Uninitialized};
};

la_ssize_t ReadPiece(archive*, void* data, const void** bytes) {
  auto* source = static_cast<Source*>(data);
  *bytes = source->buffer.constData();
  return la_ssize_t(source->file.read(source->buffer.data(), source->buffer.size()));
}

la_int64_t SeekTo(archive*, void* data, la_int64_t offset, int whence) {
  QFile& file = static_cast<Source*>(data)->file;
  const qint64 base = whence == SEEK_SET ? 0 : whence == SEEK_CUR ? file.pos() : file.size();
  return file.seek(base + offset) ? file.pos() : ARCHIVE_FATAL;
}

using ReadHandle = std::unique_ptr<archive, int (*)(archive*)>;

// Zip alone, and by the directory at its end: what stands before the entries by themselves is not looked at.
ReadHandle OpenForReading(const QString& path, Source& source) {
  source.file.setFileName(path);
  // A pipe would be waited for.
  if (QFileInfo::exists(path) && !QFileInfo(path).isFile())
    throw Error(EitherLanguage(u"%1 non è un file. Scegliere un altro nome."_qs,
                               u"%1 is no file. Choose another name."_qs)
                    .arg(QDir::toNativeSeparators(path)));
  if (!source.file.open(QIODevice::ReadOnly))
    throw Error(EitherLanguage(u"Impossibile leggere il file %1: %2"_qs, u"The file %1 cannot be read: %2"_qs)
                    .arg(QDir::toNativeSeparators(path), source.file.errorString()));
  ReadHandle handle(archive_read_new(), archive_read_free);
  archive_read_support_format_zip_seekable(handle.get());
  archive_read_set_read_callback(handle.get(), ReadPiece);
  archive_read_set_seek_callback(handle.get(), SeekTo);
  archive_read_set_callback_data(handle.get(), &source);
  if (archive_read_open1(handle.get()) != ARCHIVE_OK) RefuseDamaged(path, archive_error_string(handle.get()));
  return handle;
}

QString NameOf(archive_entry* entry) {
  const char* bytes = archive_entry_pathname_utf8(entry);
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  QString name = bytes == nullptr ? QString() : QString(decoder(QByteArrayView(bytes)));
  if (bytes == nullptr || decoder.hasError())
    Refuse(u"L'archivio contiene un nome di file che non è in UTF-8"_qs,
           u"The archive holds a file name that is not in UTF-8"_qs);
  return name;
}

// Whether it is a folder; everything that is neither file nor folder is refused.
bool IsFolder(archive_entry* entry, const QString& name) {
  const bool link = archive_entry_symlink(entry) != nullptr || archive_entry_hardlink(entry) != nullptr;
  const auto type = archive_entry_filetype(entry);
  if (link || (type != AE_IFREG && type != AE_IFDIR))
    throw Error(EitherLanguage(u"L'archivio contiene un collegamento o un file speciale: \"%1\""_qs,
                               u"The archive holds a link or a special file: \"%1\""_qs)
                    .arg(name));
  return type == AE_IFDIR;
}

// Steps to the next entry; null at the end.
archive_entry* NextEntry(archive* handle, const QString& path) {
  archive_entry* entry = nullptr;
  const int result = archive_read_next_header(handle, &entry);
  if (result == ARCHIVE_EOF) return nullptr;
  if (result != ARCHIVE_OK) RefuseDamaged(path, archive_error_string(handle));
  return entry;
}

// Counts what comes out of an archive against its limits.
class Meter {
 public:
  Meter(const ZipLimits& limits, qint64 archiveSize) : limits_(limits), archiveSize_(archiveSize) {}

  void CountFile() {
    if (++files_ > limits_.files)
      Refuse(u"L'archivio contiene troppi file"_qs, u"The archive holds too many files"_qs);
  }
  void CountBytes(qint64 bytes) {
    bytes_ += bytes;
    if (bytes_ > limits_.bytes || (limits_.ratio > 0 && bytes_ / limits_.ratio >= archiveSize_))
      throw Error(EitherLanguage(u"Il contenuto dell'archivio è troppo grande (al massimo %1 MB)"_qs,
                                 u"The content of the archive is too large (at most %1 MB)"_qs)
                      .arg(limits_.bytes / 1'000'000));
  }

 private:
  ZipLimits limits_;
  qint64 archiveSize_;
  qint64 files_ = 0;
  qint64 bytes_ = 0;
};

}  // namespace

ZipWriter::ZipWriter(QIODevice& device) : device_(device), archive_(archive_write_new()) {
  Check(archive_write_set_format_zip(archive_));
  Check(archive_write_set_bytes_per_block(archive_, 0));
  Check(archive_write_open(archive_, &device_, nullptr, WritePiece, nullptr));
}

ZipWriter::~ZipWriter() {
  // An archive that was given up must not be completed.
  archive_write_fail(archive_);
  archive_write_free(archive_);
}

void ZipWriter::Check(qint64 result) {
  if (result >= ARCHIVE_OK) return;
  if (const int cause = archive_errno(archive_); MeansFullDisk(cause)) {
    const auto* file = qobject_cast<QFileDevice*>(&device_);
    throw DiskFullError(file != nullptr ? file->fileName() : QString(), cause);
  }
  throw Error(
      EitherLanguage(u"Impossibile scrivere l'archivio: %1"_qs, u"The archive cannot be written: %1"_qs)
          .arg(QString::fromUtf8(archive_error_string(archive_))));
}

void ZipWriter::Add(const QString& name, qint64 size, Packing packing,
                    const std::function<QByteArray()>& source) {
  names_.Add(name, false);
  Check(packing == Packing::Store ? archive_write_zip_set_compression_store(archive_)
                                  : archive_write_zip_set_compression_deflate(archive_));
  const std::unique_ptr<archive_entry, void (*)(archive_entry*)> entry(archive_entry_new(),
                                                                       archive_entry_free);
  archive_entry_set_pathname_utf8(entry.get(), name.toUtf8().constData());
  archive_entry_set_filetype(entry.get(), AE_IFREG);
  archive_entry_set_perm(entry.get(), 0644);
  archive_entry_set_size(entry.get(), size);
  Check(archive_write_header(archive_, entry.get()));
  qint64 written = 0;
  for (QByteArray piece = source(); !piece.isEmpty(); piece = source()) {
    written += piece.size();
    if (written > size) break;
    if (archive_write_data(archive_, piece.constData(), std::size_t(piece.size())) != piece.size())
      Check(ARCHIVE_FATAL);
  }
  if (written != size)
    throw Error(EitherLanguage(u"Il file \"%1\" è cambiato mentre veniva letto. Riprovare."_qs,
                               u"The file \"%1\" changed while it was read. Try again."_qs)
                    .arg(name));
  Check(archive_write_finish_entry(archive_));
}

void ZipWriter::Add(const QString& name, const QByteArray& content, Packing packing) {
  QByteArray rest = content;
  Add(name, content.size(), packing, [&] { return std::exchange(rest, QByteArray()); });
}

void ZipWriter::Close() { Check(archive_write_close(archive_)); }

void ReadZip(const QString& path, const ZipLimits& limits, const std::function<void(ZipEntry&)>& visitor) {
  Source source;
  const ReadHandle handle = OpenForReading(path, source);
  Meter meter(limits, source.file.size());
  ZipNames names;
  QByteArray buffer(qsizetype(PieceSize), Qt::Uninitialized);
  const auto nextPiece = [&] {
    const la_ssize_t got = archive_read_data(handle.get(), buffer.data(), std::size_t(buffer.size()));
    if (got < 0) RefuseDamaged(path, archive_error_string(handle.get()));
    meter.CountBytes(got);
    return QByteArray(buffer.constData(), got);
  };
  while (archive_entry* entry = NextEntry(handle.get(), path)) {
    QString name = NameOf(entry);
    const bool folder = IsFolder(entry, name);
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

std::optional<QByteArray> ReadZipFile(const QString& path, const QString& name, qint64 mostBytes) {
  Source source;
  const ReadHandle handle = OpenForReading(path, source);
  while (archive_entry* entry = NextEntry(handle.get(), path)) {
    if (NameOf(entry) != name || IsFolder(entry, name)) continue;
    Meter meter({1, mostBytes, 0}, source.file.size());
    QByteArray content;
    QByteArray buffer(qsizetype(PieceSize), Qt::Uninitialized);
    for (;;) {
      const la_ssize_t got = archive_read_data(handle.get(), buffer.data(), std::size_t(buffer.size()));
      if (got < 0) RefuseDamaged(path, archive_error_string(handle.get()));
      if (got == 0) return content;
      meter.CountBytes(got);
      content.append(buffer.constData(), got);
    }
  }
  return {};
}

QStringList ListZip(const QString& path) {
  Source source;
  const ReadHandle handle = OpenForReading(path, source);
  QStringList names;
  while (archive_entry* entry = NextEntry(handle.get(), path)) names += NameOf(entry);
  return names;
}

void UnpackZip(const QString& path, const QString& folder, const ZipLimits& limits,
               const Progress& progress) {
  const QDir target(folder);
  const qint64 total = QFileInfo(path).size();
  qint64 done = 0;
  ReadZip(path, limits, [&](ZipEntry& entry) {
    const QString file = target.filePath(entry.name);
    MakeFolder(QFileInfo(file).path());
    WriteStagedFile(file, [&](QIODevice& device) {
      for (QByteArray piece = entry.nextPiece(); !piece.isEmpty(); piece = entry.nextPiece()) {
        Report(progress, std::min(done += piece.size(), total), total, entry.name);
        if (device.write(piece) != piece.size()) return false;
      }
      return true;
    });
  });
}

}  // namespace vorlina
