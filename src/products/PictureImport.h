// The import of a folder: every JPEG picture in it becomes a product with a generated code.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "base/Progress.h"
#include "images/PreparedPictures.h"
#include "products/ProductStore.h"

namespace vorlina {

// A file of the folder that is not imported, and why.
struct LeftOutFile {
  QString name;  // with a sign for what cannot be read
  QString reason;
};

class PictureImport {
 public:
  // Lists the folder's files that end in ".jpg", in any letter case, by name as file managers show them: 2
  // before 10. Nothing is written yet.
  PictureImport(QString folder, int IDCatalogo, Connection& connection);

  // How many pictures there are to import.
  int Count() const { return int(files_.size()); }
  // How many products were made so far.
  int Imported() const { return imported_; }

  // The folder's files that are not imported, by name: those of another ending, links that lead nowhere,
  // devices, and those whose name is no text. Hidden files and folders are none.
  const std::vector<LeftOutFile>& PassedOver() const { return passedOver_; }

  // Imports them. progress is told before each file how many are done, and after the last; false from it
  // stops at the top of a pass, and the products made so far stay. False when stopped. Throws Error for the
  // first picture that cannot be read, is damaged or cannot be written: nothing of it stays, what came before
  // does, and nothing more is imported. A kill leaves at most one picture in "Images" without its row. To be
  // called once. Meanwhile is what PreparedPictures does while it waits: no transaction is open then.
  bool Run(const Progress& progress, const PreparedPictures::Meanwhile& meanwhile = {});

  // The name of the file that was imported last, and the main picture of its product; empty before the first
  // one.
  QString LastFile() const { return files_.value(imported_ - 1); }
  const QString& LastPicture() const { return lastPicture_; }
  // The name of the file at which Run threw, empty elsewhere; and whether that file itself is to blame.
  const QString& Failed() const { return failed_; }
  bool IsFileToBlame() const;

 private:
  bool ImportAll(const Progress& progress, const PreparedPictures::Meanwhile& meanwhile,
                 PreparedPictures& pictures);
  PreparedPicture NextPicture(PreparedPictures& pictures, const PreparedPictures::Meanwhile& meanwhile);
  void Store(const QString& source, const PreparedPicture& picture);

  QString folder_;
  int IDCatalogo_;
  Connection& connection_;
  ProductStore products_;
  QStringList files_;  // names
  std::vector<LeftOutFile> passedOver_;
  int imported_ = 0;
  QString lastPicture_;
  QString failed_;
  bool isFileToBlame_ = false;
};

// How many products came of how many pictures, and where not all, which file was the last one: a sentence
// without its stop.
QString ImportedText(const PictureImport& import);

}  // namespace vorlina
