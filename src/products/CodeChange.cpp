#include "products/CodeChange.h"

#include <QFile>
#include <QFileInfo>
#include <QLoggingCategory>
#include <filesystem>
#include <system_error>

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

// Also another letter case of the code is the same file on some systems: deleting the former name would
// delete the copy.
bool IsSameFile(const QString& a, const QString& b) {
  std::error_code failure;
  return std::filesystem::equivalent(QFileInfo(a).filesystemFilePath(), QFileInfo(b).filesystemFilePath(),
                                     failure);
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
  if (former.isEmpty() || !QFile::exists(former) || !MayTake(former, target)) return;
  CopyFileSafely(former, target);
  copies_ += target;
  former_ += former;
  if (QFile::exists(ThumbnailPath(former))) {
    CopyFileSafely(ThumbnailPath(former), ThumbnailPath(target));
    copies_ += ThumbnailPath(target);
    former_ += ThumbnailPath(former);
  } else {
    QFile::remove(ThumbnailPath(target));  // one that was left there would show another picture
  }
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE "_qs + row, {target, IDCatalogo_, newCode_});
  if (IsNamedElsewhere(former)) former_.clear();
}

bool CodeChange::MayTake(const QString& former, const QString& target) const {
  PathKeys keys;
  const QString own = keys.Of(AppFile(u"Images/"_qs + FileNameOf(former, true)));
  return keys.Of(former) == own && own != keys.Of(target) && !IsSameFile(former, target) &&
         !(QFile::exists(target) && IsNamedElsewhere(target));
}

bool CodeChange::IsNamedElsewhere(const QString& path) const {
  return IsPictureNamed(path, connection_, IDCatalogo_, newCode_);
}

void CodeChange::Finish() noexcept {
  copies_.clear();
  RemoveAll(former_);
}

}  // namespace vorlina
