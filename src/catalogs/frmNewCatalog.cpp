#include "catalogs/frmNewCatalog.h"

#include <QIcon>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetBoxText.h"
#include "images/ImagePipeline.h"
#include "publish/WidgetEscapedName.h"
#include "store/Connection.h"
#include "support/HTMLHelp.h"
#include "support/Language.h"
#include "support/Messages.h"
#include "ui_frmNewCatalog.h"

// The pictures lie in a static library, from which they come when they are asked for.
static void InitPictures() { Q_INIT_RESOURCE(catalogs); }

namespace vorlina {
namespace {

constexpr int StepCount = 4;
constexpr int HelpTopic = 1001;
enum Button { Next, Back, Finish, Cancel, Help };

// The English captions bring their keys along, the Italian ones have none.
const char16_t* const ItalianKeys[] = {u"Alt+A", u"Alt+I", u"Alt+F", u"Alt+N", u"Alt+U"};

// A box of the company shows the column that its name tells behind "txt".
QString ColumnOf(const QWidget* box) { return box->objectName().mid(3); }

QWidgetList CompanyBoxes(const QWidget* panel) {
  QWidgetList boxes;
  for (QWidget* child : panel->findChildren<QWidget*>())
    if (child->property("tag").toString() == u"Company") boxes += child;
  return boxes;
}

QStringList TextsIn(const std::vector<QLineEdit*>& boxes) {
  QStringList texts;
  for (const QLineEdit* box : boxes) texts += TextIn(*box);
  return texts;
}

}  // namespace

frmNewCatalog::frmNewCatalog(QWidget* parent) : QDialog(parent), ui_(new Ui::frmNewCatalog) {
  InitPictures();
  ui_->setupUi(this);
  ui_->fmHeader->setBackgroundRole(QPalette::Base);
  ui_->lblStep->setForegroundRole(QPalette::Text);
  cmdNav = {ui_->cmdNav_0, ui_->cmdNav_1, ui_->cmdNav_2, ui_->cmdNav_3, ui_->cmdNav_4};
  txtValue = {ui_->txtValue_0, ui_->txtValue_1, ui_->txtValue_2};
  txtFilter = {ui_->txtFilter_0, ui_->txtFilter_1, ui_->txtFilter_2, ui_->txtFilter_3, ui_->txtFilter_4};
  ConnectControls();
}

frmNewCatalog::~frmNewCatalog() = default;

void frmNewCatalog::ConnectControls() {
  for (int i = 0; i < int(cmdNav.size()); ++i)
    connect(cmdNav[std::size_t(i)], &QPushButton::clicked, this, [this, i] { cmdNav_Click(i); });
  for (const auto& boxes : {txtValue, txtFilter})
    for (QLineEdit* box : boxes)
      connect(box, &QLineEdit::textChanged, this, [box] { LimitEscapedLength(*box); });
  connect(ui_->cmdBrowse, &QPushButton::clicked, this, &frmNewCatalog::cmdBrowse_Click);
  connect(ui_->txtLogo, &WidgetLogoBox::ClearWanted, this, [this] { SetLogo({}, {}); });
}

void frmNewCatalog::LoadForm() {
  Localize_Form();
  const bool english = Language == u"English";
  BaseTesti = english ? 406 : 106;
  BasePulsanti = english ? 401 : 101;
  TitoloForm = Texts::tr("Creazione nuovo catalogo");
  setWindowTitle(PlainTitle(TitoloForm));
  StepCorrente = 1;
  if (ui_->framesteps->count() != StepCount) throw Error(u"Numero di pannelli insufficiente"_qs);
  CaptionButtons();
  ShowStep(StepCorrente);
}

void frmNewCatalog::CaptionButtons() {
  for (std::size_t i = 0; i < cmdNav.size(); ++i) {
    cmdNav[i]->setText(NumberedText(BasePulsanti + int(i)));
    if (cmdNav[i]->shortcut().isEmpty())
      cmdNav[i]->setShortcut(QKeySequence(QString::fromUtf16(ItalianKeys[i])));
    cmdNav[i]->setToolTip(PlainToolTip(cmdNav[i]->shortcut().toString(QKeySequence::NativeText)));
  }
}

void frmNewCatalog::Localize_Form() {
  ui_->retranslateUi(this);
  ui_->txtLogo->Localize();
}

void frmNewCatalog::cmdNav_Click(int index) {
  switch (index) {
    case Next:
      if (CheckStep(StepCorrente) && StepCorrente < StepCount) ++StepCorrente;
      break;
    case Back:
      if (StepCorrente >= 2) --StepCorrente;
      break;
    case Finish:
      StepCorrente = StepCount;
      CreateCatalog();
      break;
    case Cancel:
      return reject();
    default:
      ShowHelpTopic(HelpTopic, Language);
      return;
  }
  ShowStep(StepCorrente);
}

void frmNewCatalog::ShowStep(int step) {
  ui_->lblStep->setText(NumberedText(BaseTesti + step - 1));
  setAccessibleDescription(ui_->lblStep->text());
  const QIcon picture(u":/catalogs/%1.svg"_qs.arg(BaseImmagini + step - 1));
  ui_->ImageStep->setPixmap(picture.pixmap(ui_->ImageStep->minimumSize(), devicePixelRatioF()));
  // Controls of the panels behind are hidden, which takes them out of the tab order.
  const bool moved = ui_->framesteps->currentIndex() != step - 1;
  ui_->framesteps->setCurrentIndex(step - 1);
  SetNavButtons(step);
  if (moved) FirstControl(step)->setFocus();
  if (step == 3) OfferCompany();
}

QWidget* frmNewCatalog::FirstControl(int step) const {
  switch (step) {
    case 1:
      return ui_->txtCatalogName;
    case 2:
      return ui_->txtFilter_0;
    case 3:
      return ui_->txtAzienda;
    default:
      for (QRadioButton* choice : {ui_->optWizEnd_1, ui_->optWizEnd_2})
        if (choice->isChecked()) return choice;
      return ui_->optWizEnd_0;
  }
}

void frmNewCatalog::SetNavButtons(int step) {
  cmdNav[Next]->setEnabled(step < StepCount);
  cmdNav[Back]->setEnabled(step > 1);
  cmdNav[Finish]->setEnabled(step == StepCount);
  cmdNav[step == StepCount ? Finish : Next]->setDefault(true);
}

bool frmNewCatalog::CheckStep(int step) {
  QStringList messages;
  if (step == 1) messages = CheckGeneral(Collected());
  if (step == 2) messages = CheckFilters(Collected());
  for (const QString& message : messages) TheDialogs().Message(this, message, BoxStyle::Stop);
  return messages.isEmpty();
}

// What the user typed into a box stays there; a box that is empty, or still has what was offered before,
// takes the offer.
void frmNewCatalog::OfferCompany() {
  if (!ui_->txtAzienda->text().isEmpty()) return;
  const QWidgetList boxes = CompanyBoxes(ui_->framestep_2);
  QStringList columns;
  for (const QWidget* box : boxes) columns += ColumnOf(box);
  QMap<QString, QString> company;
  try {
    Connection connection;
    connection.Open(ConnectionText);
    // The row of an attempt that failed is the most recent one: it would offer what was taken out since.
    if (IDCatalogo == 0) company = OfferedCompany(connection, columns);
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
  for (QWidget* box : boxes) {
    const QString column = ColumnOf(box);
    const QString text = TextIn(*box);
    // The other catalog's logo is its own, and one that was chosen stays.
    if (box == ui_->txtLogo) continue;
    if (!company.contains(column) || (!text.isEmpty() && text != offered_.value(column))) continue;
    SetText(*box, company[column]);
    offered_[column] = TextIn(*box);
  }
}

void frmNewCatalog::cmdBrowse_Click() {
  const QString path = ui_->txtLogo->AskForFile();
  if (path.isEmpty()) return;
  try {
    const WaitCursor wait;
    SetLogo(path, MeasureWholeImage(path));
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
    return;
  }
  ui_->txtLogo->ShowPreview(LogoPath);
}

// The preview of the logo that was chosen before goes.
void frmNewCatalog::SetLogo(const QString& path, QSize size) {
  LogoPath = path;
  LogoHeight = size.height();
  LogoWidth = size.width();
  ui_->txtLogo->setText(path);
  ui_->txtLogo->ClosePreview();
}

NewCatalog frmNewCatalog::Collected() const {
  NewCatalog catalog;
  catalog.NomeCatalogo = TextIn(*ui_->txtCatalogName);
  catalog.Descrizione = TextIn(*ui_->txtCatalogDescription);
  catalog.valueNames = TextsIn(txtValue);
  catalog.filterNames = TextsIn(txtFilter);
  for (const QWidget* box : CompanyBoxes(ui_->framestep_2)) catalog.company[ColumnOf(box)] = TextIn(*box);
  catalog.LogoPath = LogoPath;
  catalog.logoSize = {LogoWidth, LogoHeight};
  catalog.IDCatalogo = IDCatalogo;
  return catalog;
}

void frmNewCatalog::CreateCatalog() {
  NewCatalog catalog = Collected();
  try {
    Connection connection;
    connection.Open(ConnectionText);
    const QStringList refusals = CheckValueFilterNames(catalog);
    for (const QString& refusal : refusals) TheDialogs().Message(this, refusal, BoxStyle::Information);
    if (!refusals.isEmpty()) return;
    const WaitCursor wait;
    StoreCatalog(connection, catalog);
  } catch (const std::exception& error) {
    IDCatalogo = catalog.IDCatalogo;
    TheDialogs().Message(this, u"Errore: "_qs + DescriptionOf(error), BoxStyle::Stop);
    return;
  }
  IDCatalogo = catalog.IDCatalogo;
  EndAsChosen(catalog);
}

void frmNewCatalog::EndAsChosen(const NewCatalog& catalog) {
  if (ui_->optWizEnd_0->isChecked()) {
    accept();
    const QVariant description = catalog.Descrizione.isEmpty() ? QVariant() : QVariant(catalog.Descrizione);
    Q_EMIT EditWanted(catalog.IDCatalogo, CatalogCaption(catalog.NomeCatalogo, description));
  } else if (ui_->optWizEnd_1->isChecked()) {
    accept();
    Q_EMIT AnotherWanted();
  } else if (ui_->optWizEnd_2->isChecked()) {
    accept();
    Q_EMIT MainMenuWanted();
  }
}

void frmNewCatalog::done(int result) {
  ui_->txtLogo->ClosePreview();
  QDialog::done(result);
}

void frmNewCatalog::reject() {
  QDialog::reject();
  Q_EMIT Cancelled();
}

}  // namespace vorlina
