#include "FolderLock.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace files {

#ifdef Q_OS_UNIX

namespace {

// A folder that took the place of the one that was opened has a lock of its own.
bool IsStillAt(const QByteArray& path, int descriptor) {
  struct stat opened {};
  struct stat there {};
  return ::fstat(descriptor, &opened) == 0 && ::stat(path.constData(), &there) == 0 &&
         opened.st_ino == there.st_ino && opened.st_dev == there.st_dev;
}

}  // namespace

bool FolderLock::Share(const QString& folder, int milliseconds) {
  return Take(folder, LOCK_SH, milliseconds);
}

bool FolderLock::TakeAlone(const QString& folder, int milliseconds) {
  return Take(folder, LOCK_EX, milliseconds);
}

bool FolderLock::Take(const QString& folder, int operation, int milliseconds) {
  const QByteArray path = QFile::encodeName(folder);
  QElapsedTimer waited;
  waited.start();
  for (int replaced = 0; replaced < 10;) {
    Release();
    descriptor_ = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor_ < 0) return true;  // whoever works there tells what is wrong with it
    if (::flock(descriptor_, operation | LOCK_NB) == 0) {
      held_ = IsStillAt(path, descriptor_);
      if (held_) return true;
      ++replaced;
      continue;
    }
    // A file system without locks must not keep anybody from working.
    if (errno != EWOULDBLOCK && errno != EINTR) return true;
    if (waited.elapsed() >= milliseconds) break;
    QThread::msleep(20);
  }
  Release();
  return false;
}

void FolderLock::Release() noexcept {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
  held_ = false;
}

#else

bool FolderLock::Share(const QString&, int) { return true; }
bool FolderLock::TakeAlone(const QString&, int) { return true; }
bool FolderLock::Take(const QString&, int, int) { return true; }
void FolderLock::Release() noexcept {}

#endif

}  // namespace files
