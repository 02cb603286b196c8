#include "publish/PluginChange.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "publish/PluginPackage.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(publish, "vorlina.publish", QtInfoMsg)

constexpr int WaitForOthers = 2000;  // milliseconds

const QString Manifest = u"manifest.json"_qs;
const QString New = u"vpk-new"_qs;
const QString Ready = u"vpk-ready"_qs;
const QString Old = u"vpk-old"_qs;

QString RecordOf(const QDir& folder, const QString& identifier) {
  return folder.filePath(identifier + u'.' + Manifest);
}

// Nothing also where it cannot be read, or is another plug-in's: it then tells nothing of what is installed.
std::optional<PackageManifest> ReadRecord(const QString& path, const QString& identifier) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  try {
    if (PackageManifest manifest = ManifestFrom(file.readAll()); manifest.identifier == identifier)
      return manifest;
    qCWarning(publish).noquote() << path << "is of another plug-in";
  } catch (const Error& error) {
    qCWarning(publish).noquote() << path << error.Description();
  }
  return {};
}

// As it came with the program, from another folder.
bool IsAsDelivered(const QString& path, const QString& name) {
  const QFileInfo delivered(DeliveredPlugin(name));
  return delivered.isFile() && delivered.canonicalFilePath() != QFileInfo(path).canonicalFilePath() &&
         !HashOf(path).isEmpty() && HashOf(path) == HashOf(delivered.filePath());
}

// A library is nobody's own work, whatever it holds.
bool IsSomebodysWork(const QString& path, const QString& name, const QString& identifier,
                     const QByteArray& expected) {
  return name != LibraryOfPlugin(identifier) && QFileInfo::exists(path) && HashOf(path) != expected &&
         !IsAsDelivered(path, name);
}

}  // namespace

QString DeliveredPlugin(const QString& name) { return DeliveredPath() + u"/PubWiz/"_qs + name; }

std::optional<PackageManifest> InstalledPackage(const QString& folder, const QString& identifier) {
  return ReadRecord(RecordOf(QDir(folder), identifier), identifier);
}

QStringList FilesToKeep(const QString& folder, const PackageManifest& manifest) {
  const QString& identifier = manifest.identifier;
  const PackageManifest former = InstalledPackage(folder, identifier).value_or(PackageManifest());
  QStringList names;
  const auto look = [&](const PackagedFile& file) {
    if (IsSomebodysWork(QDir(folder).filePath(file.name), file.name, identifier, file.hash))
      names += file.name;
  };
  for (const PackagedFile& file : former.files) look(file);
  for (const PackagedFile& file : manifest.files)
    if (former.Find(file.name) == nullptr) look(file);
  return names;
}

PluginChange::PluginChange(const QString& folder, QString identifier)
    : folder_(folder), identifier_(std::move(identifier)) {
  MakeFolder(folder);
  if (!hold_.TakeAlone(folder, WaitForOthers))
    throw Error(Texts::tr("Un altro programma sta installando un plug-in. Riprovare."));
  Resume();
}

PluginChange::~PluginChange() {
  // What cannot be taken back ends well when it is taken up again.
  if (!TakeBack()) return;
  QFile::remove(Hidden(Ready, Manifest));
  RemoveHidden();
}

QString PluginChange::Hidden(const QString& kind, const QString& name) const {
  const QString hidden = Place(u'.' + identifier_ + u'.' + kind);
  return name.isEmpty() ? hidden : hidden + u'/' + name;
}

QString PluginChange::Record() const { return RecordOf(folder_, identifier_); }

// The manifest is the last to leave the place where the new files are ready, and that of the former ones the
// last to be taken away.
void PluginChange::Resume() {
  const bool replaces = QFileInfo::exists(Hidden(Ready, Manifest));
  const bool removes = !QFileInfo::exists(Hidden(Ready)) && QFileInfo::exists(Hidden(Old));
  if (replaces) {
    const std::optional<PackageManifest> ready = ReadRecord(Hidden(Ready, Manifest), identifier_);
    if (!ready) return GoBack();
    ready_ = *ready;
  }
  if (replaces || removes) TakeOut();
  if (replaces) PutIn();
  Complete();
}

// What is ready cannot be read. Without its folder the old files would pass for those of a removal, so that
// nobody is told to delete it before they are back.
void PluginChange::GoBack() {
  if (!QFileInfo::exists(Hidden(Old)))
    throw Error(Texts::tr("L'installazione del plug-in %1 è stata interrotta e non può essere completata. "
                          "Cancellare la cartella %2 e installarlo di nuovo.")
                    .arg(identifier_, QDir::toNativeSeparators(Hidden(Ready))));
  qCWarning(publish).noquote() << Hidden(Ready) << "cannot be read: what it was to replace is put back";
  // From here on there is no way forward, even if it could be read the next time.
  WriteFileSafely(Hidden(Ready, Manifest), QByteArray());
  PutBack();
  QFile::remove(Hidden(Ready, Manifest));
  Complete();
}

