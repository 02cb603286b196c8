#include "grid/WidgetRowDrag.h"

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>

#include "grid/RecordsetModel.h"

namespace vorlina {
namespace {

constexpr int ScrollMilliseconds = 40;

}  // namespace

WidgetRowDrag::WidgetRowDrag(QTableView& grid) : QObject(&grid), grid_(grid) {
  grid.viewport()->installEventFilter(this);
  grid.verticalHeader()->viewport()->installEventFilter(this);
  scroll_.setInterval(ScrollMilliseconds);
  connect(&scroll_, &QTimer::timeout, this, &WidgetRowDrag::Scroll);
}

bool WidgetRowDrag::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      return Press(*static_cast<QMouseEvent*>(event), watched != grid_.viewport());
    case QEvent::MouseMove:
      return Move(*static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease:
      return Release(*static_cast<QMouseEvent*>(event));
    default:
      return false;
  }
}

// The strip would at once select the row alone; that waits for the release, since a drag may come of it. A
// press between two rows changes their height.
bool WidgetRowDrag::Press(const QMouseEvent& event, bool onHeader) {
  if (IsDragging()) return true;
  const int row = grid_.rowAt(event.pos().y());
  const bool between = onHeader && grid_.verticalHeader()->viewport()->cursor().shape() == Qt::SplitVCursor;
  const bool drags = row >= 0 && !IsAddNew(row) && !between && event.button() == Qt::LeftButton &&
                     event.modifiers() == Qt::NoModifier &&
                     grid_.selectionModel()->isRowSelected(row, QModelIndex());
  phase_ = drags ? Phase::Pressed : Phase::None;
  pressedRow_ = row;
  pressed_ = event.pos();
  onHeader_ = onHeader;
  return drags && onHeader;
}

bool WidgetRowDrag::Move(const QMouseEvent& event) {
  if (phase_ == Phase::None || !(event.buttons() & Qt::LeftButton)) return false;
  const bool far = (event.pos() - pressed_).manhattanLength() >= QApplication::startDragDistance();
  if (phase_ == Phase::Pressed && far) Start();
  if (IsDragging()) Follow(event);
  return true;
}

void WidgetRowDrag::Start() {
  phase_ = Phase::Cancelled;
  if (MayStart && !MayStart()) return;
  phase_ = Phase::Dragging;
  grid_.viewport()->setCursor(Qt::DragMoveCursor);
  grid_.verticalHeader()->viewport()->setCursor(Qt::DragMoveCursor);
  scroll_.start();
  Q_EMIT Started();
}

bool WidgetRowDrag::Release(const QMouseEvent& event) {
  if (event.button() != Qt::LeftButton || phase_ == Phase::None) return false;
  const Phase phase = std::exchange(phase_, Phase::None);
  if (phase == Phase::Cancelled) return true;
  if (phase == Phase::Pressed) {
    if (onHeader_) Q_EMIT HeaderClicked(pressedRow_);
    return onHeader_;
  }
  Follow(event);
  const int row = End();
  if (beside_)
    Q_EMIT Cancelled();
  else
    Q_EMIT Dropped(row);
  return true;
}

void WidgetRowDrag::Cancel() {
  if (phase_ != Phase::Pressed && phase_ != Phase::Dragging) return;
  if (std::exchange(phase_, Phase::Cancelled) != Phase::Dragging) return;
  End();
  Q_EMIT Cancelled();
}

// The row that the pointer was on.
int WidgetRowDrag::End() {
  scroll_.stop();
  grid_.viewport()->unsetCursor();
  grid_.verticalHeader()->viewport()->unsetCursor();
  return std::exchange(row_, -1);
}

bool WidgetRowDrag::IsAddNew(int row) const {
  const QVariant state = grid_.model()->headerData(row, Qt::Vertical, RecordsetModel::RowStateRole);
  return state == int(RowState::AddNew) || state == int(RowState::Added);
}

void WidgetRowDrag::Follow(const QMouseEvent& event) {
  y_ = event.pos().y();
  beside_ = !grid_.rect().contains(grid_.mapFromGlobal(event.globalPosition().toPoint()));
  Mark();
}

void WidgetRowDrag::Mark() {
  int row = grid_.rowAt(qBound(0, y_, grid_.viewport()->height() - 1));
  if (row < 0) row = grid_.model()->rowCount() - 1;
  if (row >= 0 && IsAddNew(row)) --row;
  if (beside_) row = -1;
  if (row == row_) return;
  row_ = row;
  Q_EMIT Moved(row);
}

// The faster the farther the pointer is beyond the edge.
void WidgetRowDrag::Scroll() {
  const int rowHeight = grid_.verticalHeader()->defaultSectionSize();
  const int height = grid_.viewport()->height();
  const int beyond = y_ < rowHeight ? y_ - rowHeight : y_ > height - rowHeight ? y_ - height + rowHeight : 0;
  if (beyond == 0) return;
  QScrollBar& bar = *grid_.verticalScrollBar();
  bar.setValue(bar.value() + beyond);
  Mark();
}

}  // namespace vorlina
