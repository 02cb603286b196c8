// Follows rays into the scene.
#pragma once

#include "Studio.h"

namespace vorlina::studio {

class Tracer {
 public:
  Tracer(const Scene& scene, const Studio& studio) : scene_(scene), studio_(studio) {}
  // Light that comes along the ray; `pixel` is the width of a pixel at distance 1.
  Vec Radiance(Vec from, Vec direction, double pixel, int depth = 0) const;

 private:
  // Distance to the first surface, or below 0 for none.
  double Hit(Vec from, Vec direction, double pixel, const Body** body) const;
  Vec Opaque(const Body& body, Vec p, Vec n, Vec direction, double pixel, int depth) const;
  Vec Through(const Body& body, Vec p, Vec n, Vec direction, double pixel, int depth) const;

  const Scene& scene_;
  const Studio& studio_;
};

}  // namespace vorlina::studio
