#include "base/WidgetChoice.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetHeldKeys.h"

namespace vorlina {

WidgetChoice::WidgetChoice(QWidget* owner, const QString& title, const QString& question,
                           const QStringList& choices, int current, const QString& other)
    : QDialog(owner), list_(new QListWidget(this)) {
  setObjectName(u"WidgetChoice"_qs);
  setWindowTitle(PlainTitle(title));
  auto* layout = new QVBoxLayout(this);
  auto* label = new QLabel(this);
  label->setTextFormat(Qt::PlainText);
  label->setText(question);
  label->setWordWrap(true);
  label->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
  layout->addWidget(label);
  list_->setObjectName(u"lstChoices"_qs);
  list_->setAccessibleName(question);
  list_->addItems(choices);
  list_->setCurrentRow(choices.isEmpty() ? -1 : qBound(0, current, int(choices.size()) - 1));
  layout->addWidget(list_);
  AddButtons(other);
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { Take(list_->currentRow()); });
  list_->setFocus();
  IgnoreHeldKeys(*this);
}

void WidgetChoice::AddButtons(const QString& other) {
  auto* buttons = new QHBoxLayout;
  const auto add = [&](const QString& name, const QString& text) {
    auto* button = new QPushButton(text, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    buttons->addWidget(button);
    return button;
  };
  if (!other.isEmpty())
    connect(add(u"cmdOther"_qs, other), &QPushButton::clicked, this, [this] { Take(list_->count()); });
  buttons->addStretch();
  QPushButton* choose = add(u"cmdOK"_qs, Texts::tr("OK"));
  choose->setDefault(true);
  choose->setEnabled(list_->currentRow() >= 0);
  connect(choose, &QPushButton::clicked, this, [this] { Take(list_->currentRow()); });
  connect(add(u"cmdCancel"_qs, Texts::tr("Annulla")), &QPushButton::clicked, this, &QDialog::reject);
  static_cast<QVBoxLayout*>(layout())->addLayout(buttons);
}

void WidgetChoice::Take(int choice) {
  chosen_ = choice;
  accept();
}

}  // namespace vorlina
