#include "grid/GridKeys.h"

#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QTableView>

#include "grid/RecordsetModel.h"
#include "grid/RowLeaving.h"
#include "grid/WidgetGridDelegate.h"
#include "grid/WidgetRowDrag.h"

namespace vorlina {

GridKeys::GridKeys(QTableView& view, RecordsetModel& rows, WidgetGridDelegate& delegate, RowLeaving& leaving,
                   WidgetRowDrag& drag)
    : view_(view), rows_(rows), delegate_(delegate), leaving_(leaving), drag_(drag), cells_(view, rows) {}

bool GridKeys::Press(QKeyEvent& event) {
  const auto taken = [](const std::function<void()>& step) { return step(), true; };
  if (event.matches(QKeySequence::Copy)) return taken(OnCopy);
  if (event.matches(QKeySequence::Paste)) return taken(OnPaste);
  switch (event.key()) {
    case Qt::Key_Escape:
      return Escape(event);
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Enter();
    case Qt::Key_Delete:
      return Delete(event);
    case Qt::Key_F10:
      return event.modifiers().testFlag(Qt::ShiftModifier) && PopUpMenu(event.modifiers());
    case Qt::Key_F4:
      return OpenList();
    case Qt::Key_Up:
    case Qt::Key_Down:
      return event.modifiers().testFlag(Qt::AltModifier) && OpenList();
    default:
      return false;
  }
}

// A key that is held down deletes once; one that an open editor does not know is not for the row.
bool GridKeys::Delete(const QKeyEvent& event) {
  const bool plain = (event.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier)) == 0;
  if (plain && !event.isAutoRepeat() && delegate_.Editor() == nullptr) OnDelete();
  return true;
}

bool GridKeys::Escape(QKeyEvent& event) {
  if (drag_.IsDragging())
    drag_.Cancel();
  else if (rows_.EditRow() >= 0)
    rows_.Revert();
  else
    event.ignore();
  return true;
}

// An open editor takes over itself what was typed.
bool GridKeys::Enter() {
  if (delegate_.Editor() != nullptr) return true;
  if (OnEnter)
    OnEnter();
  else
    view_.setCurrentIndex(CellOn(Way::Next, {}));
  return true;
}

// Opens the current cell, where it is a drop-down, with its list.
bool GridKeys::OpenList() {
  const QModelIndex cell = view_.currentIndex();
  if (!cell.isValid() || rows_.Column(cell.column()).kind != ColumnKind::Lookup ||
      !cell.flags().testFlag(Qt::ItemIsEditable))
    return false;
  view_.edit(cell);
  delegate_.ShowList();
  return true;
}

// As the menu key does: Qt knows that one alone.
bool GridKeys::PopUpMenu(Qt::KeyboardModifiers modifiers) {
  QWidget* editor = delegate_.Editor();
  QWidget& asked = editor != nullptr ? *editor : view_;
  const QPoint middle = asked.rect().center();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, middle, asked.mapToGlobal(middle),
                         modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier));
  QCoreApplication::sendEvent(&asked, &menu);
  return true;
}

bool GridKeys::IsLeftForNext(int row) const { return rows_.StateOf(row) == RowState::Added; }

// A new row that is left at its end is written, and the next new one follows.
QModelIndex GridKeys::NextCell(int step) {
  QModelIndex next = cells_.Neighbour(step);
  if (!next.isValid() && step > 0 && IsLeftForNext(view_.currentIndex().row()) && leaving_.Leave())
    next = cells_.Neighbour(step);
  return next.isValid() ? next : view_.currentIndex();
}

QModelIndex GridKeys::Reached(Way way, const ViewsOwn& own) {
  if (way == Way::Next) return NextCell(1);
  if (way == Way::Previous) return NextCell(-1);
  const QModelIndex cell = own();
  const int typed = way == Way::Home ? cells_.FirstTyped() : -1;
  return typed >= 0 ? cell.siblingAtColumn(typed) : cell;
}

// Down from a new row leads to the next new one as well. Where it is left for that one the column is chosen
// here, in the same event: what is typed next must not go elsewhere.
QModelIndex GridKeys::CellOn(Way way, const ViewsOwn& own) {
  const int row = view_.currentIndex().row();
  const bool onwards = rows_.IsAddNewRow(row) && (way == Way::Down || way == Way::Next);
  if (onwards && !leaving_.CloseEditor()) return view_.currentIndex();
  const bool added = onwards && IsLeftForNext(view_.currentIndex().row());
  if (added && way == Way::Down && !leaving_.Leave()) return view_.currentIndex();
  const QModelIndex cell = Reached(way, own);
  if (cell.isValid() && !leaving_.MayGoTo(cell.row())) return view_.currentIndex();
  const int start = added && rows_.StateOf(cell.row()) == RowState::AddNew ? rows_.ColumnOf(newRowKey_) : -1;
  return start >= 0 && !view_.isColumnHidden(start) ? cell.siblingAtColumn(start) : cell;
}

bool GridKeys::LeavesGrid(bool next) const {
  return !cells_.Neighbour(next ? 1 : -1).isValid() && !(next && IsLeftForNext(view_.currentIndex().row()));
}

// Ctrl+Home and Ctrl+End take the selection along, which the base leaves where it can no longer be seen.
std::optional<QItemSelectionModel::SelectionFlags> GridKeys::SelectionFor(const QEvent* event) {
  if (event == nullptr || event->type() != QEvent::KeyPress) return {};
  const auto& key = *static_cast<const QKeyEvent*>(event);
  const bool toEnd = key.key() == Qt::Key_Home || key.key() == Qt::Key_End;
  if (!toEnd || !key.modifiers().testFlag(Qt::ControlModifier)) return {};
  return (key.modifiers().testFlag(Qt::ShiftModifier) ? QItemSelectionModel::SelectCurrent
                                                      : QItemSelectionModel::ClearAndSelect) |
         QItemSelectionModel::Rows;
}

}  // namespace vorlina
