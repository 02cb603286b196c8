#include "catalogs/RestoreSwap.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <algorithm>
#include <filesystem>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "files/FolderLock.h"

namespace vorlina {
namespace {

// All that a restore replaces. The companions of the database must go with it: a journal of the old one would
// be played into the new one.
const QStringList Entries{
    u"Catalog.db"_qs, u"Catalog.db-journal"_qs, u"Catalog.db-wal"_qs, u"Catalog.db-shm"_qs, u"Images"_qs,
    u"Layouts"_qs,    u"CardLayout.lyt"_qs};

const QString FormerName = QStringLiteral("Before restore");

// A former state while it is not known yet whether the restore succeeds.
bool IsDatedName(const QString& name) {
  static const QRegularExpression date(u"^ \\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d\\.\\d{3}$"_qs);
  return name.startsWith(FormerName) && date.match(name.mid(FormerName.size())).hasMatch();
}

constexpr int WaitForOthers = 5000;  // milliseconds

bool Exists(const QString& path) { return QFileInfo::exists(path) || QFileInfo(path).isSymLink(); }

void Rename(const QString& from, const QString& to) {
  std::error_code failure;
  std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), failure);
  if (failure)
    throw Error(Texts::tr("Impossibile spostare %1: %2")
                    .arg(QDir::toNativeSeparators(from), QString::fromLocal8Bit(failure.message().c_str())));
}

// A link goes by itself, not what it leads to.
void Remove(const QString& path) {
  const QFileInfo entry(path);
  if (entry.isSymLink() || !entry.isDir())
    QFile::remove(path);
  else
    QDir(path).removeRecursively();
}

// Whether a former state goes for one that comes: for a database alone no pictures go.
bool GoesFor(const QString& path, bool withPictures) {
  return withPictures || !Exists(QDir(path).filePath(u"Images"_qs));
}

bool HoldsOthers(const QString& path) {
  QStringList inside =
      QDir(path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
  for (const QString& entry : Entries) inside.removeAll(entry);
  return !inside.isEmpty();
}

// Removes a former state, and its folder where nothing else lies in it.
void RemoveFormer(const QString& path) {
  if (QFileInfo(path).isSymLink()) return;
  for (const QString& entry : Entries) Remove(QDir(path).filePath(entry));
  QDir().rmdir(path);
}

class Swap {
 public:
  explicit Swap(const QString& folder) : folder_(folder), staging_(StagingFolder(folder)) {}

  QString JournalPath() const { return QDir(folder_).filePath(u".restore-journal"_qs); }

  void Begin(bool databaseAlone) {
    kept_ = FormerName + u' ' + QDateTime::currentDateTime().toString(u"yyyy-MM-dd HH.mm.ss.zzz"_qs);
    for (const QString& entry : Entries) {
      if (databaseAlone && !entry.startsWith(Entries.first())) continue;
      if (Exists(In(folder_, entry))) former_ += entry;
      if (Exists(In(staging_, entry))) coming_ += entry;
    }
    WriteJournal(false);
  }

  // False when no restore was cut short.
  bool ReadJournal() {
    QFile file(JournalPath());
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QJsonObject journal = QJsonDocument::fromJson(file.readAll()).object();
    kept_ = journal.value(u"kept").toString();
    former_ = Names(journal.value(u"former"));
    coming_ = Names(journal.value(u"coming"));
    completed_ = journal.value(u"completed").toBool();
    if (kept_.isEmpty() || kept_.contains(u'/') || coming_.isEmpty())
      throw Error(Texts::tr("Il file %1 non è leggibile, quindi un ripristino interrotto non può essere "
                            "concluso. I dati sono nelle cartelle accanto.")
                      .arg(QDir::toNativeSeparators(JournalPath())));
    return true;
  }

  bool IsCompleted() const { return completed_; }

  // Each step is passed over when it was taken already, so that it may begin anew at any of them.
  void Forward() {
    if (completed_) return Clear();
    if (!former_.isEmpty()) MakeFolder(Kept());
    for (const QString& entry : former_)
      if (!Exists(In(Kept(), entry))) Rename(In(folder_, entry), In(Kept(), entry));
    for (const QString& entry : coming_)
      if (Exists(In(staging_, entry))) Rename(In(staging_, entry), In(folder_, entry));
    Sync();
    WriteJournal(true);
    Clear();
  }

  void Back() {
    for (const QString& entry : coming_)
      if (!Exists(In(staging_, entry))) Rename(In(folder_, entry), In(staging_, entry));
    for (const QString& entry : former_)
      if (Exists(In(Kept(), entry))) Rename(In(Kept(), entry), In(folder_, entry));
    Sync();
    QDir(folder_).rmdir(kept_);
    RemoveStaging();
    RemoveJournal();
  }

  // The state before the last restore goes only here, once the journal says that this one is complete. What
  // cannot be removed stays, and does no harm: the former state then keeps its dated name.
  void Clear() {
    if (Exists(Kept()) && kept_ != FormerName) {
      const bool withPictures = Exists(In(Kept(), u"Images"_qs));
      for (const QString& former : FormerFolders(folder_))
        if (former != Kept() && GoesFor(former, withPictures)) RemoveFormer(former);
      if (!Exists(FormerFolder(folder_))) QDir(folder_).rename(kept_, FormerName);
    }
    RemoveStaging();
    RemoveJournal();
  }

  // Where the former state lies once all is done.
  QString Former() const {
    if (former_.isEmpty()) return {};
    return Exists(Kept()) ? Kept() : FormerFolder(folder_);
  }

  bool HasStaging() const { return Exists(staging_); }
  // With it goes a journal that was being written.
  void RemoveStaging() {
    const QStringList unfinished =
        QDir(folder_).entryList({u".restore-journal.*"_qs}, QDir::Files | QDir::Hidden);
    for (const QString& name : unfinished) QFile::remove(In(folder_, name));
    QDir(staging_).removeRecursively();
  }

 private:
  static QString In(const QString& folder, const QString& entry) { return QDir(folder).filePath(entry); }
  static QStringList Names(const QJsonValue& value) {
    QStringList names;
    for (const QJsonValue name : value.toArray())
      if (Entries.contains(name.toString())) names += name.toString();
    return names;
  }
  QString Kept() const { return In(folder_, kept_); }

  void WriteJournal(bool completed) {
    WriteFileSafely(JournalPath(),
                    QJsonDocument(QJsonObject{{u"kept"_qs, kept_},
                                              {u"former"_qs, QJsonArray::fromStringList(former_)},
                                              {u"coming"_qs, QJsonArray::fromStringList(coming_)},
                                              {u"completed"_qs, completed}})
                        .toJson());
    completed_ = completed;
  }
  void RemoveJournal() {
    QFile::remove(JournalPath());
    SyncFolder(folder_);
  }
  void Sync() {
    for (const QString& folder : {Kept(), staging_, folder_}) SyncFolder(folder);
  }

  QString folder_;
  QString staging_;
  QString kept_;
  QStringList former_;
  QStringList coming_;
  bool completed_ = false;
};

// Forward, and back when that is not possible.
void BringToAnEnd(Swap& swap) {
  try {
    swap.Forward();
  } catch (const Error&) {
    if (!swap.IsCompleted()) swap.Back();
    throw;
  }
}

QString Completed() { return Texts::tr("Un ripristino interrotto è stato portato a termine"); }

}  // namespace

