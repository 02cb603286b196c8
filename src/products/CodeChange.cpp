#include "products/CodeChange.h"

#include <QFile>
#include <QLoggingCategory>

#include "base/AppPath.h"
#include "base/Helpers.h"
#include "base/PathKeys.h"
#include "base/SafeFile.h"
#include "images/ImagePipeline.h"
#include "store/Connection.h"
#include "store/GetValue.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

void RemoveAll(const QStringList& files) {
  for (const QString& file : files)
    if (!QFile::remove(file)) qCDebug(products) << "not deleted" << file;
}

}  // namespace

CodeChange::CodeChange(int IDCatalogo, QString formerCode, QString newCode, Connection& connection)
    : IDCatalogo_(IDCatalogo),
      formerCode_(std::move(formerCode)),
      newCode_(std::move(newCode)),
      connection_(connection) {}

CodeChange::~CodeChange() { RemoveAll(copies_); }

void CodeChange::CopyPictures() {
  const QString row = u"IDCatalogo=? AND CodiceProdotto=?"_qs;
  const QString former =
      NullToEmpty(GetValue(u"Immagine"_qs, u"Prodotti"_qs, connection_, row, {IDCatalogo_, newCode_}));
  const QString target = MainImagePath(IDCatalogo_, newCode_);
  PathKeys keys;
  // Also another letter case of the code is the same file on some systems.
  if (former.isEmpty() || keys.Of(former) == keys.Of(target) || !QFile::exists(former) ||
      keys.Of(former) != keys.Of(AppFile(u"Images/"_qs + FileNameOf(former, true))) ||
      IsNamedElsewhere(target))
    return;
  CopyFileSafely(former, target);
  copies_ += target;
  former_ += former;
  if (QFile::exists(ThumbnailPath(former))) {
    CopyFileSafely(ThumbnailPath(former), ThumbnailPath(target));
    copies_ += ThumbnailPath(target);
    former_ += ThumbnailPath(former);
  }
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE "_qs + row, {target, IDCatalogo_, newCode_});
  if (IsNamedElsewhere(former)) former_.clear();
}

bool CodeChange::IsNamedElsewhere(const QString& path) const {
  if (!QFile::exists(path)) return false;
  Rows rows(connection_,
            u"SELECT 1 FROM Prodotti WHERE Immagine=?1 UNION ALL SELECT 1 FROM Immagini WHERE Immagine=?1"_qs,
            {path});
  return rows.Next();
}

void CodeChange::Finish() noexcept {
  copies_.clear();
  RemoveAll(former_);
}

}  // namespace vorlina
