#include "catalogs/AutomaticBackup.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include "base/AppPath.h"
#include "base/Dialogs.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "catalogs/BackupManifest.h"
#include "catalogs/BackupPlace.h"
#include "files/FolderLock.h"
#include "images/PictureFolder.h"
#include "store/CatalogDatabase.h"

namespace vorlina {
namespace {

constexpr std::size_t MostCopies = 10;
constexpr int WaitForOthers = 2000;  // milliseconds

// The names are the same in every language, since they also say when and why.
const QString Beginning = QStringLiteral("Catalog ");
const QString DateFormat = QStringLiteral("yyyy-MM-dd HH.mm.ss.zzz");

struct ReasonText {
  const char16_t* name;
  const char* text;
};

// By BackupReason.
const ReasonText Reasons[] = {{u"deletion", QT_TRANSLATE_NOOP("Texts", "eliminazione di un catalogo")},
                              {u"restore", QT_TRANSLATE_NOOP("Texts", "ripristino")},
                              {u"import", QT_TRANSLATE_NOOP("Texts", "importazione di immagini")}};

QString ReasonShown(const QString& name) {
  for (const ReasonText& reason : Reasons)
    if (name == reason.name) return Texts::tr(reason.text);
  return name;
}

QString FreeName(const QDir& folder, BackupReason reason) {
  const QString ending = u" before "_qs + QString::fromUtf16(Reasons[int(reason)].name) + u".db"_qs;
  for (QDateTime made = QDateTime::currentDateTime();; made = made.addMSecs(1)) {
    QString path = folder.filePath(Beginning + made.toString(DateFormat) + ending);
    if (!QFileInfo::exists(path) && !QFileInfo(path).isSymLink()) return path;
  }
}

// The new one stays also where the clock was set back, so that its name is the oldest.
void RemoveOldest(const QString& added, const QString& spared) {
  std::size_t kept = 1;
  for (const AutomaticBackup& copy : AutomaticBackups())
    if (copy.file != QDir::toNativeSeparators(added) && ++kept > MostCopies && !IsSameFile(copy.file, spared))
      QFile::remove(copy.file);
}

// An empty or foreign file would only push out a copy that is worth something.
QString CopyInto(const QDir& folder, BackupReason reason, const QString& spared) {
  const BackupStaging staging(FreeName(folder, reason));
  CopyDatabase(AppFile(DatabaseName), staging.Database());
  if (!IsOwnDatabase(staging.Database())) return {};
  // One after the other: two programs must not take the same name, nor count while the other one removes.
  files::FolderLock hold;
  if (!hold.TakeAlone(folder.path(), WaitForOthers))
    throw Error(Texts::tr("La cartella %1 è in uso da un altro programma.")
                    .arg(QDir::toNativeSeparators(folder.path())));
  const QString path = FreeName(folder, reason);
  MoveFileSafely(staging.Database(), path);
  RemoveOldest(path, spared);
  return QDir::toNativeSeparators(path);
}

}  // namespace

QString KeepAutomaticBackup(BackupReason reason, const QString& spared) {
  if (!QFileInfo::exists(AppFile(DatabaseName))) return {};
  const QDir folder(AppFile(u"Backups"_qs));
  try {
    MakeFolder(folder.path());
    return CopyInto(folder, reason, spared);
  } catch (const DiskFullError& full) {
    throw DiskFullError(folder.path(), full.Cause());
  }
}

bool KeepAutomaticBackupOrAsk(BackupReason reason, QWidget* owner) {
  QString why;
  try {
    const WaitCursor wait;
    KeepAutomaticBackup(reason);
    return true;
  } catch (const std::exception& error) {
    why = DescriptionOf(error);
  }
  return TheDialogs().Ask(owner, WithoutCopyQuestion(why), BoxStyle::QuestionNoFirst);
}

QString WithoutCopyQuestion(const QString& why) {
  return Texts::tr("Non è stato possibile tenere prima una copia automatica del database.") + u"\r\n"_qs +
         why + u"\r\n\r\n"_qs + Texts::tr("Continuare senza?");
}

std::vector<AutomaticBackup> AutomaticBackups() {
  static const QRegularExpression form(
      u"^%1(\\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d\\.\\d{3}) before "
      "([a-z]+)\\.db$"_qs.arg(Beginning));
  std::vector<AutomaticBackup> copies;
  const QFileInfoList files =
      QDir(AppFile(u"Backups"_qs)).entryInfoList(QDir::Files | QDir::NoSymLinks, QDir::Name | QDir::Reversed);
  for (const QFileInfo& file : files)
    if (const QRegularExpressionMatch parts = form.match(file.fileName()); parts.hasMatch())
      copies.push_back({QDir::toNativeSeparators(file.filePath()),
                        QDateTime::fromString(parts.captured(1), DateFormat), ReasonShown(parts.captured(2)),
                        file.size()});
  return copies;
}

}  // namespace vorlina
