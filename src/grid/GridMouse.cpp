#include "grid/GridMouse.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QTableView>

#include "grid/GridCells.h"
#include "grid/RecordsetModel.h"
#include "grid/RowLeaving.h"
#include "grid/WidgetRowDrag.h"

namespace vorlina {

GridMouse::GridMouse(QTableView& view, RecordsetModel& rows, RowLeaving& leaving, WidgetRowDrag& drag)
    : QObject(&view), view_(view), rows_(rows), leaving_(leaving), drag_(drag) {
  view.horizontalHeader()->viewport()->installEventFilter(this);
  view.verticalHeader()->viewport()->installEventFilter(this);
}

QPoint GridMouse::Own(const QPoint& viewportPosition) const {
  return view_.viewport()->mapTo(&view_, viewportPosition);
}

void GridMouse::Press(const QMouseEvent& event, const ViewsOwn& own) {
  const QPoint position = event.pos();
  const Qt::MouseButton button = event.button();
  const QModelIndex cell = view_.indexAt(position);
  stays_ = cell.isValid() && !leaving_.MayGoTo(cell.row());
  if (stays_) return drag_.Cancel();
  const QPersistentModelIndex kept = cell;
  const bool checks = button == Qt::LeftButton && event.modifiers() == Qt::NoModifier;
  if (checks && kept.isValid() && rows_.Column(kept.column()).kind == ColumnKind::Boolean) MakeCurrent(kept);
  own();
  Q_EMIT CellPressed(kept.isValid() ? kept.row() : -1, KeyOf(rows_, kept.column()), button, Own(position));
}

// A press on a check mark itself leaves the base's current cell where it was: what is typed next would go to
// another row than the one that was changed. Nothing scrolls before the release.
void GridMouse::MakeCurrent(const QModelIndex& cell) {
  const bool scrolls = view_.hasAutoScroll();
  view_.setAutoScroll(false);
  QItemSelectionModel& selection = *view_.selectionModel();
  const QItemSelectionModel::SelectionFlags rows =
      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
  selection.setCurrentIndex(cell, selection.isSelected(cell) ? QItemSelectionModel::NoUpdate : rows);
  view_.setAutoScroll(scrolls);
}

// A selection that is dragged beyond the row in edit leaves it.
bool GridMouse::MayDragTo(int row, const QMouseEvent& event) {
  if (row < 0 || !(event.buttons() & Qt::LeftButton)) return true;
  if (!stays_) stays_ = !leaving_.MayGoTo(row);
  return !stays_;
}

void GridMouse::Move(const QMouseEvent& event, const ViewsOwn& own) {
  const QModelIndex cell = view_.indexAt(event.pos());
  Q_EMIT CellHovered(cell.row(), KeyOf(rows_, cell.column()), Own(event.pos()));
  if (MayDragTo(cell.row(), event)) own();
}

void GridMouse::Leave() { Q_EMIT CellHovered(-1, {}, view_.mapFromGlobal(QCursor::pos())); }

void GridMouse::DoubleClick(const QMouseEvent& event, const ViewsOwn& own) {
  if (stays_) return;
  const QModelIndex cell = view_.indexAt(event.pos());
  own();
  if (event.button() == Qt::LeftButton) Q_EMIT DoubleClicked(cell.row(), KeyOf(rows_, cell.column()));
}

// A row is left before the strip selects another.
bool GridMouse::PressStrip(const QMouseEvent& press) {
  const int row = view_.rowAt(press.pos().y());
  stays_ = row >= 0 && !leaving_.MayGoTo(row);
  return stays_;
}

bool GridMouse::eventFilter(QObject* watched, QEvent* event) {
  // Others come as well while the view is being destroyed.
  if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseMove) return false;
  QHeaderView& head = *view_.horizontalHeader();
  const bool strip = watched == view_.verticalHeader()->viewport();
  if (event->type() == QEvent::MouseButtonPress) {
    const auto& press = *static_cast<QMouseEvent*>(event);
    if (strip) return PressStrip(press);
    Q_EMIT HeaderPressed(KeyOf(rows_, head.logicalIndexAt(press.pos())), press.button(),
                         head.mapTo(&view_, press.pos()));
  }
  if (event->type() == QEvent::MouseMove && strip) {
    const auto& move = *static_cast<QMouseEvent*>(event);
    return !MayDragTo(view_.rowAt(move.pos().y()), move);
  }
  return false;
}

}  // namespace vorlina
