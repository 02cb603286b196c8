#include "base/WidgetInputHold.h"

#include <QApplication>
#include <QEvent>
#include <algorithm>

namespace vorlina {
namespace {

bool BelongsTo(const QWidget* window, const QWidget& owner) {
  while (window != nullptr && window != &owner) window = window->parentWidget();
  return window != nullptr;
}

bool IsInput(QEvent::Type type) {
  switch (type) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
      return true;
    default:
      return false;
  }
}

}  // namespace

WidgetInputHold::WidgetInputHold(QWidget& window) {
  for (QWidget* shown : QApplication::topLevelWidgets())
    if (shown->isVisible() && BelongsTo(shown, window)) windows_.emplace_back(shown);
  qApp->installEventFilter(this);
}

// A shortcut is its command's, and the keys in a menu those of the window below it.
bool WidgetInputHold::Holds(QObject* receiver) const {
  while (receiver != nullptr && !receiver->isWidgetType()) receiver = receiver->parent();
  const QWidget* window = receiver != nullptr ? static_cast<QWidget*>(receiver)->window() : nullptr;
  while (window != nullptr && window->windowType() == Qt::Popup && window->parentWidget() != nullptr)
    window = window->parentWidget()->window();
  return window != nullptr && std::find(windows_.begin(), windows_.end(), window) != windows_.end();
}

bool WidgetInputHold::eventFilter(QObject* watched, QEvent* event) {
  if (!IsInput(event->type()) || !Holds(watched)) return false;
  event->ignore();
  // Who closes the program from elsewhere sees what is in the way.
  if (event->type() == QEvent::Close) {
    QWidget* box = QApplication::activeModalWidget();
    QWidget* window = box != nullptr ? box : static_cast<QWidget*>(watched);
    window->raise();
    window->activateWindow();
  }
  return true;
}

}  // namespace vorlina
