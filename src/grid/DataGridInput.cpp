// What the user does in a grid by keys and in its editors, and how a row is left.
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "base/Language.h"
#include "base/WidgetProgressBox.h"
#include "grid/DataGrid.h"
#include "grid/WidgetClickEdit.h"
#include "grid/WidgetGridDelegate.h"
#include "grid/WidgetRowDrag.h"
#include "grid/WidgetRowHeader.h"

namespace vorlina {
namespace {

// From here on a copy shows how far it is.
constexpr int RowsCopiedAtOnce = 5000;

}  // namespace

bool DataGrid::LeaveRow() { return Leave(false); }

bool DataGrid::LeaveForGood() { return Leave(true); }

bool DataGrid::Leave(bool tellsAgain) {
  if (leaving_) return false;
  const QScopedValueRollback<bool> leaving(leaving_, true);
  if (!CloseEditor(tellsAgain)) return false;
  if (rows_.Submit()) return true;
  GoToRefused();
  return false;
}

// To the cell that the row was refused for.
void DataGrid::GoToRefused() {
  if (rows_.RefusedColumn() >= 0 && CurrentRow() == rows_.EditRow())
    setCurrentIndex(rows_.index(rows_.EditRow(), rows_.RefusedColumn()));
}

// False where the cell refuses what was typed: the editor stays.
bool DataGrid::CloseEditor(bool tellsAgain) {
  const QPointer<QWidget> editor = delegate_->Editor();
  if (editor == nullptr) return true;
  // What it was left with has been refused already.
  if (delegate_->IsRefused() && !editor->hasFocus() && !tellsAgain) return false;
  commitData(editor);
  if (editor == nullptr) return true;
  closeEditor(editor, QAbstractItemDelegate::NoHint);
  return delegate_->Editor() == nullptr;
}

// A cell that takes over what was typed may bring a box. Until it is answered nothing else leaves the row or
// puts other rows in its place: Qt holds the editor meanwhile.
void DataGrid::commitData(QWidget* editor) {
  const QScopedValueRollback<bool> leaving(leaving_, true);
  QTableView::commitData(editor);
}

bool DataGrid::MayGoTo(int row) {
  if (delegate_->Editor() == nullptr && (rows_.EditRow() < 0 || rows_.EditRow() == row)) return true;
  if (row == CurrentRow()) return CloseEditor();
  return LeaveRow();
}

// Enter and Escape in an editor concern the cell; the row is written when it is left.
void DataGrid::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const bool undone = hint == QAbstractItemDelegate::RevertModelCache;
  if (delegate_->Editor() == editor && delegate_->IsRefused() && !undone) {
    QMetaObject::invokeMethod(
        editor,
        [this, editor] {
          if (delegate_->Editor() == editor) editor->setFocus();
        },
        Qt::QueuedConnection);
    return;
  }
  if (delegate_->Editor() == editor) delegate_->Forget();
  const bool next = hint == QAbstractItemDelegate::EditNextItem;
  const bool moves = next || hint == QAbstractItemDelegate::EditPreviousItem;
  const bool leaves = moves && LeavesGrid(next);
  QTableView::closeEditor(editor, moves && !leaves ? hint : QAbstractItemDelegate::NoHint);
  if (leaves) QWidget::focusNextPrevChild(next);
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  rowHeader_->SetCurrentRow(current.row());
  if (rows_.EditRow() >= 0 && rows_.EditRow() != current.row() && !LeaveRow())
    QMetaObject::invokeMethod(
        this,
        [this, column = previous.column()] {
          if (rows_.EditRow() < 0) return;
          setCurrentIndex(rows_.index(rows_.EditRow(), column));
          GoToRefused();
        },
        Qt::QueuedConnection);
  Q_EMIT CurrentCellChanged(current.row(), KeyOf(current.column()));
}

void DataGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  Q_EMIT SelectedRowsChanged();
}

void DataGrid::reset() {
  delegate_->Forget();
  rowDrag_->Cancel();
  QTableView::reset();
  rowHeader_->SetCurrentRow(-1);
}

// What has the focus now decides: another control of the window, or another window. A message or a menu in
// between leaves the row as it is.
void DataGrid::FocusMoved(QWidget*, QWidget* to) {
  if (to == nullptr || leaving_) return;
  const bool isOwn = to == this || isAncestorOf(to);
  const bool inBetween = to->window() != window() && (QApplication::activePopupWidget() != nullptr ||
                                                      QApplication::activeModalWidget() != nullptr);
  if (inBetween || !std::exchange(hadFocus_, isOwn) || isOwn) return;
  if (!LeaveRow() && to->window() == window())
    QMetaObject::invokeMethod(
        this,
        [this] {
          QWidget* editor = delegate_->Editor();
          (editor != nullptr ? editor : this)->setFocus();
        },
        Qt::QueuedConnection);
}

