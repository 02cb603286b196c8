// Points, directions and linear colours in three dimensions. Lengths are centimetres.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>

namespace vorlina::studio {

struct Vec {
  double x = 0, y = 0, z = 0;
};

inline constexpr double Pi = 3.14159265358979323846;

inline Vec operator+(Vec a, Vec b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
inline Vec operator-(Vec a, Vec b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
inline Vec operator*(Vec a, Vec b) { return {a.x * b.x, a.y * b.y, a.z * b.z}; }
inline Vec operator*(Vec a, double k) { return {a.x * k, a.y * k, a.z * k}; }
inline Vec operator*(double k, Vec a) { return a * k; }
inline Vec operator-(Vec a) { return {-a.x, -a.y, -a.z}; }
inline Vec& operator+=(Vec& a, Vec b) { return a = a + b; }

inline double Dot(Vec a, Vec b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline double Length(Vec a) { return std::sqrt(Dot(a, a)); }
inline Vec Normalized(Vec a) { return a * (1 / std::max(Length(a), 1e-12)); }
inline Vec Cross(Vec a, Vec b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline Vec Reflect(Vec d, Vec n) { return d - n * (2 * Dot(d, n)); }

inline double Clamp01(double v) { return std::clamp(v, 0.0, 1.0); }
inline double Mix(double a, double b, double t) { return a + (b - a) * t; }
inline Vec Mix(Vec a, Vec b, double t) { return a + (b - a) * t; }
// 0 below a, 1 above b, smooth between; a may be above b.
inline double Smooth(double a, double b, double v) {
  const double t = Clamp01((v - a) / (b - a));
  return t * t * (3 - 2 * t);
}
inline double Fract(double v) { return v - std::floor(v); }

// A turn of the axes: the rows are the turned axes.
struct Rotation {
  std::array<Vec, 3> rows{{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

  Vec Apply(Vec v) const { return {Dot(rows[0], v), Dot(rows[1], v), Dot(rows[2], v)}; }
  Vec Back(Vec v) const { return rows[0] * v.x + rows[1] * v.y + rows[2] * v.z; }
};

// First by roll about x, then by tilt about z, then by turn about y; degrees.
Rotation RotationOf(double turn, double tilt, double roll);
// The rotation that does a first, then b.
Rotation Then(const Rotation& a, const Rotation& b);

}  // namespace vorlina::studio
