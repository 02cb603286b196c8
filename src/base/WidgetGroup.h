// A frame with a title around controls, from which Return reaches the window's button as from any other
// place: on some desktops Qt's own takes the keys that press buttons for itself, though it has nothing to be
// pressed.
#pragma once

#include <QEvent>
#include <QGroupBox>

namespace vorlina {

class WidgetGroup : public QGroupBox {
 public:
  using QGroupBox::QGroupBox;

 protected:
  bool event(QEvent* event) override {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    return isKey ? QWidget::event(event) : QGroupBox::event(event);
  }
};

}  // namespace vorlina
