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
  return name.isEmpty() ? QStringLiteral("Skin") : name;
}

}  // namespace

QString CurrentSkin(const VorlinaHost& host) {
  const QString own = host.applicationFolder + SkinsFolder;
  QString chosen = own + u'/' + ChosenName(own);
  if (QFileInfo(chosen).isDir()) return chosen;
  const QString standard = own + u'/' + StandardSkin;
  return QFileInfo(standard).isDir() ? standard : host.deliveredFolder + SkinsFolder + u'/' + StandardSkin;
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
  const Skin check(unpacked, italian);
  QString name = NameOf(archive);
  const QString target = skins + u'/' + name;
  const QString former = temporary.path() + QStringLiteral("/former");
  const bool replaces = QFileInfo::exists(target);
  if (replaces && !QDir().rename(target, former)) throw std::runtime_error("rename failed");
  if (!QDir().rename(unpacked, target)) {
    if (replaces) QDir().rename(former, target);
    throw std::runtime_error("rename failed");
  }
  Choose(skins, name);
  return name;
}

}  // namespace vlhtml
