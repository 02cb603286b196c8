// The room around the pieces: backdrop, table, lamps and the shadows on the table.
#pragma once

#include <QJsonObject>
#include <vector>

#include "Scene.h"

namespace vorlina::studio {

class Studio {
 public:
  // Sets up the room that the view asks for ("backdrop", "surface", "light") around the scene, and works out
  // the shadows on the table.
  Studio(const Scene& scene, const QJsonObject& view);

  // What a mirror in the middle sees that way; less gloss sees it blurred.
  Vec Environment(Vec direction, double gloss) const;
  // The table or the wall that a ray meets when nothing stands in its way.
  Vec Backdrop(Vec from, Vec direction) const;
  // Light that reaches a point of a surface, of the lamps and of the room, by the colour of each.
  Vec LightAt(Vec p, Vec normal, double openness) const;
  // Part of the surroundings that a point sees, 0 to 1.
  double Openness(Vec p, Vec normal) const;
  double Extent() const { return extent_; }

 private:
  enum class Cover { Paper, Planks, Linen, Slate };
  Vec CoverColour(double x, double z, double distance) const;
  // Part of the key lamp's light that reaches a point.
  double Lit(Vec p, Vec toLamp, double hardness) const;
  void CastShadows();
  void ShadowAt(double x, double z, double& lit, double& open) const;

  const Scene& scene_;
  double extent_;
  double depth_;  // how far behind the scene the table begins to become the wall
  Vec middle_;
  Vec key_, keyAcross_, keyUp_, strip_;
  Vec paper_, wall_;
  Cover cover_ = Cover::Paper;
  Material planks_;
  int mapSide_ = 0;  // points along a side of the map of shadows
  double mapStart_ = 0, mapCell_ = 1;
  std::vector<float> lit_, open_;
};

}  // namespace vorlina::studio