void PluginChange::PutBack() {
  const QDir old(Hidden(Old));
  QStringList names;
  for (QDirIterator it(old.path(), QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
       it.hasNext();)
    names += old.relativeFilePath(it.next());
  const bool hadRecord = names.removeOne(Manifest);
  for (const QString& name : names) {
    const QString path = Place(name);
    if (IsSomebodysWork(path, name, identifier_, HashOf(old.filePath(name)))) Move(path, KeptPath(name));
    Move(old.filePath(name), path);
  }
  if (hadRecord) Move(old.filePath(Manifest), Record());
}

void PluginChange::Stage(const QString& package, const PackageManifest& verified) {
  try {
    const QString fresh = Hidden(New);
    MakeFolder(fresh + u"/files"_qs);
    const QByteArray json = JsonOf(UnpackPackage(package, fresh + u"/files"_qs));
    if (json != JsonOf(verified))
      throw Error(Texts::tr("Il file \"%1\" è cambiato mentre veniva letto. Riprovare.")
                      .arg(QDir::toNativeSeparators(package)));
    WriteStagedFile(Hidden(New, Manifest),
                    [&](QIODevice& device) { return device.write(json) == json.size(); });
    SyncVolume(fresh);
    MoveFileSafely(fresh, Hidden(Ready));
    ready_ = verified;
  } catch (const DiskFullError& full) {
    throw DiskFullError(folder_.path(), full.Cause());
  }
}

bool PluginChange::TakeOut() {
  const std::optional<PackageManifest> installed = ReadRecord(Record(), identifier_);
  if (!installed) return false;
  for (const PackagedFile& file : installed->files) GiveWay(file.name, file.hash);
  Move(Record(), Hidden(Old, Manifest));
  return true;
}

void PluginChange::PutIn() {
  for (const PackagedFile& file : ready_.files) {
    const QString source = Hidden(Ready, u"files/"_qs + file.name);
    if (!QFileInfo::exists(source)) continue;  // an interrupted change has put it in its place
    GiveWay(file.name, file.hash);
    Move(source, Place(file.name));
  }
  Move(Hidden(Ready, Manifest), Record());
}

void PluginChange::Complete() {
  moves_.clear();
  RemoveHidden();
  for (const QString& path : emptied_)
    for (QString up = path; up != folder_.path() && QDir().rmdir(up);) up = QFileInfo(up).path();
}

// The ready ones stay as long as the old files do, which alone would mean that a removal was interrupted.
void PluginChange::RemoveHidden() const {
  for (const QString& kind : {New, Old, Ready}) {
    if (QDir(Hidden(kind)).removeRecursively()) continue;
    qCWarning(publish).noquote() << "cannot remove" << Hidden(kind);
    return;
  }
}

void PluginChange::Move(const QString& from, const QString& to) {
  MakeFolder(QFileInfo(to).path());
  MoveFileSafely(from, to);
  moves_.emplace_back(from, to);
}

// Clears the place of a file. One that is as expected goes, and one on which somebody has worked is kept.
void PluginChange::GiveWay(const QString& name, const QByteArray& expected) {
  const QString path = Place(name);
  if (!QFileInfo::exists(path)) return;
  emptied_ += QFileInfo(path).path();
  Move(path, IsSomebodysWork(path, name, identifier_, expected) ? KeptPath(name) : Hidden(Old, name));
}

// Beside what is kept there from an earlier time.
QString PluginChange::KeptPath(const QString& name) const {
  for (int i = 1;; ++i) {
    const QString folder = KeptFolder + (i == 1 ? QString() : u" %1"_qs.arg(i));
    QString path = Place(identifier_ + u'/' + folder + name.sliced(identifier_.size()));
    if (!QFileInfo::exists(path)) return path;
  }
}

bool PluginChange::TakeBack() {
  try {
    for (; !moves_.empty(); moves_.pop_back()) MoveFileSafely(moves_.back().second, moves_.back().first);
  } catch (const Error& error) {
    qCWarning(publish).noquote() << error.Description();
  }
  return moves_.empty();
}

void FinishInterruptedInstallations(const QString& folder) {
  for (const QString& kind : {New, Ready, Old}) {
    const QDir::Filters filters = QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot;
    for (const QString& name : QDir(folder).entryList({u".*."_qs + kind}, filters)) {
      try {
        const PluginChange finished(folder, name.sliced(1).chopped(kind.size() + 1));
      } catch (const Error& error) {
        qCWarning(publish).noquote() << name + u':' << error.Description();
      }
    }
  }
}

}  // namespace vorlina
