#include "images/WidgetPictureTile.h"

#include <QMouseEvent>
#include <QPainter>

#include "base/Helpers.h"
#include "images/WidgetPicture.h"

namespace vorlina {
namespace {

constexpr int Margin = 8;  // around the picture, and left and right of the code
constexpr int Radius = 5;
constexpr QSize UsualPicture{200, 160};
constexpr QSize SmallestPicture{72, 56};

}  // namespace

WidgetPictureTile::WidgetPictureTile(QWidget* parent) : QWidget(parent), intPicture(new WidgetPicture(this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void WidgetPictureTile::Show(const QString& code, const QString& description, ShownPicture picture) {
  code_ = code;
  setAccessibleName(description);
  setToolTip(PlainToolTip(description));
  intPicture->setToolTip(toolTip());
  intPicture->SetPicture(std::move(picture));
  update();
}

void WidgetPictureTile::SetSelected(bool selected) {
  selected_ = selected;
  update();
}

int WidgetPictureTile::CaptionHeight() const { return fontMetrics().height() + Margin; }

QRect WidgetPictureTile::Box() const {
  return rect().adjusted(Margin, Margin, -Margin, -Margin / 2 - CaptionHeight());
}

QSize WidgetPictureTile::PicturePixels() const { return DevicePixels(*this, Box().size()); }

QSize WidgetPictureTile::sizeHint() const {
  return UsualPicture + QSize(2 * Margin, Margin + Margin / 2 + CaptionHeight());
}

QSize WidgetPictureTile::minimumSizeHint() const {
  return SmallestPicture + QSize(2 * Margin, Margin + Margin / 2 + CaptionHeight());
}

void WidgetPictureTile::resizeEvent(QResizeEvent*) { intPicture->FitInto(Box()); }

void WidgetPictureTile::paintEvent(QPaintEvent*) {
  if (code_.isEmpty()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintFrame(painter);
  PaintCaption(painter);
}

void WidgetPictureTile::PaintFrame(QPainter& painter) const {
  QPen pen(palette().highlight(), 3);
  if (!selected_) {
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(hasFocus() ? 0.6F : 0.2F);
    pen = QPen(line, 1);
  }
  painter.setPen(pen);
  painter.setBrush(palette().base());
  const double inset = pen.widthF() / 2;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), Radius, Radius);
}

void WidgetPictureTile::PaintCaption(QPainter& painter) const {
  const QRect strip(0, height() - CaptionHeight(), width(), CaptionHeight());
  if (selected_) {
    painter.save();
    painter.setClipRect(strip);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().highlight());
    painter.drawRoundedRect(rect(), Radius, Radius);
    painter.restore();
  }
  painter.setPen(palette().color(selected_ ? QPalette::HighlightedText : QPalette::Text));
  const int space = width() - 2 * Margin;
  painter.drawText(strip, Qt::AlignCenter, fontMetrics().elidedText(code_, Qt::ElideMiddle, space));
}

void WidgetPictureTile::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT Clicked();
}

void WidgetPictureTile::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) Q_EMIT DoubleClicked();
}

}  // namespace vorlina
