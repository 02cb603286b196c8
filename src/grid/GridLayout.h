// How a user has arranged a grid: the columns' order, widths, alignment and word wrap, the height of the rows
// and the sort. It is kept as text from one reload to the next, and as a file from one opening of the window
// to the next.
#pragma once

#include <QList>
#include <QString>

namespace vorlina {

enum class GridAlignment { Left = 0, Centre = 1, Right = 2 };

struct GridColumnLayout {
  QString key;    // what tells the column, whatever its caption
  int width = 0;  // in logical pixels
  bool visible = true;
  QString caption = {};
  GridAlignment alignment = GridAlignment::Left;
  bool wordWrap = false;

  bool operator==(const GridColumnLayout&) const = default;
};

struct GridLayout {
  QList<GridColumnLayout> columns;  // from left to right
  QString sortKey;                  // of the column that the rows are sorted by; empty for none
  bool descending = false;
  int rowHeight = 0;  // of all rows, in logical pixels; 0 where none is stored

  bool operator==(const GridLayout&) const = default;
};

// The layout as JSON with a mark of its format and version.
QString LayoutText(const GridLayout& layout);

// The layout that a text holds. Throws Error for a text that is empty, truncated, of another format or of a
// later version. Single values that make no sense take their defaults; a column that is named twice counts
// once.
GridLayout ParseLayout(const QString& text);

// The same as a file. Throw Error.
void SaveLayout(const GridLayout& layout, const QString& path);
GridLayout LoadLayout(const QString& path);

}  // namespace vorlina
