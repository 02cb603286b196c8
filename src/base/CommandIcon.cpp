#include "base/CommandIcon.h"

#include <QAction>
#include <QToolBar>
#include <QWidget>

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
  QAction* action = bar.addAction(CommandIcon(Text(command.icon)), Text(command.caption.italian));
  action->setObjectName(Text(command.key));
  action->setToolTip(Text(command.toolTip.italian));
  action->setShortcut(QKeySequence(Text(command.shortcut)));
  bar.widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
  return action;
}

void LocalizeCommands(const QWidget& window, std::span<const ToolbarCommand> commands) {
  for (const ToolbarCommand& command : commands) {
    auto* action = window.findChild<QAction*>(Text(command.key));
    action->setText(Text(command.caption.english));
    action->setToolTip(Text(command.toolTip.english));
  }
}

}  // namespace vorlina
