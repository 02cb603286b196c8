// What a body is made of, and what is painted on it.
#pragma once

#include <QJsonObject>
#include <vector>

#include "Vec.h"

namespace vorlina::studio {

// A "#rrggbb" text as linear light. Throws Error for another text.
Vec ColourOf(const QString& text);

// Where on a body a point lies, for paint and grain.
struct Spot {
  Vec at;         // in the body's own axes, y being the axis of a turned body
  Vec normal;     // likewise
  double around;  // 0..1 about the axis
  double radius;  // distance from the axis
  double bulge;   // above 0 on edges, below 0 in hollows; 0 when not asked for
};

struct Stroke {
  enum class Kind {
    Band,
    Dots,
    Leaves,
    Petals,
    Fruit,
    Waves,
    Zigzag,
    Checks,
    Lines,
    Spiral,
    Sponge,
    Speckle,
    Crackle,
    Drip,
    Fade,
    Sun,
    Scales,
    Brush,
    Veins
  };
  enum class Side { Out, In, Up, Any };
  Kind kind = Kind::Band;
  Side side = Side::Out;
  bool alongRadius = false;  // from and to are distances from the axis, not heights
  double from = 0, to = 0;   // the painted stretch, cm
  double n = 12, rows = 1;   // repeats about the axis and along
  double size = 0.3;         // of a mark or line, cm; for textures the size of a cell
  double shift = 0;          // repeats turned on by that part of one
  double strength = 1;
  Vec colour;
  bool metal = false;
};

// How much of the spot the stroke covers, 0 to 1.
double Coverage(const Stroke& stroke, const Spot& spot);

struct Material {
  enum class Kind { Glaze, Matte, Wood, Metal, Glass };
  Kind kind = Kind::Glaze;
  Vec colour{0.8, 0.8, 0.8};
  Vec second;  // dark of wood
  Vec inside;  // glaze on the inner side of a vessel
  bool hasInside = false;
  Vec edge;  // shows where glaze runs thin
  double edgeStrength = 0;
  double gloss = 0.8;                         // 0 dull, 1 mirror-smooth
  double ripple = 0.2;                        // unevenness of the surface
  double grooves = 0;                         // turning grooves, their distance in cm; 0 for none
  double figure = 1, rings = 1, pores = 0.4;  // wood
  Vec grain{0, 1, 0};                         // direction of the trunk
  double phase = 0;                           // which part of the trunk
  std::vector<Stroke> paint;
  bool wantsBulge = false;
};

// Reads a material: a preset's object with the product's own keys laid over it. Throws Error for an unknown
// word.
Material MaterialOf(const QJsonObject& description);

struct Surface {
  Vec colour;
  double mirror = 0.04;  // part reflected head-on
  double gloss = 0.8;
  bool metal = false;
};

Surface SurfaceAt(const Material& material, const Spot& spot);
Vec WoodAt(const Material& material, Vec at);

}  // namespace vorlina::studio
