// Pictures that are made up for measuring.
#pragma once

#include <QImage>

namespace vorlina {

// What looks like a photograph to a codec: soft shapes, edges, a fine texture and a sensor's noise. Equal for
// an equal seed.
QImage MakePhotograph(QSize size, unsigned seed);

// Rings that become finer outwards, up to a period of finest pixels.
QImage MakeRings(QSize size, double finest);

}  // namespace vorlina
