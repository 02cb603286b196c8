#include "products/commands/OrderCommands.h"

#include <algorithm>

#include "base/WaitCursor.h"
#include "products/Attempt.h"
#include "products/PublicationOrder.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/GridContext.h"

namespace vorlina {
namespace {

// The keys of some rows, which tell their products however the grid is sorted.
std::vector<qint64> BookmarksOf(const RecordsetModel& rows, int first, int last) {
  std::vector<qint64> bookmarks;
  bookmarks.reserve(std::size_t(last - first + 1));
  for (int row = first; row <= last; ++row) bookmarks.push_back(rows.BookmarkOf(row));
  return bookmarks;
}

// The row at the top stays there.
void SortByOrder(WidgetProductGrid& grid) {
  const int top = grid.rowAt(0);
  grid.SetSort(grid.Rows().Column(ProductColumn::Ordine).key, SortDirection::Ascending);
  grid.scrollTo(grid.Rows().index(top, grid.currentIndex().column()), QAbstractItemView::PositionAtTop);
}

// What is moved is what the user sees under the hand. False where nothing was moved, or the row in edit
// cannot be left.
bool MoveSelectedTo(GridContext& context, int row) {
  WidgetProductGrid& grid = context.grid;
  if (!grid.LeaveRow()) return false;
  const std::optional<RowBlock> block = BlockOf(grid.SelectedRows());
  if (!block) {
    grid.clearSelection();
    return false;
  }
  const RecordsetModel& rows = grid.Rows();
  const WaitCursor wait;
  if (!MoveProducts(context.IDCatalogo, BookmarksOf(rows, block->first, block->last), rows.BookmarkOf(row),
                    *context.connection))
    return false;
  SortByOrder(grid);
  return true;
}

void MoveRows(GridContext& context, bool down) {
  WidgetProductGrid& grid = context.grid;
  if (!grid.LeaveRow()) return;
  const RecordsetModel& rows = grid.Rows();
  const QList<int> selected = grid.SelectedRows();
  if (selected.isEmpty()) return;
  const int target = down ? selected.last() + 1 : selected.first() - 1;
  if (target < 0 || target >= rows.RecordCount()) return;
  const qint64 first = rows.BookmarkOf(selected.first());
  const qint64 last = rows.BookmarkOf(selected.last());
  if (!MoveSelectedTo(context, target)) return;
  const auto [top, bottom] = std::minmax({rows.RowOf(first), rows.RowOf(last)});
  if (top < 0 || bottom - top + 1 != selected.size()) return;
  grid.selectionModel()->select(QItemSelection(rows.index(top, 0), rows.index(bottom, 0)),
                                QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  grid.scrollTo(rows.index(down ? bottom : top, grid.currentIndex().column()));
}

}  // namespace

void NumberNewProducts(GridContext& context) {
  Attempt(&context.owner, [&] {
    WidgetProductGrid& grid = context.grid;
    if (!grid.rsGriglia.IsOpen() || !NumberUnnumbered(context.IDCatalogo, *context.connection)) return;
    // The grid may be sorted by the numbers.
    if (grid.Reload()) grid.GoTo(0);
  });
}

void NumberAsShown(GridContext& context) {
  if (!context.grid.LeaveRow()) return;
  const WaitCursor wait;
  RecordsetModel& rows = context.grid.Rows();
  RenumberProducts(context.IDCatalogo, BookmarksOf(rows, 0, rows.RecordCount() - 1), *context.connection);
  rows.Refresh();
  context.grid.GoTo(0);
}

void DropRowsOn(GridContext& context, int row) {
  if (MoveSelectedTo(context, row)) context.grid.clearSelection();
}

void MoveRowsUp(GridContext& context) { MoveRows(context, false); }

void MoveRowsDown(GridContext& context) { MoveRows(context, true); }

}  // namespace vorlina