QString StagingFolder(const QString& folder) { return QDir(folder).filePath(u".restore"_qs); }

QString FormerFolder(const QString& folder) { return QDir(folder).filePath(FormerName); }

QStringList FormerFolders(const QString& folder) {
  const QDir parent(folder);
  QStringList folders;
  for (const QString& name : parent.entryList(QDir::Dirs | QDir::NoSymLinks))
    if (name == FormerName || IsDatedName(name)) folders += parent.filePath(name);
  return folders;
}

QString NextFormerFolder(const QString& folder, bool databaseAlone) {
  QString former = FormerFolder(folder);
  const bool withPictures = !databaseAlone && Exists(QDir(folder).filePath(u"Images"_qs));
  if (QFileInfo(former).isSymLink() || HoldsOthers(former) || !GoesFor(former, withPictures))
    former += u' ' + QDate::currentDate().toString(Qt::ISODate) + u"..."_qs;
  return former;
}

QString SwapIn(const QString& folder, bool databaseAlone) {
  Swap swap(folder);
  swap.Begin(databaseAlone);
  BringToAnEnd(swap);
  return swap.Former();
}

bool IsSwapPending(const QString& folder) { return Exists(Swap(folder).JournalPath()); }

QString FinishInterruptedRestore() {
  const QString folder = AppPath();
  if (!IsSwapPending(folder) && !Swap(folder).HasStaging()) return {};
  files::FolderLock hold;
  if (!hold.TakeAlone(folder, WaitForOthers)) {
    // Without a journal everything is in its place, and whoever is at work there sees to the rest.
    if (!IsSwapPending(folder)) return {};
    throw Error(Texts::tr("È in corso un ripristino dei cataloghi. Attendere che finisca e riprovare."));
  }
  return FinishInterruptedRestore(folder);
}

QString FinishInterruptedRestore(const QString& folder) {
  Swap swap(folder);
  if (!swap.ReadJournal()) {
    swap.RemoveStaging();
    return {};
  }
  BringToAnEnd(swap);
  return Completed();
}

}  // namespace vorlina
