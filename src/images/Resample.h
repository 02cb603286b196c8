// Scaling and turning of planes.
#pragma once

#include "images/PlanarImage.h"

namespace vorlina {

// The plane at another size, by a Lanczos filter of three lobes that is widened for shrinking.
Plane Resample(const Plane& plane, int width, int height);

// The picture at another size, its chroma planes at half of it in both directions. A picture whose size stays
// keeps its chroma planes too, unless they are of a size that is neither the full nor the half one.
PlanarImage Resample(PlanarImage image, QSize size);

// The picture turned upright for an EXIF orientation of 1 to 8.
PlanarImage Upright(PlanarImage image, int orientation);

// Whether the orientation swaps width and height.
constexpr bool SwapsSides(int orientation) { return orientation >= 5; }

}  // namespace vorlina
