// The folder "Images" of the application folder in use: what lies in it, which rows name its files, and the
// one way in which picture files get there and are taken away. A path in a row is data of uncertain origin:
// whatever it says, nothing outside of that folder is written or removed.
#pragma once

#include <QByteArray>
#include <QSet>
#include <QString>
#include <QStringList>
#include <functional>

#include "base/PathKeys.h"

namespace vorlina {

class Connection;

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
  PathKeys keys_;
  QString folder_;
};

// The full path of a name in "Images", with native separators.
QString PicturePath(const QString& name);
// The file of a product's main image: "Images", catalog, code.
QString MainImagePath(int IDCatalogo, const QString& CodiceProdotto);
// The thumbnail's file of a main image: "t" before its name, in the folder "Images".
QString ThumbnailPath(const QString& mainImage);

// Whether there is a picture's file. A device, a pipe or a folder is none, and waiting for one would not end;
// nor is the database, which would lose its locks when the file is closed again.
bool IsPictureFile(const QString& path);

// Write a file into "Images", replacing what has its name; a link there is replaced, not followed. Throw
// Error where it cannot be written, and for a path that leads out of "Images".
void WritePicture(const QString& path, const QByteArray& jpeg);
void CopyPicture(const QString& source, const QString& target);

// Files that rows name or named.
struct PictureFiles {
  QStringList main;    // they have thumbnails
  QStringList others;  // additional pictures and logos
};

// The rows of a product that do not count when it is asked who names a file.
struct ExceptProduct {
  int IDCatalogo = 0;
  QString CodiceProdotto;
  bool additionalToo = false;  // its additional pictures as well as its main one
};

// Tells every path that a row names: of a product, an additional picture or a catalog's logo. Throws Error.
void ForEachNamedPath(Connection& connection, const ExceptProduct& except,
                      const std::function<void(const QString& path)>& tell);

// Whether two paths, however they are written, lead to one file that is there.
bool IsSameFile(const QString& a, const QString& b);

// Those of the files that a row names, however it writes the path. Throws Error.
QSet<QString> NamedPictures(const QStringList& files, Connection& connection,
                            const ExceptProduct& except = {});

// Whether a row names the file. Throws Error.
bool IsPictureNamed(const QString& path, Connection& connection, const ExceptProduct& except = {});

// Removes those of the files that lie in "Images" and that no row names, main images with their thumbnails.
// Never fails: where the rows cannot be read, or a file cannot be removed, files stay.
void RemoveUnnamedPictures(const PictureFiles& files, Connection& connection,
                           const ExceptProduct& except = {}) noexcept;

}  // namespace vorlina
