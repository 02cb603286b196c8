// The command that installs a plug-in from a package.
#pragma once

class QWidget;

namespace vorlina {

// Asks for a package, tells what it is, and installs it once the user agrees. The lists of plug-ins stay as
// they are until the next start.
void InstallPlugin(QWidget& owner);

}  // namespace vorlina
