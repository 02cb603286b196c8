#include "images/WidgetPicture.h"

#include <QPainter>

#include "images/FitPicture.h"

namespace vorlina {
namespace {

// Milliseconds without a further change of size after which it has come to rest.
constexpr int Rest = 120;

}  // namespace

QSize DevicePixels(const QWidget& window, QSize size) {
  return (QSizeF(size) * window.devicePixelRatioF()).toSize();
}

WidgetPicture::WidgetPicture(QWidget* parent) : QWidget(parent) {
  settle_.setSingleShot(true);
  settle_.setInterval(Rest);
  connect(&settle_, &QTimer::timeout, this, &WidgetPicture::Settle);
}

void WidgetPicture::SetPicture(ShownPicture picture) {
  picture_ = std::move(picture);
  painted_ = {};
  FitInto(box_);
  update();
}

void WidgetPicture::FitInto(const QRect& box) {
  box_ = box;
  if (IsEmpty()) {
    setGeometry(box);
    return;
  }
  setGeometry(FitPicture(picture_.size, box.size(), true).translated(box.topLeft()).toRect());
  settle_.start();
}

QSize WidgetPicture::Pixels() const { return DevicePixels(*this, size()); }

void WidgetPicture::paintEvent(QPaintEvent*) {
  if (IsEmpty()) return;
  const QSize pixels = Pixels();
  if (painted_.isNull())
    painted_ =
        QPixmap::fromImage(picture_.image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
  QPainter painter(this);
  if (painted_.size() != pixels) {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!settle_.isActive()) settle_.start();  // it came to another screen
  }
  painter.drawPixmap(rect(), painted_);
}

void WidgetPicture::Settle() {
  const bool sharper = Sharpen(picture_, DevicePixels(*this, box_.size()));
  if (sharper) FitInto(box_);
  if (!sharper && painted_.size() == Pixels()) return;
  painted_ = {};
  update();
}

}  // namespace vorlina
