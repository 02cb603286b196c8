#include "products/frmAdvancedEdit.h"

#include <QKeyEvent>

#include "base/Dialogs.h"
#include "support/Language.h"
#include "support/Messages.h"
#include "ui_frmAdvancedEdit.h"

namespace vorlina {

frmAdvancedEdit::frmAdvancedEdit(QWidget* parent) : QDialog(parent), ui_(new Ui::frmAdvancedEdit) {
  ui_->setupUi(this);
  setAttribute(Qt::WA_DeleteOnClose);
  ui_->txtFeatureValue->installEventFilter(this);
  connect(ui_->cmdOK, &QPushButton::clicked, this, &frmAdvancedEdit::accept);
  connect(ui_->cmdCancel, &QPushButton::clicked, this, [this] { done(Rejected); });
}

frmAdvancedEdit::~frmAdvancedEdit() = default;

void frmAdvancedEdit::EditFeature(const QString& feature, const QString& value) {
  ui_->txtFeature->setText(feature);
  ui_->txtFeatureValue->setPlainText(value);
  Localize_Form();
  // Whoever opens it comes for the long text.
  ui_->txtFeatureValue->setFocus();
  ui_->txtFeatureValue->moveCursor(QTextCursor::End);
  open();
}

void frmAdvancedEdit::Localize_Form() { ui_->retranslateUi(this); }

// The boxes have line breaks of their own, and others may have changed a text meanwhile.
void frmAdvancedEdit::accept() {
  Text feature;
  Text value;
  if (ui_->txtFeature->isModified()) feature = ui_->txtFeature->text();
  if (ui_->txtFeatureValue->document()->isModified()) value = ui_->txtFeatureValue->toPlainText();
  if (!Take || Take(feature, value)) QDialog::accept();
}

void frmAdvancedEdit::reject() {
  const bool typed = ui_->txtFeature->isModified() || ui_->txtFeatureValue->document()->isModified();
  using Answer = Dialogs::Answer;
  const Answer answer = typed ? TheDialogs().AskToSave(this, NumberedText(BaseConferma + 4)) : Answer::No;
  if (answer == Answer::Yes) accept();
  if (answer == Answer::No) QDialog::reject();
}

// The key that opened the window may still be held.
bool frmAdvancedEdit::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  return key.isAutoRepeat() && (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter);
}

}  // namespace vorlina
