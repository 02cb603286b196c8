#include "Tracer.h"

#include <optional>

#include "Noise.h"

namespace vorlina::studio {
namespace {

constexpr double GlassIndex = 1.48;

bool Clip(const Box& box, Vec o, Vec d, double& start, double& end) {
  const double from[3] = {o.x, o.y, o.z}, way[3] = {d.x, d.y, d.z};
  const double low[3] = {box.low.x, box.low.y, box.low.z}, high[3] = {box.high.x, box.high.y, box.high.z};
  for (int i = 0; i < 3; ++i) {
    const double inverse = 1 / (std::abs(way[i]) < 1e-9 ? 1e-9 : way[i]);
    const double a = (low[i] - from[i]) * inverse, b = (high[i] - from[i]) * inverse;
    start = std::max(start, std::min(a, b));
    end = std::min(end, std::max(a, b));
  }
  return start < end;
}

double Fresnel(double mirror, double facing) {
  const double c = 1 - Clamp01(facing), c2 = c * c;
  return mirror + (1 - mirror) * c2 * c2 * c;
}

std::optional<Vec> Refract(Vec d, Vec n, double ratio) {
  const double c = -Dot(d, n), k = 1 - ratio * ratio * (1 - c * c);
  if (k < 0) return {};
  return Normalized(d * ratio + n * (ratio * c - std::sqrt(k)));
}

// A step that smooths over the cells of a body's grid.
double StepFor(const Body& body, double extent) {
  return body.grid != nullptr ? 1.2 * body.grid->Cell() : 0.004 * extent;
}

// Small hills of a hand-made surface.
Vec Uneven(const Material& m, Vec own, Vec n) {
  if (m.ripple > 0) {
    const Vec p = own * 0.55;
    n += Vec{Noise(p) - 0.5, Noise(p + Vec{31, 0, 0}) - 0.5, Noise(p + Vec{0, 47, 0}) - 0.5} *
         (0.16 * m.ripple);
  }
  if (m.grooves > 0) n.y += 0.09 * std::sin(own.y * 2 * Pi / m.grooves + 2 * Noise(own * 0.8));
  return Normalized(n);
}

}  // namespace

double Tracer::Hit(Vec o, Vec d, double pixel, const Body** body) const {
  Box box = scene_.Bounds();
  const double air = 0.02 * studio_.Extent();
  box.low = box.low - Vec{air, air, air};
  box.high += Vec{air, air, air};
  double t = 0, end = 1e9;
  if (!Clip(box, o, d, t, end)) return -1;
  if (d.y < 0) end = std::min(end, -o.y / d.y);
  for (int i = 0; i < 160 && t < end; ++i) {
    const Scene::Nearest near = scene_.At(o + d * t);
    if (near.distance < pixel * t * 0.3 + 1e-5 * studio_.Extent()) {
      *body = near.body;
      // Right onto the surface: how many steps led here must not show.
      for (int k = 0; k < 3; ++k) t += 0.9 * scene_.Distance(o + d * t);
      return t;
    }
    t += near.distance;
  }
  return -1;
}

Vec Tracer::Opaque(const Body& body, Vec p, Vec n, Vec d, double pixel, int depth) const {
  const Vec own = body.ToOwn(p), ownNormal = body.rotation.Back(n);
  const double radius = std::hypot(own.x, own.z);
  Spot spot{own, ownNormal, Fract(std::atan2(own.z, own.x) / (2 * Pi)), radius, 0};
  if (body.kind == Body::Kind::Board) spot.radius = std::hypot(own.x, own.y);
  if (body.material.wantsBulge) {
    const Vec across = Normalized(Cross(n, std::abs(n.y) < 0.9 ? Vec{0, 1, 0} : Vec{1, 0, 0}));
    const Vec along = Cross(n, across);
    const double h = std::max(0.22, 2.5 * StepFor(body, studio_.Extent()));
    double sum = 0;
    for (const Vec& way : {across, -across, along, -along}) sum += scene_.Distance(p + way * h);
    spot.bulge = sum / (2 * h);
  }
  const Surface s = SurfaceAt(body.material, spot);
  const double open = studio_.Openness(p, n);
  const Vec bent = body.rotation.Apply(Uneven(body.material, own, ownNormal));
  const Vec mirrored = Reflect(d, bent);
  const double part = Fresnel(s.mirror, -Dot(d, bent)) * Mix(0.25, 1.0, s.gloss);
  if (!s.metal) {
    const Vec light = studio_.LightAt(p, bent, open);
    return s.colour * light * (1 - part) + studio_.Environment(mirrored, s.gloss) * (part * open * open);
  }
  Vec seen = studio_.Environment(mirrored, s.gloss);
  if (depth < 2) {
    const Body* other = nullptr;
    const Vec from = p + n * (0.012 * studio_.Extent());
    if (Hit(from, mirrored, pixel * 4, &other) > 0)
      seen = Radiance(from, mirrored, pixel * 4, depth + 2);
    else if (mirrored.y < -0.02)
      seen = studio_.Backdrop(from, mirrored);
  }
  const Vec tint = Mix(s.colour, Vec{1, 1, 1}, Fresnel(0.0, -Dot(d, bent)));
  return tint * seen * Mix(0.45, 1.0, open) + s.colour * studio_.LightAt(p, bent, open) * 0.16;
}

Vec Tracer::Through(const Body& body, Vec p, Vec n, Vec d, double pixel, int depth) const {
  const double skin = std::min(0.004 * studio_.Extent(), 0.04);
  const double step = StepFor(body, studio_.Extent());
  const double part = Fresnel(0.045, -Dot(d, n));
  const Vec mirrored = Reflect(d, n);
  const Vec shine = studio_.Environment(mirrored, 0.95) * (part * 1.1);
  if (depth > 6) return shine + studio_.Backdrop(p, d);
  Vec way = Refract(d, n, 1 / GlassIndex).value_or(d);
  Vec at = p - n * skin;
  double path = 0;
  for (int bounce = 0; bounce < 3; ++bounce) {
    for (int i = 0; i < 240; ++i) {
      const double inside = -scene_.Distance(at);
      if (inside < 0.05 * skin && i > 0) break;
      const double stride = std::max(inside, 0.1 * skin);
      at += way * stride;
      path += stride;
    }
    const Vec out = scene_.NormalAt(at, step);
    if (const auto leaving = Refract(way, -out, GlassIndex)) {
      way = *leaving;
      at += out * skin;
      break;
    }
    way = Reflect(way, out);
    at = at - out * skin;
  }
  const Vec c = body.material.colour;
  const double thick = path * 0.8;
  const Vec tint{std::pow(c.x, thick), std::pow(c.y, thick), std::pow(c.z, thick)};
  return shine + tint * Radiance(at, way, 3 * pixel, depth + 1) * (1 - part);
}

Vec Tracer::Radiance(Vec o, Vec d, double pixel, int depth) const {
  const Body* body = nullptr;
  const double t = Hit(o, d, pixel, &body);
  if (t < 0 || body == nullptr) return studio_.Backdrop(o, d);
  const Vec p = o + d * t;
  const Vec n = scene_.NormalAt(p, StepFor(*body, studio_.Extent()));
  if (body->material.kind == Material::Kind::Glass) return Through(*body, p, n, d, pixel, depth);
  return Opaque(*body, p, n, d, pixel, depth);
}

}  // namespace vorlina::studio
