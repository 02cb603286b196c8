#include "grid/RowLeaving.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QTableView>

#include "grid/RecordsetModel.h"
#include "grid/WidgetGridDelegate.h"

namespace vorlina {

bool RowLeaving::Leave(bool tellsAgain) {
  if (leaving_) return false;
  const QScopedValueRollback<bool> leaving(leaving_, true);
  if (!CloseEditor(tellsAgain)) return false;
  if (rows_.Submit()) return true;
  GoToRefused();
  return false;
}

// To the cell that the row was refused for.
void RowLeaving::GoToRefused() {
  if (rows_.RefusedColumn() >= 0 && view_.currentIndex().row() == rows_.EditRow())
    view_.setCurrentIndex(rows_.index(rows_.EditRow(), rows_.RefusedColumn()));
}

bool RowLeaving::CloseEditor(bool tellsAgain) {
  const QPointer<QWidget> editor = delegate_.Editor();
  if (editor == nullptr) return true;
  // What it was left with has been refused already.
  if (delegate_.IsRefused() && !editor->hasFocus() && !tellsAgain) return false;
  Q_EMIT delegate_.commitData(editor);
  if (editor == nullptr) return true;
  Q_EMIT delegate_.closeEditor(editor);
  return delegate_.Editor() == nullptr;
}

bool RowLeaving::MayGoTo(int row) {
  if (delegate_.Editor() == nullptr && (rows_.EditRow() < 0 || rows_.EditRow() == row)) return true;
  if (row == view_.currentIndex().row()) return CloseEditor();
  return Leave();
}

void RowLeaving::Take(const std::function<void()>& commit) {
  const QScopedValueRollback<bool> leaving(leaving_, true);
  commit();
}

bool RowLeaving::Keeps(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) const {
  if (delegate_.Editor() != editor || !delegate_.IsRefused() ||
      hint == QAbstractItemDelegate::RevertModelCache)
    return false;
  QMetaObject::invokeMethod(
      editor,
      [this, editor] {
        if (delegate_.Editor() == editor) editor->setFocus();
      },
      Qt::QueuedConnection);
  return true;
}

void RowLeaving::CellChanged(const QModelIndex& current, const QModelIndex& previous) {
  if (rows_.EditRow() < 0 || rows_.EditRow() == current.row() || Leave()) return;
  QMetaObject::invokeMethod(
      &view_,
      [this, column = previous.column()] {
        if (rows_.EditRow() < 0) return;
        view_.setCurrentIndex(rows_.index(rows_.EditRow(), column));
        GoToRefused();
      },
      Qt::QueuedConnection);
}

void RowLeaving::FocusMoved(QWidget* to) {
  if (to == nullptr || leaving_) return;
  const bool isOwn = to == &view_ || view_.isAncestorOf(to);
  const bool inBetween = to->window() != view_.window() && (QApplication::activePopupWidget() != nullptr ||
                                                            QApplication::activeModalWidget() != nullptr);
  if (inBetween || !std::exchange(hadFocus_, isOwn) || isOwn) return;
  if (Leave() || to->window() != view_.window()) return;
  QMetaObject::invokeMethod(
      &view_,
      [this] {
        QWidget* editor = delegate_.Editor();
        (editor != nullptr ? editor : &view_)->setFocus();
      },
      Qt::QueuedConnection);
}

}  // namespace vorlina
