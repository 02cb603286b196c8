// The colours of a grid's rows and of the ground around them.
#pragma once

#include <QColor>

class QPalette;

namespace vorlina {

struct GridColours {
  QColor ground;  // where no rows are
  QColor oddRow;  // the first, the third ...
  QColor evenRow;
  QColor target;  // the row under the pointer while rows are dragged
  // Behind a piece of text that was found, and the text on it: legible on every row, selected or not.
  QColor mark = {0xFF, 0xA5, 0x1F};
  QColor markedText = Qt::black;
};

// The light set, or one that fits a dark palette.
GridColours ColoursFor(const QPalette& palette);

}  // namespace vorlina