// The next cell with a value, row by row; invalid behind the last one.
QModelIndex DataGrid::NeighbourCell(int step) const {
  const QHeaderView& header = *horizontalHeader();
  const int columns = rows_.columnCount();
  int row = CurrentRow();
  int place = currentIndex().isValid() ? header.visualIndex(currentIndex().column()) : 0;
  for (int tries = 0; tries < 2 * columns && row >= 0; ++tries) {
    place += step;
    if (place < 0 || place >= columns) {
      row += step;
      place = place < 0 ? columns - 1 : 0;
    }
    const int column = header.logicalIndex(place);
    if (rows_.Column(column).bound && !isColumnHidden(column)) return rows_.index(row, column);
  }
  return {};
}

bool DataGrid::IsFirstValue(int column) const {
  const QHeaderView& header = *horizontalHeader();
  for (int place = header.visualIndex(column) - 1; place >= 0; --place) {
    const int before = header.logicalIndex(place);
    if (rows_.Column(before).bound && !isColumnHidden(before)) return false;
  }
  return true;
}

// The pictures before the first value, where keys do not stop, are seen again together with it.
void DataGrid::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QTableView::scrollTo(index, hint);
  if (!index.isValid() || !IsFirstValue(index.column())) return;
  const QHeaderView& header = *horizontalHeader();
  const int end = header.sectionPosition(index.column()) + header.sectionSize(index.column());
  if (end <= viewport()->width()) horizontalScrollBar()->setValue(0);
}

// A new row that is left at its end is written, and the next new one follows.
QModelIndex DataGrid::NextCell(int step) {
  QModelIndex next = NeighbourCell(step);
  if (!next.isValid() && step > 0 && rows_.StateOf(CurrentRow()) == RowState::Added && LeaveRow())
    next = NeighbourCell(step);
  return next.isValid() ? next : currentIndex();
}

// Where the first text or number of a row stands; -1 where there is none.
int DataGrid::FirstTyped() const {
  for (int place = 0; place < rows_.columnCount(); ++place) {
    const int column = horizontalHeader()->logicalIndex(place);
    const GridColumn& description = rows_.Column(column);
    if (description.bound && !description.readOnly && description.kind != ColumnKind::Boolean &&
        !isColumnHidden(column))
      return column;
  }
  return -1;
}

QModelIndex DataGrid::CellFor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MoveNext) return NextCell(1);
  if (action == MovePrevious) return NextCell(-1);
  const QModelIndex cell = QTableView::moveCursor(action, modifiers);
  const int typed = action == MoveHome ? FirstTyped() : -1;
  return typed >= 0 ? cell.siblingAtColumn(typed) : cell;
}

// Down from a new row leads to the next new one as well. Where it is left for that one the column is chosen
// here, in the same event: what is typed next must not go elsewhere.
QModelIndex DataGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  const bool onwards = rows_.IsAddNewRow(CurrentRow()) && (action == MoveDown || action == MoveNext);
  if (onwards && !CloseEditor()) return currentIndex();
  const bool added = onwards && rows_.StateOf(CurrentRow()) == RowState::Added;
  if (added && action == MoveDown && !LeaveRow()) return currentIndex();
  const QModelIndex cell = CellFor(action, modifiers);
  if (cell.isValid() && !MayGoTo(cell.row())) return currentIndex();
  const int start = added && rows_.StateOf(cell.row()) == RowState::AddNew ? rows_.ColumnOf(newRowKey_) : -1;
  return start >= 0 && !isColumnHidden(start) ? cell.siblingAtColumn(start) : cell;
}

// Ctrl+Home and Ctrl+End take the selection along, which the base leaves where it can no longer be seen.
QItemSelectionModel::SelectionFlags DataGrid::selectionCommand(const QModelIndex& index,
                                                               const QEvent* event) const {
  if (event != nullptr && event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<const QKeyEvent*>(event);
    const bool toEnd = key.key() == Qt::Key_Home || key.key() == Qt::Key_End;
    if (toEnd && key.modifiers().testFlag(Qt::ControlModifier))
      return (key.modifiers().testFlag(Qt::ShiftModifier) ? QItemSelectionModel::SelectCurrent
                                                          : QItemSelectionModel::ClearAndSelect) |
             QItemSelectionModel::Rows;
  }
  return QTableView::selectionCommand(index, event);
}

// Behind the last cell, and before the first.
bool DataGrid::LeavesGrid(bool next) const {
  return !NeighbourCell(next ? 1 : -1).isValid() && !(next && rows_.StateOf(CurrentRow()) == RowState::Added);
}

bool DataGrid::focusNextPrevChild(bool next) {
  return LeavesGrid(next) ? QWidget::focusNextPrevChild(next) : QTableView::focusNextPrevChild(next);
}

// The cell takes over what was typed in the same event, so that what is typed next goes to the next one.
void DataGrid::TakeAndGoDown() { setCurrentIndex(moveCursor(MoveDown, Qt::NoModifier)); }

