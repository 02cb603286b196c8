// Where the picture is taken from, and the taking of it.
#pragma once

#include <QImage>
#include <QJsonObject>

#include "Tracer.h"

namespace vorlina::studio {

// Stands so that the scene fills the frame. The view's "pitch" (degrees above the table), "zoom" and "look"
// (shift of the frame, by its own size) change that; "size" is the picture's, such as "1200x1600".
class Camera {
 public:
  Camera(const Scene& scene, const QJsonObject& view);
  int Width() const { return width_; }
  int Height() const { return height_; }
  Vec Position() const { return position_; }
  Vec Direction(double x, double y) const;  // of the ray through a point of the picture, in pixels
  double PixelAngle() const;

 private:
  void Aim(Vec target, double distance);

  int width_ = 1200, height_ = 1200;
  Vec position_, right_, up_, ahead_;
  double half_ = 0.15;              // tangent of half the angle that the picture's height spans
  double shiftX_ = 0, shiftY_ = 0;  // by half the picture's height
};

// Takes the picture: one ray a pixel, and more where neighbouring pixels differ.
QImage TakePicture(const Tracer& tracer, const Camera& camera);

}  // namespace vorlina::studio
