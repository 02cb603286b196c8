// A product's new code: its main picture and thumbnail follow under their new names. Everything else follows
// by the database's own keys.
#pragma once

#include <QString>

#include "images/PictureStore.h"

namespace vorlina {

class Connection;

// Made for one change. A kill at any moment leaves at most files without a row: the pictures are copied
// before the row names them, and the former ones go once it does.
class CodeChange {
 public:
  CodeChange(int IDCatalogo, QString formerCode, QString newCode, Connection& connection);
  // Takes the copies back unless Finish was called.
  ~CodeChange();
  CodeChange(const CodeChange&) = delete;
  CodeChange& operator=(const CodeChange&) = delete;

  // To be called in the transaction that writes the row, after the row has the new code. A picture that does
  // not lie in "Images", is missing, whose new name another row uses, or is the same file on a system that
  // does not tell letter cases apart, keeps its name. Throws Error where the copies cannot be written.
  void CopyPictures();

  // To be called after the transaction: deletes the pictures under the former names, where no other row names
  // them. Never fails.
  void Finish() noexcept;

 private:
  bool MayTake(const QString& former, const QString& target) const;

  int IDCatalogo_;
  QString formerCode_;
  QString newCode_;
  Connection& connection_;
  PictureFiles former_;
  PictureFiles copies_;
};

}  // namespace vorlina
