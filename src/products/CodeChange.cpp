#include "products/CodeChange.h"

#include <QFile>

#include "base/Helpers.h"
#include "store/Connection.h"
#include "store/GetValue.h"

namespace vorlina {

CodeChange::CodeChange(int IDCatalogo, QString formerCode, QString newCode, Connection& connection)
    : IDCatalogo_(IDCatalogo),
      formerCode_(std::move(formerCode)),
      newCode_(std::move(newCode)),
      connection_(connection) {}

CodeChange::~CodeChange() { RemoveUnnamedPictures(copies_, connection_); }

void CodeChange::CopyPictures() {
  const QString row = u"IDCatalogo=? AND CodiceProdotto=?"_qs;
  const QString former =
      NullToEmpty(GetValue(u"Immagine"_qs, u"Prodotti"_qs, connection_, row, {IDCatalogo_, newCode_}));
  const QString target = MainImagePath(IDCatalogo_, newCode_);
  if (!IsPictureFile(former) || !MayTake(former, target)) return;
  CopyPicture(former, target);
  copies_.main += target;
  if (IsPictureFile(ThumbnailPath(former)))
    CopyPicture(ThumbnailPath(former), ThumbnailPath(target));
  else
    QFile::remove(ThumbnailPath(target));  // one that was left there would show another picture
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE "_qs + row, {target, IDCatalogo_, newCode_});
  former_.main += former;
}

// Also another letter case of the code is the same file on some systems: deleting the former name would
// delete the copy.
bool CodeChange::MayTake(const QString& former, const QString& target) const {
  return PictureFolder().Holds(former) && !IsSameFile(former, target) &&
         !(QFile::exists(target) && IsPictureNamed(target, connection_, {IDCatalogo_, newCode_}));
}

void CodeChange::Finish() noexcept {
  copies_ = {};
  RemoveUnnamedPictures(former_, connection_);
}

}  // namespace vorlina
