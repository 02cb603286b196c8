// The box of a filter on the product card: a text that is completed as it is typed, from values of which
// there may be thousands. They are read once the box has the focus, and sorted for the list alone.
#pragma once

#include <functional>
#include <optional>

#include "grid/WidgetDropDown.h"
#include "products/Completion.h"

namespace vorlina {

class WidgetFilterCombo : public WidgetDropDown {
  Q_OBJECT

 public:
  explicit WidgetFilterCombo(QWidget* parent = nullptr);

  // Reads the values. May throw Error.
  std::function<std::vector<LookupItem>()> OnRead;

  // Shows a value, 0 and "" for none.
  void ShowValue(const LookupItem& value);
  // The value of what is typed, 0 for nothing; none for a text that is not among the values. Throws Error.
  std::optional<qint64> Value();
  // What is typed, without blanks around it.
  QString Typed() const { return currentText().trimmed(); }
  // The values are read anew when they are asked for.
  void Forget() { isRead_ = false; }

  void showPopup() override;

 Q_SIGNALS:
  // The text has changed.
  void Edited();
  // The focus went to another control.
  void Left();

 protected:
  // Of the list: Enter takes nothing where nothing was chosen.
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  const Completion& Values();
  bool Prepare();
  void Complete(const QString& typed);
  void FillList();
  void Pick(int index);

  bool isRead_ = false;
  Completion values_;
  std::optional<Lookup> list_;  // what the list offers
  LookupItem shown_;            // the value that was shown or picked
  bool opens_ = false;          // the list
  bool completes_ = false;      // the key that is at work adds to the text
};

}  // namespace vorlina
