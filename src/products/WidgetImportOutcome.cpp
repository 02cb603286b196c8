#include "products/WidgetImportOutcome.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

#include "base/Texts.h"
#include "products/frmLeftOut.h"

namespace vorlina {

WidgetImportOutcome::WidgetImportOutcome(QWidget* parent)
    : QWidget(parent), lblImportati_(new QLabel(this)), cmdEsclusi_(new QPushButton(this)) {
  setObjectName(u"fmeImportati"_qs);
  lblImportati_->setObjectName(u"lblImportati"_qs);
  lblImportati_->setTextFormat(Qt::PlainText);
  cmdEsclusi_->setObjectName(u"cmdEsclusi"_qs);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins(8, 0, 8, 0);
  layout->addWidget(lblImportati_);
  layout->addWidget(cmdEsclusi_);
  connect(cmdEsclusi_, &QPushButton::clicked, this, &WidgetImportOutcome::OpenList);
  hide();
}

void WidgetImportOutcome::Clear() {
  hide();
  if (list_ != nullptr) list_->close();
}

void WidgetImportOutcome::Show(const QString& text, const std::vector<LeftOutFile>& leftOut) {
  leftOut_ = leftOut;
  lblImportati_->setText(text);
  const QString count = QLocale().toString(qulonglong(leftOut.size()));
  QPushButton* button = cmdEsclusi_;
  button->setText(leftOut.size() == 1 ? Texts::tr("1 file &escluso...")
                                      : Texts::tr("%1 file &esclusi...").arg(count));
  cmdEsclusi_->setVisible(!leftOut.empty());
  show();
}

// One at a time.
void WidgetImportOutcome::OpenList() {
  if (list_ == nullptr) {
    list_ = new frmLeftOut(window());
    list_->LoadForm(leftOut_);
  }
  list_->show();
  list_->raise();
  list_->activateWindow();
}

}  // namespace vorlina
