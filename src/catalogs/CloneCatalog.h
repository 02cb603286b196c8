// A full copy of a catalog: its rows with new identifiers, and its picture files under new names.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

#include "base/Progress.h"
#include "files/PathKeys.h"

namespace vorlina {

class Connection;
class PictureChange;

// How many pictures a catalog's rows name, the additional ones included.
int CountPictures(int IDCatalogo, Connection& connection);

// A clone shares nothing with its source but the files of the logo and of its profiles' pictures, which rows
// of both name.
class CatalogClone {
 public:
  CatalogClone(int OldID, Connection& connection) : OldID_(OldID), connection_(connection) {}

  // Makes the copy in one transaction and gives its identifier. Its name is the source's behind the prefix;
  // publication order and mark take the columns' defaults. All copied files lie in "Images", also of a
  // picture that does not. A picture file that is missing is passed over, its row names the new place all the
  // same. progress is told pictures. Throws Error, and Stopped where progress asks for it; there is then
  // neither a row nor a file of the copy. To be called once.
  int DuplicaCatalogo(const QString& prefix, const Progress& progress);

  // What the user should know of the copy that was made: the pictures that are there and cannot be read, and
  // a disk that failed at the end. Lines in the user's language.
  QStringList Warnings() const;

 private:
  struct Picture {
    qint64 key;  // of the product row, or IDImmagine
    QString path;
  };

  void CopyCatalogRow(const QString& prefix);
  void CopyProducts();
  void CopyFilters();
  void CopyRest();
  void CopiaImmaginiDuplicate(bool additional, const Progress& progress);
  std::vector<Picture> PicturesToCopy(bool additional) const;
  QString CopyPicture(const Picture& picture, bool additional);
  QStringList NewNames(const QString& name) const;
  QString ChoosePath(const QStringList& names);
  bool IsFree(const QString& path);
  bool IsNamed(const QString& path);
  bool IsStored();

  int OldID_;
  int NewID_ = 0;
  Connection& connection_;
  PictureChange* files_ = nullptr;  // of the transaction
  int done_ = 0;
  int total_ = 0;
  QStringList unread_;  // files that are there
  QString diskError_;   // that came once the rows were there
  files::PathKeys keys_;
  QSet<QString> taken_;                 // keys of the paths that rows of the source or of the copy name
  std::optional<QSet<QString>> named_;  // keys of the paths that any row names, read when first needed
};

}  // namespace vorlina
