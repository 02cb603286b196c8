// Keeps what the user does from a window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <vector>

namespace vorlina {

// While one lives, a window and those that belong to it take no keys, presses and drops, and do not close;
// all of them are painted, and what comes up meanwhile is worked as ever.
class WidgetInputHold : public QObject {
 public:
  explicit WidgetInputHold(QWidget& window);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Holds(QObject* receiver) const;

  std::vector<QPointer<QWidget>> windows_;
};

}  // namespace vorlina
