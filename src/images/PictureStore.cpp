#include "images/PictureStore.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMultiHash>
#include <filesystem>
#include <system_error>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/SafeFile.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images", QtInfoMsg)

QString NameIn(const QString& path) {
  const QString clean = QDir::fromNativeSeparators(path);
  return clean.mid(clean.lastIndexOf(u'/') + 1);
}

// What has the name goes where it is no file of its own: it would be written through.
void MakeRoom(const QString& path) {
  if (!PictureFolder().Holds(path))
    throw Error(EitherLanguage(
                    u"Il file %1 non viene scritto: non si trova nella cartella \"Images\" del programma."_qs,
                    u"The file %1 is not written: it does not lie in the program's folder \"Images\"."_qs)
                    .arg(path));
  const QFileInfo file(path);
  if (file.isSymLink() || (file.exists() && !file.isFile())) QFile::remove(path);
}

void Remove(const QString& path) {
  if (!QFile::remove(path)) qCDebug(images) << "not removed" << path;
}

void RemoveUnnamed(const PictureFiles& files, Connection& connection, const ExceptProduct& except) {
  PictureFolder folder;
  QStringList ours;
  const auto take = [&](const QString& path) {
    const bool holds = folder.Holds(path);
    if (holds) ours += path;
    return holds;
  };
  for (const QString& path : files.others) take(path);
  QStringList withThumbnail;
  QStringList thumbnails;
  for (const QString& path : files.main) {
    // In a folder further down a name says nothing of the thumbnails, which all lie in "Images".
    if (!take(path) || folder.NameOf(path).contains(u'/')) continue;
    withThumbnail += path;
    thumbnails += ThumbnailPath(path);
  }
  if (ours.isEmpty()) return;
  const QSet<QString> named = NamedPictures(ours + thumbnails, connection, except);
  for (const QString& path : ours)
    if (!named.contains(path)) Remove(path);
  for (const QString& path : withThumbnail)
    if (!named.contains(path) && !named.contains(ThumbnailPath(path))) Remove(ThumbnailPath(path));
}

}  // namespace

PictureFolder::PictureFolder() : PictureFolder(AppFile(u"Images"_qs)) {}

PictureFolder::PictureFolder(const QString& folder) : folder_(keys_.FolderOf(folder + u'/')) {}

QString PictureFolder::NameOf(const QString& path) {
  QString name = NameIn(path);
  if (name.isEmpty() || name == u"." || name == u"..") return {};
  const QString folder = keys_.FolderOf(path);
  if (folder == folder_) return name;
  if (!folder.startsWith(folder_ + u'/')) return {};
  return folder.mid(folder_.size() + 1) + u'/' + name;
}

QString PicturePath(const QString& name) { return AppFile(u"Images/"_qs + name); }

QString MainImagePath(int IDCatalogo, const QString& CodiceProdotto) {
  return PicturePath(QString::number(IDCatalogo) + u'-' + CodiceProdotto + u".jpg"_qs);
}

QString ThumbnailPath(const QString& mainImage) { return PicturePath(u't' + FileNameOf(mainImage, true)); }

bool IsPictureFile(const QString& path) {
  return QFileInfo(path).isFile() && !IsSameFile(path, AppFile(u"Catalog.db"_qs));
}

void WritePicture(const QString& path, const QByteArray& jpeg) {
  MakeRoom(path);
  WriteFileSafely(path, jpeg);
}

void CopyPicture(const QString& source, const QString& target) {
  // The source may be what a link under the target's name leads to.
  const QString file = QFileInfo(target).isSymLink() ? QFileInfo(source).canonicalFilePath() : QString();
  MakeRoom(target);
  CopyFileSafely(file.isEmpty() ? source : file, target);
}

void ForEachNamedPath(Connection& connection, const ExceptProduct& except,
                      const std::function<void(const QString& path)>& tell) {
  Rows rows(connection,
            u"SELECT Immagine FROM Prodotti WHERE Immagine<>'' AND NOT (IDCatalogo=?1 AND CodiceProdotto=?2) "
            "UNION ALL SELECT Immagine FROM Immagini WHERE Immagine<>'' AND NOT (?3 AND IDCatalogo=?1 AND "
            "CodiceProdotto=?2) "
            "UNION ALL SELECT Logo FROM Cataloghi WHERE Logo<>''"_qs,
            {except.IDCatalogo, except.CodiceProdotto, except.additionalToo});
  while (rows.Next()) tell(rows.Value(0).toString());
}

bool IsSameFile(const QString& a, const QString& b) {
  std::error_code failure;
  return std::filesystem::equivalent(QFileInfo(a).filesystemFilePath(), QFileInfo(b).filesystemFilePath(),
                                     failure);
}

QSet<QString> NamedPictures(const QStringList& files, Connection& connection, const ExceptProduct& except) {
  PathKeys keys;
  QMultiHash<QString, QString> byName;
  for (const QString& file : files) byName.insert(NameIn(file).toCaseFolded(), file);
  QSet<QString> named;
  ForEachNamedPath(connection, except, [&](const QString& path) {
    const QString name = NameIn(path);
    const auto [first, last] = byName.equal_range(name.toCaseFolded());
    for (auto file = first; file != last; ++file)
      // Of two letter cases only the system can tell whether they are one file.
      if (keys.Of(path) == keys.Of(*file) && (NameIn(*file) == name || IsSameFile(path, *file)))
        named.insert(*file);
  });
  return named;
}

bool IsPictureNamed(const QString& path, Connection& connection, const ExceptProduct& except) {
  return !NamedPictures({path}, connection, except).isEmpty();
}

void RemoveUnnamedPictures(const PictureFiles& files, Connection& connection,
                           const ExceptProduct& except) noexcept {
  try {
    RemoveUnnamed(files, connection, except);
  } catch (const std::exception& error) {
    qCDebug(images) << "pictures not removed" << DescriptionOf(error);
  }
}

}  // namespace vorlina
