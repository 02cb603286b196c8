// The cells of a grid as the user sees them: from left to right, without what is hidden and what holds no
// value, and those that are selected.
#pragma once

#include <QList>
#include <QModelIndex>

class QTableView;

namespace vorlina {

class RecordsetModel;

// What tells a column; empty where there is none.
QString KeyOf(const RecordsetModel& rows, int column);

class GridCells {
 public:
  GridCells(const QTableView& view, const RecordsetModel& rows) : view_(view), rows_(rows) {}

  // The columns that hold values, from the left: pictures hold none.
  QList<int> ValueColumns() const;
  // No value stands before this column.
  bool IsFirstValue(int column) const;
  // Where the first text or number of a row stands; -1 where there is none.
  int FirstTyped() const;
  // The first column from the left, whatever it holds; -1 where there is none.
  int FirstShown() const;
  // The next cell with a value, row by row, and the one before with -1; invalid behind the last one.
  QModelIndex Neighbour(int step) const;

  // The selected rows from above, without the add-new row.
  QList<int> SelectedRows() const;
  int SelectedCount() const;

 private:
  bool HoldsValue(int column) const;

  const QTableView& view_;
  const RecordsetModel& rows_;
};

}  // namespace vorlina
