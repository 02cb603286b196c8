#include "grid/WidgetClickEdit.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTableView>

namespace vorlina {

WidgetClickEdit::WidgetClickEdit(QTableView& grid) : QObject(&grid), grid_(grid) {
  grid.viewport()->installEventFilter(this);
  wait_.setSingleShot(true);
  connect(&wait_, &QTimer::timeout, this, &WidgetClickEdit::Open);
}

bool WidgetClickEdit::eventFilter(QObject*, QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
      Press(*static_cast<QMouseEvent*>(event));
      break;
    case QEvent::MouseButtonRelease:
      Release(*static_cast<QMouseEvent*>(event));
      break;
    case QEvent::MouseButtonDblClick:
      pressed_ = QPersistentModelIndex();
      Forget();
      break;
    default:
      break;
  }
  return false;
}

// A click on one of several selected rows selects that one alone.
void WidgetClickEdit::Press(const QMouseEvent& event) {
  Forget();
  const QModelIndex cell = grid_.indexAt(event.pos());
  const QItemSelection selected = grid_.selectionModel()->selection();
  const bool isAlone = selected.size() == 1 && selected.first().height() == 1 && selected.contains(cell);
  const bool edits = event.button() == Qt::LeftButton && event.modifiers() == Qt::NoModifier && isAlone;
  pressed_ = edits ? cell : QModelIndex();
}

void WidgetClickEdit::Release(const QMouseEvent& event) {
  if (event.button() == Qt::LeftButton && pressed_.isValid() && grid_.indexAt(event.pos()) == pressed_)
    wait_.start(QApplication::doubleClickInterval());
}

void WidgetClickEdit::Open() {
  const bool stands = grid_.hasFocus() && grid_.isActiveWindow() && grid_.currentIndex() == pressed_;
  if (stands && QApplication::activePopupWidget() == nullptr &&
      grid_.currentIndex().flags().testFlag(Qt::ItemIsEditable))
    grid_.edit(grid_.currentIndex());
}

}  // namespace vorlina
