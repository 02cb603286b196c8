// How a grid's editor and its row in edit are left: what is typed is taken over and the row written, and
// where either is refused the grid stays.
#pragma once

#include <QAbstractItemDelegate>
#include <QModelIndex>
#include <functional>

class QTableView;
class QWidget;

namespace vorlina {

class RecordsetModel;
class WidgetGridDelegate;

class RowLeaving {
 public:
  RowLeaving(QTableView& view, RecordsetModel& rows, WidgetGridDelegate& delegate)
      : view_(view), rows_(rows), delegate_(delegate) {}

  // Takes over what is being typed and writes the row in edit. False where it must be stayed on: the user was
  // told why, once more where it tells again.
  bool Leave(bool tellsAgain = false);
  // False where the cell refuses what was typed: the editor stays.
  bool CloseEditor(bool tellsAgain = false);
  // Leaves what has to be left for that row.
  bool MayGoTo(int row);

  // A cell that takes over what was typed may bring a box. Until it is answered nothing else leaves the row
  // or puts other rows in its place: Qt holds the editor meanwhile.
  void Take(const std::function<void()>& commit);
  // Whether the editor is kept open, for a cell that has refused what was typed.
  bool Keeps(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) const;
  // The current cell is another one: its row is left, or gone back to.
  void CellChanged(const QModelIndex& current, const QModelIndex& previous);
  // What has the focus now decides: another control of the window, or another window. A message or a menu in
  // between leaves the row as it is.
  void FocusMoved(QWidget* to);

 private:
  void GoToRefused();

  QTableView& view_;
  RecordsetModel& rows_;
  WidgetGridDelegate& delegate_;
  bool leaving_ = false;  // a row, or a cell is being taken over: a box may be up
  bool hadFocus_ = false;
};

}  // namespace vorlina
