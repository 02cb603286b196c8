#include "images/ShownPicture.h"

#include <QLoggingCategory>

#include "base/Error.h"
#include "images/FitPicture.h"
#include "images/PictureFolder.h"
#include "images/ScreenPicture.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images", QtInfoMsg)

// Whether what is decoded is enough to show the picture whole in the box.
bool Covers(const ShownPicture& picture, QSize box) {
  const QSize shown = FitPicture(picture.size, box, false).size().toSize();
  return picture.image.width() >= shown.width() && picture.image.height() >= shown.height();
}

}  // namespace

ShownPicture ShowPicture(const QString& path, QSize box) {
  ShownPicture picture;
  if (path.isEmpty()) return picture;
  try {
    picture.image = LoadPicture(path, box, &picture.size);
    if (picture.image.size() != picture.size) picture.sharper = path;
  } catch (const std::exception& error) {
    qCDebug(images) << "not shown" << path << DescriptionOf(error);
    return {};
  }
  return picture;
}

ShownPicture ShowThumbnail(const QString& mainImage, QSize box) {
  if (mainImage.isEmpty()) return {};
  ShownPicture thumbnail = ShowPicture(ThumbnailPath(mainImage), box);
  if (thumbnail.image.isNull()) return ShowPicture(mainImage, box);
  thumbnail.sharper = mainImage;
  return thumbnail;
}

bool Sharpen(ShownPicture& picture, QSize box) {
  if (picture.sharper.isEmpty() || Covers(picture, box)) return false;
  ShownPicture sharp = ShowPicture(picture.sharper, box);
  if (sharp.image.width() <= picture.image.width()) {
    picture.sharper.clear();
    return false;
  }
  picture = std::move(sharp);
  return true;
}

}  // namespace vorlina
