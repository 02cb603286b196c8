#include "images/Resample.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vorlina {
namespace {

constexpr double Lobes = 3;

double Sinc(double x) {
  if (std::abs(x) < 1e-9) return 1;
  const double angle = std::numbers::pi * x;
  return std::sin(angle) / angle;
}

double Lanczos(double x) { return std::abs(x) < Lobes ? Sinc(x) * Sinc(x / Lobes) : 0; }

// Sums are taken over groups of this many products at a time, which the compiler makes one instruction of.
constexpr int Group = 4;

// For every target position the first source position and the weights from there on, which add up to one. The
// number of weights is a multiple of Group, with zeros at the end.
struct Weights {
  int taps = 0;
  std::vector<int> first;
  std::vector<float> weights;

  Weights(int from, int to) : first(std::size_t(to)) {
    const double scale = double(from) / to;
    const double widening = std::max(scale, 1.0);
    reach_ = Lobes * widening;
    within_ = int(std::ceil(2 * reach_));
    inUse_ = std::min(from, within_);
    taps = (inUse_ + Group - 1) / Group * Group;
    weights.resize(std::size_t(to) * std::size_t(taps));
    for (int i = 0; i < to; ++i) FillRow(i, from, scale, widening);
  }

  const float* Of(int i) const { return weights.data() + std::size_t(i) * std::size_t(taps); }

 private:
  // Weights that fall outside are given to the border's sample, so that edges keep their brightness.
  void FillRow(int i, int from, double scale, double widening) {
    const double centre = (i + 0.5) * scale - 0.5;
    const int ideal = int(std::floor(centre - reach_)) + 1;
    const int start = std::clamp(ideal, 0, from - inUse_);
    first[std::size_t(i)] = start;
    float* row = weights.data() + std::size_t(i) * std::size_t(taps);
    double sum = 0;
    for (int position = ideal; position < ideal + within_; ++position) {
      const double weight = Lanczos((position - centre) / widening);
      row[std::clamp(position, 0, from - 1) - start] += float(weight);
      sum += weight;
    }
    for (int tap = 0; tap < inUse_; ++tap) row[tap] = float(row[tap] / sum);
  }

  double reach_ = 0;  // on either side, in source positions
  int within_ = 0;    // how many of them are no farther than that
  int inUse_ = 0;
};

std::uint8_t ToSample(float value) { return std::uint8_t(std::clamp(value + 0.5F, 0.0F, 255.0F)); }

// The rows of a plane as numbers to calculate with: each is converted once, while a window moves down over
// them.
class FloatRows {
 public:
  FloatRows(const Plane& plane, int window)
      : plane_(plane), held_(std::size_t(window), -1), rows_(std::size_t(window)) {}

  const std::vector<float>& Row(int y) {
    const std::size_t slot = std::size_t(y) % held_.size();
    if (held_[slot] != y) {
      rows_[slot].assign(plane_.Row(y), plane_.Row(y) + plane_.width);
      held_[slot] = y;
    }
    return rows_[slot];
  }

