// F1 in every window, box and menu of the program: help on the window that it belongs to, in the program's
// language.
#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

namespace vorlina {

// Works as long as it is there. Keys that a window has held back do not come here.
class WidgetHelpKey : public QObject {
 public:
  WidgetHelpKey();
  bool eventFilter(QObject* watched, QEvent* event) override;
};

// What the help may know a control by, from the control outwards: the entry of a menu that is pointed to, and
// the windows around it. A box has its owner's; one that a plug-in shows the topic of plug-ins before.
QStringList HelpNamesOf(const QWidget& control);

}  // namespace vorlina
