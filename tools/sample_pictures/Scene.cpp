#include "Scene.h"

namespace vorlina::studio {
namespace {

double RadialOf(const Body& body, Vec p) {
  const double z = p.z / body.aspect;
  double r = 0;
  if (body.squareness == 0) {
    r = std::sqrt(p.x * p.x + z * z);
  } else {
    double x2 = p.x * p.x, z2 = z * z;
    for (int i = 0; i < body.squareness; ++i) {
      x2 *= x2;
      z2 *= z2;
    }
    r = x2 + z2;
    for (int i = 0; i <= body.squareness; ++i) r = std::sqrt(r);
  }
  if (body.flutes > 0)
    r /= 1 + body.fluteDepth * std::cos(body.flutes * std::atan2(p.z, p.x) + body.twist * p.y);
  return r;
}

double BoardDistance(const Body& body, Vec p) {
  const double across = body.grid->At(p.x, p.y) + body.rounding;
  const double deep = std::abs(p.z) - body.halfThickness + body.rounding;
  const double outside = Length({std::max(across, 0.0), std::max(deep, 0.0), 0});
  return outside + std::min(std::max(across, deep), 0.0) - body.rounding;
}

double BentRodDistance(const Body& body, Vec p) {
  double best = 1e9;
  const size_t pieces = body.rod.size() - 1;
  for (size_t i = 0; i < pieces; ++i) {
    const Vec a = body.rod[i], ab = body.rod[i + 1] - a, ap = p - a;
    const double t = Clamp01(Dot(ap, ab) / std::max(Dot(ab, ab), 1e-12));
    const double radius = Mix(body.rodStart, body.rodEnd, (double(i) + t) / double(pieces));
    best = std::min(best, Length(ap - ab * t) - radius);
  }
  return best;
}

double RodDistance(const Body& body, Vec p) {
  p.z = body.rod[0].z + (p.z - body.rod[0].z) / body.flat;
  double best = 1e9;
  const size_t pieces = body.rod.size() - 1;
  if (body.grid != nullptr) {
    const double off = body.grid->At(p.x, p.y), z = p.z - body.rod[0].z;
    const double radius = Mix(body.rodStart, body.rodEnd, Clamp01(body.along->At(p.x, p.y)));
    best = std::sqrt(off * off + z * z) - radius;
  } else {
    best = BentRodDistance(body, p);
  }
  if (body.hollow > 0) {
    const Vec end = body.rod.back(), way = Normalized(end - body.rod[pieces - 1]);
    const Vec from = p - end;
    const double along = Dot(from, way);
    const double off = along > -1.6 * body.rodEnd ? Length(from - way * along) : 1e9;
    best = std::max({best, body.hollow * body.rodEnd - off, along - 0.15 * body.rodEnd});
  }
  return best;
}

double SoftMin(double a, double b, double k) {
  const double h = std::max(k - std::abs(a - b), 0.0) / k;
  return std::min(a, b) - h * h * k * 0.25;
}

}  // namespace

void Box::Add(Vec p) {
  low = {std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)};
  high = {std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)};
}

double Body::Distance(Vec inStudio) const {
  const Vec p = ToOwn(inStudio);
  switch (kind) {
    case Kind::Turned:
      return grid->At(RadialOf(*this, p), p.y) * (flutes > 0 ? 0.75 : 1.0);
    case Kind::Board:
      return BoardDistance(*this, p);
    case Kind::Rod:
      return RodDistance(*this, p);
  }
  return 1e9;
}

Scene::Nearest Scene::At(Vec p) const {
  Nearest best{1e9, nullptr};
  double closest = 1e9;  // by a body alone, before blending
  const Body* last = last_ < bodies_.size() ? &bodies_[last_] : nullptr;
  const double atLast = last != nullptr ? last->Distance(p) : 1e9;
  for (const Body& body : bodies_) {
    const Vec off = p - body.middle;
    const double near = std::min(best.distance, atLast) + body.blend + body.reach;
    if (&body != last && (near < 0 || Dot(off, off) > near * near)) continue;
    const double d = &body == last ? atLast : body.Distance(p);
    const bool joined = body.blend > 0 && best.body != nullptr && best.body->piece == body.piece;
    const double total = joined ? SoftMin(best.distance, d, body.blend) : std::min(best.distance, d);
    if (d < closest) {
      closest = d;
      best.body = &body;
    }
    best.distance = total;
  }
  last_ = size_t(best.body - bodies_.data());
  return best;
}

Vec Scene::NormalAt(Vec p, double h) const {
  static constexpr Vec corners[4] = {{1, -1, -1}, {-1, -1, 1}, {-1, 1, -1}, {1, 1, 1}};
  Vec n;
  for (const Vec& corner : corners) n += corner * Distance(p + corner * h);
  return Normalized(n);
}

}  // namespace vorlina::studio
