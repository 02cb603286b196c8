#include "Photographs.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace vorlina {
namespace {

// Noise with smooth transitions between the points of a grid.
class SmoothNoise {
 public:
  explicit SmoothNoise(unsigned seed) {
    std::mt19937 random(seed);
    for (float& value : values_) value = float(random() % 2001) / 1000.0F - 1.0F;
  }
  float At(float x, float y) const {
    const int column = int(std::floor(x));
    const int row = int(std::floor(y));
    const float u = Ease(x - float(column));
    const float v = Ease(y - float(row));
    const float above = Value(column, row) * (1 - u) + Value(column + 1, row) * u;
    const float below = Value(column, row + 1) * (1 - u) + Value(column + 1, row + 1) * u;
    return above * (1 - v) + below * v;
  }

 private:
  static float Ease(float t) { return t * t * (3 - 2 * t); }
  float Value(int x, int y) const { return values_[unsigned(x * 73 + y * 8191) % 4096]; }
  float values_[4096];
};

}  // namespace

QImage MakePhotograph(QSize size, unsigned seed) {
  const SmoothNoise noise(seed);
  std::minstd_rand sensor(seed + 1);
  QImage image(size, QImage::Format_RGB32);
  const float unit = 1000.0F / float(std::max(size.width(), size.height()));
  for (int y = 0; y < size.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < size.width(); ++x) {
      const float u = float(x) * unit;
      const float v = float(y) * unit;
      const float shapes = noise.At(u / 180, v / 180);
      const float leaves = noise.At(u / 9, v / 9) * (shapes > 0 ? 0.5F : 0.1F);
      const float edge = shapes > 0.2F ? 0.45F : -0.2F;
      const float grain = float(sensor() % 17) - 8;
      const auto level = [&](float tint) {
        return int(std::clamp(128 + 70 * (edge + shapes * tint + leaves) + grain, 0.0F, 255.0F));
      };
      line[x] = qRgb(level(1.0F), level(0.6F), level(-0.4F));
    }
  }
  return image;
}

QImage MakeRings(QSize size, double finest) {
  QImage image(size, QImage::Format_RGB32);
  const double reach = std::hypot(size.width(), size.height()) / 2;
  const double speed = std::numbers::pi / (finest * reach);
  for (int y = 0; y < size.height(); ++y)
    for (int x = 0; x < size.width(); ++x) {
      const double dx = x - size.width() / 2.0;
      const double dy = y - size.height() / 2.0;
      const int grey = int(128 + 110 * std::cos(speed * (dx * dx + dy * dy)));
      image.setPixel(x, y, qRgb(grey, grey, grey));
    }
  return image;
}

}  // namespace vorlina
