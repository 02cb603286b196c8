#include "DistanceGrid.h"

namespace vorlina::studio {
namespace {

constexpr int LongerSide = 640;

struct Nearest {
  double distance;
  double along;  // where on the line, 0 to 1 by number of pieces
};

Nearest NearestOn(const std::vector<Vec>& line, bool closed, double x, double y) {
  double best = 1e18, along = 0;
  const size_t pieces = closed ? line.size() : line.size() - 1;
  for (size_t i = 0; i < pieces; ++i) {
    const Vec& a = line[i];
    const Vec& b = line[(i + 1) % line.size()];
    const double dx = b.x - a.x, dy = b.y - a.y;
    const double t = Clamp01(((x - a.x) * dx + (y - a.y) * dy) / std::max(dx * dx + dy * dy, 1e-18));
    const double ex = x - a.x - t * dx, ey = y - a.y - t * dy;
    const double d = ex * ex + ey * ey;
    if (d < best) {
      best = d;
      along = (double(i) + t) / double(pieces);
    }
  }
  return {std::sqrt(best), along};
}

// The smooth curve through four values, between the second and the third.
double Cubic(double a, double b, double c, double d, double t) {
  return b + 0.5 * t * (c - a + t * (2 * a - 5 * b + 4 * c - d + t * (3 * (b - c) + d - a)));
}

bool Encloses(const std::vector<Vec>& ring, double x, double y) {
  bool inside = false;
  for (size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++)
    if ((ring[i].y > y) != (ring[j].y > y) &&
        x < (ring[j].x - ring[i].x) * (y - ring[i].y) / (ring[j].y - ring[i].y) + ring[i].x)
      inside = !inside;
  return inside;
}

}  // namespace

DistanceGrid::DistanceGrid(const std::vector<Vec>& line, double thick, bool fromAxis)
    : low_(line[0]), high_(line[0]) {
  for (const Vec& p : line) {
    low_ = {std::min(low_.x, p.x), std::min(low_.y, p.y), 0};
    high_ = {std::max(high_.x, p.x), std::max(high_.y, p.y), 0};
  }
  low_ = low_ - Vec{thick, thick, 0};
  high_ += Vec{thick, thick, 0};
  if (fromAxis) low_.x = 0;
  const double margin = 0.08 * std::max(high_.x - low_.x, high_.y - low_.y);
  start_ = low_ - Vec{margin, margin, 0};
  if (fromAxis) start_.x = 0;
  last_ = high_ + Vec{margin, margin, 0};
  cell_ = std::max(last_.x - start_.x, last_.y - start_.y) / (LongerSide - 1);
  perCell_ = 1 / cell_;
  columns_ = std::max(2, int(std::ceil((last_.x - start_.x) / cell_)) + 1);
  rows_ = std::max(2, int(std::ceil((last_.y - start_.y) / cell_)) + 1);
  last_ = start_ + Vec{(columns_ - 1) * cell_, (rows_ - 1) * cell_, 0};
  values_.resize(size_t(columns_) * size_t(rows_));
}

template <class Distance>
void DistanceGrid::Fill(Distance distance) {
  size_t at = 0;
  for (int j = 0; j < rows_; ++j)
    for (int i = 0; i < columns_; ++i)
      values_[at++] = float(distance(start_.x + i * cell_, start_.y + j * cell_));
}

DistanceGrid DistanceGrid::Wall(const std::vector<Vec>& line, double atStart, double atEnd) {
  DistanceGrid grid(line, std::max(atStart, atEnd) / 2, true);
  grid.Fill([&](double x, double y) {
    const Nearest near = NearestOn(line, false, x, y);
    return near.distance - Mix(atStart, atEnd, near.along) / 2;
  });
  return grid;
}

std::pair<DistanceGrid, DistanceGrid> DistanceGrid::Line(const std::vector<Vec>& line, double margin) {
  DistanceGrid distance(line, margin, false), along(line, margin, false);
  distance.Fill([&](double x, double y) { return NearestOn(line, false, x, y).distance; });
  along.Fill([&](double x, double y) { return NearestOn(line, false, x, y).along; });
  return {std::move(distance), std::move(along)};
}

DistanceGrid DistanceGrid::Solid(const std::vector<Vec>& line, bool open, double rounding) {
  std::vector<Vec> ring = line;
  if (open) {
    ring.push_back({0, line.back().y, 0});
    ring.push_back({0, line.front().y, 0});
  }
  DistanceGrid grid(line, rounding, open);
  grid.Fill([&](double x, double y) {
    const double d = NearestOn(line, !open, x, y).distance;
    return (Encloses(ring, x, y) ? -d : d) - rounding;
  });
  return grid;
}

double DistanceGrid::At(double x, double y) const {
  const double cx = std::clamp(x, start_.x, last_.x), cy = std::clamp(y, start_.y, last_.y);
  const double u = (cx - start_.x) * perCell_, v = (cy - start_.y) * perCell_;
  const int i = std::min(int(u), columns_ - 2), j = std::min(int(v), rows_ - 2);
  const double s = u - i, t = v - j;
  const float* at = values_.data() + size_t(j) * size_t(columns_) + size_t(i);
  const double below = at[0] + (at[1] - at[0]) * s,
               above = at[columns_] + (at[columns_ + 1] - at[columns_]) * s;
  double d = below + (above - below) * t;
  // Near the surface, where the normal is taken, straight pieces between the grid's points would show.
  if (std::abs(d) < 6 * cell_ && i > 0 && j > 0 && i < columns_ - 2 && j < rows_ - 2) {
    double rows[4];
    for (int k = 0; k < 4; ++k) {
      const float* row = at + (k - 1) * columns_;
      rows[k] = Cubic(double(row[-1]), double(row[0]), double(row[1]), double(row[2]), s);
    }
    d = Cubic(rows[0], rows[1], rows[2], rows[3], t);
  }
  if (cx == x && cy == y) return d;
  return std::sqrt((x - cx) * (x - cx) + (y - cy) * (y - cy) + d * d);
}

}  // namespace vorlina::studio
