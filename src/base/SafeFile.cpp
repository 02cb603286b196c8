#include "base/SafeFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QThread>
#include <cerrno>
#include <filesystem>
#include <system_error>

#include "base/Error.h"
#include "base/Language.h"

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace vorlina {
namespace {

[[noreturn]] void FailWriting(const QString& path, const QString& reason) {
  throw Error(
      EitherLanguage(u"Impossibile scrivere il file %1: %2"_qs, u"The file %1 cannot be written: %2"_qs)
          .arg(QDir::toNativeSeparators(path), reason));
}

bool Commit(QSaveFile& file) {
#ifdef Q_OS_WIN
  // A virus scanner may hold the former file for a moment.
  for (int i = 0; i < 20; ++i) {
    if (file.commit()) return true;
    QThread::msleep(100);
  }
  return false;
#else
  return file.commit();
#endif
}

}  // namespace

void WriteFileSafely(const QString& path, const std::function<bool(QIODevice&)>& writer) {
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) FailWriting(path, file.errorString());
  bool written = false;
  try {
    written = writer(file);
  } catch (...) {
    file.cancelWriting();
    throw;
  }
  // A short write shows as a file that is smaller than the position the writer reached.
  const qint64 meant = file.pos();
  if (!written || !file.flush() || file.error() != QFileDevice::NoError || file.size() != meant) {
    const QString reason = file.errorString();
    file.cancelWriting();
    file.commit();
    FailWriting(path, reason);
  }
  if (!Commit(file)) FailWriting(path, file.errorString());
  SyncFolder(QFileInfo(path).absolutePath());
}

void WriteFileSafely(const QString& path, const QByteArray& bytes) {
  WriteFileSafely(path, [&](QIODevice& device) { return device.write(bytes) == bytes.size(); });
}

void CopyFileSafely(const QString& source, const QString& target) {
  QFile from(source);
  if (!from.open(QIODevice::ReadOnly))
    throw Error(EitherLanguage(u"Impossibile leggere il file %1: %2"_qs, u"The file %1 cannot be read: %2"_qs)
                    .arg(QDir::toNativeSeparators(source), from.errorString()));
  WriteFileSafely(target, [&](QIODevice& device) {
    constexpr qint64 Piece = 1 << 18;
    QByteArray buffer(Piece, Qt::Uninitialized);
    qint64 copied = 0;
    for (;;) {
      const qint64 got = from.read(buffer.data(), Piece);
      if (got < 0) return false;
      if (got == 0) return copied == from.size();
      if (device.write(buffer.constData(), got) != got) return false;
      copied += got;
    }
  });
}

void MoveFileSafely(const QString& source, const QString& target) {
  std::error_code failure;
#ifdef Q_OS_UNIX
  const int descriptor = ::open(QFile::encodeName(source).constData(), O_RDONLY | O_CLOEXEC);
  if (descriptor >= 0) {
    if (::fsync(descriptor) != 0) failure = std::error_code(errno, std::generic_category());
    ::close(descriptor);
  }
#endif
  if (!failure)
    std::filesystem::rename(QFileInfo(source).filesystemFilePath(), QFileInfo(target).filesystemFilePath(),
                            failure);
  if (failure) FailWriting(target, QString::fromLocal8Bit(failure.message().c_str()));
  SyncFolder(QFileInfo(target).absolutePath());
}

void SyncFolder(const QString& folder) {
#ifdef Q_OS_UNIX
  const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
#else
  Q_UNUSED(folder);
#endif
}

}  // namespace vorlina
