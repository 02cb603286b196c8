#include "base/WidgetRenameDelegate.h"

#include <QApplication>
#include <QListWidget>
#include <QMetaProperty>
#include <QMouseEvent>

#include "base/Helpers.h"

namespace vorlina {

WidgetRenameDelegate::WidgetRenameDelegate(QListWidget& list)
    : QStyledItemDelegate(&list), list_(list), viewport_(list.viewport()) {
  list.setItemDelegate(this);
  list.installEventFilter(this);
  list.viewport()->installEventFilter(this);
  // A click edits only when it is sure to be no double click, and when nothing else was begun meanwhile. The
  // list's own delay cannot be called off: it would open the editor behind the next window.
  connect(this, &QAbstractItemDelegate::closeEditor, this, [this](const QWidget* editor) {
    if (editor == editor_) editor_ = nullptr;
  });
  click_.setSingleShot(true);
  click_.setInterval(QApplication::doubleClickInterval());
  connect(&click_, &QTimer::timeout, this, [this] {
    if (list_.hasFocus() && list_.currentItem() != nullptr) list_.editItem(list_.currentItem());
  });
}

void WidgetRenameDelegate::Finish() {
  click_.stop();
  const QPointer<QWidget> editor = editor_;
  if (editor == nullptr) return;
  Q_EMIT commitData(editor);
  if (editor != nullptr) Q_EMIT closeEditor(editor);
  editor_ = nullptr;
}

QWidget* WidgetRenameDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                            const QModelIndex& index) const {
  editor_ = QStyledItemDelegate::createEditor(parent, option, index);
  return editor_;
}

void WidgetRenameDelegate::setModelData(QWidget* editor, QAbstractItemModel*,
                                        const QModelIndex& index) const {
  if (index.isValid())
    Q_EMIT Renamed(index, OneLine(editor->property(editor->metaObject()->userProperty().name()).toString()));
}

bool WidgetRenameDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &list_ || watched == viewport_) {
    WatchList(*event);
    return false;
  }
  if (watched != editor_ || !EndsEdit(*event)) return QStyledItemDelegate::eventFilter(watched, event);
  Finish();
  return true;
}

// Decided here and now: a Return that the editor leaves climbs to the list, and Tab would edit the next
// label.
bool WidgetRenameDelegate::EndsEdit(QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Tab || key == Qt::Key_Backtab;
}

void WidgetRenameDelegate::WatchList(const QEvent& event) {
  switch (event.type()) {
    case QEvent::MouseButtonPress:
      click_.stop();
      pressed_ = list_.hasFocus() && IsOnSelected(event);
      return;
    case QEvent::MouseButtonRelease:
      if (std::exchange(pressed_, false) && IsOnSelected(event)) click_.start();
      return;
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::FocusOut:
    case QEvent::Wheel:
      pressed_ = false;
      click_.stop();
      return;
    default:
      return;
  }
}

bool WidgetRenameDelegate::IsOnSelected(const QEvent& event) const {
  const auto& mouse = static_cast<const QMouseEvent&>(event);
  const QListWidgetItem* item = list_.itemAt(mouse.position().toPoint());
  return item != nullptr && item == list_.currentItem() && item->isSelected() &&
         item->flags().testFlag(Qt::ItemIsEditable) && mouse.button() == Qt::LeftButton &&
         mouse.modifiers() == Qt::NoModifier;
}

}  // namespace vorlina
