// The folder "Images" of the application folder in use: what lies in it, and how the files in it are named.
// Nothing else makes such a name. A path in a row is data of uncertain origin: PictureFolder tells where it
// leads.
#pragma once

#include <QString>

#include "files/PathKeys.h"

namespace vorlina {

// Tells whether paths lead into a folder of pictures, at first that of the application folder in use.
class PictureFolder {
 public:
  PictureFolder();
  explicit PictureFolder(const QString& folder);

  // The file's name below the folder, with "/" behind each folder in between; "" where the path leads
  // elsewhere, as it may through "..", or through a link of a folder.
  QString NameOf(const QString& path);
  bool Holds(const QString& path) { return !NameOf(path).isEmpty(); }
  // The key of the file, equal for every way of writing its path.
  QString KeyOf(const QString& path) { return keys_.Of(path); }

 private:
  files::PathKeys keys_;
  QString folder_;
};

// The full path of a name in "Images", with native separators.
QString PicturePath(const QString& name);
// What the names of a catalog's own files begin with: its number and a hyphen.
QString CatalogPrefix(int IDCatalogo);
// The file of a product's main image: "Images", catalog, code.
QString MainImagePath(int IDCatalogo, const QString& CodiceProdotto);
// The file of an additional image: "Images", its number.
QString AdditionalImagePath(qint64 IDImmagine);
// The file of a picture that a catalog's profile has, by a mark of its own: no product's picture, thumbnail
// or number leads to such a name.
QString ProfilePicturePath(int IDCatalogo, const QString& mark);
// The file of a catalog's logo.
QString LogoPath(int IDCatalogo);
// The name of a main image's thumbnail: "t" before the image's own.
QString ThumbnailName(const QString& mainImage);
// The thumbnail's file of a main image, wherever that lies: in the folder "Images".
QString ThumbnailPath(const QString& mainImage);

// The file beside a picture, in which lies what takes its place once the rows are stored. It ends as the
// names of files that a kill leaves behind.
QString StagedPath(const QString& path);

// Whether there is a picture's file. A device, a pipe or a folder is none, and waiting for one would not end;
// nor is the database, which would lose its locks when the file is closed again.
bool IsPictureFile(const QString& path);

// Whether two paths, however they are written, lead to one file that is there.
bool IsSameFile(const QString& a, const QString& b);

}  // namespace vorlina
