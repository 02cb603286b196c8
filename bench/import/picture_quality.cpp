// How near the reduced decoding comes to a full one: the structural similarity to a full decode with a
// Lanczos filter. Fails where a picture, or the median, falls below its bound.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

#include "Photographs.h"
#include "Similarity.h"
#include "images/PictureRendering.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

double Lanczos(double x) {
  if (std::abs(x) < 1e-9) return 1;
  if (std::abs(x) >= 3) return 0;
  const double angle = std::numbers::pi * x;
  return 3 * std::sin(angle) * std::sin(angle / 3) / (angle * angle);
}

// The plain definition, one axis at a time: every source sample within reach, at full precision.
Grey ScaledAcross(const Grey& source, int width) {
  Grey target{width, source.height, std::vector<double>(std::size_t(width) * std::size_t(source.height))};
  const double scale = double(source.width) / width;
  for (int x = 0; x < width; ++x) {
    const double centre = (x + 0.5) * scale - 0.5;
    const int first = std::max(0, int(std::ceil(centre - 3 * scale)));
    const int last = std::min(source.width - 1, int(std::floor(centre + 3 * scale)));
    double total = 0;
    for (int i = first; i <= last; ++i) total += Lanczos((i - centre) / scale);
    for (int y = 0; y < source.height; ++y) {
      double sum = 0;
      for (int i = first; i <= last; ++i) sum += source.At(i, y) * Lanczos((i - centre) / scale);
      target.values[std::size_t(y) * std::size_t(width) + std::size_t(x)] =
          std::clamp(sum / total, 0.0, 255.0);
    }
  }
  return target;
}

Grey Turned(const Grey& source) {
  Grey target{source.height, source.width, {}};
  for (int y = 0; y < target.height; ++y)
    for (int x = 0; x < target.width; ++x) target.values.push_back(source.At(y, x));
  return target;
}

Grey Scaled(const Grey& source, QSize size) {
  return Turned(ScaledAcross(Turned(ScaledAcross(source, size.width())), size.height()));
}

// A page of text of several sizes.
QImage MakeTextPage(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.setPen(Qt::black);
  int y = 0;
  for (int line = 0; y < size.height(); ++line) {
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(size.height() / (24 + line % 5 * 10));
    painter.setFont(font);
    y += font.pixelSize() * 5 / 4;
    painter.drawText(
        font.pixelSize(), y,
        QStringLiteral("Articolo %1: viti a testa svasata 4×40, acciaio inox A2, conf. 250 pz. — € 12,50")
            .arg(line));
  }
  return image;
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  struct Case {
    const char* name;
    QImage image;
  };
  std::vector<Case> cases = {{"text", MakeTextPage({3000, 2000})},
                             {"text, a little too large", MakeTextPage({1100, 900})},
                             {"rings", MakeRings({2400, 1800}, 8)},
                             {"fine rings", MakeRings({4000, 3000}, 12)}};
  for (const QSize size : {QSize(4000, 3000), QSize(3000, 2000), QSize(1600, 1200), QSize(2048, 1536),
                           QSize(1280, 960), QSize(1700, 2300)})
    cases.push_back({"photo", MakePhotograph(size, unsigned(size.width()))});
  std::vector<double> all;
  for (const Case& one : cases) {
    const QByteArray jpeg = MakeJpeg(one.image);
    const QImage ours = QImage::fromData(FitToLimit(jpeg, 800, {}).jpeg, "jpeg");
    const Grey reference = Scaled(GreyOf(QImage::fromData(jpeg, "jpeg")), ours.size());
    all.push_back(Ssim(GreyOf(ours), reference));
    std::printf("%-26s %4d x %4d  %.4f\n", one.name, one.image.width(), one.image.height(), all.back());
  }
  std::sort(all.begin(), all.end());
  const double median = all[all.size() / 2];
  std::printf("the worst %.4f (at least 0.985), the median %.4f (at least 0.993)\n", all.front(), median);
  return all.front() >= 0.985 && median >= 0.993 ? 0 : 1;
}
