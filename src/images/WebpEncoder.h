// Writing WebP pictures in memory.
#pragma once

#include <QByteArray>

#include "images/PlanarImage.h"

namespace vorlina {

// Encodes at a quality of 1 to 100, with nothing but the picture in the file. The chroma planes have half the
// size of the first one. Empty where that cannot be done, as with a side of more than 16,383 pixels.
QByteArray EncodeWebp(const PlanarImage& image, int quality);

}  // namespace vorlina
