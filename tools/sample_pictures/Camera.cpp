#include "Camera.h"

#include <QJsonArray>
#include <QStringList>

#include "Noise.h"

namespace vorlina::studio {
namespace {

constexpr double Fill = 0.74;  // part of the frame that the scene takes

// The film: a soft shoulder and the usual display curve.
double Develop(double light) {
  const double x = std::max(0.0, light) * 0.82;
  const double film = Clamp01(x * (2.51 * x + 0.03) / (x * (2.43 * x + 0.59) + 0.14));
  return 255 * std::pow(film, 1 / 2.2);
}

Vec Developed(Vec light) { return {Develop(light.x), Develop(light.y), Develop(light.z)}; }

bool Differ(const Vec& a, const Vec& b) {
  const Vec d = a - b;
  return std::max({std::abs(d.x), std::abs(d.y), std::abs(d.z)}) > 12;
}

}  // namespace

Camera::Camera(const Scene& scene, const QJsonObject& view) {
  const Box& bounds = scene.Bounds();
  const QStringList size = view[u"size"].toString().split(u'x');
  if (size.size() == 2) {
    width_ = size[0].toInt();
    height_ = size[1].toInt();
  }
  const double pitch = view[u"pitch"].toDouble(14) * Pi / 180;
  ahead_ = {0, -std::sin(pitch), -std::cos(pitch)};
  right_ = {1, 0, 0};
  up_ = Cross(right_, ahead_);
  const Vec middle = (bounds.low + bounds.high) * 0.5;
  const double aspect = double(width_) / height_;
  double distance = 4 * Length(bounds.high - bounds.low);
  // Walk up to or back from the scene until its corners fill the frame.
  double lowX = 0, highX = 0, lowY = 0, highY = 0;
  for (int turn = 0; turn < 6; ++turn) {
    Aim(middle, distance);
    lowX = lowY = 1e9;
    highX = highY = -1e9;
    for (const Vec& point : scene.Outline()) {
      const Vec to = point - position_;
      const double depth = Dot(to, ahead_) * half_;
      lowX = std::min(lowX, Dot(to, right_) / depth);
      highX = std::max(highX, Dot(to, right_) / depth);
      lowY = std::min(lowY, Dot(to, up_) / depth);
      highY = std::max(highY, Dot(to, up_) / depth);
    }
    distance *= std::max((highX - lowX) / (2 * aspect * Fill), (highY - lowY) / (2 * Fill));
  }
  const double zoom = view[u"zoom"].toDouble(1);
  const QJsonArray look = view[u"look"].toArray();
  shiftX_ = (lowX + highX) / 2 + look[0].toDouble() * aspect;
  shiftY_ = (lowY + highY) / 2 + 0.05 / zoom + look[1].toDouble();
  shiftX_ *= half_;
  shiftY_ *= half_;
  half_ /= zoom;
}

void Camera::Aim(Vec target, double distance) { position_ = target - ahead_ * distance; }

Vec Camera::Direction(double x, double y) const {
  const double u = (2 * x - width_) / height_ * half_ + shiftX_,
               v = (height_ - 2 * y) / height_ * half_ + shiftY_;
  return Normalized(ahead_ + right_ * u + up_ * v);
}

double Camera::PixelAngle() const { return 2 * half_ / height_; }

QImage TakePicture(const Tracer& tracer, const Camera& camera) {
  const int width = camera.Width(), height = camera.Height();
  const double pixel = camera.PixelAngle();
  const auto take = [&](double x, double y) {
    return Developed(tracer.Radiance(camera.Position(), camera.Direction(x, y), pixel));
  };
  std::vector<Vec> first(size_t(width) * size_t(height));
  size_t at = 0;
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x) first[at++] = take(x + 0.5, y + 0.5);

  constexpr int Side = 3;  // of the square of further rays
  QImage picture(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < width; ++x) {
      const size_t here = size_t(y) * size_t(width) + size_t(x);
      const size_t row = size_t(width);
      Vec c = first[here];
      if ((x > 0 && Differ(c, first[here - 1])) || (x + 1 < width && Differ(c, first[here + 1])) ||
          (y > 0 && Differ(c, first[here - row])) || (y + 1 < height && Differ(c, first[here + row]))) {
        c = {};
        for (int k = 0; k < Side * Side; ++k)
          c += take(x + (k % Side + 0.5) / Side, y + (k / Side + 0.5) / Side) * (1.0 / (Side * Side));
      }
      const double dx = double(x) / width - 0.5, dy = double(y) / height - 0.5;
      c = c * (1 - 0.22 * (dx * dx + dy * dy) * 2 * (dx * dx + dy * dy));
      const double grain = 1.2 * (Hash(x, y, 1) - 0.5) + 0.5;  // keeps soft gradients from showing steps
      const auto level = [&](double v) { return std::clamp(int(v + grain), 0, 255); };
      line[x] = qRgb(level(c.x), level(c.y), level(c.z));
    }
  }
  return picture;
}

}  // namespace vorlina::studio
