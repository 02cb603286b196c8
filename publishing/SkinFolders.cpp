#include "SkinFolders.h"

#include <FolderLock.h>
#include <SafeWriting.h>
#include <ZipReader.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <cerrno>
#include <stdexcept>

#include "PublishError.h"

namespace publishing {
namespace {

const QString StandardSkin = QStringLiteral("Standard");
// In the folder of an installation: what is replaced, under its own name.
const QString FormerSkin = QStringLiteral("/former");

QString SkinsIn(const QString& folder, const SkinKind& kind) {
  return folder + QStringLiteral("/PubWiz/%1/Skins").arg(kind.plugin);
}

QString ChosenName(const QString& skins) {
  QFile file(skins + QStringLiteral("/current.txt"));
  if (!file.open(QIODevice::ReadOnly)) return StandardSkin;
  const QString name = QString::fromUtf8(file.readAll()).trimmed();
  return name.contains(u'/') || name.contains(u'\\') || name.startsWith(u'.') || name.isEmpty() ? StandardSkin
                                                                                                : name;
}

void MakeFolder(const QString& folder, bool italian) {
  try {
    files::MakeFolder(folder);
  } catch (const files::FileError& error) {
    throw CannotWrite(error, italian);
  }
}

void Choose(const QString& skins, const QString& name, bool italian) {
  MakeFolder(skins, italian);
  try {
    files::WriteFileSafely(skins + QStringLiteral("/current.txt"), name.toUtf8() + '\n');
  } catch (const files::FileError& error) {
    throw CannotWrite(error, italian);
  }
}

// The archive's name as a folder's name.
QString NameOf(const QString& archive) {
  QString name;
  for (const QChar c : QFileInfo(archive).completeBaseName())
    name += c.unicode() < 128 && (c.isLetterOrNumber() || c == u'-' || c == u'_') ? c : QChar(u'_');
  name.truncate(40);
  if (name.isEmpty()) return QStringLiteral("Skin");
  // A changed copy is often packed under the name that it was copied from.
  return name.compare(StandardSkin, Qt::CaseInsensitive) == 0 ? name + QStringLiteral("-2") : name;
}

QString FolderOf(const QString& name, const SkinKind& kind, const VorlinaHost& host) {
  const QString own = SkinsIn(host.applicationFolder, kind) + u'/' + name;
  return QFileInfo(own).isDir() || name != StandardSkin ? own
                                                        : SkinsIn(host.deliveredFolder, kind) + u'/' + name;
}

void Move(const QString& from, const QString& to, bool italian) {
  if (QDir().rename(from, to)) return;
  const QString text = italian ? QStringLiteral(
                                     "Impossibile spostare la cartella %1. Chiudere i programmi che "
                                     "la usano e controllare i permessi.")
                               : QStringLiteral(
                                     "The folder %1 cannot be moved. Close the programs that use it "
                                     "and check its permissions.");
  throw std::runtime_error(text.arg(QDir::toNativeSeparators(from)).toStdString());
}

[[noreturn]] void RefuseArchive(bool italian, const QString& inItalian, const QString& inEnglish) {
  const QString text = italian
                           ? QStringLiteral("L'archivio della skin non può essere usato: %1").arg(inItalian)
                           : QStringLiteral("The skin archive cannot be used: %1").arg(inEnglish);
  throw std::runtime_error(text.toStdString());
}

void RefuseArchive(bool italian, files::ZipFault fault, const QString& told) {
  using files::ZipFault;
  const QString name = told.left(250).simplified();  // or the box could be higher than any screen
  switch (fault) {
    case ZipFault::NoFile:
    case ZipFault::Unreadable:
    case ZipFault::NoArchive:
      RefuseArchive(italian, QStringLiteral("non è un archivio zip"), QStringLiteral("it is no zip archive"));
    case ZipFault::Damaged:
      RefuseArchive(italian, QStringLiteral("è danneggiato"), QStringLiteral("it is damaged"));
    case ZipFault::TooManyFiles:
      RefuseArchive(italian, QStringLiteral("contiene troppi file"),
                    QStringLiteral("it holds too many files"));
    case ZipFault::TooLarge:
      RefuseArchive(italian, QStringLiteral("è troppo grande"), QStringLiteral("it is too large"));
    case ZipFault::Twin:
      RefuseArchive(italian, QStringLiteral("il nome \"%1\" c'è due volte").arg(name),
                    QStringLiteral("the name \"%1\" is there twice").arg(name));
    case ZipFault::NoText:
    case ZipFault::SpecialFile:
    case ZipFault::BadName:
      break;
  }
  RefuseArchive(italian, QStringLiteral("il nome \"%1\" non è ammesso").arg(name),
                QStringLiteral("the name \"%1\" is not allowed").arg(name));
}

// What the systems of those who pack put beside the files.
bool IsOfTheSystem(const QString& part) {
  return part == u"__MACOSX" || part.startsWith(u"._") || part == u".DS_Store" || part == u"Thumbs.db" ||
         part == u"desktop.ini";
}

// Writes a file of an archive into the folder that it is unpacked to. What is hidden would be no part of a
// site, which who packed it is to know.
void TakeFile(files::ZipEntry& entry, const QString& folder, bool italian) {
  const QStringList parts = entry.name.split(u'/');
  if (std::any_of(parts.begin(), parts.end(), IsOfTheSystem)) return;
  if (std::any_of(parts.begin(), parts.end(), [](const QString& part) { return part.startsWith(u'.'); }))
    RefuseArchive(italian, files::ZipFault::BadName, entry.name);
  const QString path = folder + u'/' + entry.name;
  files::MakeFolder(QFileInfo(path).path());
  files::WriteStagedFile(path, [&](QIODevice& file) {
    bool written = true;
    for (QByteArray piece = entry.nextPiece(); written && !piece.isEmpty(); piece = entry.nextPiece())
      written = file.write(piece) == piece.size();
    return written;
  });
}

// Many tools pack the folder itself: then its content is the skin.
void LiftSingleFolder(const QString& folder) {
  const QStringList inside = QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
  if (inside.size() != 1 || !QFileInfo(folder + u'/' + inside[0]).isDir()) return;
  const QString aside = folder + QStringLiteral("-lifted");
  if (QDir().rename(folder + u'/' + inside[0], aside) && QDir().rmdir(folder)) QDir().rename(aside, folder);
}

void Unpack(const QString& archive, const QString& folder, bool italian) {
  try {
    files::MakeFolder(folder);
    files::ReadZip(
        archive, files::ForeignZip,
        [&](files::ZipFault fault, const QString& about) { RefuseArchive(italian, fault, about); },
        [&](files::ZipEntry& entry) { TakeFile(entry, folder, italian); });
  } catch (const files::FileError& error) {
    throw CannotWrite(error, italian);
  }
  LiftSingleFolder(folder);
}

const QString Unfinished = QStringLiteral(".new-");

QStringList UnfinishedIn(const QString& skins) {
  return QDir(skins).entryList({Unfinished + u'*'}, QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
}

// A skin whose installation was killed between its two moves comes back, and what was unpacked goes.
void TakeBackUnfinished(const QString& skins) {
  for (const QString& name : UnfinishedIn(skins)) {
    const QDir former(skins + u'/' + name + FormerSkin);
    for (const QString& skin : former.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
      if (!QFileInfo::exists(skins + u'/' + skin) &&
          !QDir().rename(former.filePath(skin), skins + u'/' + skin))
        return;
    QDir(skins + u'/' + name).removeRecursively();
  }
}

// Not while one is being installed.
void LookForUnfinished(const QString& skins) {
  files::FolderLock lock;
  if (!UnfinishedIn(skins).isEmpty() && lock.TakeAlone(skins, 0)) TakeBackUnfinished(skins);
}

}  // namespace

QString CurrentSkin(const SkinKind& kind, const VorlinaHost& host) {
  LookForUnfinished(SkinsIn(host.applicationFolder, kind));
  const QString chosen = FolderOf(ChosenName(SkinsIn(host.applicationFolder, kind)), kind, host);
  return QFileInfo(chosen).isDir() ? chosen : FolderOf(StandardSkin, kind, host);
}

QStringList Skins(const SkinKind& kind, const VorlinaHost& host) {
  LookForUnfinished(SkinsIn(host.applicationFolder, kind));
  QStringList names = QDir(SkinsIn(host.applicationFolder, kind))
                          .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
  names.removeAll(StandardSkin);
  names.prepend(StandardSkin);
  return names;
}

void UseSkin(const QString& name, const SkinKind& kind, const VorlinaHost& host) {
  const bool italian = host.language == u"Italian";
  const Skin check(FolderOf(name, kind, host), kind, italian);
  Choose(SkinsIn(host.applicationFolder, kind), name, italian);
}

QString InstallSkinArchive(const QString& archive, const SkinKind& kind, const VorlinaHost& host) {
  const bool italian = host.language == u"Italian";
  const QString skins = SkinsIn(host.applicationFolder, kind);
  MakeFolder(skins, italian);
  files::FolderLock lock;
  if (!lock.TakeAlone(skins, 0))
    throw About(
        skins, italian,
        QStringLiteral("Nella cartella %1 si sta già installando una skin. Attendere la fine e "
                       "riprovare."),
        QStringLiteral("A skin is being installed in the folder %1. Wait for the end and try again."));
  TakeBackUnfinished(skins);
  // Unpacked and checked on the same file system, so that it gets its place by a rename.
  errno = 0;
  const QTemporaryDir temporary(skins + u'/' + Unfinished + QStringLiteral("XXXXXX"));
  if (!temporary.isValid())
    throw CannotWrite(
        files::FileError(files::FileError::Fault::NoFolder, skins, errno, temporary.errorString()), italian);
  const QString unpacked = temporary.path() + QStringLiteral("/skin");
  Unpack(archive, unpacked, italian);
  Skin(unpacked, kind, italian).StaticFiles();
  QString name = NameOf(archive);
  const QString target = skins + u'/' + name;
  const QString former = temporary.path() + FormerSkin + u'/' + name;
  const bool replaces = QFileInfo::exists(target);
  if (replaces) {
    MakeFolder(QFileInfo(former).path(), italian);
    Move(target, former, italian);
  }
  try {
    Move(unpacked, target, italian);
  } catch (...) {
    if (replaces) QDir().rename(former, target);
    throw;
  }
  Choose(skins, name, italian);
  return name;
}

}  // namespace publishing
