#include "shell/frmCatalogs.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QToolBar>
#include <QTreeWidget>

#include "base/AppPath.h"
#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "base/WidgetPlace.h"
#include "catalogs/CatalogNames.h"
#include "catalogs/frmNewCatalog.h"
#include "products/ProductKeys.h"
#include "products/frmEditCatalog.h"
#include "publish/WidgetPluginUi.h"
#include "shell/BackupCommands.h"
#include "shell/CatalogCommands.h"
#include "shell/CatalogList.h"
#include "shell/DatabaseRetry.h"
#include "shell/InstallPlugin.h"
#include "shell/ProgramCommands.h"
#include "shell/PublishPane.h"
#include "shell/SelectedCatalog.h"
#include "shell/ShellHelp.h"
#include "shell/WidgetCatalogMenu.h"
#include "support/Language.h"
#include "support/frmKeys.h"
#include "ui_frmCatalogs.h"

namespace vorlina {
namespace {

QString NoNewReason(bool locked) {
  if (locked)
    return Texts::tr(
        "Non è possibile creare un catalogo finché un altro programma tiene il database. Chiudere quel "
        "programma.");
  return Texts::tr(
      "Non è possibile creare un catalogo: il database dei cataloghi non è aperto. Chiudere il programma, "
      "rimettere il file Catalog.db al suo posto e avviarlo di nuovo.");
}

}  // namespace

frmCatalogs::frmCatalogs(QWidget* parent) : QMainWindow(parent), ui_(new Ui::frmCatalogs) {
  ui_->setupUi(this);
  MakeParts();
  handlers_ = {
      {u"cmdNew"_qs, [this] { NewCatalogWizard(); }},
      {u"cmdEdit"_qs, [this] { EditSelected(); }},
      {u"cmdDelete"_qs, [this] { DeleteSelected(*catalogs_, cnnCatalog, *this); }},
      {u"cmdDuplica"_qs, [this] { CloneSelected(*catalogs_, cnnCatalog, *this); }},
      {u"cmdPublish"_qs, [this] { pane_->Press(); }},
      {u"cmdPlugins"_qs, [this] { PopUpPlugins(); }},
      {u"mnuBackup"_qs, [this] { backups_->BackUp(); }},
      {u"mnuRestore"_qs, [this] { backups_->Restore(); }},
      {u"mnuInstallPlugin"_qs, [this] { InstallPlugin(*this); }},
      {u"cmdHelp"_qs, [] { ShowCatalogsHelp(); }},
      {u"subHelp"_qs, [] { ShowHelpContents(); }},
      {u"mnuTasti"_qs, [this] { ShowKeys(); }},
  };
  handlers_.merge(
      ProgramCommands({*this, cnnCatalog, [this](const Handler& again) { return CloseGridWindows(again); }}));
  MakeToolbar();
  MakeHelpMenu();
  MakePluginMenu();
  ConnectControls();
}

frmCatalogs::~frmCatalogs() = default;

// What renames in the list sees its keys before the window does.
void frmCatalogs::MakeParts() {
  ui_->LstWCatalogs->installEventFilter(this);
  ui_->lstPlugIns->installEventFilter(this);
  catalogs_ = std::make_unique<CatalogList>(*ui_->LstWCatalogs, rsCataloghi, cnnCatalog, *this);
  pane_ = std::make_unique<PublishPane>(*ui_->lstPlugIns, *catalogs_, cnnCatalog, objPlugin);
  connect(pane_.get(), &PublishPane::Shown, this, &frmCatalogs::ShowPublishPane);
  connect(pane_.get(), &PublishPane::Described, this,
          [this](const QString& text) { ui_->lblDescription->setText(text); });
  database_ = new DatabaseRetry(cnnCatalog, rsCataloghi, *this);
  database_->MayRetry = [this] { return !IsBusy(); };
  database_->OnRead = [this] { ListCatalog(); };
  database_->OnRetried = [this] { OfferNew(); };
  backups_ = new BackupCommands(*database_, *this);
  backups_->CloseWindows = [this] { return CloseDatabaseWindows(); };
  database_->OnFirstRun = [this] {
    if (OnFirstRun) OnFirstRun();
  };
  connect(catalogs_.get(), &CatalogList::FillWanted, this,
          [this] { database_->UnlessLocked([this] { ListCatalog(); }); });
}

void frmCatalogs::MakeToolbar() {
  for (const ToolbarCommand& command : ToolbarCommands) {
    QAction* action = AddCommand(*ui_->tbr, command);
    const QString key = action->objectName();
    action->setEnabled(handlers_.contains(key));
    connect(action, &QAction::triggered, this, [this, key] { Run(key); });
    toolbar_.push_back(action);
  }
}

void frmCatalogs::MakeHelpMenu() {
  mnuHelp_ = new QMenu(this);
  mnuHelp_->setObjectName(u"mnuHelp"_qs);
  for (const MenuCommand& command : HelpCommands) {
    const QString key = Text(command.key);
    QAction* entry = AddCommand(*mnuHelp_, command, *this);
    connect(entry, &QAction::triggered, this, [this, key] { Run(key); });
    entry->setEnabled(handlers_.contains(key));
  }
  mnuCataloghi_ =
      new WidgetCatalogMenu(*ui_->LstWCatalogs, *catalogs_, [this](const QString& key) { Run(key); },
                            *mnuHelp_, {u"mnuBackup"_qs, u"mnuRestore"_qs});
  SetDropDown(*ui_->tbr, *toolbar_.back(), *mnuHelp_, false);
}

void frmCatalogs::MakePluginMenu() {
  mnuPlugins_ = new QMenu(this);
  mnuPlugins_->setObjectName(u"mnuPlugins"_qs);
  mnuInstallPlugin_ = mnuPlugins_->addAction(QString());
  mnuInstallPlugin_->setObjectName(u"mnuInstallPlugin"_qs);
  connect(mnuInstallPlugin_, &QAction::triggered, this, [this] { Run(u"mnuInstallPlugin"_qs); });
  mnuInstallaSkin_ = mnuPlugins_->addMenu(QString());
  mnuInstallaSkin_->setObjectName(u"mnuInstallaSkin"_qs);
}

void frmCatalogs::ConnectControls() {
  const std::pair<QPushButton*, const char16_t*> buttons[] = {{ui_->cmdNew, u"cmdNew"},
                                                              {ui_->Edit, u"cmdEdit"},
                                                              {ui_->Delete, u"cmdDelete"},
                                                              {ui_->cmdPublish, u"cmdPublish"}};
  for (const auto& [button, name] : buttons) {
    const QString key = Text(name);
    button->setEnabled(handlers_.contains(key));
    connect(button, &QPushButton::clicked, this, [this, key] { Run(key); });
  }
  connect(ui_->cmdIndietro, &QPushButton::clicked, pane_.get(), &PublishPane::GoBack);
  connect(ui_->LstWCatalogs, &QListWidget::itemDoubleClicked, this, [this] { Run(u"cmdEdit"_qs); });
  connect(ui_->lstPlugIns, &QTreeWidget::itemDoubleClicked, this, [this] { Run(u"cmdPublish"_qs); });
}

void frmCatalogs::LoadForm() {
  FitIntoScreen(*this);
  database_->OpenDatabase();
  database_->Attempt([] { SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"AppPath"_qs, AppPath()); });
  database_->OpenCatalogs();
  FillPlugins();
  Localize_Form();
  OfferNew();
}

