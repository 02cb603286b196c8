// A grid's selection as text, and a text for one of its cells.
#pragma once

#include <QString>

#include "base/Progress.h"

class QWidget;

namespace vorlina {

class GridCells;
class RecordsetModel;

// The selected rows: the columns that hold values from left to right, drop-downs as shown. Progress, where
// given, hears of it every thousand rows; where it stops, the text is empty.
QString SelectionText(const GridCells& cells, const RecordsetModel& rows, const QString& cellSeparator,
                      const QString& rowSeparator, const Progress& progress = {});

// Puts the selection on the clipboard with tabs between the cells, as spreadsheets take it. Many rows show
// how far it is, in a box of the owner.
void CopyToClipboard(const GridCells& cells, const RecordsetModel& rows, QWidget* owner);

// The text on the clipboard. Spreadsheets put a line break behind the text of a cell.
QString ClipboardCell();

}  // namespace vorlina
