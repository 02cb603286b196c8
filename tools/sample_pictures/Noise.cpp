#include "Noise.h"

#include <cstdint>

namespace vorlina::studio {
namespace {
std::uint32_t Scramble(std::uint32_t v) {
  v ^= v >> 16;
  v *= 0x7feb352dU;
  v ^= v >> 15;
  v *= 0x846ca68bU;
  return v ^ (v >> 16);
}
std::uint32_t Key(int x, int y, int z) {
  return std::uint32_t(x) * 73856093U ^ std::uint32_t(y) * 19349663U ^ std::uint32_t(z) * 83492791U;
}
}  // namespace

double Hash(int x, int y, int z) { return Scramble(Key(x, y, z)) * (1.0 / 4294967296.0); }

double Noise(Vec p) {
  const double fx = std::floor(p.x), fy = std::floor(p.y), fz = std::floor(p.z);
  const int x = int(fx), y = int(fy), z = int(fz);
  const auto ease = [](double t) { return t * t * (3 - 2 * t); };
  const double u = ease(p.x - fx), v = ease(p.y - fy), w = ease(p.z - fz);
  const auto alongX = [&](int j, int k) { return Mix(Hash(x, j, k), Hash(x + 1, j, k), u); };
  return Mix(Mix(alongX(y, z), alongX(y + 1, z), v), Mix(alongX(y, z + 1), alongX(y + 1, z + 1), v), w);
}

double Fractal(Vec p, int octaves) {
  double sum = 0, weight = 0.5, total = 0;
  for (int i = 0; i < octaves; ++i) {
    sum += weight * Noise(p);
    total += weight;
    weight *= 0.5;
    p = p * 2.03 + Vec{17.1, 5.3, 9.7};
  }
  return sum / total;
}

Cells ScatteredCells(Vec p) {
  const int x = int(std::floor(p.x)), y = int(std::floor(p.y)), z = int(std::floor(p.z));
  Cells best{9, 9, 0};
  for (int k = z - 1; k <= z + 1; ++k)
    for (int j = y - 1; j <= y + 1; ++j)
      for (int i = x - 1; i <= x + 1; ++i) {
        const std::uint32_t h = Scramble(Key(i, j, k) + 101U);
        const Vec at{i + (h & 1023U) / 1024.0, j + ((h >> 10) & 1023U) / 1024.0,
                     k + ((h >> 20) & 1023U) / 1024.0};
        const double d = Dot(at - p, at - p);
        if (d < best.first)
          best = {d, best.first, (Scramble(h) & 0xffffU) / 65536.0};
        else
          best.second = std::min(best.second, d);
      }
  return {std::sqrt(best.first), std::sqrt(best.second), best.random};
}

}  // namespace vorlina::studio
