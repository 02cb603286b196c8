// Hand-drawn curves: a text of points that a smooth line goes through.
#pragma once

#include <QString>
#include <vector>

#include "Vec.h"

namespace vorlina::studio {

// "x,y x,y! x,y,z ...": points in centimetres, a "!" behind those where the line has a corner. The result is
// the smooth line through them as short straight pieces. Throws Error for a text that does not read so.
std::vector<Vec> CurveThrough(const QString& text, int piecesPerSpan);

}  // namespace vorlina::studio
