#include "FolderLock.h"

#include <QFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace publishing {

#ifdef Q_OS_UNIX

// A folder that took the place of the one that was opened has a lock of its own.
bool FolderLock::Take(const QString& folder) {
  const QByteArray path = QFile::encodeName(folder);
  for (int i = 0; i < 10; ++i) {
    Release();
    descriptor_ = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor_ < 0) return true;  // whoever writes there tells what is wrong with it
    if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
      Release();
      return false;
    }
    struct stat opened {};
    struct stat there {};
    if (::fstat(descriptor_, &opened) == 0 && ::stat(path.constData(), &there) == 0 &&
        opened.st_ino == there.st_ino && opened.st_dev == there.st_dev)
      return true;
  }
  return false;
}

void FolderLock::Release() noexcept {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
}

#else

bool FolderLock::Take(const QString&) { return true; }
void FolderLock::Release() noexcept {}

#endif

}  // namespace publishing
