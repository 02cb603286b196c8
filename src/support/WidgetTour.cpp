#include "support/WidgetTour.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <cmath>

namespace vorlina {
namespace {

constexpr int GlideMilliseconds = 900;
// What a slow reader needs: a moment to look, and a time for each letter.
constexpr int LookMilliseconds = 2500;
constexpr int LetterMilliseconds = 55;

const QColor FrameColour(0xd9, 0x5f, 0x0e);

QPainterPath Arrow() {
  QPainterPath path;
  path.addPolygon(
      QPolygonF({{0, 0}, {0, 20}, {5, 15.5}, {8.5, 23.5}, {12, 22}, {8.5, 14}, {15, 14}, {0, 0}}));
  return path;
}

void PaintFrame(QPainter& painter, const QRect& frame) {
  const QRectF around = QRectF(frame).adjusted(-4, -4, 4, 4);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, 7));
  painter.drawRoundedRect(around, 6, 6);
  painter.setPen(QPen(FrameColour, 3.5));
  painter.drawRoundedRect(around, 6, 6);
}

void PaintPointer(QPainter& painter, QPointF place, bool clicks) {
  painter.save();
  painter.translate(place);
  if (clicks) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(FrameColour, 3));
    painter.drawEllipse(QPointF(0, 0), 14, 14);
  }
  painter.scale(1.3, 1.3);
  painter.setPen(QPen(Qt::white, 1.6));
  painter.setBrush(Qt::black);
  painter.drawPath(Arrow());
  painter.restore();
}

}  // namespace

WidgetTour::WidgetTour(QWidget* parent) : QWidget(parent) {
  glide_.setStartValue(0.0);
  glide_.setEndValue(1.0);
  glide_.setDuration(GlideMilliseconds);
  glide_.setEasingCurve(QEasingCurve::InOutQuad);
  next_.setSingleShot(true);
  connect(&glide_, &QVariantAnimation::valueChanged, this, [this] { update(); });
  connect(&next_, &QTimer::timeout, this, &WidgetTour::ShowNext);
}

void WidgetTour::SetFilm(const TourFilm& film) {
  film_ = film;
  loaded_ = -1;
  from_ = QRectF({}, film.size).center();
  GoTo(0);
}

QString WidgetTour::Caption() const {
  return film_.IsEmpty() ? QString() : TourCaption(film_.scenes[std::size_t(current_)].name);
}

bool WidgetTour::MayMove() const {
  return style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) > 0;
}

void WidgetTour::GoTo(int scene) {
  if (scene < 0 || scene >= Count()) return;
  if (loaded_ >= 0) from_ = Pointer();
  current_ = scene;
  LoadPicture();
  glide_.stop();
  if (MayMove()) glide_.start();
  if (playing_)
    next_.start(GlideMilliseconds + LookMilliseconds + LetterMilliseconds * int(Caption().size()));
  setAccessibleDescription(Caption());
  update();
  Q_EMIT Changed();
}

void WidgetTour::SetPlaying(bool playing) {
  playing_ = playing && Count() > 0;
  next_.stop();
  if (playing_) return GoTo(current_ + 1 < Count() || Count() == 1 ? current_ : 0);
  Q_EMIT Changed();
}

void WidgetTour::ShowNext() {
  if (current_ + 1 < Count()) GoTo(current_ + 1);
  if (current_ + 1 == Count()) SetPlaying(false);
}

void WidgetTour::LoadPicture() {
  const int picture = film_.scenes[std::size_t(current_)].picture;
  if (loaded_ == picture) return;
  picture_ = PictureOf(film_, picture);
  loaded_ = picture;
}

QPointF WidgetTour::Pointer() const {
  const QPointF to = film_.scenes[std::size_t(current_)].pointer;
  if (glide_.state() != QAbstractAnimation::Running) return to;
  return from_ + (to - from_) * glide_.currentValue().toDouble();
}

void WidgetTour::paintEvent(QPaintEvent*) {
  if (film_.IsEmpty()) return;
  QPainter painter(this);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  const qreal scale = std::min(qreal(width()) / film_.size.width(), qreal(height()) / film_.size.height());
  painter.translate((width() - scale * film_.size.width()) / 2, (height() - scale * film_.size.height()) / 2);
  painter.scale(scale, scale);
  const QRectF whole({}, film_.size);
  painter.drawImage(whole, picture_);
  painter.setClipRect(whole);
  const TourScene& scene = film_.scenes[std::size_t(current_)];
  if (!scene.frame.isEmpty()) PaintFrame(painter, scene.frame);
  PaintPointer(painter, Pointer(), scene.click && glide_.state() != QAbstractAnimation::Running);
}

}  // namespace vorlina
