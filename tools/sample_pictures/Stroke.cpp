// The marks a brush or a graver leaves. Each mark is given in a cell: across runs about the axis and up along
// the painted stretch, both in centimetres from the cell's centre.
#include "Material.h"
#include "Noise.h"

namespace vorlina::studio {
namespace {

struct Cell {
  double across, up;
  double width, height;
  int column, row;
};

Cell CellAt(const Stroke& s, const Spot& spot, double along) {
  Cell c{};
  c.height = (s.to - s.from) / s.rows;
  const double v = (along - s.from) / c.height;
  c.row = int(std::floor(v));
  const double u = spot.around * s.n + s.shift + (c.row % 2 != 0 ? 0.5 : 0.0);
  c.column = int(std::floor(u)) % std::max(1, int(s.n));
  c.width = 2 * Pi * spot.radius / s.n;
  c.across = (u - std::floor(u) - 0.5) * c.width;
  c.up = (v - std::floor(v) - 0.5) * c.height;
  return c;
}

constexpr double Soft = 0.025;  // half the width of a painted edge, cm

double Within(double distance, double limit) { return 1 - Smooth(limit - Soft, limit + Soft, distance); }

// A pointed oval of that length and half width, lying across.
double Almond(double across, double up, double length, double halfWidth) {
  const double t = across / length;
  return std::abs(t) >= 1 ? 0.0 : Within(std::abs(up), halfWidth * (1 - t * t));
}

double Leaf(const Cell& c, double size) {
  const double lean = c.column % 2 == 0 ? 0.75 : -0.75;
  const double x = c.across * std::cos(lean) + c.up * std::sin(lean);
  const double y = c.up * std::cos(lean) - c.across * std::sin(lean);
  const double vein = Within(std::abs(y), 0.018);
  return std::max(0.0, Almond(x, y, size, size * 0.36) - 0.55 * vein);
}

double Petal(const Cell& c, double size) {
  const double r = std::hypot(c.across, c.up);
  const double a = std::atan2(c.up, c.across);
  const double edge = size * (0.62 + 0.38 * std::abs(std::cos(2.5 * a)));
  return Within(r, edge) * Smooth(size * 0.16, size * 0.24, r);
}

double Line(const Stroke& s, const Spot& spot, double along) {
  const double middle = (s.from + s.to) / 2, reach = (s.to - s.from) / 2;
  const double phase = spot.around * s.n + s.shift;
  const double at =
      s.kind == Stroke::Kind::Waves ? std::sin(2 * Pi * phase) : 4 * std::abs(Fract(phase) - 0.5) - 1;
  return Within(std::abs(along - middle - reach * at) * 0.8, s.size / 2);
}

double Mark(const Stroke& s, const Spot& spot, double along) {
  const Cell c = CellAt(s, spot, along);
  switch (s.kind) {
    case Stroke::Kind::Dots:
      return Within(std::hypot(c.across, c.up), s.size);
    case Stroke::Kind::Leaves:
      return Leaf(c, s.size);
    case Stroke::Kind::Petals:
      return Petal(c, s.size);
    case Stroke::Kind::Fruit:
      return Almond(c.across, c.up, s.size, s.size * 0.72);
    case Stroke::Kind::Checks:
      return (int(std::floor(spot.around * s.n + s.shift)) + c.row) % 2 == 0 ? 1.0 : 0.0;
    case Stroke::Kind::Lines:
      return Within(std::abs(c.across), s.size / 2);
    case Stroke::Kind::Sun:
      return Within(std::abs(c.across), c.width * 0.5 * Clamp01(0.5 - c.up / c.height));
    case Stroke::Kind::Scales: {
      const double r = std::hypot(c.across / c.width, c.up / c.height + 0.5);
      return 1 - Smooth(0.03, 0.09, std::abs(r - 0.5) - s.size * 0.1);
    }
    case Stroke::Kind::Spiral: {
      const double u = Fract(spot.around * s.n + (along - s.from) / (s.to - s.from) * s.rows) - 0.5;
      return Within(std::abs(u) * c.width, s.size / 2);
    }
    default:
      return 1;
  }
}

double Texture(const Stroke& s, const Spot& spot, double along) {
  const Vec p = spot.at * (1 / s.size);
  switch (s.kind) {
    case Stroke::Kind::Sponge:
      return Smooth(0.5, 0.62, Fractal(p, 4));
    case Stroke::Kind::Speckle: {
      const Cells cells = ScatteredCells(p);
      return cells.random < 0.45 ? Within(cells.first * s.size, s.size * (0.08 + 0.3 * cells.random)) : 0.0;
    }
    case Stroke::Kind::Crackle: {
      const Cells cells = ScatteredCells(p + Vec{1, 1, 1} * (0.3 * Noise(p * 1.7)));
      return 0.75 * (1 - Smooth(0.0, 0.035, cells.second - cells.first));
    }
    case Stroke::Kind::Brush:
      return Smooth(0.42, 0.75, Fractal({spot.at.x * 0.35, spot.at.y / s.size, spot.at.z * 0.35}, 3));
    case Stroke::Kind::Veins: {
      const double v = std::abs(Fractal(p, 4) - 0.5);
      return 1 - Smooth(0.0, 0.03, v);
    }
    case Stroke::Kind::Fade:
      return Smooth(s.from, s.to, along);
    case Stroke::Kind::Drip: {
      const double turn = spot.around * 2 * Pi;
      const Vec ring{std::cos(turn) * s.n / 6, 0, std::sin(turn) * s.n / 6};
      const double reach = Fractal(ring + Vec{3.3 + s.shift, 0, 7}, 2);
      return Smooth(-0.06, 0.06, along - Mix(s.to, s.from, Smooth(0.25, 0.75, reach)));
    }
    default:
      return 0;
  }
}

bool OnSide(const Stroke& s, const Spot& spot) {
  const double outward = spot.at.x * spot.normal.x + spot.at.z * spot.normal.z;
  switch (s.side) {
    case Stroke::Side::Out:
      return outward > -0.1 * spot.radius;
    case Stroke::Side::In:
      return outward < 0.1 * spot.radius;
    case Stroke::Side::Up:
      return spot.normal.y > 0.05;
    case Stroke::Side::Any:
      return true;
  }
  return true;
}

}  // namespace

double Coverage(const Stroke& s, const Spot& spot) {
  using enum Stroke::Kind;
  if (!OnSide(s, spot)) return 0;
  const double along = s.alongRadius ? spot.radius : spot.at.y;
  if (s.kind == Fade || s.kind == Drip) return Texture(s, spot, along);
  if (along < s.from - 2 * Soft || along > s.to + 2 * Soft) {
    if (s.kind != Waves && s.kind != Zigzag) return 0;
    if (along < s.from - s.size || along > s.to + s.size) return 0;
  }
  // A hand's unevenness.
  const double turn = spot.around * 2 * Pi;
  const double sway = 0.05 * (Noise({std::cos(turn) * 3, s.from, std::sin(turn) * 3}) - 0.5);
  const double edges = Smooth(s.from - Soft, s.from + Soft, along + sway) *
                       (1 - Smooth(s.to - Soft, s.to + Soft, along + sway));
  if (s.kind == Waves || s.kind == Zigzag) return Line(s, spot, along + sway);
  if (s.kind == Sponge || s.kind == Speckle || s.kind == Crackle || s.kind == Brush || s.kind == Veins)
    return edges * Texture(s, spot, along);
  return edges * Mark(s, spot, along);
}

}  // namespace vorlina::studio
