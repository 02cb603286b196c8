#include "store/ZipArchive.h"

#include <archive.h>
#include <archive_entry.h>

#include <QDir>
#include <QFileDevice>
#include <QFileInfo>
#include <algorithm>
#include <cerrno>

#include "base/SafeFile.h"
#include "base/Texts.h"

namespace vorlina {
namespace {

using files::ZipFault;

// A foreign archive may have names that would make a box higher than any screen.
constexpr int LongestToTell = 250;

QString TextOf(ZipFault fault, const QString& told, const QString& path) {
  const QString file = QDir::toNativeSeparators(path);
  const QString about = told.left(LongestToTell).simplified();
  switch (fault) {
    case ZipFault::NoFile:
      return Texts::tr("%1 non è un file. Scegliere un altro nome.").arg(file);
    case ZipFault::Unreadable:
      return Texts::tr("Impossibile leggere il file %1: %2").arg(file, about);
    case ZipFault::NoArchive:
    case ZipFault::Damaged:
      return Texts::tr("L'archivio %1 è danneggiato o non è un archivio zip (%2)").arg(file, about);
    case ZipFault::NoText:
      return Texts::tr("L'archivio contiene un nome di file che non è in UTF-8");
    case ZipFault::SpecialFile:
      return Texts::tr("L'archivio contiene un collegamento o un file speciale: \"%1\"").arg(about);
    case ZipFault::BadName:
      return Texts::tr("Un nome di file non ammesso in un archivio: \"%1\"").arg(about);
    case ZipFault::Twin:
      return Texts::tr(
                 "L'archivio contiene due volte il nome \"%1\", o nomi che differiscono solo per "
                 "maiuscole e minuscole")
          .arg(about);
    case ZipFault::TooManyFiles:
      return Texts::tr("L'archivio contiene troppi file");
    case ZipFault::TooLarge:
      break;
  }
  return Texts::tr("Il contenuto dell'archivio è troppo grande (al massimo %1 MB)").arg(about);
}

files::ZipFail FailFor(const QString& path) {
  return [path](ZipFault fault, const QString& about) { throw Error(TextOf(fault, about, path)); };
}

la_ssize_t WritePiece(archive* handle, void* device, const void* bytes, std::size_t size) {
  auto* target = static_cast<QIODevice*>(device);
  errno = 0;
  if (target->write(static_cast<const char*>(bytes), qint64(size)) == qint64(size)) return la_ssize_t(size);
  archive_set_error(handle, errno, "%s", target->errorString().toUtf8().constData());
  return -1;
}

}  // namespace

ZipWriter::ZipWriter(QIODevice& device)
    : device_(device), names_(FailFor({})), archive_(archive_write_new()) {
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
  throw Error(Texts::tr("Impossibile scrivere l'archivio: %1")
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
    throw Error(Texts::tr("Il file \"%1\" è cambiato mentre veniva letto. Riprovare.").arg(name));
  Check(archive_write_finish_entry(archive_));
}

void ZipWriter::Add(const QString& name, const QByteArray& content, Packing packing) {
  QByteArray rest = content;
  Add(name, content.size(), packing, [&] { return std::exchange(rest, QByteArray()); });
}

void ZipWriter::Close() { Check(archive_write_close(archive_)); }

QString ProblemOfZipName(const QString& name) {
  return files::IsGoodZipName(name) ? QString() : TextOf(ZipFault::BadName, name, {});
}

void ReadZip(const QString& path, const ZipLimits& limits, const std::function<void(ZipEntry&)>& visitor) {
  files::ReadZip(path, limits, FailFor(path), visitor);
}

std::optional<QByteArray> ReadZipFile(const QString& path, const QString& name, qint64 mostBytes) {
  return files::ReadZipFile(path, name, mostBytes, FailFor(path));
}

QStringList ListZip(const QString& path) { return files::ListZip(path, FailFor(path)); }

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