void frmCatalogs::FillPlugins() {
  const PluginChoice choice = ChosenPlugins();
  const PluginListing listing = ListPlugins(
      choice, [](const QString& identifier) { return CreatePlugin(identifier); },
      [this](const QString& identifier) {
        const QString text = Texts::tr("Errore nella istanza della dll: ");
        TheDialogs().Message(this, text + identifier);
      });
  plugins_ = listing.entries;
  pane_->Fill(plugins_);
  for (const SkinEntry& skin : listing.skins) {
    QAction* entry =
        mnuInstallaSkin_->addAction(skin.name, this, [this, skin] { InstallSkinFor(skin.identifier); });
    entry->setObjectName(u"mnuPlugIn_%1"_qs.arg(mnuInstallaSkin_->actions().size() - 1));
    entry->setData(skin.identifier);
  }
  const bool none = choice.named && choice.identifiers.isEmpty();  // as the user wants it
  if (!none) database_->Attempt([this] { pane_->SelectFirst(); });
}

// Without a database the wizard would ask for four pages of data that it cannot store.
void frmCatalogs::OfferNew() {
  const bool open = cnnCatalog.IsOpen();
  if (open)
    handlers_[u"cmdNew"_qs] = [this] { NewCatalogWizard(); };
  else
    handlers_.erase(u"cmdNew"_qs);
  const QString reason = open ? QString() : NoNewReason(database_->IsLocked());
  toolbar_.front()->setEnabled(open && ui_->fmListCatalog->isVisibleTo(this));
  if (open)
    SetToolTip(*toolbar_.front(), Texts::tr(ToolbarCommands.front().toolTip));
  else
    toolbar_.front()->setToolTip(PlainToolTip(reason));
  ui_->cmdNew->setEnabled(open);
  ui_->cmdNew->setToolTip(PlainToolTip(reason));
  ui_->cmdNew->setAccessibleDescription(reason);
}

