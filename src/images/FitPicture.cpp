#include "images/FitPicture.h"

namespace vorlina {

QRectF FitPicture(QSizeF picture, QSizeF box, bool centred) {
  if (picture.isEmpty() || box.isEmpty()) return {};
  const double ratio = picture.width() / picture.height();
  const bool wider = ratio >= box.width() / box.height();
  const QSizeF size =
      wider ? QSizeF(box.width(), box.width() / ratio) : QSizeF(ratio * box.height(), box.height());
  if (!centred) return {QPointF(0, 0), size};
  return {QPointF((box.width() - size.width()) / 2, (box.height() - size.height()) / 2), size};
}

}  // namespace vorlina
