#include "products/frmAdvancedEdit.h"

#include "base/Dialogs.h"
#include "support/Language.h"
#include "support/Messages.h"
#include "ui_frmAdvancedEdit.h"

namespace vorlina {

frmAdvancedEdit::frmAdvancedEdit(QWidget* parent) : QDialog(parent), ui_(new Ui::frmAdvancedEdit) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &frmAdvancedEdit::accept);
  connect(ui_->cmdCancel, &QPushButton::clicked, this, [this] { done(Rejected); });
}

frmAdvancedEdit::~frmAdvancedEdit() = default;

void frmAdvancedEdit::EditFeature(const QString& feature, const QString& value) {
  feature_ = feature;
  value_ = value;
  ui_->txtFeature->setText(feature);
  ui_->txtFeatureValue->setPlainText(value);
  Localize_Form();
  // Whoever opens it comes for the long text.
  ui_->txtFeatureValue->setFocus();
  ui_->txtFeatureValue->moveCursor(QTextCursor::End);
  open();
}

void frmAdvancedEdit::Localize_Form() { ui_->retranslateUi(this); }

// A text that was not touched stays as it is stored: the boxes have line breaks of their own.
void frmAdvancedEdit::accept() {
  const QString feature = ui_->txtFeature->isModified() ? ui_->txtFeature->text() : feature_;
  const QString value =
      ui_->txtFeatureValue->document()->isModified() ? ui_->txtFeatureValue->toPlainText() : value_;
  if (!Take || Take(feature, value)) QDialog::accept();
}

void frmAdvancedEdit::reject() {
  const bool typed = ui_->txtFeature->isModified() || ui_->txtFeatureValue->document()->isModified();
  if (typed && TheDialogs().Ask(this, NumberedText(BaseConferma + 4))) return accept();
  QDialog::reject();
}

}  // namespace vorlina
