#include "SiteSwap.h"

#include <SafeWriting.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <algorithm>
#include <filesystem>

#include "PublishError.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;

bool Exists(const QString& path) {
  const QFileInfo info(path);
  return info.exists() || info.isSymLink();
}

// The files below a folder, named from there.
QStringList FilesBelow(const QString& folder) {
  QStringList files;
  QDirIterator entries(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
  while (entries.hasNext()) files += entries.next().mid(folder.size() + 1);
  return files;
}

std::error_code Rename(const QString& from, const QString& to) {
  std::error_code failure;
  fs::rename(SystemPath(from), SystemPath(to), failure);
  return failure;
}

// Moves a file to a place; what is there is kept under another name. There is no moment without a file in the
// place where the file system has links, and each step can be done again.
std::error_code MoveKeeping(const QString& from, const QString& place, const QString& keep) {
  if (Exists(place) && !Exists(keep)) {
    QDir().mkpath(QFileInfo(keep).path());
    std::error_code failure;
    fs::create_hard_link(SystemPath(place), SystemPath(keep), failure);
    if (failure) failure = Rename(place, keep);
    if (failure) return failure;
  }
  return Rename(from, place);
}

}  // namespace

fs::path SystemPath(const QString& path) { return QFileInfo(path).filesystemFilePath(); }

bool WriteSynced(const QString& path, const QByteArray& bytes) {
  try {
    files::WriteFileSafely(path, bytes);
    return true;
  } catch (const files::FileError&) {
    return false;
  }
}

SiteSwap::SiteSwap(QString target, QString staging, bool italian)
    : target_(std::move(target)),
      staging_(std::move(staging)),
      new_(NewFiles(staging_)),
      old_(staging_ + QStringLiteral("/old")),
      italian_(italian) {}

bool SiteSwap::IsBegun() const { return Manifest::Read(staging_ + u'/' + Manifest::FileName()).has_value(); }

// The target's own list is replaced last. Where there was none, the new files that have their places already
// tell the folder; without any of them nothing was changed.
bool SiteSwap::IsOfTarget() const {
  const auto former = Manifest::Read(staging_ + QStringLiteral("/former.txt"));
  const auto coming = Manifest::Read(staging_ + u'/' + Manifest::FileName());
  if (!former || !coming) return false;
  const auto list = Manifest::Read(target_ + u'/' + Manifest::FileName());
  const bool hadList = !std::all_of(former->entries.begin(), former->entries.end(),
                                    [](const ManifestEntry& entry) { return entry.IsLeftOver(); });
  if (list || hadList) return list && list->ToText() == former->ToText();
  bool moved = false;
  for (auto entry = coming->entries.cbegin(); entry != coming->entries.cend(); ++entry) {
    if (entry->IsLeftOver() || Exists(new_ + u'/' + entry.key())) continue;
    if (FingerprintOf(QString(target_ + u'/' + entry.key())) != entry->file) return false;
    moved = true;
  }
  return moved;
}

// The list of the former site is kept by a link where it lies in the folder as it was read.
bool SiteSwap::KeepList(const Manifest& former) const {
  const QString kept = staging_ + QStringLiteral("/former.txt");
  std::error_code failure;
  if (former.isKept)
    fs::create_hard_link(SystemPath(target_ + u'/' + Manifest::FileName()), SystemPath(kept), failure);
  return (former.isKept && !failure) || WriteSynced(kept, former.ToText());
}

void SiteSwap::Begin(const Manifest& former, const Manifest& coming) {
  if (!KeepList(former) || !WriteSynced(staging_ + u'/' + Manifest::FileName(), coming.ToText()))
    throw CannotWrite(staging_, std::make_error_code(std::errc::no_space_on_device), italian_);
}

void SiteSwap::GoOn() {
  Run(Manifest::Read(staging_ + QStringLiteral("/former.txt")).value_or(Manifest()),
      Manifest::Read(staging_ + u'/' + Manifest::FileName()).value_or(Manifest()));
}

