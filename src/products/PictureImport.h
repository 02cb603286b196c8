// The import of a folder: every JPEG picture in it becomes a product with a generated code.
#pragma once

#include <QString>
#include <QStringList>

#include "base/Progress.h"
#include "images/PreparedPictures.h"
#include "products/ProductStore.h"

namespace vorlina {

class PictureImport {
 public:
  // Lists the folder's files that end in ".jpg", in any letter case, by name. Nothing is written yet.
  PictureImport(QString folder, int IDCatalogo, Connection& connection);

  // How many pictures there are to import.
  int Count() const { return int(files_.size()); }
  // How many products were made so far.
  int Imported() const { return imported_; }

  // The names of the folder's pictures that cannot be imported, because they are links that lead nowhere,
  // devices, or have a name that is no text; that is shown with a sign for what cannot be read.
  const QStringList& PassedOver() const { return passedOver_; }

  // Imports them. progress is told before each file how many are done, and after the last; false from it
  // stops at the top of a pass, and the products made so far stay. False when stopped. Throws Error for the
  // first picture that cannot be read, is damaged or cannot be written: nothing of it stays, what came before
  // does, and nothing more is imported. A kill leaves at most one picture in "Images" without its row. To be
  // called once.
  bool Run(const Progress& progress);

 private:
  void ImportNext(const QString& file, PreparedPictures& pictures);

  QString folder_;
  int IDCatalogo_;
  Connection& connection_;
  ProductStore products_;
  QStringList files_;       // names
  QStringList passedOver_;  // names
  int imported_ = 0;
};

}  // namespace vorlina
