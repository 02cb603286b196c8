#include "base/FolderHold.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace vorlina {

#ifdef Q_OS_UNIX

bool FolderHold::Share(const QString& folder, int milliseconds) {
  return Take(folder, LOCK_SH, milliseconds);
}

bool FolderHold::TakeAlone(const QString& folder, int milliseconds) {
  return Take(folder, LOCK_EX, milliseconds);
}

bool FolderHold::Take(const QString& folder, int operation, int milliseconds) {
  Release();
  descriptor_ = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor_ < 0)
    return true;  // the folder itself is what is wrong, and whoever opens a file there tells
  QElapsedTimer waited;
  waited.start();
  while (::flock(descriptor_, operation | LOCK_NB) != 0) {
    // A file system without locks must not keep anybody from working.
    if (errno != EWOULDBLOCK && errno != EINTR) return true;
    if (waited.elapsed() >= milliseconds) {
      Release();
      return false;
    }
    QThread::msleep(20);
  }
  held_ = true;
  return true;
}

void FolderHold::Release() noexcept {
  if (descriptor_ >= 0) ::close(descriptor_);
  descriptor_ = -1;
  held_ = false;
}

#else

bool FolderHold::Share(const QString&, int) { return true; }
bool FolderHold::TakeAlone(const QString&, int) { return true; }
bool FolderHold::Take(const QString&, int, int) { return true; }
void FolderHold::Release() noexcept {}

#endif

}  // namespace vorlina
