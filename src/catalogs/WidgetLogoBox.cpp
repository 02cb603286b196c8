#include "catalogs/WidgetLogoBox.h"

#include <QAction>
#include <QMouseEvent>
#include <QStyle>

#include "base/CommandIcon.h"
#include "base/Helpers.h"
#include "base/LastFolder.h"
#include "base/Texts.h"
#include "images/frmImage.h"

namespace vorlina {

WidgetLogoBox::WidgetLogoBox(QWidget* parent) : QLineEdit(parent) {
  setReadOnly(true);
  QAction* clear = AddSign(u"cmdClearLogo"_qs, style()->standardIcon(QStyle::SP_LineEditClearButton),
                           {Qt::Key_Delete, Qt::Key_Backspace});
  connect(clear, &QAction::triggered, this, &WidgetLogoBox::ClearWanted);
  connect(this, &QLineEdit::textChanged, this,
          [this](const QString& path) { setToolTip(PlainToolTip(path)); });
}

void WidgetLogoBox::OfferPreview() {
  QAction* show = AddSign(u"cmdShowLogo"_qs, CommandIcon(u"picture"_qs), {Qt::Key_Return, Qt::Key_Enter});
  show->setAutoRepeat(false);
  connect(show, &QAction::triggered, this, &WidgetLogoBox::PreviewWanted);
}

QAction* WidgetLogoBox::AddSign(const QString& name, const QIcon& icon, const QList<QKeySequence>& keys) {
  QAction* sign = addAction(icon, QLineEdit::TrailingPosition);
  sign->setObjectName(name);
  sign->setShortcuts(keys);
  sign->setShortcutContext(Qt::WidgetShortcut);
  sign->setVisible(!text().isEmpty());
  connect(this, &QLineEdit::textChanged, sign,
          [sign](const QString& path) { sign->setVisible(!path.isEmpty()); });
  return sign;
}

void WidgetLogoBox::Localize() {
  for (QAction* sign : actions())
    sign->setText(sign->objectName() == u"cmdClearLogo" ? Texts::tr("Togli il logo")
                                                        : Texts::tr("Mostra il logo"));
}

QString WidgetLogoBox::AskForFile() {
  return OpenFileFor(purpose::Logo, window(), u"Choose an image"_qs, u"Immagini (*.jpg)|*.jpg"_qs);
}

void WidgetLogoBox::ShowPreview(const QString& path) {
  ClosePreview();
  preview_ = new frmImage(window());
  preview_->setAttribute(Qt::WA_DeleteOnClose);
  preview_->Percorso = path;
  preview_->LoadForm();
  preview_->show();
}

void WidgetLogoBox::ClosePreview() {
  if (preview_ != nullptr) preview_->close();
}

void WidgetLogoBox::mouseDoubleClickEvent(QMouseEvent* event) {
  QLineEdit::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton) Q_EMIT PreviewWanted();
}

}  // namespace vorlina