 private:
  const Plane& plane_;
  std::vector<int> held_;
  std::vector<std::vector<float>> rows_;
};

// One target row out of the source rows around it, before the horizontal pass.
void MixRows(FloatRows& rows, const Weights& vertical, int y, const Plane& plane, std::vector<float>& mixed) {
  std::fill(mixed.begin(), mixed.end(), 0.0F);
  const float* weights = vertical.Of(y);
  for (int tap = 0; tap < vertical.taps; tap += Group) {
    const float* row[Group];
    for (int i = 0; i < Group; ++i)
      row[i] = rows.Row(std::min(vertical.first[std::size_t(y)] + tap + i, plane.height - 1)).data();
    const float* weight = weights + tap;
    for (int x = 0; x < plane.width; ++x)
      mixed[std::size_t(x)] +=
          weight[0] * row[0][x] + weight[1] * row[1][x] + (weight[2] * row[2][x] + weight[3] * row[3][x]);
  }
}

void MixColumns(const std::vector<float>& mixed, const Weights& horizontal, std::uint8_t* target, int width) {
  for (int x = 0; x < width; ++x) {
    const float* weights = horizontal.Of(x);
    const float* source = mixed.data() + horizontal.first[std::size_t(x)];
    float sums[Group] = {};
    for (int tap = 0; tap < horizontal.taps; tap += Group)
      for (int i = 0; i < Group; ++i) sums[i] += weights[tap + i] * source[tap + i];
    target[x] = ToSample(sums[0] + sums[1] + (sums[2] + sums[3]));
  }
}

// Half the size by the mean of each four samples; a last odd row or column is left out of the means beside
// it.
Plane Halve(const Plane& plane) {
  Plane half(plane.width / 2, plane.height / 2);
  for (int y = 0; y < half.height; ++y) {
    const std::uint8_t* upper = plane.Row(2 * y);
    const std::uint8_t* lower = plane.Row(2 * y + 1);
    std::uint8_t* target = half.Row(y);
    for (int x = 0; x < half.width; ++x)
      target[x] = std::uint8_t((upper[2 * x] + upper[2 * x + 1] + lower[2 * x] + lower[2 * x + 1] + 2) / 4);
  }
  return half;
}

Plane Turn(const Plane& plane, int orientation) {
  Plane turned =
      SwapsSides(orientation) ? Plane(plane.height, plane.width) : Plane(plane.width, plane.height);
  const int right = plane.width - 1;
  const int bottom = plane.height - 1;
  for (int y = 0; y < turned.height; ++y) {
    std::uint8_t* row = turned.Row(y);
    for (int x = 0; x < turned.width; ++x) {
      switch (orientation) {
        case 2:
          row[x] = plane.Row(y)[right - x];
          break;
        case 3:
          row[x] = plane.Row(bottom - y)[right - x];
          break;
        case 4:
          row[x] = plane.Row(bottom - y)[x];
          break;
        case 5:
          row[x] = plane.Row(x)[y];
          break;
        case 6:
          row[x] = plane.Row(bottom - x)[y];
          break;
        case 7:
          row[x] = plane.Row(bottom - x)[right - y];
          break;
        default:
          row[x] = plane.Row(x)[right - y];
          break;
      }
    }
  }
  return turned;
}

}  // namespace

Plane Resample(const Plane& plane, int width, int height) {
  if (plane.width == width && plane.height == height) return plane;
  const Weights horizontal(plane.width, width);
  const Weights vertical(plane.height, height);
  Plane target(width, height);
  FloatRows rows(plane, vertical.taps);
  std::vector<float> mixed(std::size_t(plane.width + Group));
  for (int y = 0; y < height; ++y) {
    MixRows(rows, vertical, y, plane, mixed);
    MixColumns(mixed, horizontal, target.Row(y), width);
  }
  return target;
}

PlanarImage Resample(PlanarImage image, QSize size) {
  const QSize half((size.width() + 1) / 2, (size.height() + 1) / 2);
  // The encoder takes chroma of the full or the half size, both planes alike.
  const bool alike = image.planes.size() < 3 || (image.planes[1].width == image.planes[2].width &&
                                                 image.planes[1].height == image.planes[2].height);
  const bool stays = image.Size() == size && alike;
  image.planes[0] = Resample(image.planes[0], size.width(), size.height());
  for (std::size_t i = 1; i < image.planes.size(); ++i) {
    Plane& chroma = image.planes[i];
    const bool storable = (chroma.width == size.width() || chroma.width == half.width()) &&
                          (chroma.height == size.height() || chroma.height == half.height());
    if (stays && storable) continue;
    // The decoder gives chroma up to twice as fine as the rest needs it; the eye sees no difference to the
    // better filter.
    while (chroma.width % 2 == 0 && chroma.height % 2 == 0 && chroma.width / 2 >= half.width() &&
           chroma.height / 2 >= half.height())
      chroma = Halve(chroma);
    chroma = Resample(chroma, half.width(), half.height());
  }
  return image;
}

PlanarImage Upright(PlanarImage image, int orientation) {
  if (orientation <= 1 || orientation > 8) return image;
  for (Plane& plane : image.planes) plane = Turn(plane, orientation);
  return image;
}

}  // namespace vorlina
