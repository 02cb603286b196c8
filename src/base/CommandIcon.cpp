#include "base/CommandIcon.h"

#include <QAction>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>
#include <QWidget>

#include "base/Helpers.h"
#include "base/Texts.h"

// The pictures lie in a static library, from which they come when they are asked for.
static void InitPictures() { Q_INIT_RESOURCE(commands); }

namespace vorlina {

QIcon CommandIcon(const QString& name) {
  InitPictures();
  QIcon icon;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
    icon.addFile(u":/commands/"_qs + name + u".svg"_qs, {}, mode);
  return icon;
}

QAction* AddCommand(QToolBar& bar, const ToolbarCommand& command) {
  QAction* action = bar.addAction(CommandIcon(Text(command.icon)), Texts::tr(command.caption));
  action->setObjectName(Text(command.key));
  action->setShortcut(QKeySequence(Text(command.shortcut)));
  SetToolTip(*action, Texts::tr(command.toolTip, command.comment));
  QWidget* button = bar.widgetForAction(action);
  button->setFocusPolicy(Qt::TabFocus);
  // For a command without a tool tip Qt would show its caption.
  const auto none = [button] { button->setToolTip({}); };
  if (*command.toolTip == 0) {
    QObject::connect(action, &QAction::changed, button, none);
    none();
  }
  return action;
}

void SetToolTip(QAction& action, const QString& text) {
  const QString keys = action.shortcut().toString(QKeySequence::NativeText);
  action.setToolTip(PlainToolTip(text.isEmpty() || keys.isEmpty() ? text : u"%1 (%2)"_qs.arg(text, keys)));
}

void SetDropDown(QToolBar& bar, QAction& action, QMenu& menu, bool alone) {
  auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(&action));
  button->setMenu(&menu);
  button->setPopupMode(alone ? QToolButton::InstantPopup : QToolButton::MenuButtonPopup);
  if (alone)
    QObject::connect(&action, &QAction::triggered, &menu, [button, &menu] {
      menu.popup(button->mapToGlobal(QPoint(0, button->height())));
      // Who opens it by a key goes on by keys.
      for (QAction* entry : menu.actions())
        if (entry->isEnabled()) return menu.setActiveAction(entry);
    });
}

void LocalizeCommands(const QWidget& window, std::span<const ToolbarCommand> commands) {
  for (const ToolbarCommand& command : commands) {
    auto* action = window.findChild<QAction*>(Text(command.key));
    action->setText(Texts::tr(command.caption));
    SetToolTip(*action, Texts::tr(command.toolTip, command.comment));
  }
}

QAction* AddCommand(QMenu& menu, const MenuCommand& command, QWidget& widget) {
  QAction* entry = menu.addAction(Texts::tr(command.caption));
  entry->setObjectName(Text(command.key));
  entry->setShortcut(QKeySequence(Text(command.shortcut)));
  entry->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  entry->setShortcutVisibleInContextMenu(true);
  widget.addAction(entry);
  return entry;
}

void LocalizeCommands(const QMenu& menu, std::span<const MenuCommand> commands) {
  for (const MenuCommand& command : commands)
    menu.findChild<QAction*>(Text(command.key))->setText(Texts::tr(command.caption));
}

}  // namespace vorlina
