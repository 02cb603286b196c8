#include "images/ShownPicture.h"

#include <QLoggingCategory>

#include "base/Error.h"
#include "images/ImagePipeline.h"
#include "images/ScreenPicture.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images")

bool Covers(QSize size, QSize wanted) {
  return size.width() >= wanted.width() && size.height() >= wanted.height();
}

}  // namespace

ShownPicture ShowPicture(const QString& path, QSize covering) {
  ShownPicture picture;
  if (path.isEmpty()) return picture;
  try {
    picture.image = LoadPicture(path, covering, &picture.size);
    if (picture.image.size() != picture.size) picture.sharper = path;
  } catch (const std::exception& error) {
    qCDebug(images) << "not shown" << path << DescriptionOf(error);
    return {};
  }
  return picture;
}

ShownPicture ShowThumbnail(const QString& mainImage, QSize covering) {
  if (mainImage.isEmpty()) return {};
  ShownPicture thumbnail = ShowPicture(ThumbnailPath(mainImage), covering);
  if (thumbnail.image.isNull()) return ShowPicture(mainImage, covering);
  thumbnail.sharper = mainImage;
  return thumbnail;
}

bool Sharpen(ShownPicture& picture, QSize covering) {
  if (picture.sharper.isEmpty() || Covers(picture.image.size(), covering)) return false;
  ShownPicture sharp = ShowPicture(picture.sharper, covering);
  if (sharp.image.width() <= picture.image.width()) {
    picture.sharper.clear();
    return false;
  }
  picture = std::move(sharp);
  return true;
}

}  // namespace vorlina
