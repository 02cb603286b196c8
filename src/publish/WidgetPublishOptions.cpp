#include "publish/WidgetPublishOptions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

namespace vorlina {

void WidgetPublishOptions::Add(const QList<VorlinaOption>& options, QFormLayout& layout, QWidget& behind) {
  QWidget* last = &behind;
  for (const VorlinaOption& option : options) {
    QWidget* control = nullptr;
    if (option.choices.isEmpty()) {
      control = new QCheckBox(option.caption);
      layout.addRow(control);
    } else {
      auto* list = new QComboBox;
      list->addItems(option.choices);
      auto* label = new QLabel;
      label->setTextFormat(Qt::PlainText);
      label->setText(option.caption);
      layout.addRow(label, list);
      label->setBuddy(list);
      control = list;
    }
    control->setObjectName((option.choices.isEmpty() ? u"chkOption_"_qs : u"cmbOption_"_qs) + option.key);
    QWidget::setTabOrder(last, control);
    last = control;
    lines_.push_back({option, control});
  }
}

void WidgetPublishOptions::Show(const QVariantMap& values) {
  for (const auto& [option, control] : lines_) {
    const QVariant value = values.value(option.key, option.value);
    if (auto* box = qobject_cast<QCheckBox*>(control))
      box->setChecked(value.toBool());
    else
      static_cast<QComboBox*>(control)->setCurrentIndex(
          std::clamp(value.toInt(), 0, int(option.choices.size()) - 1));
  }
}

QVariantMap WidgetPublishOptions::Read() const {
  QVariantMap values;
  for (const auto& [option, control] : lines_) {
    const auto* box = qobject_cast<const QCheckBox*>(control);
    values[option.key] = box != nullptr ? QVariant(box->isChecked())
                                        : QVariant(static_cast<const QComboBox*>(control)->currentIndex());
  }
  return values;
}

}  // namespace vorlina
