// How commands become pictures and buttons, the same way in every window.
#pragma once

#include <QIcon>
#include <QString>
#include <span>

#include "base/Commands.h"

class QAction;
class QMenu;
class QToolBar;
class QWidget;

namespace vorlina {

// The picture of a name, such as "edit"; an empty one for a name that has none. It looks the same where its
// entry is selected.
QIcon CommandIcon(const QString& name);

// Adds a command to a toolbar under its key as name; the button is worked by the keyboard as
// well.
QAction* AddCommand(QToolBar& bar, const ToolbarCommand& command);

// Gives a command that tool tip, with its shortcut behind it.
void SetToolTip(QAction& action, const QString& text);

// Gives a command's button a drop-down. A command that does nothing of its own opens it.
void SetDropDown(QToolBar& bar, QAction& action, QMenu& menu, bool alone);

// Brings the commands that were added to a window's toolbar into the language in use.
void LocalizeCommands(const QWidget& window, std::span<const ToolbarCommand> commands);

// Adds an entry to a menu over a widget under its key as name. Its shortcut, which the menu
// shows, works while the widget has the focus.
QAction* AddCommand(QMenu& menu, const MenuCommand& command, QWidget& widget);

// The same for the entries of a menu.
void LocalizeCommands(const QMenu& menu, std::span<const MenuCommand> commands);

}  // namespace vorlina
