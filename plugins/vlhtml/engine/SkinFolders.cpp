#include "SkinFolders.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryDir>
#include <stdexcept>

#include "Skin.h"
#include "SkinArchive.h"

namespace vlhtml {
namespace {

const QString SkinsFolder = QStringLiteral("/PubWiz/VLHTML.HTML/Skins");
const QString StandardSkin = QStringLiteral("Standard");

QString ChosenName(const QString& skins) {
  QFile file(skins + QStringLiteral("/current.txt"));
  if (!file.open(QIODevice::ReadOnly)) return StandardSkin;
  const QString name = QString::fromUtf8(file.readAll()).trimmed();
  return name.contains(u'/') || name.contains(u'\\') || name.startsWith(u'.') || name.isEmpty() ? StandardSkin
                                                                                                : name;
}

void Choose(const QString& skins, const QString& name) {
  QSaveFile file(skins + QStringLiteral("/current.txt"));
  const QByteArray text = name.toUtf8() + '\n';
  if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush() ||
      file.size() != text.size() || !file.commit())
    throw std::runtime_error(file.errorString().toStdString());
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

QString FolderOf(const QString& name, const VorlinaHost& host) {
  const QString own = host.applicationFolder + SkinsFolder + u'/' + name;
  return QFileInfo(own).isDir() || name != StandardSkin ? own
                                                        : host.deliveredFolder + SkinsFolder + u'/' + name;
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

}  // namespace

QString CurrentSkin(const VorlinaHost& host) {
  const QString chosen = FolderOf(ChosenName(host.applicationFolder + SkinsFolder), host);
  return QFileInfo(chosen).isDir() ? chosen : FolderOf(StandardSkin, host);
}

QStringList Skins(const VorlinaHost& host) {
  QStringList names = QDir(host.applicationFolder + SkinsFolder)
                          .entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase);
  names.removeAll(StandardSkin);
  names.prepend(StandardSkin);
  return names;
}

void UseSkin(const QString& name, const VorlinaHost& host) {
  const Skin check(FolderOf(name, host), host.language == u"Italian");
  const QString skins = host.applicationFolder + SkinsFolder;
  QDir().mkpath(skins);
  Choose(skins, name);
}

QString InstallSkinArchive(const QString& archive, const VorlinaHost& host) {
  const bool italian = host.language == u"Italian";
  const QString skins = host.applicationFolder + SkinsFolder;
  if (!QDir().mkpath(skins))
    throw std::runtime_error((italian ? QStringLiteral("Impossibile creare la cartella %1")
                                      : QStringLiteral("The folder %1 cannot be made"))
                                 .arg(QDir::toNativeSeparators(skins))
                                 .toStdString());
  // Unpacked and checked on the same file system, so that it gets its place by a rename.
  QTemporaryDir temporary(skins + QStringLiteral("/.new-XXXXXX"));
  const QString unpacked = temporary.path() + QStringLiteral("/skin");
  UnpackSkinArchive(archive, unpacked, italian);
  Skin(unpacked, italian).StaticFiles();
  QString name = NameOf(archive);
  const QString target = skins + u'/' + name;
  const QString former = temporary.path() + QStringLiteral("/former");
  const bool replaces = QFileInfo::exists(target);
  if (replaces) Move(target, former, italian);
  try {
    Move(unpacked, target, italian);
  } catch (...) {
    if (replaces) QDir().rename(former, target);
    throw;
  }
  Choose(skins, name);
  return name;
}

}  // namespace vlhtml
