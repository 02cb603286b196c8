// make_icon SVG SIZE PNG: draws an icon for desktops that take pictures of a few sizes alone.
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>

int main(int argc, char** argv) {
  const int size = argc == 4 ? QByteArray(argv[2]).toInt() : 0;
  QSvgRenderer drawing(argc == 4 ? QString::fromLocal8Bit(argv[1]) : QString());
  if (size <= 0 || !drawing.isValid()) {
    std::fputs("usage: make_icon SVG SIZE PNG\n", stderr);
    return 2;
  }
  QImage icon(size, size, QImage::Format_ARGB32);
  icon.fill(Qt::transparent);
  QPainter painter(&icon);
  drawing.render(&painter);
  painter.end();
  return icon.save(QString::fromLocal8Bit(argv[3]), "PNG") ? 0 : 1;
}
