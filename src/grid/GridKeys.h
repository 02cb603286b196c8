// What the keys do in a grid: where they go from a cell, and what they do there. Keys that it does not take
// are the view's.
#pragma once

#include <QItemSelectionModel>
#include <functional>
#include <optional>

#include "grid/GridCells.h"

class QEvent;
class QKeyEvent;
class QTableView;

namespace vorlina {

class RowLeaving;
class WidgetGridDelegate;
class WidgetRowDrag;

class GridKeys {
 public:
  // The ways from a cell that differ from the view's own.
  enum class Way { Next, Previous, Down, Home, Other };
  // Where the view itself would go.
  using ViewsOwn = std::function<QModelIndex()>;

  GridKeys(QTableView& view, RecordsetModel& rows, WidgetGridDelegate& delegate, RowLeaving& leaving,
           WidgetRowDrag& drag);

  std::function<void()> OnEnter, OnCopy, OnPaste, OnDelete;

  // Where the next new row begins when the one before is left for it.
  void SetNewRowKey(const QString& key) { newRowKey_ = key; }

  // True where the key is taken.
  bool Press(QKeyEvent& event);
  // The cell on that way; the current one where it cannot be left.
  QModelIndex CellOn(Way way, const ViewsOwn& own);
  // Behind the last cell, and before the first.
  bool LeavesGrid(bool next) const;
  // What a key selects where the view's own would leave a part where it can no longer be seen.
  static std::optional<QItemSelectionModel::SelectionFlags> SelectionFor(const QEvent* event);

 private:
  QModelIndex NextCell(int step);
  QModelIndex Reached(Way way, const ViewsOwn& own);
  bool IsLeftForNext(int row) const;
  bool Delete(const QKeyEvent& event);
  bool Escape(QKeyEvent& event);
  bool Enter();
  bool OpenList();
  bool PopUpMenu(Qt::KeyboardModifiers modifiers);

  QTableView& view_;
  RecordsetModel& rows_;
  WidgetGridDelegate& delegate_;
  RowLeaving& leaving_;
  WidgetRowDrag& drag_;
  GridCells cells_;
  QString newRowKey_;
};

}  // namespace vorlina
