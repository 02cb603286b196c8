// How the columns and rows of a grid are arranged: places, widths, alignment, word wrap, and the height that
// all rows share. Columns are told by key; keys that are not there are skipped.
#pragma once

#include <QStyleOptionViewItem>
#include <functional>

#include "grid/GridLayout.h"

class QTableView;

namespace vorlina {

class RecordsetModel;
class WidgetGridDelegate;
class WidgetRowHeader;

class GridArrangement {
 public:
  GridArrangement(QTableView& view, RecordsetModel& rows, const WidgetGridDelegate& delegate,
                  WidgetRowHeader& strip);

  // How the view paints a cell, by which a text is measured.
  std::function<QStyleOptionViewItem()> CellOption;

  GridLayout Layout() const;
  // The columns as they are stored, without the height of the rows and the sort; in their places where it
  // moves them.
  void Arrange(const GridLayout& layout, bool moves);
  // A height that is not stored is the one that the texts need.
  void SetRowHeight(int stored);
  void HideColumns();
  void SetColumnPosition(const QString& key, int position);
  void MoveColumn(const QString& key, bool right);
  void SetAlignment(const QString& key, GridAlignment alignment);
  GridAlignment AlignmentOf(const QString& key) const;
  void SetWordWrap(const QString& key, bool wrap);
  // The head of the column that the rows are sorted by says so.
  void ShowSort();

 private:
  void Wrap(int column, bool wrap);
  bool IsWrapped() const;
  void FitRowHeight();

  QTableView& view_;
  RecordsetModel& rows_;
  const WidgetGridDelegate& delegate_;
  WidgetRowHeader& strip_;
  bool arranging_ = false;
};

}  // namespace vorlina
