#include "Vec.h"

namespace vorlina::studio {

Rotation Then(const Rotation& a, const Rotation& b) {
  const Vec x = b.Apply(a.Apply({1, 0, 0})), y = b.Apply(a.Apply({0, 1, 0})), z = b.Apply(a.Apply({0, 0, 1}));
  return {{{{x.x, y.x, z.x}, {x.y, y.y, z.y}, {x.z, y.z, z.z}}}};
}

Rotation RotationOf(double turn, double tilt, double roll) {
  const double t = turn * Pi / 180, i = tilt * Pi / 180, r = roll * Pi / 180;
  const Rotation aboutX{{{{1, 0, 0}, {0, std::cos(r), -std::sin(r)}, {0, std::sin(r), std::cos(r)}}}};
  const Rotation aboutZ{{{{std::cos(i), -std::sin(i), 0}, {std::sin(i), std::cos(i), 0}, {0, 0, 1}}}};
  const Rotation aboutY{{{{std::cos(t), 0, std::sin(t)}, {0, 1, 0}, {-std::sin(t), 0, std::cos(t)}}}};
  return Then(Then(aboutX, aboutZ), aboutY);
}

}  // namespace vorlina::studio