// The hint beside the plug-ins is there in Italian alone.
void frmCatalogs::Localize_Form() {
  const QString description = Language == u"English" ? QString() : ui_->lblDescription->text();
  ui_->retranslateUi(this);
  ui_->lblDescription->setText(description);
  LocalizeCommands(*ui_->tbr, ToolbarCommands);
  LocalizeCommands(*mnuHelp_, HelpCommands);
  mnuCataloghi_->Localize();
  mnuPlugins_->setTitle(Texts::tr("Plugins"));
  mnuInstallPlugin_->setText(Texts::tr("Installa nuovo plugin"));
  mnuInstallaSkin_->setTitle(Texts::tr("Installa skin per"));
}

void frmCatalogs::ListCatalog() { catalogs_->Fill(); }

void frmCatalogs::CreaListaCataloghi() { WriteCatalogList(rsCataloghi, AppFile(u"Cataloghi.txt"_qs)); }

// Nothing begins in the middle of a clone: its box may be gone already while it still puts everything back.
// Nor while a plug-in publishes, whose box may not be there yet.
bool frmCatalogs::IsBusy() const {
  return backups_->IsAtWork() || objPlugin != nullptr || (cnnCatalog.IsOpen() && cnnCatalog.InTransaction());
}

void frmCatalogs::Run(const QString& key) {
  if (IsBusy() || !catalogs_->EndRename()) return;
  const auto handler = handlers_.find(key);
  if (handler != handlers_.end()) handler->second();
}

bool frmCatalogs::event(QEvent* event) {
  const bool result = QMainWindow::event(event);
  // The windows that close with this one give it the activation once more.
  if (event->type() == QEvent::WindowActivate && !closed_ && !backups_->IsAtWork()) {
    // The box that tells of a failed reload gives the activation back to this window: that one is let pass,
    // or the box would come again without end.
    if (std::exchange(activationFailed_, false)) return result;
    activationFailed_ = true;
    database_->UnlessLocked([this] { ListCatalog(); });
    activationFailed_ = false;
  }
  return result;
}

