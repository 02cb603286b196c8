// What the user does in a grid: keys, the mouse, editors, and how a row is left.
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>

#include "base/Language.h"
#include "base/WidgetProgressBox.h"
#include "grid/DataGrid.h"
#include "grid/WidgetGridDelegate.h"
#include "grid/WidgetRowDrag.h"
#include "grid/WidgetRowHeader.h"

namespace vorlina {
namespace {

// From here on a copy shows how far it is.
constexpr int RowsCopiedAtOnce = 5000;

QStringList FilesOf(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) paths += QDir::toNativeSeparators(url.toLocalFile());
  return paths;
}

}  // namespace

QPoint DataGrid::Own(const QPoint& viewportPosition) const {
  return viewport()->mapTo(this, viewportPosition);
}

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
        editor, [editor] { editor->setFocus(); }, Qt::QueuedConnection);
    return;
  }
  if (delegate_->Editor() == editor) delegate_->Forget();
  const bool moves =
      hint == QAbstractItemDelegate::EditNextItem || hint == QAbstractItemDelegate::EditPreviousItem;
  QTableView::closeEditor(editor, moves ? hint : QAbstractItemDelegate::NoHint);
}

void DataGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  rowHeader_->SetCurrentRow(current.row());
  if (rows_.EditRow() >= 0 && rows_.EditRow() != current.row() && !LeaveRow())
    QMetaObject::invokeMethod(
        this,
        [this, column = previous.column()] {
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

// Down from a new row leads to the next new one as well.
QModelIndex DataGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (action == MoveDown && rows_.StateOf(CurrentRow()) == RowState::Added && !LeaveRow())
    return currentIndex();
  const QModelIndex cell = action == MoveNext       ? NextCell(1)
                           : action == MovePrevious ? NextCell(-1)
                                                    : QTableView::moveCursor(action, modifiers);
  return !cell.isValid() || MayGoTo(cell.row()) ? cell : currentIndex();
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

// Tab leaves the grid behind its last cell, and before its first.
bool DataGrid::focusNextPrevChild(bool next) {
  const bool goesOn =
      NeighbourCell(next ? 1 : -1).isValid() || (next && rows_.StateOf(CurrentRow()) == RowState::Added);
  return goesOn ? QTableView::focusNextPrevChild(next) : QWidget::focusNextPrevChild(next);
}

void DataGrid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return OnCopy ? OnCopy() : CopyToClipboard();
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
  if (!allowDelete_) return false;
  QList<int> rows = SelectedRows();
  if (rows.isEmpty() && CurrentRow() >= 0 && !rows_.IsAddNewRow(CurrentRow())) rows = {CurrentRow()};
  if (rows.isEmpty()) return false;
  const int first = rows.first();
  const QString key = CurrentKey();
  if (!rows_.DeleteRows(std::move(rows))) return false;
  GoTo(std::min(first, rows_.rowCount() - 1), key);
  return true;
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

void DataGrid::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->pos();
  const QModelIndex cell = indexAt(position);
  stays_ = cell.isValid() && !MayGoTo(cell.row());
  if (stays_) return rowDrag_->Cancel();
  const QPersistentModelIndex kept = cell;
  // A click on one of several selected rows selects that one alone.
  setEditTriggers(editTriggers().setFlag(SelectedClicked, SelectedCount() <= 1));
  QTableView::mousePressEvent(event);
  Q_EMIT CellPressed(kept.isValid() ? kept.row() : -1, KeyOf(kept.column()), event->button(), Own(position));
}

// A selection that is dragged beyond the row in edit leaves it.
bool DataGrid::MayDragTo(int row, const QMouseEvent& event) {
  if (row < 0 || !(event.buttons() & Qt::LeftButton)) return true;
  if (!stays_) stays_ = !MayGoTo(row);
  return !stays_;
}

void DataGrid::mouseMoveEvent(QMouseEvent* event) {
  const QModelIndex cell = indexAt(event->pos());
  Q_EMIT CellHovered(cell.row(), KeyOf(cell.column()), Own(event->pos()));
  if (MayDragTo(cell.row(), *event)) QTableView::mouseMoveEvent(event);
}

void DataGrid::leaveEvent(QEvent* event) {
  Q_EMIT CellHovered(-1, {}, mapFromGlobal(QCursor::pos()));
  QTableView::leaveEvent(event);
}

void DataGrid::mouseDoubleClickEvent(QMouseEvent* event) {
  if (stays_) return;
  const QModelIndex cell = indexAt(event->pos());
  QTableView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) Q_EMIT DoubleClicked(cell.row(), KeyOf(cell.column()));
}

void DataGrid::dragEnterEvent(QDragEnterEvent* event) { dragMoveEvent(event); }

void DataGrid::dragMoveEvent(QDragMoveEvent* event) {
  if (FilesOf(*event->mimeData()).isEmpty()) return event->ignore();
  const int row = rowAt(event->position().toPoint().y());
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(row >= 0 && !rows_.IsAddNewRow(row));
  if (event->isAccepted()) Q_EMIT FilesOver(row);
}

void DataGrid::dropEvent(QDropEvent* event) {
  const QStringList paths = FilesOf(*event->mimeData());
  const int row = rowAt(event->position().toPoint().y());
  if (paths.isEmpty() || row < 0 || rows_.IsAddNewRow(row) || !LeaveRow()) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  Q_EMIT FilesDropped(row, paths);
}

bool DataGrid::event(QEvent* event) {
  const bool handled = QTableView::event(event);
  if (event->type() == QEvent::WindowActivate) Refresh();
  if (event->type() == QEvent::PaletteChange) TakePalette();
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) TakeFont();
  return handled;
}

// The column header's presses; a row is left before the strip selects another.
bool DataGrid::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress) {
    const auto& press = *static_cast<QMouseEvent*>(event);
    if (watched == horizontalHeader()->viewport()) {
      const QString key = KeyOf(horizontalHeader()->logicalIndexAt(press.pos()));
      Q_EMIT HeaderPressed(key, press.button(), horizontalHeader()->mapTo(this, press.pos()));
    } else if (watched == rowHeader_->viewport()) {
      const int row = rowAt(press.pos().y());
      stays_ = row >= 0 && !MayGoTo(row);
      if (stays_) return true;
    }
  }
  if (event->type() == QEvent::MouseMove && watched == rowHeader_->viewport()) {
    const auto& move = *static_cast<QMouseEvent*>(event);
    if (!MayDragTo(rowAt(move.pos().y()), move)) return true;
  }
  return QTableView::eventFilter(watched, event);
}

}  // namespace vorlina
