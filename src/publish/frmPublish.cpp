#include "publish/frmPublish.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <deque>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetHeldKeys.h"
#include "base/WidgetInputHold.h"
#include "base/WidgetPlace.h"
#include "base/WidgetTabKeys.h"
#include "publish/CatalogLanguage.h"
#include "publish/NamedPictures.h"
#include "publish/ProfileStore.h"
#include "publish/PublishJob.h"
#include "publish/WidgetOpenFile.h"
#include "publish/WidgetPublishFields.h"
#include "publish/WidgetPublishProgress.h"
#include "publish/frmHighlights.h"
#include "store/Connection.h"
#include "store/Transaction.h"
#include "ui_frmPublish.h"

namespace vorlina {
namespace {

// The browser goes on showing a preview when the window is closed: they stay as long as the program runs.
QString NewPreviewFolder() {
  static std::deque<QTemporaryDir> folders;
  const QTemporaryDir& folder = folders.emplace_back();
  if (!folder.isValid())
    throw Error(Texts::tr("Impossibile creare una cartella per l'anteprima: %1").arg(folder.errorString()));
  return folder.path();
}

}  // namespace

frmPublish::frmPublish(QWidget* parent) : QDialog(parent), ui_(new Ui::frmPublish) {
  ui_->setupUi(this);
  fields_ = std::make_unique<WidgetPublishFields>(*ui_);
  // The tabs show through.
  for (QScrollArea* area : {ui_->scrWhat, ui_->scrLook}) area->viewport()->setAutoFillBackground(false);
  for (QWidget* panel : {ui_->pnlWhat, ui_->pnlLook}) panel->setAutoFillBackground(false);
  ConnectControls();
  AddTabKeys(*this, *ui_->tbsPublish);
  IgnoreHeldKeys(*this);
}

frmPublish::~frmPublish() = default;

void frmPublish::ConnectControls() {
  const auto run = [this](QPushButton* button, void (frmPublish::*step)()) {
    connect(button, &QPushButton::clicked, this, [this, step] { Attempt([&] { (this->*step)(); }); });
  };
  run(ui_->cmdNewProfile, &frmPublish::NewProfile);
  run(ui_->cmdRenameProfile, &frmPublish::RenameProfile);
  run(ui_->cmdDuplicateProfile, &frmPublish::DuplicateProfile);
  run(ui_->cmdDeleteProfile, &frmPublish::DeleteProfile);
  run(ui_->cmdBrowse, &frmPublish::Browse);
  run(ui_->cmdHighlights, &frmPublish::ChooseHighlights);
  run(ui_->cmdPreview, &frmPublish::ShowPreview);
  run(ui_->cmdPublish, &frmPublish::Publish);
  connect(ui_->cmdCancel, &QPushButton::clicked, this, &frmPublish::reject);
  connect(ui_->cmbProfile, &QComboBox::activated, this,
          [this](int index) { Attempt([&] { TurnToProfile(index); }); });
}

// What fails is told, and the window stays as it is; what is no good in a profile is pointed to.
void frmPublish::Attempt(const std::function<void()>& step) {
  if (busy_) return;
  try {
    step();
  } catch (const ProfileRefusal& refusal) {
    if (QWidget* control = fields_->ControlOf(refusal.Member())) GoTo(*control);
    TheDialogs().Message(this, refusal.Description(), BoxStyle::Stop);
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

bool frmPublish::LoadForm() {
  if (!HaveProfiles()) return false;
  target_ = TargetOf(*Publisher);
  const QList<VorlinaOption> options = OptionsOf(*Publisher);
  options_.Add(options, *ui_->layoutOptions, *ui_->txtSister_4);
  ui_->fmeOptions->setVisible(!options.isEmpty());
  fields_->KeepWheelFrom(findChildren<QComboBox*>());
  Localize_Form();
  ListProfiles(RememberedPublication(*Connessione, IDCatalogo, Plugin).profile);
  TellLanguage();
  Fit();
  QWidget* first = ui_->txtTarget->text().isEmpty() ? static_cast<QWidget*>(ui_->txtTarget) : ui_->cmdPublish;
  first->setFocus();
  return true;
}

bool frmPublish::HaveProfiles() {
  try {
    ReadProfiles(*Connessione, IDCatalogo);
    return true;
  } catch (const DamagedProfiles& damaged) {
    const QString question = damaged.Description() + u"\r\n\r\n"_qs +
                             Texts::tr("Cominciare da capo con un profilo nuovo, che mostra tutto?");
    if (!TheDialogs().Ask(parentWidget(), question, BoxStyle::QuestionNoFirst)) return false;
    RenewProfiles(*Connessione, IDCatalogo);
    return true;
  }
}

void frmPublish::Localize_Form() {
  ui_->retranslateUi(this);
  const CatalogNames names = ReadCatalogNames(*Connessione, IDCatalogo);
  catalog_ = OneLine(names.catalog);
  setWindowTitle(PlainTitle(Texts::tr("Pubblica %1").arg(catalog_)));
  fields_->Localize(names);
  if (target_.isFile) {
    ui_->lblTarget->setText(Texts::tr("&File:"));
    ui_->lblTargetHint->setText(Texts::tr("Pubblicando di nuovo viene sostituito."));
  }
}

void frmPublish::TellLanguage() {
  const QString usual = ui_->lblLanguageHint->text();
  if (StoredLanguage(*Connessione, IDCatalogo).isEmpty() &&
      profiles_[current_].language == ProposedLanguage(*Connessione, IDCatalogo))
    ui_->lblLanguageHint->setText(
        Texts::tr("È proposta in base ai testi del catalogo: controllarla.\n"
                  "Anche titoli e pulsanti saranno in questa lingua."));
  // Who chose one has looked.
  connect(ui_->cmbLanguage, &QComboBox::activated, this,
          [this, usual] { ui_->lblLanguageHint->setText(usual); });
}

// Large enough for all that can be scrolled, where the screen is.
void frmPublish::Fit() {
  QSize missing;
  for (const QScrollArea* area : {ui_->scrWhat, ui_->scrLook})
    missing = missing.expandedTo(area->widget()->sizeHint() - area->sizeHint());
  const QSize bar(ui_->scrLook->verticalScrollBar()->sizeHint().width(), 0);
  resize((sizeHint() + missing.expandedTo({0, 0}) + bar).expandedTo(size()));
  FitIntoScreen(*this);
}

QString frmPublish::Target() const {
  QString target = ui_->txtTarget->text().trimmed();
  if (target_.isFile && !target.isEmpty() && !target_.suffix.isEmpty() &&
      QFileInfo(target).suffix().isEmpty())
    target += u'.' + target_.suffix;
  return QDir::fromNativeSeparators(target);
}

QString frmPublish::What() const {
  return Texts::tr("Catalogo: %1. Profilo: %2.").arg(catalog_, profiles_[current_].name);
}

// Profiles

void frmPublish::ListProfiles(const QString& shown) {
  profiles_ = ReadProfiles(*Connessione, IDCatalogo);
  ui_->cmbProfile->clear();
  current_ = 0;
  for (qsizetype i = 0; i < profiles_.size(); ++i) {
    ui_->cmbProfile->addItem(profiles_[i].name);
    if (profiles_[i].identifier == shown) current_ = i;
  }
  ui_->cmbProfile->setCurrentIndex(int(current_));
  ui_->cmdDeleteProfile->setEnabled(profiles_.size() > 1);
  ShowProfile();
}

void frmPublish::ShowProfile() {
  const VorlinaProfile& profile = profiles_[current_];
  fields_->Show(profile);
  shown_ = fields_->Read();
  if (!left_.contains(profile.identifier))
    left_[profile.identifier] = RememberedPublication(*Connessione, IDCatalogo, Plugin, profile.identifier);
  const PublishMemory& memory = left_[profile.identifier];
  ui_->txtTarget->setText(QDir::toNativeSeparators(memory.target));
  options_.Show(memory.options);
}

void frmPublish::Leave() {
  left_[profiles_[current_].identifier] = {{}, ui_->txtTarget->text().trimmed(), options_.Read()};
}

void frmPublish::TurnToProfile(int index) {
  const QString wanted = profiles_[index].identifier;
  ui_->cmbProfile->setCurrentIndex(int(current_));  // until it is sure
  if (IsChanged()) Store(fields_->Read());
  Leave();
  ListProfiles(wanted);
}

bool frmPublish::IsChanged() const { return fields_->Read() != shown_; }

// What another program has made of the profile meanwhile is neither published unseen nor put back.
void frmPublish::RequireAsShown() {
  const VorlinaProfile shown = profiles_[current_];
  if (ReadProfiles(*Connessione, IDCatalogo).contains(shown)) return;
  const QString what =
      Texts::tr("Il profilo \"%1\" è stato modificato o eliminato da un altro programma.").arg(shown.name) +
      u"\r\n"_qs;
  if (IsChanged())
    throw ProfileRefusal(u"name"_qs, what + Texts::tr("Le modifiche fatte qui non sono salvate: annullare e "
                                                      "aprire di nuovo la finestra."));
  Leave();
  ListProfiles(shown.identifier);
  throw ProfileRefusal(u"name"_qs,
                       what + Texts::tr("La finestra mostra ora ciò che c'è: controllare e ripetere."));
}

// The window goes on showing what was stored, under its identifier.
void frmPublish::Store(const VorlinaProfile& profile) {
  if (!profile.identifier.isEmpty()) RequireAsShown();
  const QString identifier = StoreProfile(*Connessione, IDCatalogo, profile);
  Leave();
  ListProfiles(identifier);
}

// Turns to the new one, as to any other.
void frmPublish::NewProfile() {
  VorlinaProfile profile;
  profile.language = fields_->Read().language;
  if (!AskName(Texts::tr("Nuovo profilo"), profile)) return;
  if (IsChanged()) Store(fields_->Read());
  Store(profile);
}

// What was changed is what the copy is made for: the original stays as it is stored.
void frmPublish::DuplicateProfile() {
  VorlinaProfile profile = fields_->Read();
  profile.identifier.clear();
  profile.name = Texts::tr("%1 (copia)").arg(profile.name);
  if (AskName(Texts::tr("Duplica il profilo"), profile)) Store(profile);
}

void frmPublish::RenameProfile() {
  VorlinaProfile profile = fields_->Read();
  if (AskName(Texts::tr("Rinomina il profilo"), profile)) Store(profile);
}

QString frmPublish::FaultOfName(const VorlinaProfile& profile) const {
  for (const VorlinaProfile& other : profiles_)
    if (other.identifier != profile.identifier && other.name.compare(profile.name, Qt::CaseInsensitive) == 0)
      return Texts::tr("C'è già un profilo di nome \"%1\"").arg(other.name);
  return FaultOfProfileName(profile.name);
}

// Until it is a good one, with what was typed kept.
bool frmPublish::AskName(const QString& title, VorlinaProfile& profile) {
  while (true) {
    const QString typed = TheDialogs().Input(
        this, Texts::tr("Nome del profilo, per esempio \"Rivenditori, con i prezzi\":"), title, profile.name);
    if (typed.isNull()) return false;
    profile.name = typed.simplified();
    const QString fault = FaultOfName(profile);
    if (fault.isEmpty()) return true;
    TheDialogs().Message(this, fault, BoxStyle::Stop);
  }
}

void frmPublish::DeleteProfile() {
  const VorlinaProfile& profile = profiles_[current_];
  if (!TheDialogs().Ask(
          this,
          Texts::tr("Eliminare il profilo \"%1\"? Ciò che è già pubblicato resta com'è.").arg(profile.name),
          BoxStyle::QuestionNoFirst))
    return;
  vorlina::DeleteProfile(*Connessione, IDCatalogo, profile.identifier);
  ListProfiles({});
}

// What is chosen

void frmPublish::Browse() {
  const QString title =
      target_.isFile ? Texts::tr("File da pubblicare") : Texts::tr("Cartella da pubblicare");
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  const QString target = Target();
  QString chosen;
  if (target_.isFile) {
    const QString name = IsValidFileName(catalog_) ? catalog_ : Texts::tr("Catalogo");
    const QString proposed = documents + u'/' + name + u'.' + target_.suffix;
    FileChoice choice{title, FilterFrom(target_.filter), target.isEmpty() ? proposed : target,
                      target_.suffix};
    chosen = TheDialogs().ChooseFiles(this, Chooser::Save, choice).value(0);
  } else {
    chosen = BrowseForFolder(title, this, QFileInfo(target).isDir() ? target : documents);
  }
  if (!chosen.isEmpty()) ui_->txtTarget->setText(QDir::toNativeSeparators(chosen));
}

void frmPublish::ChooseHighlights() {
  frmHighlights window(this);
  window.LoadForm(ReadPublishedProducts(*Connessione, IDCatalogo), fields_->Read().highlights);
  if (window.exec() == Accepted) fields_->SetHighlights(window.Chosen());
}

void frmPublish::GoTo(QWidget& control) {
  for (int i = 0; i < ui_->tbsPublish->count(); ++i)
    if (ui_->tbsPublish->widget(i)->isAncestorOf(&control)) ui_->tbsPublish->setCurrentIndex(i);
  control.setFocus();
  if (auto* line = qobject_cast<QLineEdit*>(&control)) line->selectAll();
}

// Publishing

void frmPublish::RequireGoodTarget() {
  try {
    if (!QDir::isAbsolutePath(Target()))
      throw Error(Texts::tr("Scrivere il percorso intero, oppure sceglierlo con Sfoglia."));
    RequireTarget(target_, Target());
  } catch (const Error& error) {
    throw ProfileRefusal(u"target"_qs, error.Description());
  }
}

bool frmPublish::MayBeWithoutPictures() {
  const QString fault = FaultOfAllPictures(*Connessione, IDCatalogo);
  return fault.isEmpty() ||
         TheDialogs().Ask(
             this,
             fault + u"\r\n\r\n"_qs + Texts::tr("Pubblicare lo stesso, senza le immagini dei prodotti?"),
             BoxStyle::QuestionNoFirst);
}

// A preview tries what is shown, and stores nothing; but pictures that were chosen for it are published from
// "Images" alone, where storing takes them. Nothing is written for nothing: a publication that finds the
// database as it was ends at once.
VorlinaProfile frmPublish::InUse(bool preview) {
  VorlinaProfile read = fields_->Read();
  if (preview && read.logo == shown_.logo && read.widePicture == shown_.widePicture) return read;
  if (IsChanged())
    Store(read);
  else
    RequireAsShown();
  return profiles_[current_];
}

VorlinaReport frmPublish::Run(const QString& target, bool preview) {
  VorlinaJob job = MakeJob(*Publisher, IDCatalogo, InUse(preview), target, options_.Read());
  job.preview = preview;
  const QScopedValueRollback<bool> busy(busy_, true);
  // What is typed while the plug-in works would change what is being published.
  const WidgetInputHold hold(*this);
  WidgetPublishProgress progress(*this);
  VorlinaReport report = RunJob(*Publisher, *Connessione, job, progress);
  isStopped_ = progress.IsStopped();
  return report;
}

void frmPublish::ShowPreview() {
  if (previewFolder_.isEmpty()) previewFolder_ = NewPreviewFolder();
  const QString name = target_.isFile ? u"preview."_qs + target_.suffix : u"preview"_qs;
  const VorlinaReport report = Run(previewFolder_ + u'/' + name, true);
  if (!report.complete) return;
  for (const QString& file : report.open) OpenFile(*this, file);
}

void frmPublish::Publish() {
  if (Target().isEmpty()) Browse();
  const QString target = Target();
  if (target.isEmpty()) return;
  RequireGoodTarget();
  if (!MayBeWithoutPictures()) return;
  try {
    report_ = Run(target, false);
  } catch (const ProfileRefusal&) {
    throw;
  } catch (const Error&) {  // of the folder mostly
    GoTo(*ui_->txtTarget);
    throw;
  }
  if (!report_.complete && isStopped_)
    TheDialogs().Message(
        this, Texts::tr("Pubblicazione interrotta. %1 è com'era.").arg(QDir::toNativeSeparators(target)),
        BoxStyle::Information);
  if (!report_.complete) return;
  try {
    Remember(target);
  } catch (const Error& error) {
    ShowError(this, Texts::tr("La pubblicazione è pronta, ma non è stato ricordato dove si trova. %1")
                        .arg(error.Description()));
  }
  accept();
}

// The language that was published for the first time is that of the catalog from now on.
void frmPublish::Remember(const QString& target) {
  const VorlinaProfile& profile = profiles_[current_];
  Transaction transaction(*Connessione);
  if (StoredLanguage(*Connessione, IDCatalogo).isEmpty())
    StoreLanguage(*Connessione, IDCatalogo, profile.language);
  RememberPublication(*Connessione, IDCatalogo, Plugin, {profile.identifier, target, options_.Read()});
  transaction.Commit();
}

// By Escape and the window's own end as well.
void frmPublish::reject() {
  if (busy_) return;
  if (!IsChanged()) return QDialog::reject();
  const QString question =
      Texts::tr("Il profilo \"%1\" è stato modificato. Salvarlo?").arg(profiles_[current_].name);
  const Dialogs::Answer answer = TheDialogs().AskToSave(this, question);
  if (answer == Dialogs::Answer::Cancel) return;
  if (answer == Dialogs::Answer::No) return QDialog::reject();
  Attempt([this] {
    Store(fields_->Read());
    QDialog::reject();
  });
}

}  // namespace vorlina
