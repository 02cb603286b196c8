#include "Curve.h"

#include <QStringList>

#include "base/Error.h"

namespace vorlina::studio {
namespace {

struct Knot {
  Vec at;
  bool corner = false;
};

std::vector<Knot> Knots(const QString& text) {
  std::vector<Knot> knots;
  for (QString word : text.split(u' ', Qt::SkipEmptyParts)) {
    Knot knot;
    knot.corner = word.endsWith(u'!');
    if (knot.corner) word.chop(1);
    const QStringList numbers = word.split(u',');
    bool good = numbers.size() == 2 || numbers.size() == 3;
    double values[3] = {0, 0, 0};
    for (qsizetype i = 0; good && i < numbers.size(); ++i) values[i] = numbers[i].toDouble(&good);
    if (!good) throw Error(u"not a point of a curve: "_qs + word);
    knot.at = {values[0], values[1], values[2]};
    knots.push_back(knot);
  }
  if (knots.size() < 2) throw Error(u"a curve needs two points: "_qs + text);
  knots.front().corner = knots.back().corner = true;
  return knots;
}

// The direction and speed of the line at a knot, per unit of length.
Vec Tangent(const std::vector<Knot>& knots, size_t i, bool leaving) {
  if (knots[i].corner) {
    const size_t j = leaving ? i : i - 1;
    return Normalized(knots[j + 1].at - knots[j].at);
  }
  const Vec before = knots[i].at - knots[i - 1].at, after = knots[i + 1].at - knots[i].at;
  const double a = Length(before), b = Length(after);
  return (before * (b / a) + after * (a / b)) * (1 / (a + b));
}

}  // namespace

std::vector<Vec> CurveThrough(const QString& text, int piecesPerSpan) {
  const std::vector<Knot> knots = Knots(text);
  std::vector<Vec> line{knots[0].at};
  for (size_t i = 0; i + 1 < knots.size(); ++i) {
    const Vec p = knots[i].at, q = knots[i + 1].at;
    const double length = Length(q - p);
    if (length < 1e-9) continue;
    const Vec m = Tangent(knots, i, true) * length, n = Tangent(knots, i + 1, false) * length;
    const int pieces = knots[i].corner && knots[i + 1].corner ? 1 : piecesPerSpan;
    for (int k = 1; k <= pieces; ++k) {
      const double t = double(k) / pieces, s = t * t, c = s * t;
      line.push_back(p * (2 * c - 3 * s + 1) + m * (c - 2 * s + t) + q * (3 * s - 2 * c) + n * (c - s));
    }
  }
  return line;
}

}  // namespace vorlina::studio
