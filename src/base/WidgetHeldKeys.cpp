#include "base/WidgetHeldKeys.h"

#include <QAbstractButton>
#include <QKeyEvent>

namespace vorlina {
namespace {

class HeldKeys : public QObject {
 public:
  using QObject::QObject;
  bool eventFilter(QObject*, QEvent* event) override {
    return event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->isAutoRepeat();
  }
};

}  // namespace

void IgnoreHeldKeys(QWidget& window) {
  auto* held = new HeldKeys(&window);
  window.installEventFilter(held);
  for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) button->installEventFilter(held);
}

}  // namespace vorlina
