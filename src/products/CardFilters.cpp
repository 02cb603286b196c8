#include "products/CardFilters.h"

#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QToolButton>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "products/CellRules.h"
#include "products/WidgetFilterCombo.h"
#include "publish/EscapedNames.h"
#include "support/Language.h"
#include "support/Messages.h"

namespace vorlina {
namespace {

QString ColumnOf(std::size_t index) { return u"IDFiltro"_qs + QString::number(index + 1); }

}  // namespace

CardFilters::CardFilters(QWidget& card, const std::array<FilterControls, 5>& controls)
    : QObject(&card), window_(card), controls_(controls) {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const FilterControls& filter = controls_[i];
    connect(filter.combo, &WidgetFilterCombo::Edited, this, &CardFilters::Edited);
    // What the focus went to has its event first; a box within it would be one too many.
    connect(
        filter.combo, &WidgetFilterCombo::Left, this,
        [this, i] {
          if (!asking_ && !(IsBusy && IsBusy()) && !controls_[i].combo->hasFocus() &&
              controls_[i].combo->isVisible())
            Settle(i);
        },
        Qt::QueuedConnection);
    connect(filter.button, &QToolButton::clicked, this, [this, i] { Q_EMIT ButtonClicked(int(i) + 1); });
  }
}

void CardFilters::SetCard(ProductCard& card) {
  card_ = &card;
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const FilterControls& filter = controls_[i];
    const NamedField& field = card.Names().filters[i];
    Rename(int(i) + 1, UnescapeName(field.name));
    filter.label->setVisible(field.inUse);
    filter.combo->setVisible(field.inUse);
    filter.button->setVisible(field.inUse);
    filter.combo->Forget();
    filter.combo->OnRead = [this, i] { return card_->FilterItems(int(i) + 1); };
  }
}

void CardFilters::Rename(int filter, const QString& name) {
  const auto& [label, combo, button] = controls_[std::size_t(filter) - 1];
  label->setTextFormat(Qt::PlainText);
  label->setText(name);
  combo->setAccessibleName(name);
  button->setAccessibleName(button->toolTip() + u": "_qs + name);
}

bool CardFilters::IsInUse(std::size_t index) const { return card_->Names().filters[index].inUse; }

void CardFilters::Show(const ProductValues& values) {
  for (std::size_t i = 0; i < controls_.size(); ++i) {
    const qint64 value = values.value(ColumnOf(i)).toLongLong();
    controls_[i].combo->ShowValue({value, value != 0 ? card_->TextOf(int(i) + 1) : QString()});
  }
}

ProductValues CardFilters::Typed() {
  ProductValues values;
  for (std::size_t i = 0; i < controls_.size(); ++i)
    if (IsInUse(i))
      if (const std::optional<qint64> value = controls_[i].combo->Value()) values[ColumnOf(i)] = *value;
  return values;
}

void CardFilters::Forget() {
  for (const FilterControls& filter : controls_) filter.combo->Forget();
}

// What is typed and is no value stays to be asked about.
void CardFilters::Renew(int filter) {
  WidgetFilterCombo& combo = *controls_[std::size_t(filter) - 1].combo;
  const std::optional<qint64> value = combo.Value();
  combo.Forget();
  if (!value) return;
  const QString text = card_->FilterText(filter, *value);
  combo.ShowValue({text.isEmpty() ? 0 : *value, text});
}

void CardFilters::EnableButtons(bool enabled) {
  for (const FilterControls& filter : controls_) filter.button->setEnabled(enabled);
}

bool CardFilters::Settle() {
  for (std::size_t i = 0; i < controls_.size(); ++i)
    if (IsInUse(i) && !Settle(i)) return false;
  return true;
}

bool CardFilters::Settle(std::size_t index) {
  WidgetFilterCombo& combo = *controls_[index].combo;
  bool settled = false;
  try {
    if (combo.Value()) return true;
    // Another window may have added it meanwhile.
    combo.Forget();
    const QScopedValueRollback<bool> asking(asking_, true);
    settled = combo.Value() || Offer(combo, int(index) + 1);
  } catch (const std::exception& error) {
    const QScopedValueRollback<bool> asking(asking_, true);
    ShowError(&window_, DescriptionOf(error));
  }
  if (settled) return true;
  combo.setFocus();
  combo.lineEdit()->selectAll();
  return false;
}

bool CardFilters::Offer(WidgetFilterCombo& combo, int filter) {
  const QString text = combo.Typed();
  if (const QStringList refusals = CheckCell({}, text, true).refusals; !refusals.isEmpty()) {
    TheDialogs().Message(&window_, refusals.first(), BoxStyle::Stop);
    return false;
  }
  if (!TheDialogs().Ask(&window_, NumberedText(BaseConferma + 1) + u": "_qs + text)) return false;
  const qint64 value = card_->Products().FilterValue(filter, text);
  combo.Forget();
  combo.ShowValue({value, text});
  return true;
}

}  // namespace vorlina
