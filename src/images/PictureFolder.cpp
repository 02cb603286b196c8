#include "images/PictureFolder.h"

#include <QDir>
#include <QFileInfo>
#include <filesystem>
#include <system_error>

#include "base/AppPath.h"
#include "base/Helpers.h"

namespace vorlina {

PictureFolder::PictureFolder() : PictureFolder(AppFile(u"Images"_qs)) {}

PictureFolder::PictureFolder(const QString& folder) : folder_(keys_.FolderOf(folder + u'/')) {}

QString PictureFolder::NameOf(const QString& path) {
  const QString clean = QDir::fromNativeSeparators(path);
  QString name = clean.mid(clean.lastIndexOf(u'/') + 1);
  if (name.isEmpty() || name == u"." || name == u"..") return {};
  const QString folder = keys_.FolderOf(path);
  if (folder == folder_) return name;
  if (!folder.startsWith(folder_ + u'/')) return {};
  return folder.mid(folder_.size() + 1) + u'/' + name;
}

QString PicturePath(const QString& name) { return AppFile(u"Images/"_qs + name); }

QString CatalogPrefix(int IDCatalogo) { return QString::number(IDCatalogo) + u'-'; }

QString MainImagePath(int IDCatalogo, const QString& CodiceProdotto) {
  return PicturePath(CatalogPrefix(IDCatalogo) + CodiceProdotto + u".jpg"_qs);
}

QString AdditionalImagePath(qint64 IDImmagine) {
  return PicturePath(QString::number(IDImmagine) + u".jpg"_qs);
}

QString ProfilePicturePath(int IDCatalogo, const QString& mark) {
  return PicturePath(u"profile-"_qs + CatalogPrefix(IDCatalogo) + mark + u".jpg"_qs);
}

QString LogoPath(int IDCatalogo) { return PicturePath(CatalogPrefix(IDCatalogo) + u"Logo.jpg"_qs); }

QString ThumbnailName(const QString& mainImage) { return u't' + FileNameOf(mainImage, true); }

QString ThumbnailPath(const QString& mainImage) { return PicturePath(ThumbnailName(mainImage)); }

QString StagedPath(const QString& path) { return path + u".staged"_qs; }

bool IsPictureFile(const QString& path) {
  return QFileInfo(path).isFile() && !IsSameFile(path, AppFile(u"Catalog.db"_qs));
}

bool IsSameFile(const QString& a, const QString& b) {
  std::error_code failure;
  return std::filesystem::equivalent(QFileInfo(a).filesystemFilePath(), QFileInfo(b).filesystemFilePath(),
                                     failure);
}

}  // namespace vorlina
