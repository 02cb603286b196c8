#include "products/commands/DropPictures.h"

#include <QApplication>
#include <QScopedValueRollback>

#include "base/Dialogs.h"
#include "base/Helpers.h"
#include "products/DroppedPictures.h"
#include "products/PictureDrop.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/GridContext.h"

namespace vorlina {

DropPictures::DropPictures(GridContext& context) : context_(context) {
  WidgetProductGrid& grid = context.grid;
  grid.SetAcceptsFiles(true);
  grid.TakesFile = &PictureDrop::IsPicture;
  // The row is selected only: to go there could bring a message for each move of the drag.
  connect(&grid, &DataGrid::FilesOver, this, [&grid](int row) {
    grid.selectionModel()->select(grid.Rows().index(row, 0),
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  });
  connect(&grid, &DataGrid::FilesDropped, this, &DropPictures::DropOn);
}

// The program that the files come from waits for the end of the drop; the row may be another one by then.
void DropPictures::DropOn(int row, const QStringList& files) {
  const RecordsetModel& rows = context_.grid.Rows();
  const QString code = NullToEmpty(rows.Value(row, ProductColumn::Codice));
  const int catalog = rows.Value(row, ProductColumn::IDCatalogo).toInt();
  QMetaObject::invokeMethod(
      this, [=, this] { Take(catalog, code, files); }, Qt::QueuedConnection);
}

void DropPictures::TakeHeld() {
  for (const std::function<void()>& drop : std::exchange(held_, {}))
    QMetaObject::invokeMethod(this, drop, Qt::QueuedConnection);
}

// What could not be taken is told at the end, in one box. A box that came up meanwhile may be asking about a
// cell: the grid is not filled anew under it.
void DropPictures::Take(int catalog, const QString& code, const QStringList& files) {
  if (QApplication::activeModalWidget() != nullptr)
    return held_.push_back([=, this] { Take(catalog, code, files); });
  if (context_.busy || context_.connection == nullptr) return;
  const QScopedValueRollback<bool> busy(context_.busy, true);
  const QStringList failures =
      AddDroppedPictures({catalog, code}, files, *context_.connection, context_.owner);
  context_.grid.GoToProduct(code, context_.grid.CurrentKey());
  context_.grid.LoadGrid(true);
  TheDialogs().Message(&context_.owner, FirstLines(failures), BoxStyle::Stop);
}

}  // namespace vorlina
