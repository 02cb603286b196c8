// The application object with the one handler at the top of the event loop: what nobody catches is shown, and
// the program goes on.
#pragma once

#include <QApplication>

namespace vorlina {

class WidgetApplication : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override;
};

// Shows the exception being handled in a box of the active window, and logs it.
void ShowUnhandled();

}  // namespace vorlina
