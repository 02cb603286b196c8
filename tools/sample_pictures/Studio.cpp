#include "Studio.h"

#include <QHash>

#include "Noise.h"
#include "base/Error.h"

namespace vorlina::studio {
namespace {

const Vec KeyColour{1.50, 1.44, 1.36};
const Vec RoomColour{0.42, 0.44, 0.47};
const Vec FillColour{0.22, 0.23, 0.25};

struct Paper {
  const char* paper;
  const char* wall;
};

Paper PaperNamed(const QString& name) {
  static const QHash<QString, Paper> papers{
      {u"white"_qs, {"#e9e7e3", "#e3e1dd"}}, {u"sand"_qs, {"#dccfbb", "#d2c3ac"}},
      {u"grey"_qs, {"#bdbcb9", "#a9a8a6"}},  {u"sage"_qs, {"#c3cbb8", "#b0baa4"}},
      {u"sky"_qs, {"#c4d2da", "#aebfca"}},   {u"blush"_qs, {"#e2cbbf", "#d6b9ab"}},
      {u"straw"_qs, {"#e0d2a6", "#d5c492"}}, {u"night"_qs, {"#4a4f57", "#3a3f47"}},
      {u"coal"_qs, {"#5d5751", "#453f3a"}},  {u"clay"_qs, {"#c79e82", "#b98d70"}},
      {u"mist"_qs, {"#d6d9db", "#c5cacd"}},  {u"teal"_qs, {"#7c9c9b", "#688a8a"}}};
  const auto found = papers.find(name);
  if (found == papers.end()) throw Error(u"unknown backdrop: "_qs + name);
  return *found;
}

Vec LampDirection(const QString& name) {
  static const QHash<QString, Vec> lamps{{u"left"_qs, {-0.75, 0.85, 0.55}},
                                         {u"right"_qs, {0.78, 0.8, 0.5}},
                                         {u"top"_qs, {-0.2, 1.0, 0.25}},
                                         {u"low"_qs, {-0.95, 0.42, 0.45}},
                                         {u"back"_qs, {0.55, 0.75, -0.5}}};
  const auto found = lamps.find(name);
  if (found == lamps.end()) throw Error(u"unknown light: "_qs + name);
  return Normalized(*found);
}

double Panel(double u, double v, double halfU, double halfV, double soft) {
  return Smooth(halfU + soft, halfU - soft, std::abs(u)) * Smooth(halfV + soft, halfV - soft, std::abs(v));
}

}  // namespace

Studio::Studio(const Scene& scene, const QJsonObject& view) : scene_(scene) {
  const Box& box = scene.Bounds();
  const Vec size = box.high - box.low;
  extent_ = std::max({size.x, size.y, size.z});
  depth_ = view[u"depth"].toDouble(extent_);
  middle_ = (box.low + box.high) * 0.5;
  const Paper named = PaperNamed(view[u"backdrop"].toString(u"white"_qs));
  paper_ = ColourOf(QString::fromLatin1(named.paper));
  wall_ = ColourOf(QString::fromLatin1(named.wall));
  const QString cover = view[u"surface"].toString();
  cover_ = cover == u"planks"  ? Cover::Planks
           : cover == u"linen" ? Cover::Linen
           : cover == u"slate" ? Cover::Slate
                               : Cover::Paper;
  planks_.colour = ColourOf(u"#b08a5e"_qs);
  planks_.second = ColourOf(u"#6d4a2c"_qs);
  planks_.grain = {1, 0, 0};
  key_ = LampDirection(view[u"light"].toString(u"left"_qs));
  keyAcross_ = Normalized(Cross({0, 1, 0}, key_));
  keyUp_ = Cross(key_, keyAcross_);
  strip_ = Normalized({key_.x > 0 ? -0.95 : 0.95, 0.25, 0.25});
  CastShadows();
}

Vec Studio::Environment(Vec d, double gloss) const {
  const double blur = 0.03 + 0.55 * (1 - gloss);
  const double up = d.y;
  Vec room = Mix(wall_ * 0.75, RoomColour * 0.5, Smooth(-0.05, 0.8, up));
  room = Mix(paper_ * 0.55, room, Smooth(-0.06 - blur * 0.3, 0.06 + blur * 0.3, up));
  const double towards = Dot(d, key_);
  if (towards > 0.05)
    room += KeyColour * (3.6 / (1 + 2.5 * (blur - 0.03))) *
            Panel(Dot(d, keyAcross_) / towards, Dot(d, keyUp_) / towards, 0.36, 0.46, blur);
  const double side = Dot(d, strip_);
  if (side > 0.05) {
    const Vec across = Normalized(Cross({0, 1, 0}, strip_));
    room += FillColour * 4.5 *
            Panel(Dot(d, across) / side, Dot(d, Cross(strip_, across)) / side, 0.10, 0.7, blur);
  }
  return room;
}

Vec Studio::CoverColour(double x, double z, double distance) const {
  const double fine = Smooth(9 * extent_, 3.5 * extent_, distance);
  if (cover_ == Cover::Planks) {
    const double wide = 11.0, row = std::floor(z / wide + 0.37), in = Fract(z / wide + 0.37);
    Material plank = planks_;
    plank.phase = 0.37 * row;
    const double gap = Smooth(0.012, 0.004, std::min(in, 1 - in));
    const Vec wood = WoodAt(plank, {x + 31 * row, 0.3 * row, z}) * (0.9 + 0.2 * Hash(int(row), 7, 7));
    return Mix(planks_.colour * 0.8, wood * (1 - 0.75 * gap), fine);
  }
  if (cover_ == Cover::Linen) {
    const double warp = Noise({x * 9, 0, z * 1.2}), weft = Noise({x * 1.2, 5, z * 9});
    const double knots = Fractal({x * 0.5, 9, z * 0.5}, 3);
    return paper_ * Mix(1.0, 0.72 + 0.28 * (warp + weft) + 0.12 * (knots - 0.5), fine);
  }
  if (cover_ == Cover::Slate) {
    const double cloud = Fractal({x * 0.9, 3, z * 1.3}, 4);
    const Vec stone = Mix(ColourOf(u"#575c61"_qs), ColourOf(u"#62676c"_qs), Smooth(0.3, 0.7, cloud));
    return Mix(ColourOf(u"#5c6166"_qs), stone, fine);
  }
  return paper_;
}

Vec Studio::Backdrop(Vec from, Vec d) const {
  const double glow = 1.12 - 0.55 * Smooth(-0.15, 0.35, d.y) - 0.35 * Smooth(0.0, 0.35, std::abs(d.x));
  // What stands beside and behind the camera is dark, which draws the edges of glass.
  const double beside = 1 - 0.8 * Smooth(0.3, 0.75, std::abs(d.x)) - 0.15 * Smooth(0.2, 0.8, d.y);
  const Vec wall = wall_ * (std::max(0.05, glow) * (d.z > 0 ? 0.3 : beside));
  if (d.y > -1e-4) return wall;
  const double t = -from.y / d.y;
  const double x = from.x + t * d.x, z = from.z + t * d.z;
  double lit = 1, open = 1;
  ShadowAt(x, z, lit, open);
  const double aside = std::hypot(x - middle_.x, (z - middle_.z) * 0.8) / (extent_ * 3.2);
  const double pool = 0.72 + 0.28 * std::exp(-aside * aside);
  const Vec light = KeyColour * (lit * key_.y * 0.62) + (RoomColour + FillColour * 0.5) * open;
  const Vec table = CoverColour(x, z, t) * light * pool;
  return Mix(table, wall, Smooth(0.6 * depth_, 5.5 * depth_, middle_.z - z));
}

double Studio::Lit(Vec p, Vec toLamp, double hardness) const {
  double lit = 1, t = 0.012 * extent_;
  for (int i = 0; i < 40 && t < 3 * extent_; ++i) {
    const Scene::Nearest near = scene_.At(p + toLamp * t);
    const bool glass = near.body != nullptr && near.body->material.kind == Material::Kind::Glass;
    lit = std::min(lit, std::max(hardness * near.distance / t, glass ? 0.62 : 0.0));
    if (lit < 0.01) return 0;
    t += std::clamp(glass ? std::abs(near.distance) : near.distance, 0.012 * extent_, 0.35 * extent_);
    if ((p + toLamp * t).y > scene_.Bounds().high.y + 0.1) break;
  }
  return lit * lit * (3 - 2 * lit);
}

double Studio::Openness(Vec p, Vec n) const {
  double closed = 0, weight = 1;
  for (int i = 1; i <= 5; ++i) {
    const double h = extent_ * 0.011 * i * i;
    const Vec at = p + n * h;
    const double d = std::min(scene_.Distance(at), std::max(at.y, 0.0) + 0.001 * extent_);
    closed += weight * std::max(0.0, h - d) / h;
    weight *= 0.72;
  }
  return Clamp01(1 - closed * 0.42);
}

Vec Studio::LightAt(Vec p, Vec n, double open) const {
  const double facing = std::max(0.0, Dot(n, key_));
  const double start = 0.008 * extent_;
  const double lit = facing > 0 ? Lit(p + n * start, key_, 7) : 0.0;
  const double wrap = Clamp01((Dot(n, strip_) + 0.4) / 1.4);
  const Vec room = Mix(paper_ * 0.34, RoomColour * 1.05, 0.5 + 0.5 * n.y);
  return KeyColour * (facing * lit * 0.74) + FillColour * (wrap * open) + room * open;
}

void Studio::CastShadows() {
  const double half = extent_ * 2.2;
  mapSide_ = int(std::clamp(16 * extent_, 1000.0, 1600.0));
  mapStart_ = -half;
  mapCell_ = 2 * half / (mapSide_ - 1);
  lit_.resize(size_t(mapSide_) * mapSide_);
  open_.resize(lit_.size());
  static constexpr double lamps[4][2] = {{-0.11, -0.05}, {0.05, -0.12}, {0.11, 0.06}, {-0.05, 0.12}};
  for (int j = 0; j < mapSide_; ++j)
    for (int i = 0; i < mapSide_; ++i) {
      const Vec p{middle_.x + mapStart_ + i * mapCell_, 0.001 * extent_,
                  middle_.z + mapStart_ + j * mapCell_};
      double lit = 0;
      for (const auto& lamp : lamps)
        lit += 0.25 * Lit(p, Normalized(key_ + keyAcross_ * lamp[0] + keyUp_ * lamp[1]), 9);
      const size_t at = size_t(j) * mapSide_ + size_t(i);
      lit_[at] = float(lit);
      double closed = 0;
      for (const double h : {0.02, 0.06, 0.14, 0.3})
        closed +=
            std::max(0.0, 1 - std::max(0.0, scene_.Distance(p + Vec{0, h * extent_, 0})) / (h * extent_));
      open_[at] = float(Clamp01(1 - closed * 0.24));
    }
}

void Studio::ShadowAt(double x, double z, double& lit, double& open) const {
  const double u = (x - middle_.x - mapStart_) / mapCell_, v = (z - middle_.z - mapStart_) / mapCell_;
  lit = open = 1;
  if (!(u >= 0 && v >= 0 && u < mapSide_ - 1 && v < mapSide_ - 1)) return;
  const int i = int(u), j = int(v);
  const size_t at = size_t(j) * mapSide_ + size_t(i);
  const auto blend = [&](const std::vector<float>& m) {
    return Mix(Mix(double(m[at]), double(m[at + 1]), u - i),
               Mix(double(m[at + mapSide_]), double(m[at + mapSide_ + 1]), u - i), v - j);
  };
  lit = blend(lit_);
  open = blend(open_);
}

}  // namespace vorlina::studio
