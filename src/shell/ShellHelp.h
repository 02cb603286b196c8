// The help that the windows open.
#pragma once

#include <QStringList>

namespace vorlina {

// Help on the main window: the Italian one, whatever the language.
void ShowCatalogsHelp();
// The contents, in the program's language.
void ShowHelpContents();
// The page of the first of these windows and commands that has one, in the program's language.
void ShowHelpFor(const QStringList& names);

}  // namespace vorlina
