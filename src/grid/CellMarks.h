// Marks pieces of the text of a grid's cell, over the cell as its style has painted it.
#pragma once

#include <vector>

#include "base/TextFolding.h"
#include "grid/GridColours.h"

class QPainter;
class QStyleOptionViewItem;

namespace vorlina {

// The option is that of the painted text. Of a piece that the cell cuts off the end of what is seen is
// marked.
void PaintCellMarks(QPainter& painter, const QStyleOptionViewItem& cell,
                    const std::vector<TextNeedle::Piece>& pieces, const GridColours& colours);

}  // namespace vorlina
