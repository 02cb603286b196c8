// The application object with the one handler at the top of the event loop: what nobody catches is shown, and
// the program goes on.
#pragma once

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace vorlina {

// A closed window takes no more input: keys typed faster than the window system moves the focus still reach
// it. It is deleted when nothing that was going on as it closed is left on the stack. A loop within an event,
// as a box has one, would delete it under the code that shows the box, or under Qt.
class WidgetApplication : public QApplication {
 public:
  WidgetApplication(int& argc, char** argv) : QApplication(argc, argv) { ShowHints(); }

  bool notify(QObject* receiver, QEvent* event) override;

 protected:
  bool event(QEvent* event) override;

 private:
  static void ShowHints();
  bool Deliver(QObject* receiver, QEvent* event);
  void DeleteClosed();

  int depth_ = 0;
  std::vector<QPointer<QWidget>> closed_;
};

// Shows the exception being handled in a box of the active window, and logs it.
void ShowUnhandled();

}  // namespace vorlina
