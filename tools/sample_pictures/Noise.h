// Repeatable noise for glazes and wood. All values depend on the position alone.
#pragma once

#include "Vec.h"

namespace vorlina::studio {

// A number in 0..1 for a lattice point.
double Hash(int x, int y, int z);
// Smooth noise in 0..1, one feature a unit.
double Noise(Vec p);
// Sum of noises, each half as large and twice as fine as the one before; 0..1.
double Fractal(Vec p, int octaves);
// Distances to the nearest and the second nearest of points scattered one a unit cell, and the nearest's own
// random number.
struct Cells {
  double first, second, random;
};
Cells ScatteredCells(Vec p);

}  // namespace vorlina::studio