void DataGrid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return OnCopy ? OnCopy() : CopyToClipboard();
  if (event->matches(QKeySequence::Paste)) return PasteFromClipboard();
  switch (event->key()) {
    case Qt::Key_Escape:
      if (rowDrag_->IsDragging()) return rowDrag_->Cancel();
      if (rows_.EditRow() < 0) return event->ignore();
      return rows_.Revert();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (delegate_->Editor() != nullptr) return;  // it takes over what was typed
      if (OnEnter) return OnEnter();
      return setCurrentIndex(moveCursor(MoveNext, Qt::NoModifier));
    case Qt::Key_Delete:
      DeleteSelected();
      return;
    case Qt::Key_F10:
      if (event->modifiers().testFlag(Qt::ShiftModifier)) return PopUpMenu(event->modifiers());
      break;
    case Qt::Key_F4:
      if (OpenList()) return;
      break;
    case Qt::Key_Up:
    case Qt::Key_Down:
      if (event->modifiers().testFlag(Qt::AltModifier) && OpenList()) return;
      break;
    default:
      break;
  }
  QTableView::keyPressEvent(event);
}

// Opens the current cell, where it is a drop-down, with its list.
bool DataGrid::OpenList() {
  const QModelIndex cell = currentIndex();
  if (!cell.isValid() || rows_.Column(cell.column()).kind != ColumnKind::Lookup ||
      !cell.flags().testFlag(Qt::ItemIsEditable))
    return false;
  edit(cell);
  delegate_->ShowList();
  return true;
}

// A letter that comes whole, as from a dead key, opens the editor, but the base keeps it from it.
void DataGrid::inputMethodEvent(QInputMethodEvent* event) {
  const bool opens = delegate_->Editor() == nullptr && !event->commitString().isEmpty();
  QTableView::inputMethodEvent(event);
  QWidget* editor = delegate_->Editor();
  if (opens && editor != nullptr) QCoreApplication::sendEvent(editor, event);
}

bool DataGrid::DeleteSelected() {
  QList<int> rows = SelectedRows();
  if (!allowDelete_ || rows.isEmpty() || rows_.IsAddNewRow(CurrentRow())) return false;
  const int first = rows.first();
  const QString key = CurrentKey();
  const QPersistentModelIndex edited = currentIndex();
  if (!rows_.DeleteRows(std::move(rows))) return false;
  // With its row the view has given up an editor that refused what was typed.
  if (!edited.isValid()) delegate_->Forget();
  GoTo(std::min(first, rows_.rowCount() - 1), key);
  return true;
}

// As the menu key does: Qt knows that one alone.
void DataGrid::PopUpMenu(Qt::KeyboardModifiers modifiers) {
  QWidget* editor = delegate_->Editor();
  QWidget& asked = editor != nullptr ? *editor : *this;
  const QPoint middle = asked.rect().center();
  QContextMenuEvent menu(QContextMenuEvent::Keyboard, middle, asked.mapToGlobal(middle),
                         modifiers & ~Qt::KeyboardModifiers(Qt::ShiftModifier));
  QCoreApplication::sendEvent(&asked, &menu);
}

// Into the current cell, as if it were typed there: what refuses a typed text refuses this one. Spreadsheets
// put a line break behind the text of a cell.
void DataGrid::PasteFromClipboard() {
  QString text = QApplication::clipboard()->text();
  if (text.endsWith(u'\n')) text.chop(text.endsWith(u"\r\n"_qs) ? 2 : 1);
  if (text.isEmpty() || !currentIndex().flags().testFlag(Qt::ItemIsEditable)) return;
  if (text.contains(u'\t')) {
    Q_EMIT RowFailed(
        EitherLanguage(u"Negli appunti ci sono più celle. Copiare il testo di una cella sola."_qs,
                       u"There are several cells on the clipboard. Copy the text of a single cell."_qs));
    return;
  }
  edit(currentIndex());
  delegate_->TypeOver(text);
  CloseEditor();
}

void DataGrid::CopyToClipboard() {
  const int count = SelectedCount();
  if (count == 0) return;
  QString text;
  if (count < RowsCopiedAtOnce) {
    text = CopySelection(u"\t"_qs, u"\n"_qs);
  } else {
    WidgetProgressBox box(this, EitherLanguage(u"Copia in corso..."_qs, u"Copying..."_qs));
    text = CopySelection(u"\t"_qs, u"\n"_qs, box.Reporter());
  }
  if (!text.isEmpty()) QApplication::clipboard()->setText(text);
}

bool DataGrid::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride) clickEdit_->Forget();
  const bool handled = QTableView::event(event);
  if (event->type() == QEvent::WindowActivate) Refresh();
  if (event->type() == QEvent::PaletteChange) TakePalette();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) TakeFont();
  return handled;
}

}  // namespace vorlina
