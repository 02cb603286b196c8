#include "shell/WidgetHelpKey.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>

#include "publish/PluginHost.h"
#include "shell/ShellHelp.h"

namespace vorlina {
namespace {

const QString PluginTopic = QStringLiteral("1018");

bool IsHelpKey(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  return key.key() == Qt::Key_F1 && key.modifiers() == Qt::NoModifier;
}

// Its name without its namespace.
QString ClassOf(const QWidget& widget) {
  return QString::fromLatin1(widget.metaObject()->className()).section(u"::"_qs, -1);
}

void CloseMenus() {
  while (QWidget* popup = QApplication::activePopupWidget())
    if (!popup->close()) return;
}

}  // namespace

WidgetHelpKey::WidgetHelpKey() { qApp->installEventFilter(this); }

// The help comes when the key is done with: what holds it, as an editor, is left by the help's window coming
// up.
bool WidgetHelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType() || !IsHelpKey(*event)) return false;
  if (static_cast<QKeyEvent*>(event)->isAutoRepeat()) return true;
  const QStringList names = HelpNamesOf(*static_cast<QWidget*>(watched));
  QMetaObject::invokeMethod(
      this,
      [names] {
        CloseMenus();
        ShowHelpFor(names);
      },
      Qt::QueuedConnection);
  return true;
}

QStringList HelpNamesOf(const QWidget& control) {
  QStringList names;
  if (const auto* menu = qobject_cast<const QMenu*>(&control);
      menu != nullptr && menu->activeAction() != nullptr)
    names += menu->activeAction()->objectName();
  for (const QWidget* widget = &control; widget != nullptr; widget = widget->parentWidget()) {
    if (!widget->isWindow()) {
      names += widget->objectName();  // a part of a window may have a page of its own
      continue;
    }
    const QString name = ClassOf(*widget);
    if (name.startsWith(u"frm"))
      names += name;
    else if (widget->isModal() && PluginAtWork())
      names += PluginTopic;
  }
  return names;
}

}  // namespace vorlina
