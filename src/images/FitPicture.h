// A picture shown whole in a box.
#pragma once

#include <QRectF>
#include <QSizeF>

namespace vorlina {

// Where a picture of this size stands in a box, by its ratio of width to height: the relatively wider one
// takes the width of the box, the other its height. It stands in the middle when centred, otherwise at (0,
// 0). An empty picture or box gives an empty rectangle. All sizes are in the unit of the box.
QRectF FitPicture(QSizeF picture, QSizeF box, bool centred);

}  // namespace vorlina
