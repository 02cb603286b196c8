#include "products/commands/RowCommands.h"

#include <QApplication>
#include <QClipboard>

#include "base/WaitCursor.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/GridContext.h"

namespace vorlina {
namespace {

// Logical pixels; 1500 of the twips in which the window was designed, 15 to a pixel.
constexpr int RestoredWidth = 100;

}  // namespace

void CopyRows(GridContext& context) {
  const WaitCursor wait;
  QApplication::clipboard()->clear();
  QApplication::clipboard()->setText(context.grid.CopySelection(u";"_qs, u"\r\n"_qs));
}

void DeleteRows(GridContext& context) {
  WidgetProductGrid& grid = context.grid;
  if (grid.SelectedCount() == 0 || grid.Rows().IsAddNewRow(grid.CurrentRow())) return;
  grid.setFocus();
  grid.DeleteSelected();
}

void RefreshRows(GridContext& context) {
  if (!context.grid.LeaveRow()) return;
  const WaitCursor wait;
  context.grid.ReadAnew();
}

void RestoreColumnWidths(GridContext& context) {
  for (int column = 0; column < ProductColumn::BoundCount; ++column)
    context.grid.setColumnWidth(column, RestoredWidth);
}

}  // namespace vorlina