QStringList SiteSwap::Run(const Manifest& former, const Manifest& coming) {
  try {
    return Forward(former, coming);
  } catch (const std::exception&) {
    Back(former, coming);
    throw;
  }
}

void SiteSwap::Replace(const QString& file, const Manifest& former) {
  const QString place = target_ + u'/' + file;
  // A file that came into the folder meanwhile is somebody else's.
  if (!former.entries.contains(file) && Exists(place)) throw NotOurs(place, italian_);
  QDir().mkpath(QFileInfo(place).path());
  if (const std::error_code failure = MoveKeeping(new_ + u'/' + file, place, old_ + u'/' + file))
    throw CannotWrite(place, failure, italian_);
}

QStringList SiteSwap::PutAway(const QStringList& files) {
  QStringList left;
  for (const QString& file : files) {
    const QString place = target_ + u'/' + file;
    if (!Exists(place) || QFileInfo(place).isDir()) continue;
    QDir().mkpath(QFileInfo(old_ + u'/' + file).path());
    if (Rename(place, old_ + u'/' + file)) left += file;
  }
  return left;
}

QStringList SiteSwap::Forward(const Manifest& former, Manifest coming) {
  const QString journal = staging_ + u'/' + Manifest::FileName();
  for (const QString& file : FilesBelow(new_)) Replace(file, former);
  QStringList gone;
  for (auto entry = former.entries.cbegin(); entry != former.entries.cend(); ++entry)
    if (const auto stays = coming.entries.constFind(entry.key());
        stays == coming.entries.cend() || stays->IsLeftOver())
      gone += entry.key();
  QStringList left = PutAway(gone);
  for (const QString& file : left) coming.entries.insert(file, {});
  if (!left.isEmpty() && !WriteSynced(journal, coming.ToText()))
    throw CannotWrite(staging_, std::make_error_code(std::errc::no_space_on_device), italian_);
  const QString list = target_ + u'/' + Manifest::FileName();
  if (const std::error_code failure = Rename(journal, list)) throw CannotWrite(list, failure, italian_);
  files::SyncFolder(target_);
  RemoveEmptyFolders(gone);
  return left;
}

// What was put away comes back, and what was put where nothing had been goes. A failure here leaves the swap
// begun: the next run can go on in either direction.
void SiteSwap::Back(const Manifest& former, const Manifest& coming) {
  const QStringList kept = FilesBelow(old_);
  const QStringList notMoved = FilesBelow(new_);
  for (const QString& file : kept) {
    const QString place = target_ + u'/' + file;
    if (const std::error_code failure = MoveKeeping(old_ + u'/' + file, place, new_ + u'/' + file))
      throw HalfWay(place, failure, italian_);
  }
  const QSet<QString> untouched =
      QSet<QString>(kept.begin(), kept.end()) | QSet<QString>(notMoved.begin(), notMoved.end());
  QStringList added;
  for (auto entry = coming.entries.cbegin(); entry != coming.entries.cend(); ++entry)
    if (!untouched.contains(entry.key()) && !entry->IsLeftOver() &&
        former.entries.value(entry.key()) != *entry)
      added += entry.key();
  for (const QString& file : added) {
    const QString place = target_ + u'/' + file;
    const std::error_code failure = Exists(place) ? Rename(place, new_ + u'/' + file) : std::error_code();
    if (failure) throw HalfWay(place, failure, italian_);
  }
  RemoveEmptyFolders(added);
  QFile::remove(staging_ + u'/' + Manifest::FileName());
}

// Those that had nothing but these files.
void SiteSwap::RemoveEmptyFolders(const QStringList& files) {
  const QStringList folders = Manifest::Folders(files);
  for (auto folder = folders.crbegin(); folder != folders.crend(); ++folder)
    QDir().rmdir(target_ + u'/' + *folder);
}

}  // namespace publishing
