#include "Stage.h"

#include <QApplication>
#include <QBuffer>
#include <QEventLoop>
#include <QPainter>
#include <QTimer>

#include "base/Error.h"

namespace vorlina {
namespace {

constexpr int TitleHeight = 26;
constexpr int Border = 1;
// Pictures in windows are as sharp as they get when their window has been at rest for a moment.
constexpr int RestMilliseconds = 400;

void PaintFrame(QPainter& painter, const QRect& frame, const QString& title) {
  painter.fillRect(frame.translated(4, 5), QColor(0, 0, 0, 60));
  painter.fillRect(frame, QColor(0x3f, 0x4a, 0x57));
  painter.setPen(Qt::white);
  const QRect bar(frame.left() + 10, frame.top(), frame.width() - 20, TitleHeight);
  painter.drawText(bar, Qt::AlignVCenter | Qt::AlignLeft, title);
}

void Rest() {
  QEventLoop loop;
  QTimer::singleShot(RestMilliseconds, &loop, &QEventLoop::quit);
  loop.exec();
}

QByteArray Png(const QImage& image) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG", 0)) throw Error(u"a picture cannot be written"_qs);
  return buffer.data();
}

// What is not the same in two pictures.
QRect Difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return b.rect();
  QRect changed;
  for (int y = 0; y < b.height(); ++y) {
    const auto* before = reinterpret_cast<const QRgb*>(a.constScanLine(y));
    const auto* after = reinterpret_cast<const QRgb*>(b.constScanLine(y));
    for (int x = 0; x < b.width(); ++x)
      if (before[x] != after[x]) changed |= QRect(x, y, 1, 1);
  }
  return changed;
}

}  // namespace

QPoint Stage::Inside(const Standing& standing) {
  return standing.corner + (standing.framed ? QPoint(Border, TitleHeight) : QPoint());
}

void Stage::Put(QWidget& window, QPoint corner, bool framed) {
  window.show();
  put_.push_back({&window, corner, framed});
}

void Stage::PutInMiddle(QWidget& window) {
  const QSize size = window.size() + QSize(2 * Border, TitleHeight + Border);
  const QRect all({}, film_.size);
  Put(window, all.center() - QRect({}, size).center());
}

void Stage::Take() {
  Rest();
  const qreal ratio = qApp->devicePixelRatio();
  QImage picture(film_.size * ratio, QImage::Format_RGB32);
  picture.setDevicePixelRatio(ratio);
  picture.fill(QColor(0x8d, 0xa3, 0xb5));
  QPainter painter(&picture);
  for (const Standing& standing : put_) {
    if (standing.framed) {
      const QSize size = standing.window->size() + QSize(2 * Border, TitleHeight + Border);
      PaintFrame(painter, {standing.corner, size}, standing.window->windowTitle());
    }
    painter.drawPixmap(Inside(standing), standing.window->grab());
  }
  painter.end();
  picture.setDevicePixelRatio(1);
  const QRect changed = Difference(last_, picture);
  const int base = changed == picture.rect() ? -1 : int(film_.pictures.size()) - 1;
  film_.pictures.push_back({Png(picture.copy(changed)), base, changed.topLeft()});
  last_ = picture;
}

void Stage::Scene(const QString& name, const QWidget& control, QRect part, bool click) {
  for (const Standing& standing : put_) {
    if (control.window() != standing.window) continue;
    if (part.isNull()) part = control.rect();
    const QRect shown = part & control.rect();
    const QRect frame =
        QRect(control.mapTo(standing.window, shown.topLeft()), shown.size()).translated(Inside(standing));
    film_.scenes.push_back({name, int(film_.pictures.size()) - 1, frame.center(), frame, click});
    return;
  }
  throw Error(u"the window of the scene %1 is not on the stage"_qs.arg(name));
}

}  // namespace vorlina
