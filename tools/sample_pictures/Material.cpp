#include "Material.h"

#include <QHash>
#include <QJsonArray>

#include "Noise.h"
#include "base/Error.h"

namespace vorlina::studio {
namespace {

double Linear(int value) { return std::pow(value / 255.0, 2.2); }

template <class Enum>
Enum WordIn(const QHash<QString, Enum>& words, const QString& word) {
  const auto found = words.find(word);
  if (found == words.end()) throw Error(u"unknown word in a picture's description: "_qs + word);
  return *found;
}

Stroke::Kind StrokeKind(const QString& word) {
  using enum Stroke::Kind;
  static const QHash<QString, Stroke::Kind> words{
      {u"band"_qs, Band},       {u"dots"_qs, Dots},     {u"leaves"_qs, Leaves}, {u"petals"_qs, Petals},
      {u"fruit"_qs, Fruit},     {u"waves"_qs, Waves},   {u"zigzag"_qs, Zigzag}, {u"checks"_qs, Checks},
      {u"lines"_qs, Lines},     {u"spiral"_qs, Spiral}, {u"sponge"_qs, Sponge}, {u"speckle"_qs, Speckle},
      {u"crackle"_qs, Crackle}, {u"drip"_qs, Drip},     {u"fade"_qs, Fade},     {u"sun"_qs, Sun},
      {u"scales"_qs, Scales},   {u"brush"_qs, Brush},   {u"veins"_qs, Veins}};
  return WordIn(words, word);
}

Stroke StrokeOf(const QJsonObject& o) {
  static const QHash<QString, Stroke::Side> sides{{u"out"_qs, Stroke::Side::Out},
                                                  {u"in"_qs, Stroke::Side::In},
                                                  {u"up"_qs, Stroke::Side::Up},
                                                  {u"any"_qs, Stroke::Side::Any}};
  Stroke s;
  s.kind = StrokeKind(o[u"do"].toString());
  s.side = WordIn(sides, o[u"side"].toString(u"out"_qs));
  s.alongRadius = o[u"along"].toString() == u"r";
  const QJsonArray at = o[u"at"].toArray();
  s.from = at.isEmpty() ? -1e3 : at[0].toDouble();
  s.to = at.isEmpty() ? 1e3 : at[1].toDouble();
  s.n = o[u"n"].toDouble(s.n);
  s.rows = o[u"rows"].toDouble(s.rows);
  s.size = o[u"size"].toDouble(s.size);
  s.shift = o[u"shift"].toDouble();
  s.strength = o[u"strength"].toDouble(1);
  s.colour = ColourOf(o[u"col"].toString());
  s.metal = o[u"metal"].toBool();
  return s;
}

void PaintOn(Surface& surface, const Material& material, const Spot& spot) {
  for (const Stroke& stroke : material.paint) {
    const double cover = Coverage(stroke, spot) * stroke.strength;
    if (cover <= 0) continue;
    surface.colour = Mix(surface.colour, stroke.colour, cover);
    if (stroke.metal && cover > 0.5) surface = {stroke.colour, 0.8, 0.75, true};
  }
}

}  // namespace

Vec ColourOf(const QString& text) {
  bool good = text.size() == 7 && text[0] == u'#';
  const int rgb = good ? text.mid(1).toInt(&good, 16) : 0;
  if (!good) throw Error(u"not a colour: "_qs + text);
  return {Linear(rgb >> 16), Linear((rgb >> 8) & 255), Linear(rgb & 255)};
}

Material MaterialOf(const QJsonObject& o) {
  static const QHash<QString, Material::Kind> kinds{{u"glaze"_qs, Material::Kind::Glaze},
                                                    {u"matte"_qs, Material::Kind::Matte},
                                                    {u"wood"_qs, Material::Kind::Wood},
                                                    {u"metal"_qs, Material::Kind::Metal},
                                                    {u"glass"_qs, Material::Kind::Glass}};
  Material m;
  m.kind = WordIn(kinds, o[u"kind"].toString());
  m.colour = ColourOf(o[u"col"].toString());
  m.second = ColourOf(o[u"dark"].toString(u"#000000"_qs));
  m.hasInside = o.contains(u"inside");
  if (m.hasInside) m.inside = ColourOf(o[u"inside"].toString());
  m.edge = ColourOf(o[u"edge"].toString(u"#000000"_qs));
  m.edgeStrength = o.contains(u"edge") ? o[u"edgeStrength"].toDouble(0.8) : 0;
  m.wantsBulge = m.edgeStrength > 0;
  m.gloss = o[u"gloss"].toDouble(m.kind == Material::Kind::Matte ? 0.15 : 0.85);
  m.ripple = o[u"ripple"].toDouble(m.kind == Material::Kind::Glaze ? 0.25 : 0.0);
  m.grooves = o[u"grooves"].toDouble();
  m.figure = o[u"figure"].toDouble(1);
  m.rings = o[u"rings"].toDouble(1);
  m.pores = o[u"pores"].toDouble(0.4);
  if (o[u"grain"].toString() == u"x") m.grain = {1, 0, 0};
  if (o[u"grain"].toString() == u"z") m.grain = {0, 0, 1};
  m.phase = o[u"phase"].toDouble();
  for (const QJsonValue stroke : o[u"paint"].toArray()) m.paint.push_back(StrokeOf(stroke.toObject()));
  return m;
}

Vec WoodAt(const Material& m, Vec at) {
  // Axes with y along the trunk, whose heart lies beside the piece.
  Vec p = m.grain.x > 0 ? Vec{at.y, at.x, at.z} : m.grain.z > 0 ? Vec{at.x, at.z, at.y} : at;
  p += Vec{5.3 + m.phase * 3.1, m.phase * 17.0, 3.7 - m.phase * 1.3};
  const Vec slow{p.x * 0.16, p.y * 0.05, p.z * 0.16};
  const double sway = (Fractal(slow, 3) - 0.5) * 5.0 * m.figure;
  const double r = std::hypot(p.x + sway, p.z + sway * 0.6) * 1.5 * m.rings;
  const double ring = Fract(r + 0.35 * Noise({p.x * 0.9, p.y * 0.25, p.z * 0.9}));
  const double late = Smooth(0.15, 0.85, ring) * (1 - Smooth(0.88, 1.0, ring));
  const double fibre = Fractal({p.x * 9, p.y * 0.7, p.z * 9}, 2);
  const double pore = Smooth(0.66, 0.8, Noise({p.x * 26, p.y * 1.3, p.z * 26}));
  const double tone = Fractal({p.x * 0.25, p.y * 0.06, p.z * 0.25}, 2);
  const double dark =
      0.52 * late * m.figure + 0.45 * (fibre - 0.35) + 0.5 * (tone - 0.45) + m.pores * pore * 0.45;
  return Mix(m.colour, m.second, Clamp01(dark));
}

Surface SurfaceAt(const Material& m, const Spot& spot) {
  Surface s{m.colour, 0.045, m.gloss, false};
  if (m.kind == Material::Kind::Wood) s.colour = WoodAt(m, spot.at);
  if (m.kind == Material::Kind::Matte) s.mirror = 0.02;
  if (m.kind == Material::Kind::Metal) {
    s.mirror = 0.8;
    s.metal = true;
    const double patina = Fractal(spot.at * 0.9, 3);
    s.colour = s.colour * Mix(0.86, 1.04, patina);
  }
  if (m.kind == Material::Kind::Glaze || m.kind == Material::Kind::Matte) {
    const double outward = spot.at.x * spot.normal.x + spot.at.z * spot.normal.z;
    if (m.hasInside && (outward < -0.02 * spot.radius || spot.normal.y > 0.8)) s.colour = m.inside;
    s.colour = s.colour * Mix(0.94, 1.05, Fractal(spot.at * 0.5, 3));
    s.colour = Mix(s.colour, m.edge, m.edgeStrength * Smooth(0.05, 0.5, spot.bulge));
    s.colour = s.colour * Mix(1.0, 0.8, Smooth(0.0, -0.5, spot.bulge));
  }
  PaintOn(s, m, spot);
  return s;
}

}  // namespace vorlina::studio
