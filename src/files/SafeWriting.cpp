#include "SafeWriting.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <QThread>
#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_LINUX
#include <linux/fs.h>
#include <sys/ioctl.h>
#endif
#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#else
#include <io.h>
#endif

namespace files {
namespace {

using Fault = FileError::Fault;

[[noreturn]] void FailReading(const QFile& file) {
  throw FileError(Fault::NotRead, file.fileName(), 0, file.errorString());
}

[[noreturn]] void FailWriting(const QString& path, int cause, const QString& reason = {}) {
  throw FileError(Fault::NotWritten, path, cause, reason);
}

// Why, as far as the file knows: of a write that succeeded in part it knows nothing.
QString ReasonOf(const QFileDevice& file) {
  return file.error() == QFileDevice::NoError ? QString() : file.errorString();
}

#ifndef Q_OS_LINUX
bool SyncFile(QFile& file) {
#ifdef Q_OS_WIN
  return ::_commit(file.handle()) == 0;
#else
  return ::fsync(file.handle()) == 0;
#endif
}
#endif

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

// False for devices, pipes and folders: opening a pipe waits for somebody to write into it.
bool IsFileOrMissing(const QString& path) {
  const QFileInfo file(path);
  return file.isFile() || !file.exists();
}

enum class Copied { Whole, NotRead, NotWritten };

// Lets the file share the other's content until one of them changes.
bool CopyByReference(const QFile& from, QFileDevice& to) {
#ifdef Q_OS_LINUX
  return ::ioctl(to.handle(), FICLONE, from.handle()) == 0 && to.seek(from.size());
#else
  Q_UNUSED(from)
  Q_UNUSED(to)
  return false;
#endif
}

// Copies an open file into an empty one, and checks the number of bytes.
Copied CopyContent(QFile& from, QFileDevice& to) {
  if (CopyByReference(from, to)) return Copied::Whole;
  constexpr qint64 Piece = 1 << 18;
  QByteArray buffer(Piece, Qt::Uninitialized);
  for (qint64 copied = 0;;) {
    const qint64 got = from.read(buffer.data(), Piece);
    if (got < 0 || (got == 0 && copied != from.size())) return Copied::NotRead;
    if (got == 0) return Copied::Whole;
    if (to.write(buffer.constData(), got) != got) return Copied::NotWritten;
    copied += got;
  }
}

}  // namespace

void MakeFolder(const QString& folder) {
  errno = 0;
  if (!QDir().mkpath(folder)) throw FileError(Fault::NoFolder, folder, errno);
}

void WriteFileSafely(const QString& path, const std::function<bool(QIODevice&)>& writer) {
  QSaveFile file(path);
  errno = 0;
  if (!file.open(QIODevice::WriteOnly)) FailWriting(path, errno, file.errorString());
  bool written = false;
  try {
    written = writer(file);
  } catch (...) {
    file.cancelWriting();
    throw;
  }
  // A short write shows as a file that is smaller than the position the writer reached.
  const qint64 meant = file.pos();
  const bool flushed = file.flush();
  const int cause = errno;
  if (!written || !flushed || file.error() != QFileDevice::NoError || file.size() != meant) {
    const QString reason = ReasonOf(file);
    file.cancelWriting();
    file.commit();
    FailWriting(path, cause, reason);
  }
  errno = 0;
  if (!Commit(file)) FailWriting(path, errno, file.errorString());
  SyncFolder(QFileInfo(path).absolutePath());
}

void WriteFileSafely(const QString& path, const QByteArray& bytes) {
  WriteFileSafely(path, [&](QIODevice& device) { return device.write(bytes) == bytes.size(); });
}

void CopyFileSafely(const QString& source, const QString& target) {
  QFile from(source);
  if (!IsFileOrMissing(source)) throw FileError(Fault::NoFile, source);
  if (!from.open(QIODevice::ReadOnly)) FailReading(from);
  WriteFileSafely(target, [&](QIODevice& device) {
    const Copied copied = CopyContent(from, static_cast<QFileDevice&>(device));
    if (copied == Copied::NotRead) FailReading(from);
    return copied == Copied::Whole;
  });
}

StagedCopy CopyStagedFile(const QString& source, const QString& target) {
  if (!QFileInfo::exists(source)) return StagedCopy::Missing;
  QFile from(source);
  if (!IsFileOrMissing(source) || !from.open(QIODevice::ReadOnly)) return StagedCopy::NotRead;
  Copied copied = Copied::Whole;
  bool begun = false;
  try {
    WriteStagedFile(target, [&](QIODevice& device) {
      begun = true;
      copied = CopyContent(from, static_cast<QFileDevice&>(device));
      return copied != Copied::NotWritten;
    });
  } catch (const FileError&) {
    if (begun) QFile::remove(target);
    throw;
  }
  if (copied == Copied::Whole) return StagedCopy::Made;
  QFile::remove(target);
  return StagedCopy::NotRead;
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
  if (failure) FailWriting(target, failure.value());
  SyncFolder(QFileInfo(target).absolutePath());
}

void WriteStagedFile(const QString& path, const std::function<bool(QIODevice&)>& writer) {
  constexpr auto Anew = QIODevice::WriteOnly | QIODevice::NewOnly;
  QFile file(path);
  errno = 0;
  bool isOpen = file.open(Anew);
  int refusal = errno;
  // Removing what is seldom there first would cost each of many files.
  if (!isOpen && QFile::remove(path)) {
    errno = 0;
    isOpen = file.open(Anew);
    refusal = errno;
  }
  if (!isOpen) FailWriting(path, refusal, file.errorString());
  errno = 0;
  const bool written = writer(file);
  const qint64 meant = file.pos();
  const bool flushed = file.flush();
  const int cause = errno;
  if (!written || !flushed || file.error() != QFileDevice::NoError || file.size() != meant)
    FailWriting(path, cause, ReasonOf(file));
  errno = 0;
  file.close();
  if (file.error() != QFileDevice::NoError) FailWriting(path, errno, file.errorString());
}

void SyncFiles(const QStringList& paths) {
#ifdef Q_OS_LINUX
  QSet<QString> folders;
  for (const QString& path : paths) folders.insert(QFileInfo(path).absolutePath());
  for (const QString& folder : folders) SyncVolume(folder);
#else
  for (const QString& path : paths) {
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || !SyncFile(file)) FailWriting(path, errno, file.errorString());
  }
#endif
}

void SyncVolume(const QString& folder) {
#ifdef Q_OS_LINUX
  const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool synced = descriptor >= 0 && ::syncfs(descriptor) == 0;
  const int cause = errno;
  if (descriptor >= 0) ::close(descriptor);
  if (!synced) FailWriting(folder, cause);
#else
  QDirIterator files(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (!file.open(QIODevice::ReadWrite) || !SyncFile(file))
      FailWriting(file.fileName(), errno, file.errorString());
  }
#endif
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

}  // namespace files
