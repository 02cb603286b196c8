#include "shell/WidgetApplication.h"

#include <QLoggingCategory>
#include <QPalette>
#include <QScopedValueRollback>
#include <utility>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Texts.h"

namespace vorlina {
namespace {
Q_LOGGING_CATEGORY(shell, "vorlina.shell", QtInfoMsg)

bool IsInput(QEvent::Type type) {
  return type == QEvent::KeyPress || type == QEvent::ShortcutOverride || type == QEvent::Shortcut ||
         type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick || type == QEvent::Drop ||
         type == QEvent::WindowActivate;
}
}  // namespace

bool WidgetApplication::notify(QObject* receiver, QEvent* event) {
  // Qt's own threads, as that of its file chooser, deliver theirs by themselves.
  if (receiver->thread() != thread()) return QApplication::notify(receiver, event);
  const QScopedValueRollback deeper(depth_, depth_ + 1);
  bool result = false;
  try {
    result = Deliver(receiver, event);
  } catch (...) {
    ShowUnhandled();
  }
  if (depth_ == 1 && !closed_.empty())
    QMetaObject::invokeMethod(this, &WidgetApplication::DeleteClosed, Qt::QueuedConnection);
  return result;
}

bool WidgetApplication::event(QEvent* event) {
  if (event->type() == QEvent::ApplicationPaletteChange) ShowHints();
  return QApplication::event(event);
}

// The theme of a dark desktop may leave the hints in empty lines dark, as they are on a light one.
void WidgetApplication::ShowHints() {
  const QPalette now = palette();
  const int ground = now.color(QPalette::Base).lightness();
  QColor text = now.color(QPalette::Text);
  const bool isLighter = text.lightness() > ground;
  if ((now.color(QPalette::PlaceholderText).lightness() > ground) == isLighter) return;
  text.setAlpha(128);
  QPalette hints;
  hints.setColor(QPalette::PlaceholderText, text);
  setPalette(hints);
}

bool WidgetApplication::Deliver(QObject* receiver, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(receiver);
  if (widget == nullptr) return QApplication::notify(receiver, event);
  if (IsInput(event->type()) && widget->window()->isHidden()) return true;
  if (event->type() != QEvent::DeferredDelete || !widget->isWindow() || depth_ == 1)
    return QApplication::notify(receiver, event);
  closed_.emplace_back(widget);
  return true;
}

// Queued, since Qt still holds the window that an event was for when the event has been delivered.
void WidgetApplication::DeleteClosed() {
  if (depth_ > 1) return;
  for (const QPointer<QWidget>& window : std::exchange(closed_, {})) delete window.data();
}

void ShowUnhandled() {
  QString description = Texts::tr("Errore sconosciuto");
  try {
    throw;
  } catch (const std::exception& error) {
    description = DescriptionOf(error);
  } catch (...) {
  }
  qCCritical(shell) << description;
  // Here the box comes in any language, so that no failure passes unseen.
  TheDialogs().Message(QApplication::activeWindow(), description, BoxStyle::Stop);
}

}  // namespace vorlina