bool frmCatalogs::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && !catalogs_->IsRenaming()) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    const bool enter = key == Qt::Key_Return || key == Qt::Key_Enter;
    const bool catalogs = watched == ui_->LstWCatalogs;
    if (enter || (catalogs && key == Qt::Key_Delete)) {
      Run(enter ? (catalogs ? u"cmdEdit"_qs : u"cmdPublish"_qs) : u"cmdDelete"_qs);
      return true;
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

void frmCatalogs::closeEvent(QCloseEvent* event) {
  if (IsBusy() || !catalogs_->EndRename() || !CloseGridWindows([this] { close(); })) {
    event->ignore();
    return;
  }
  closed_ = true;
  database_->Stop();
  rsCataloghi.Close();
  cnnCatalog.Close();
  event->accept();
  Q_EMIT Closed();
}

// There is one wizard at a time: pressing New again comes back to it.
void frmCatalogs::NewCatalogWizard() {
  if (wizard_ == nullptr || !wizard_->isVisible()) {
    wizard_ = new frmNewCatalog(this);
    wizard_->setAttribute(Qt::WA_DeleteOnClose);
    wizard_->ConnectionText = cnnCatalog.ConnectionText();
    connect(wizard_, &frmNewCatalog::EditWanted, this, [this](int id, const QString& caption) {
      ShowNewest();
      EditCatalog(id, caption);
    });
    connect(wizard_, &frmNewCatalog::MainMenuWanted, this, [this] {
      ComeToFront();
      ShowNewest();
    });
    connect(wizard_, &frmNewCatalog::Cancelled, this, &frmCatalogs::ComeToFront);
    connect(wizard_, &frmNewCatalog::AnotherWanted, this, [this] {
      ShowNewest();
      ui_->cmdNew->click();
    });
    wizard_->LoadForm();
    wizard_->show();
  }
  wizard_->activateWindow();
}

void frmCatalogs::ShowNewest() {
  ListCatalog();
  catalogs_->SelectNewest();
}

void frmCatalogs::EditSelected() {
  if (const QListWidgetItem* item = catalogs_->Selected()) EditCatalog(catalogs_->SelectedId(), item->text());
}

// Several can be open at once, also on the same catalog; each has its own connection.
void frmCatalogs::EditCatalog(int id, const QString& caption) {
  const WaitCursor wait;
  try {
    auto window = std::make_unique<frmEditCatalog>(this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->Connessione = std::make_unique<Connection>();
    window->Connessione->Open(cnnCatalog.ConnectionText());
    window->rsCatalogo.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {id}},
                            *window->Connessione);
    if (window->rsCatalogo.IsEOF()) throw CatalogGone();
    window->Plugins = plugins_;
    window->LoadForm();
    window->setWindowTitle(PlainTitle(caption));
    connect(window.get(), &frmEditCatalog::Closed, this, &frmCatalogs::ComeToFront);
    window.release()->show();
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

// False where one has a row that cannot be written: it stays, and has told why. One that imports closes when
// it has stopped, and what asked for it goes on behind it.
bool frmCatalogs::CloseGridWindows(const Handler& again) {
  whenClosedLate_ = again;
  for (frmEditCatalog* window : findChildren<frmEditCatalog*>(QString(), Qt::FindDirectChildrenOnly))
    if (window->isVisible() && !window->close()) {
      if (window->ClosesLate())
        connect(window, &frmEditCatalog::ClosedLate, this, &frmCatalogs::GridWindowClosedLate,
                Qt::ConnectionType(Qt::UniqueConnection | Qt::SingleShotConnection));
      return false;
    }
  return true;
}

// The wizard has what was typed into it alone, and asks for nothing when it is left.
bool frmCatalogs::CloseDatabaseWindows() {
  return CloseGridWindows([] {}) && (wizard_ == nullptr || !wizard_->isVisible() || wizard_->close());
}

void frmCatalogs::GridWindowClosedLate(bool closed) {
  const Handler go = whenClosedLate_;  // which may set another one
  if (closed) go();
}

void frmCatalogs::ComeToFront() {
  show();
  activateWindow();
}

void frmCatalogs::ShowPublishPane(bool show) {
  ui_->fmPublish->setVisible(show);
  ui_->fmListCatalog->setVisible(!show);
  for (const int index : CatalogPaneButtons) {
    QAction* button = toolbar_[std::size_t(index) - 1];
    button->setEnabled(!show && handlers_.contains(button->objectName()));
  }
  QWidget* focus = show ? static_cast<QWidget*>(ui_->lstPlugIns) : ui_->LstWCatalogs;
  focus->setFocus();
}

void frmCatalogs::ShowKeys() {
  KeyGroup own{Texts::tr("Finestra dei cataloghi"), {}};
  own.Add(ToolbarCommands);
  own.Add(HelpCommands);
  own.Add(CatalogListKeys);
  std::vector<KeyGroup> groups = ProductKeys();
  groups.insert(groups.begin(), own);
  frmKeys::Open(*this, std::move(groups));
}

void frmCatalogs::InstallSkinFor(const QString& identifier) {
  WidgetPluginUi ui(*this, cnnCatalog, identifier);
  objPlugin = CreatePlugin(identifier, &ui);
  const std::unique_ptr<IVorlinaPlugin> plugin = std::move(objPlugin);
  QString skin;
  CallPlugin([&] { plugin->InstallSkin(skin); });
}

void frmCatalogs::PopUpPlugins() {
  const QWidget* button = ui_->tbr->widgetForAction(toolbar_[5]);
  mnuPlugins_->popup(button->mapToGlobal(QPoint(0, button->height())));
}

}  // namespace vorlina
