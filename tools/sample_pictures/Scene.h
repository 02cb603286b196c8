// The things that stand in the studio, as signed distances.
#pragma once

#include <QJsonObject>
#include <memory>
#include <vector>

#include "DistanceGrid.h"
#include "Material.h"

namespace vorlina::studio {

struct Box {
  Vec low{1e9, 1e9, 1e9}, high{-1e9, -1e9, -1e9};
  void Add(Vec p);
};

// One body of one material: turned about its y axis (or squared, fluted, twisted), cut from a board, or bent
// from a rod.
struct Body {
  enum class Kind { Turned, Board, Rod };
  Kind kind = Kind::Turned;
  std::shared_ptr<const DistanceGrid> grid;   // the outline; of a flat rod, its line
  std::shared_ptr<const DistanceGrid> along;  // of a flat rod, how far along its line
  int squareness = 0;                         // 0 round; 1 and 2 more and more a rounded square
  double aspect = 1;                          // length along z by that along x
  double flutes = 0, fluteDepth = 0, twist = 0;
  std::vector<Vec> line;     // the turned outline, without its thickness
  double halfThickness = 0;  // of a Board
  double rounding = 0;
  std::vector<Vec> rod;
  double rodStart = 0, rodEnd = 0;  // radii
  double flat = 1;                  // breadth of a rod's section by its thickness
  double hollow = 0;                // bore at a rod's end, by its radius; 0 for none
  double blend = 0;                 // how softly it grows out of the bodies before it, cm
  int piece = 0;
  Material material;

  Rotation rotation;  // own axes to the studio's
  Vec at;
  Vec middle;        // of the bounding sphere, in the studio
  double reach = 0;  // its radius

  double Distance(Vec inStudio) const;
  Vec ToOwn(Vec inStudio) const { return rotation.Back(inStudio - at); }
};

class Scene {
 public:
  // Adds a form's bodies, the whole turned and moved, and set down on what is at height at.y. The form's
  // "mat" names may be presets.
  void Add(const QJsonObject& form, const QJsonObject& presets, const Rotation& rotation, Vec at);
  const Box& Bounds() const { return bounds_; }
  // Points on the outline of the whole, for framing it.
  const std::vector<Vec>& Outline() const { return outline_; }
  const std::vector<Body>& Bodies() const { return bodies_; }

  struct Nearest {
    double distance;
    const Body* body;
  };
  // The nearest surface and its body. A scene serves one thread: it remembers the body found last, which is
  // nearly always the nearest again and spares looking at those farther away.
  Nearest At(Vec p) const;
  double Distance(Vec p) const { return At(p).distance; }
  Vec NormalAt(Vec p, double step) const;

 private:
  std::vector<Body> bodies_;
  Box bounds_;
  std::vector<Vec> outline_;
  int pieces_ = 0;
  mutable size_t last_ = size_t(-1);
};

}  // namespace vorlina::studio
