#include "Staging.h"

#include <SafeWriting.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <filesystem>

#include "Crew.h"
#include "PublishError.h"
#include "SiteSwap.h"

namespace publishing {
namespace {

namespace fs = std::filesystem;

const QString ProbeName = QStringLiteral("/.vorlina-probe");

// The folder itself where the path is a link to it.
QString RealPath(const QString& path) {
  const QString real = QFileInfo(path).canonicalFilePath();
  return real.isEmpty() ? QDir::cleanPath(QFileInfo(path).absoluteFilePath()) : real;
}

bool IsPlainFile(const QString& path) {
  const QFileInfo file(path);
  return file.isFile() && !file.isSymLink();
}

// Without its journal, what was staged counts for nothing.
void Forget(const QString& staging) { QFile::remove(staging + u'/' + Manifest::FileName()); }

void Discard(const QString& staging) {
  if (staging.isEmpty() || QFileInfo(staging).isSymLink()) return;
  Forget(staging);
  QDir(staging).removeRecursively();
}

}  // namespace

MadeFolder::MadeFolder(QString path, bool italian) : path_(std::move(path)) {
  made_ = QDir().mkpath(QFileInfo(path_).path()) && QDir().mkdir(path_);
  if (!QFileInfo(path_).isDir())
    throw About(
        path_, italian,
        QStringLiteral("Impossibile creare la cartella %1. Controllare i permessi, o scegliere "
                       "un'altra cartella."),
        QStringLiteral("The folder %1 cannot be made. Check the permissions, or choose another folder."));
}

MadeFolder::~MadeFolder() {
  if (made_) QDir().rmdir(path_);
}

Staging::Staging(const QString& target, bool italian)
    : target_(RealPath(target)),
      italian_(italian),
      folder_(target_, italian),
      beside_(QFileInfo(target_).path() + QStringLiteral("/.") + QFileInfo(target_).fileName() +
              QStringLiteral(".vorlina-new")),
      inside_(target_ + QStringLiteral("/.vorlina-new")) {
  if (!lock_.TakeAlone(target_, 0))
    throw About(target_, italian_,
                QStringLiteral("Nella cartella %1 si sta già pubblicando. Attendere la fine e riprovare."),
                QStringLiteral("The folder %1 is being published into. Wait for the end and try again."));
  Recover(beside_);
  Recover(inside_);
  QDir().rmdir(QString(target_ + ProbeName));
}

const Manifest& Staging::Former() {
  if (!former_) former_ = reading_.valid() ? reading_.get() : Manifest::OfFolder(target_);
  return *former_;
}

void Staging::ReadFormer() {
  reading_ = std::async(std::launch::async, [target = target_] { return Manifest::OfFolder(target); });
}

Staging::~Staging() {
  if (!staging_.isEmpty() && !SiteSwap(target_, staging_, italian_).IsBegun()) Discard(staging_);
  for (const QString& place : left_) Discard(place);
}

void Staging::Recover(const QString& place) {
  if (!QFileInfo(place).isDir() || QFileInfo(place).isSymLink()) return;
  SiteSwap swap(target_, place, italian_);
  try {
    if (swap.IsBegun() && swap.IsOfTarget()) swap.GoOn();
  } catch (const std::runtime_error&) {
    // Taken back, it is no hindrance to what comes now.
    if (swap.IsBegun()) throw;
  }
  Forget(place);
  left_ += place;
}

// Empty where the file is no other spelling of a former one in the same folder.
QString Staging::FormerSpelling(const QString& file) const {
  const QString place = target_ + u'/' + file;
  if (!IsPlainFile(place)) return {};
  const QString folder = file.left(file.lastIndexOf(u'/') + 1);
  const auto& former = former_->entries;
  const auto found = std::find_if(former.keyBegin(), former.keyEnd(), [&](const QString& name) {
    if (!name.startsWith(folder) || name.compare(file, Qt::CaseInsensitive) != 0) return false;
    std::error_code failure;
    const QString other = target_ + u'/' + name;
    return IsPlainFile(other) && fs::equivalent(SystemPath(place), SystemPath(other), failure);
  });
  return found == former.keyEnd() ? QString() : *found;
}

void Staging::Respell(const QSet<QString>& coming) {
  // Where the list has no second name, no file has.
  if (Former().entries.isEmpty() || !IsPlainFile(target_ + u'/' + Manifest::FileName().toUpper())) return;
  auto& former = former_->entries;
  bool changed = false;
  for (const QString& file : coming) {
    const QString other = former.contains(file) ? QString() : FormerSpelling(file);
    if (other.isEmpty()) continue;
    std::error_code failure;
    fs::rename(SystemPath(target_ + u'/' + other), SystemPath(target_ + u'/' + file), failure);
    if (failure) throw CannotWrite(QString(target_ + u'/' + other), failure, italian_);
    former.insert(file, former.take(other));
    changed = true;
  }
  if (!changed || !former_->isKept) return;
  // A swap is known by the list as it lies in the folder.
  try {
    files::WriteFileSafely(target_ + u'/' + Manifest::FileName(), former_->ToText());
  } catch (const files::FileError& error) {
    throw CannotWrite(error, italian_);
  }
}

bool Staging::IsAsIn(const QString& file, const ManifestEntry& entry) const {
  return FingerprintOf(target_ + u'/' + file) == entry.file;
}

void Staging::RequireRoom(const QString& file) const {
  if (folder_.WasMade()) return;
  const QFileInfo place(target_ + u'/' + file);
  const bool taken = place.exists() || place.isSymLink();
  const auto& former = former_->entries;
  const auto isBelow = [&](const QString& name) { return name.startsWith(file + u'/'); };
  if (taken && place.isDir() && std::any_of(former.keyBegin(), former.keyEnd(), isBelow))
    throw OtherKind(place.filePath(), italian_);
  if (taken && (place.isDir() || !former.contains(file))) throw NotOurs(place.filePath(), italian_);
}

void Staging::MakeRoom(const QString& file) {
  RequireRoom(file);
  const QString folder = file.left(std::max<qsizetype>(file.lastIndexOf(u'/'), 0));
  const std::lock_guard lock(mutex_);
  if (staging_.isEmpty()) ChoosePlace();
  if (!folders_.contains(folder)) MakeFolder(folder);
}

void Staging::MakeFolder(const QString& name) {
  for (const QString& folder : Manifest::Folders({QString(name + QStringLiteral("/x"))})) {
    const QFileInfo place(target_ + u'/' + folder);
    if (place.exists() && !place.isDir())
      throw former_->entries.contains(folder) ? OtherKind(place.filePath(), italian_)
                                              : NotOurs(place.filePath(), italian_);
    const std::error_code failure = place.isDir() ? Probe(place.filePath()) : std::error_code();
    if (failure) throw CannotWrite(place.filePath(), failure, italian_);
    QDir().mkpath(SiteSwap::NewFiles(staging_) + u'/' + folder);
  }
  folders_.insert(name);
}

// Something is moved into the folder and taken away again.
std::error_code Staging::Probe(const QString& folder) const {
  const QString probe = staging_ + QStringLiteral("/probe");
  const QString place = folder + ProbeName;
  std::error_code failure;
  fs::create_directory(SystemPath(probe), failure);
  if (!failure) fs::rename(SystemPath(probe), SystemPath(place), failure);
  QDir().rmdir(failure ? probe : place);
  return failure;
}

void Staging::ChoosePlace() {
  std::error_code failure;
  for (const QString& place : {beside_, inside_}) {
    if (QFileInfo(place).isSymLink()) continue;
    if (left_.removeOne(place)) Discard(place);
    staging_ = place;
    failure.clear();
    fs::create_directories(SystemPath(SiteSwap::NewFiles(staging_)), failure);
    if (!failure) failure = Probe(target_);
    if (!failure) return;
    Discard(staging_);
  }
  throw CannotWrite(target_, failure, italian_);
}

// Has a file written where it is staged; what fails is told of the place that it is for.
template <typename Writing>
auto Staging::Told(const QString& file, const Writing& write) const {
  try {
    return write(QString(SiteSwap::NewFiles(staging_) + u'/' + file));
  } catch (const files::FileError& error) {
    const QString place = target_ + u'/' + file;
    throw CannotWrite(files::FileError(error.What(), place, error.Cause(), error.Reason()), italian_);
  }
}

ManifestEntry Staging::Write(const QString& file, std::string_view content, const QByteArray& input) const {
  const auto size = qint64(content.size());
  Told(file, [&](const QString& staged) {
    files::WriteStagedFile(staged, [&](QIODevice& out) { return out.write(content.data(), size) == size; });
  });
  return {input, FingerprintOf(content)};
}

ManifestEntry Staging::Copy(const QString& file, const QString& source, const QByteArray& input) const {
  return Told(file, [&](const QString& staged) -> ManifestEntry {
    const bool copied = files::CopyStagedFile(source, staged) == files::StagedCopy::Made;
    const auto content = copied ? FingerprintOf(staged) : std::nullopt;
    if (!content)
      throw About(source, italian_, QStringLiteral("Impossibile copiare %1: non c'è, o non si può leggere."),
                  QStringLiteral("%1 cannot be copied: it is not there, or cannot be read."));
    return {input, *content};
  });
}

// A folder that was made for this site gets it in one step. Whoever comes in between finds it held.
bool Staging::SwapWhole(const Manifest& coming) {
  const QString site = SiteSwap::NewFiles(staging_);
  if (!folder_.WasMade() || staging_ != beside_) return false;
  files::FolderLock lock;
  std::error_code failure;
  if (!lock.TakeAlone(site, 0) || !WriteSynced(site + u'/' + Manifest::FileName(), coming.ToText()))
    return false;
  fs::rename(SystemPath(site), SystemPath(target_), failure);
  if (failure) QFile::remove(site + u'/' + Manifest::FileName());
  if (failure) return false;
  Discard(staging_);
  staging_.clear();
  return true;
}

QStringList Staging::Swap(const Manifest& coming) {
  if (staging_.isEmpty()) ChoosePlace();
  if (SwapWhole(coming)) return {};
  SiteSwap swap(target_, staging_, italian_);
  swap.Begin(Former(), coming);
  return swap.Run(Former(), coming);
}

void Staging::Clear(const std::function<void(int, int)>& report) {
  QStringList places = left_;
  if (!staging_.isEmpty() && !SiteSwap(target_, staging_, italian_).IsBegun()) places += staging_;
  QStringList files;
  for (const QString& place : places) {
    QDirIterator entries(place, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (entries.hasNext()) files += entries.next();
  }
  if (files.isEmpty()) return;
  const auto begin = [&files]() -> Work {
    return [&files](std::size_t i) { QFile::remove(files.at(qsizetype(i))); };
  };
  // They go in any case: a wish to stop comes too late.
  DoTogether(std::size_t(files.size()), begin, [&](int done) {
    report(done, int(files.size()));
    return true;
  });
}

}  // namespace publishing
