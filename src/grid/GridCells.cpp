#include "grid/GridCells.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>

#include "grid/RecordsetModel.h"

namespace vorlina {

QString KeyOf(const RecordsetModel& rows, int column) {
  return column >= 0 && column < rows.columnCount() ? rows.Column(column).key : QString();
}

bool GridCells::HoldsValue(int column) const {
  return rows_.Column(column).bound && !view_.isColumnHidden(column);
}

QList<int> GridCells::ValueColumns() const {
  QList<int> columns;
  for (int place = 0; place < rows_.columnCount(); ++place)
    if (const int column = view_.horizontalHeader()->logicalIndex(place); HoldsValue(column))
      columns += column;
  return columns;
}

bool GridCells::IsFirstValue(int column) const {
  const QHeaderView& header = *view_.horizontalHeader();
  for (int place = header.visualIndex(column) - 1; place >= 0; --place)
    if (HoldsValue(header.logicalIndex(place))) return false;
  return true;
}

int GridCells::FirstTyped() const {
  for (const int column : ValueColumns()) {
    const GridColumn& description = rows_.Column(column);
    if (!description.readOnly && description.kind != ColumnKind::Boolean) return column;
  }
  return -1;
}

int GridCells::FirstShown() const {
  int column = -1;
  for (int place = 0; place < rows_.columnCount() && (column < 0 || view_.isColumnHidden(column)); ++place)
    column = view_.horizontalHeader()->logicalIndex(place);
  return column;
}

QModelIndex GridCells::Neighbour(int step) const {
  const QHeaderView& header = *view_.horizontalHeader();
  const QModelIndex current = view_.currentIndex();
  const int columns = rows_.columnCount();
  int row = current.row();
  int place = current.isValid() ? header.visualIndex(current.column()) : 0;
  for (int tries = 0; tries < 2 * columns && row >= 0; ++tries) {
    place += step;
    if (place < 0 || place >= columns) {
      row += step;
      place = place < 0 ? columns - 1 : 0;
    }
    const int column = header.logicalIndex(place);
    if (HoldsValue(column)) return rows_.index(row, column);
  }
  return {};
}

QList<int> GridCells::SelectedRows() const {
  QList<int> rows;
  for (const QItemSelectionRange& range : view_.selectionModel()->selection())
    for (int row = range.top(); row <= range.bottom(); ++row)
      if (!rows_.IsAddNewRow(row)) rows += row;
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

int GridCells::SelectedCount() const {
  int count = 0;
  for (const QItemSelectionRange& range : view_.selectionModel()->selection())
    count += range.height() - (rows_.IsAddNewRow(range.bottom()) ? 1 : 0);
  return count;
}

}  // namespace vorlina
