#include "products/WidgetFilterCombo.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QLoggingCategory>
#include <QScopedValueRollback>
#include <algorithm>
#include <limits>
#include <utility>

#include "base/Error.h"
#include "base/Helpers.h"
#include "grid/WidgetRowHeader.h"
#include "store/LockPatience.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

}  // namespace

WidgetFilterCombo::WidgetFilterCombo(QWidget* parent)
    : WidgetDropDown(parent, {}, LeastRowHeight(parent->fontMetrics())) {
  setFrame(true);
  setFocusPolicy(Qt::StrongFocus);
  // What completes is told by the rules below.
  setCompleter(nullptr);
  lineEdit()->setMaxLength(std::numeric_limits<int>::max());
  lineEdit()->setAcceptDrops(false);
  connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
    if (completes_ && lineEdit()->cursorPosition() == text.size()) Complete(text);
  });
  // Of equal texts it would take the first one's value.
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
  connect(this, &QComboBox::editTextChanged, this, &WidgetFilterCombo::Edited);
  connect(this, &QComboBox::activated, this, &WidgetFilterCombo::Pick);
}

void WidgetFilterCombo::ShowValue(const LookupItem& value) {
  shown_ = value;
  if (currentText() == value.text) return;
  setEditText(value.text);
  lineEdit()->setCursorPosition(0);
}

// Of two values with one text it is the one that was shown.
std::optional<qint64> WidgetFilterCombo::Value() {
  const QString text = Typed();
  if (text.isEmpty()) return 0;
  if (text == shown_.text.trimmed()) return shown_.value;
  const LookupItem* item = Values().Exactly(text);
  return item != nullptr ? std::optional(item->value) : std::nullopt;
}

// The list that is open stays until it is opened again.
const Completion& WidgetFilterCombo::Values() {
  if (!isRead_) {
    values_ = Completion(OnRead ? OnRead() : std::vector<LookupItem>());
    list_.reset();
    isRead_ = true;
  }
  return values_;
}

// The rest stands selected, so that the next letter takes its place.
void WidgetFilterCombo::Complete(const QString& typed) {
  if (!Prepare()) return;
  const LookupItem* item = values_.First(typed);
  if (item == nullptr) return;
  // Letters that fold into several may be fewer there.
  const QString text = item->text.trimmed();
  setEditText(text);
  lineEdit()->setSelection(int(std::min(typed.size(), text.size())), int(text.size()));
}

// Another program's lock is not waited for: the values are read with the next letter.
bool WidgetFilterCombo::Prepare() {
  try {
    const LockPatience none(0);
    Values();
    return true;
  } catch (const Error& error) {
    qCDebug(products) << "no values" << error.Description();
    return false;
  }
}

// Where the list is made for the first time, it takes the focus before it is one.
void WidgetFilterCombo::showPopup() {
  const QScopedValueRollback<bool> opening(opens_, true);
  try {
    FillList();
  } catch (const Error& error) {
    qCDebug(products) << "no values" << error.Description();
  }
  view()->installEventFilter(this);
  WidgetDropDown::showPopup();
  // The list would offer its first one as if it was chosen.
  if (currentIndex() < 0) view()->setCurrentIndex({});
}

// Filling the list, and going to the value that is typed, change the text.
void WidgetFilterCombo::FillList() {
  const QSignalBlocker silent(this);
  const QString text = currentText();
  const Completion& values = Values();
  const qint64 value = Value().value_or(0);
  if (!list_) {
    list_ = Lookup(values.Items());
    Offer(*list_);
  }
  const auto& items = list_->Items();
  const auto same = [value](const LookupItem& item) { return item.value == value; };
  const auto found = std::find_if(items.begin(), items.end(), same);
  setCurrentIndex(found != items.end() ? int(found - items.begin()) : -1);
  setEditText(text);
}

void WidgetFilterCombo::Pick(int index) {
  const auto& items = list_ ? list_->Items() : std::vector<LookupItem>();
  if (index < 0 || std::size_t(index) >= items.size()) return;
  const qint64 former = std::exchange(shown_, items[std::size_t(index)]).value;
  if (shown_.value != former) Q_EMIT Edited();
}

bool WidgetFilterCombo::eventFilter(QObject* watched, QEvent* event) {
  const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event)->key() : 0;
  const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
  if (!isEnter || view()->currentIndex().isValid()) return WidgetDropDown::eventFilter(watched, event);
  hidePopup();
  return true;
}

// Keys that go through a closed list would change the value unseen.
void WidgetFilterCombo::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_F4:
      return showPopup();
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      return event->ignore();
    case Qt::Key_Return:
    case Qt::Key_Enter:
      lineEdit()->deselect();
      return event->ignore();
    default:
      completes_ = !event->text().isEmpty() && event->text().front().isPrint();
      WidgetDropDown::keyPressEvent(event);
      completes_ = false;
  }
}

void WidgetFilterCombo::inputMethodEvent(QInputMethodEvent* event) {
  completes_ = true;
  WidgetDropDown::inputMethodEvent(event);
  completes_ = false;
}

// The first letter is not to wait for them.
void WidgetFilterCombo::focusInEvent(QFocusEvent* event) {
  WidgetDropDown::focusInEvent(event);
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (isVisible() && hasFocus()) Prepare();
      },
      Qt::QueuedConnection);
}

// A list, a menu or another window in between is no leaving.
void WidgetFilterCombo::focusOutEvent(QFocusEvent* event) {
  WidgetDropDown::focusOutEvent(event);
  const Qt::FocusReason reason = event->reason();
  if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason &&
      reason != Qt::MenuBarFocusReason && !opens_)
    Q_EMIT Left();
}

void WidgetFilterCombo::wheelEvent(QWheelEvent* event) { event->ignore(); }

}  // namespace vorlina
