// What the user does in a grid with the mouse, and what is dragged onto it.
#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>
#include <algorithm>

#include "grid/DataGrid.h"
#include "grid/WidgetRowDrag.h"
#include "grid/WidgetRowHeader.h"

namespace vorlina {
namespace {

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

void DataGrid::mousePressEvent(QMouseEvent* event) {
  const QPoint position = event->pos();
  const QModelIndex cell = indexAt(position);
  stays_ = cell.isValid() && !MayGoTo(cell.row());
  if (stays_) return rowDrag_->Cancel();
  const QPersistentModelIndex kept = cell;
  const bool checks = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
  if (checks && kept.isValid() && rows_.Column(kept.column()).kind == ColumnKind::Boolean) MakeCurrent(kept);
  QTableView::mousePressEvent(event);
  Q_EMIT CellPressed(kept.isValid() ? kept.row() : -1, KeyOf(kept.column()), event->button(), Own(position));
}

// A press on a check mark itself leaves the base's current cell where it was: what is typed next would go to
// another row than the one that was changed. Nothing scrolls before the release.
void DataGrid::MakeCurrent(const QModelIndex& cell) {
  const bool scrolls = hasAutoScroll();
  setAutoScroll(false);
  const QItemSelectionModel::SelectionFlags rows =
      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
  selectionModel()->setCurrentIndex(
      cell, selectionModel()->isSelected(cell) ? QItemSelectionModel::NoUpdate : rows);
  setAutoScroll(scrolls);
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

// Files do not come through a box that is up: what they change could lie under it.
bool DataGrid::TakesOneOf(const QStringList& files) const {
  if (QApplication::activeModalWidget() != nullptr) return false;
  return std::any_of(files.begin(), files.end(),
                     [this](const QString& file) { return !TakesFile || TakesFile(file); });
}

void DataGrid::dragMoveEvent(QDragMoveEvent* event) {
  if (!TakesOneOf(FilesOf(*event->mimeData()))) return event->ignore();
  const int row = rowAt(event->position().toPoint().y());
  event->setDropAction(Qt::CopyAction);
  event->setAccepted(row >= 0 && !rows_.IsAddNewRow(row));
  if (event->isAccepted()) Q_EMIT FilesOver(row);
}

void DataGrid::dropEvent(QDropEvent* event) {
  const QStringList paths = FilesOf(*event->mimeData());
  const int row = rowAt(event->position().toPoint().y());
  if (!TakesOneOf(paths) || row < 0 || rows_.IsAddNewRow(row) || !LeaveRow()) return event->ignore();
  event->setDropAction(Qt::CopyAction);
  event->accept();
  Q_EMIT FilesDropped(row, paths);
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
