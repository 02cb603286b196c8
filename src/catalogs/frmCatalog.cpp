#include "catalogs/frmCatalog.h"

#include <QCloseEvent>
#include <QLabel>
#include <QScopedValueRollback>
#include <limits>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetBoxText.h"
#include "base/WidgetTabKeys.h"
#include "images/ImagePipeline.h"
#include "images/PictureFolder.h"
#include "publish/WidgetEscapedName.h"
#include "support/Language.h"
#include "support/Messages.h"
#include "ui_frmCatalog.h"

namespace vorlina {

frmCatalog::frmCatalog(QWidget* parent) : QWidget(parent, Qt::Window), ui_(new Ui::frmCatalog) {
  ui_->setupUi(this);
  const char16_t* const tabs[] = {u"cmdValues", u"cmdFilters", u"cmdCompany", u"cmdInfo"};
  for (int i = 0; i < ui_->tbsCatalogo->count(); ++i)
    ui_->tbsCatalogo->tabBar()->setTabData(i, QString::fromUtf16(tabs[i]));
  // Beside the first line.
  for (QLabel* label : {ui_->lblExtras, ui_->lblSpalla}) label->setContentsMargins(0, 5, 0, 0);
  ConnectControls();
}

frmCatalog::~frmCatalog() = default;

// What a box cuts off would be lost with the next saving.
void frmCatalog::ConnectControls() {
  for (const QString& column : CatalogProperties::Columns) {
    auto* line = qobject_cast<QLineEdit*>(BoxOf(column));
    if (line == nullptr) continue;
    line->setMaxLength(std::numeric_limits<int>::max());
    if (column.startsWith(u"NomeValore") || column.startsWith(u"NomeFiltro"))
      connect(line, &QLineEdit::textChanged, this, [line] { LimitEscapedLength(*line); });
  }
  AddTabKeys(*this, *ui_->tbsCatalogo);
  ui_->txtLogo->OfferPreview();
  connect(ui_->txtLogo, &WidgetLogoBox::ClearWanted, this, [this] {
    properties_->ForgetLogo();
    SetLogo({}, {});
  });
  connect(ui_->txtLogo, &WidgetLogoBox::PreviewWanted, this, &frmCatalog::ShowLogo);
  connect(ui_->cmdBrowse, &QPushButton::clicked, this, &frmCatalog::cmdBrowse_Click);
}

QWidget* frmCatalog::BoxOf(const QString& column) const { return findChild<QWidget*>(u"txt"_qs + column); }

void frmCatalog::LoadForm() {
  properties_ = std::make_unique<CatalogProperties>(CatalogRs, *Connessione);
  LoadFields();
  Saved = true;
  Localize_Form();
}

void frmCatalog::LoadFields() {
  for (const QString& column : CatalogProperties::Columns) {
    QWidget* box = BoxOf(column);
    SetText(*box, properties_->Shown(column));
    if (auto* line = qobject_cast<QLineEdit*>(box)) line->setCursorPosition(0);
  }
  properties_->Begin(Typed());
}

void frmCatalog::Localize_Form() {
  ui_->retranslateUi(this);
  ui_->txtLogo->Localize();
}

PropertyTexts frmCatalog::Typed() const {
  PropertyTexts texts;
  for (const QString& column : CatalogProperties::Columns) texts[column] = TextIn(*BoxOf(column));
  return texts;
}

void frmCatalog::CheckChanged() { Saved = !properties_->IsChanged(Typed()); }

void frmCatalog::SaveCatalog() {
  try {
    const PropertyTexts typed = Typed();
    // What closes for it may write as well, and does so before the row is looked at.
    if (MayWrite && !MayWrite(properties_->ChangesNames(typed))) return;
    const auto refusal = properties_->Prepare(typed, [this](const QString& question) {
      return TheDialogs().Ask(this, question, BoxStyle::QuestionNoFirst);
    });
    if (refusal) {
      GoTo(refusal->column);
      return TheDialogs().Message(this, refusal->text, BoxStyle::Stop);
    }
    if (!MayWriteOver()) return;
    QString failure;
    {
      const WaitCursor wait;
      failure = properties_->Save();
    }
    Saved = failure.isEmpty();
    Q_EMIT CatalogStored(properties_->Shown(u"NomeCatalogo"_qs) + u" - "_qs +
                         properties_->Shown(u"Descrizione"_qs));
    if (!Saved)
      ShowError(this,
                Texts::tr("Il resto è stato salvato, il logo è rimasto quello di prima. %1").arg(failure));
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

bool frmCatalog::MayWriteOver() {
  QStringList captions;
  for (const QString& column : properties_->WrittenOver()) captions += CaptionOf(column);
  const QString text = Texts::tr(
      "Nel frattempo il catalogo è stato modificato da un'altra finestra o da un altro programma: %1.\r\n"
      "Sostituire quei valori con ciò che è scritto qui?");
  return captions.isEmpty() ||
         TheDialogs().Ask(this, text.arg(captions.join(u", "_qs)), BoxStyle::QuestionNoFirst);
}

// As the user knows the column: by its label, unless several boxes have the same.
QString frmCatalog::CaptionOf(const QString& column) const {
  const QString name = BoxOf(column)->accessibleName();
  return name.isEmpty() ? findChild<QLabel*>(u"lbl"_qs + column)->text() : name;
}

void frmCatalog::GoTo(const QString& column) {
  QWidget* box = BoxOf(column);
  for (int i = 0; i < ui_->tbsCatalogo->count(); ++i)
    if (ui_->tbsCatalogo->widget(i)->isAncestorOf(box)) ui_->tbsCatalogo->setCurrentIndex(i);
  box->setFocus();
}

void frmCatalog::cmdBrowse_Click() {
  const QString file = ui_->txtLogo->AskForFile();
  if (file.isEmpty()) return;
  try {
    if (IsSameFile(file, properties_->Logo())) {
      // One that was taken away is there again.
      if (ui_->txtLogo->text().isEmpty()) SetLogo(properties_->Logo(), MeasureWholeImage(file));
      return TheDialogs().Message(this,
                                  Texts::tr("La cartella di destinazione coincide con quella di origine."),
                                  BoxStyle::Information);
    }
    const WaitCursor wait;
    SetLogo(properties_->Logo(), properties_->ChooseLogo(file));
  } catch (const std::exception& error) {
    return ShowError(this, DescriptionOf(error));
  }
  ShowLogo();
}

// The preview of the former logo goes.
void frmCatalog::SetLogo(const QString& path, QSize size) {
  ui_->txtLogo->ClosePreview();
  ui_->txtLogo->setText(path);
  ui_->txtHeight->setText(path.isEmpty() ? QString() : QString::number(size.height()));
  ui_->txtWidth->setText(path.isEmpty() ? QString() : QString::number(size.width()));
}

// A clone's row names the logo of the catalog from which it was made.
void frmCatalog::ShowLogo() {
  if (ui_->txtLogo->text().isEmpty() && !properties_->Shown(u"Logo"_qs).isEmpty()) return;
  for (const QString& path : {properties_->ChosenLogo(), properties_->Logo(), ui_->txtLogo->text()})
    if (IsPictureFile(path)) return ui_->txtLogo->ShowPreview(path);
}

// Held, Escape would answer what the first one has asked.
void frmCatalog::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape)
    QWidget::keyPressEvent(event);
  else if (!event->isAutoRepeat())
    close();
}

bool frmCatalog::Settle() {
  switch (TheDialogs().AskToSave(this, NumberedText(BaseConferma + 4))) {
    case Dialogs::Answer::No:
      return true;
    case Dialogs::Answer::Yes:
      SaveCatalog();
      if (!Saved) Q_EMIT CatalogRefused();
      return Saved;
    default:
      return false;
  }
}

void frmCatalog::closeEvent(QCloseEvent* event) {
  if (closing_) return event->ignore();
  const QScopedValueRollback<bool> closing(closing_, true);
  CheckChanged();
  if (!Saved && ((IsBusy && IsBusy()) || !Settle())) {
    // Who closes the windows from elsewhere sees what is in the way.
    activateWindow();
    return event->ignore();
  }
  ui_->txtLogo->ClosePreview();
  // The connection may go before the window does.
  CatalogRs.Close();
  event->accept();
  Q_EMIT Closed();
}

}  // namespace vorlina
