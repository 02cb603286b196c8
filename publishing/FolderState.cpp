#include "FolderState.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>
#include <algorithm>
#include <array>
#include <chrono>
#include <cstring>
#include <string>

#include "Fingerprint.h"

#ifdef Q_OS_UNIX
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#endif

namespace publishing {
namespace {

FileTime youngFor = UsuallyYoungFor;

FileState StateFrom(std::string_view path, const std::array<std::int64_t, 6>& numbers, FileTime time) {
  FileState state;
  state.name = Fingerprint(path);
  std::array<std::uint64_t, 7> all{state.name};
  std::memcpy(&all[1], numbers.data(), sizeof numbers);
  state.state = Fingerprint({reinterpret_cast<const char*>(all.data()), sizeof all});
  state.time = time;
  return state;
}

#ifdef Q_OS_UNIX

constexpr std::size_t DeepestPath = 2000;  // links can lead in circles

constexpr FileTime Nanoseconds(const timespec& time) { return time.tv_sec * 1'000'000'000 + time.tv_nsec; }

FileState StateFrom(std::string_view path, const struct stat& file) {
  const FileTime written = Nanoseconds(file.st_mtim);
  const FileTime changed = Nanoseconds(file.st_ctim);
  return StateFrom(path,
                   {file.st_size, written, changed, std::int64_t(file.st_ino), std::int64_t(file.st_dev),
                    std::int64_t(file.st_mode)},
                   std::max(written, changed));
}

// A link is what it leads to.
bool StatOf(int folder, const char* name, struct stat& file) {
  return ::fstatat(folder, name, &file, 0) == 0 || ::fstatat(folder, name, &file, AT_SYMLINK_NOFOLLOW) == 0;
}

bool StatesOf(const QByteArray& folder, std::string prefix, bool deep, const TakeState& take) {
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.constData()), ::closedir);
  if (!entries) return errno == ENOENT;
  const std::size_t length = prefix.size();
  while (const dirent* entry = ::readdir(entries.get())) {
    if (entry->d_type == DT_DIR && !deep) continue;
    struct stat file {};
    if (!StatOf(::dirfd(entries.get()), entry->d_name, file)) return false;
    const std::string_view name = entry->d_name;
    prefix.resize(length);
    prefix += name;
    const bool isBelow = S_ISDIR(file.st_mode) && name != "." && name != "..";
    if (!S_ISDIR(file.st_mode))
      take(StateFrom(prefix, file), prefix);
    else if (isBelow && deep &&
             (prefix.size() > DeepestPath ||
              !StatesOf(folder + '/' + entry->d_name, prefix + '/', true, take)))
      return false;
  }
  return true;
}

#else

FileState StateFrom(std::string_view path, const QFileInfo& file) {
  const FileTime written = file.lastModified().toMSecsSinceEpoch() * 1'000'000;
  const FileTime changed = file.metadataChangeTime().toMSecsSinceEpoch() * 1'000'000;
  return StateFrom(path, {file.size(), written, changed, 0, 0, 0}, std::max(written, changed));
}

bool StatesOf(const QByteArray& folder, const std::string& prefix, bool deep, const TakeState& take) {
  const QDir path(QFile::decodeName(folder));
  if (!path.exists()) return true;
  QDirIterator entries(path.path(), QDir::Files | QDir::Hidden | QDir::System,
                       deep ? QDirIterator::Subdirectories : QDirIterator::NoIteratorFlags);
  while (entries.hasNext()) {
    const std::string name = prefix + path.relativeFilePath(entries.next()).toStdString();
    take(StateFrom(name, entries.fileInfo()), name);
  }
  return true;
}

#endif

}  // namespace

FileTime Now() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(
             std::chrono::system_clock::now().time_since_epoch())
      .count();
}

bool StateOf(const QString& folder, const QString& file, FileState& state) {
  const QString path = folder + u'/' + file;
#ifdef Q_OS_UNIX
  struct stat found {};
  if (!StatOf(AT_FDCWD, QFile::encodeName(path).constData(), found)) return false;
#else
  const QFileInfo found(path);
  if (!found.exists()) return false;
#endif
  state = StateFrom(file.toStdString(), found);
  return true;
}

bool StatesIn(const QString& folder, const QStringList& below, const TakeState& take) {
  bool read = StatesOf(QFile::encodeName(folder), {}, false, take);
  for (const QString& name : below)
    read = read &&
           StatesOf(QFile::encodeName(QString(folder + u'/' + name)), name.toStdString() + '/', false, take);
  return read;
}

bool StatesBelow(const QString& folder, const TakeState& take) {
  return StatesOf(QFile::encodeName(folder), {}, true, take);
}

FileTime LastProven(FileTime looked) { return looked - youngFor; }

void SetYoungFor(FileTime time) { youngFor = time; }

QByteArray StartOfComputer() { return QSysInfo::bootUniqueId(); }

}  // namespace publishing
