// Distances to a plane outline, worked out once on a grid so that tracing looks them up.
#pragma once

#include <utility>
#include <vector>

#include "Vec.h"

namespace vorlina::studio {

class DistanceGrid {
 public:
  // A wall of the given thicknesses (at the line's start and end) along the line; both its sides are outside.
  static DistanceGrid Wall(const std::vector<Vec>& line, double atStart, double atEnd);
  // The plain distance to the line, and beside it how far along the line the nearest point lies, 0 to 1.
  static std::pair<DistanceGrid, DistanceGrid> Line(const std::vector<Vec>& line, double margin);
  // What the line encloses, its corners rounded by that radius. An open line is closed along the axis x = 0,
  // which then counts as no border.
  static DistanceGrid Solid(const std::vector<Vec>& line, bool open, double rounding);

  // Signed distance, negative inside; never more than the true one. Beyond the grid it stays a lower bound.
  double At(double x, double y) const;
  Vec Low() const { return low_; }    // corners of the outline's box
  Vec High() const { return high_; }  //
  double Cell() const { return cell_; }

 private:
  DistanceGrid(const std::vector<Vec>& line, double margin, bool fromAxis);
  template <class Distance>
  void Fill(Distance distance);

  Vec low_, high_;    // of the outline
  Vec start_, last_;  // of the grid
  double cell_ = 1, perCell_ = 1;
  int columns_ = 0, rows_ = 0;
  std::vector<float> values_;
};

}  // namespace vorlina::studio
