#include <QFont>
#include <QPainter>
#include <QPainterPath>

#include "Picture.h"

namespace vorlina::studio {
namespace {

// A vase in a ring, of two brush strokes.
void DrawVase(QPainter& painter, const QColor& ink, const QColor& accent) {
  painter.setPen(QPen(ink, 9));
  painter.drawEllipse(QPointF(150, 150), 112, 112);
  QPainterPath vase(QPointF(128, 72));
  vase.cubicTo(140, 110, 84, 128, 92, 172);
  vase.cubicTo(98, 206, 128, 210, 130, 228);
  vase.lineTo(170, 228);
  vase.cubicTo(172, 210, 202, 206, 208, 172);
  vase.cubicTo(216, 128, 160, 110, 172, 72);
  vase.closeSubpath();
  painter.fillPath(vase, ink);
  QPainterPath band(QPointF(92, 160));
  band.cubicTo(120, 140, 145, 190, 208, 158);
  painter.setPen(QPen(accent, 10, Qt::SolidLine, Qt::RoundCap));
  painter.drawPath(band);
}

// A spinning top above the line it turns on.
void DrawTop(QPainter& painter, const QColor& ink, const QColor& accent) {
  QPainterPath top(QPointF(150, 232));
  top.cubicTo(122, 208, 58, 190, 56, 148);
  top.cubicTo(60, 128, 120, 122, 140, 116);
  top.lineTo(140, 62);
  top.lineTo(160, 62);
  top.lineTo(160, 116);
  top.cubicTo(180, 122, 240, 128, 244, 148);
  top.cubicTo(242, 190, 178, 208, 150, 232);
  painter.fillPath(top, ink);
  painter.setPen(QPen(accent, 10, Qt::SolidLine, Qt::RoundCap));
  painter.drawArc(QRectF(62, 128, 176, 46), 190 * 16, 160 * 16);
  painter.drawLine(QPointF(84, 244), QPointF(216, 244));
}

}  // namespace

QImage DrawLogo(const QJsonObject& logo) {
  QImage image(900, 300, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
  const QColor ink(logo[u"ink"].toString()), accent(logo[u"accent"].toString());
  if (logo[u"mark"].toString() == u"vase")
    DrawVase(painter, ink, accent);
  else
    DrawTop(painter, ink, accent);
  QFont name(logo[u"font"].toString());
  name.setPixelSize(84);
  name.setBold(true);
  painter.setFont(name);
  painter.setPen(ink);
  const QRectF room(300, 60, 560, 110);
  const double wanted = painter.fontMetrics().horizontalAdvance(logo[u"name"].toString());
  if (wanted > room.width()) {
    name.setPixelSize(int(84 * room.width() / wanted));
    painter.setFont(name);
  }
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, logo[u"name"].toString());
  QFont line(QStringLiteral("DejaVu Sans"));
  line.setPixelSize(30);
  painter.setFont(line);
  painter.setPen(accent);
  painter.drawText(QRectF(304, 176, 560, 50), Qt::AlignLeft | Qt::AlignVCenter, logo[u"line"].toString());
  return image;
}

}  // namespace vorlina::studio
