#include "shell/frmCatalogs.h"

#include <QCloseEvent>
#include <QDesktopServices>
#include <QListWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QUrl>

#include "base/AppPath.h"
#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/Messages.h"
#include "base/Settings.h"
#include "base/WaitCursor.h"
#include "base/WidgetProgressBox.h"
#include "catalogs/CatalogNames.h"
#include "catalogs/CloneCatalog.h"
#include "catalogs/DeleteCatalog.h"
#include "catalogs/frmNewCatalog.h"
#include "products/frmEditCatalog.h"
#include "shell/CatalogCommands.h"
#include "shell/WidgetRenameDelegate.h"
#include "store/CatalogDatabase.h"
#include "store/SampleData.h"
#include "ui_frmCatalogs.h"

namespace vorlina {
namespace {

// An item's key and tag: what it stands for, and what it says of itself.
constexpr int KeyRole = Qt::UserRole;
constexpr int TagRole = Qt::UserRole + 1;

const char16_t SupportAddress[] = u"support@vorlina.example";

}  // namespace

frmCatalogs::frmCatalogs(QWidget* parent) : QMainWindow(parent), ui_(new Ui::frmCatalogs) {
  ui_->setupUi(this);
  handlers_ = {
      {u"cmdNew"_qs, [this] { NewCatalogWizard(); }}, {u"cmdEdit"_qs, [this] { EditSelected(); }},
      {u"cmdDelete"_qs, [this] { Delete_Click(); }},  {u"cmdDuplica"_qs, [this] { DuplicaCatalogo(); }},
      {u"cmdPublish"_qs, [this] { PressPublish(); }}, {u"cmdPlugins"_qs, [this] { PopUpPlugins(); }},
      {u"subSupport"_qs, [this] { MailSupport(); }},
  };
  MakeToolbar();
  MakeMenus();
  ConnectControls();
}

frmCatalogs::~frmCatalogs() = default;

void frmCatalogs::MakeToolbar() {
  for (const ToolbarCommand& command : ToolbarCommands) {
    QAction* action = AddCommand(*ui_->tbr, command);
    const QString key = action->objectName();
    action->setEnabled(handlers_.contains(key));
    connect(action, &QAction::triggered, this, [this, key] { Run(key); });
    toolbar_.push_back(action);
  }
}

void frmCatalogs::MakeMenus() {
  mnuHelp_ = new QMenu(this);
  mnuHelp_->setObjectName(u"mnuHelp"_qs);
  for (const MenuCommand& command : HelpCommands) {
    const QString key = Text(command.key);
    QAction* entry = mnuHelp_->addAction(Text(command.caption.italian), this, [this, key] { Run(key); });
    entry->setObjectName(key);
    entry->setEnabled(handlers_.contains(key));
  }
  auto* help = qobject_cast<QToolButton*>(ui_->tbr->widgetForAction(toolbar_.back()));
  help->setMenu(mnuHelp_);
  // The button stays open to its drop-down while its own command is not there.
  const bool helps = handlers_.contains(u"cmdHelp"_qs);
  help->setPopupMode(helps ? QToolButton::MenuButtonPopup : QToolButton::InstantPopup);
  toolbar_.back()->setEnabled(true);

  mnuPlugins_ = new QMenu(u"Plugins"_qs, this);
  mnuPlugins_->setObjectName(u"mnuPlugins"_qs);
  mnuInstallPlugin_ = mnuPlugins_->addAction(u"Installa nuovo plugin"_qs);
  mnuInstallPlugin_->setObjectName(u"mnuInstallPlugin"_qs);
  mnuInstallPlugin_->setEnabled(false);
  mnuInstallaSkin_ = mnuPlugins_->addMenu(u"Installa skin per"_qs);
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
  connect(ui_->cmdIndietro, &QPushButton::clicked, this, &frmCatalogs::cmdIndietro_Click);
  connect(ui_->LstWCatalogs, &QListWidget::itemDoubleClicked, this, [this] { Run(u"cmdEdit"_qs); });
  connect(ui_->lstPlugIns, &QTreeWidget::itemDoubleClicked, this, [this] { Run(u"cmdPublish"_qs); });
  const auto describe = [this](const QTreeWidgetItem* item) {
    if (item != nullptr) ui_->lblDescription->setText(item->data(0, TagRole).toString());
  };
  connect(ui_->lstPlugIns, &QTreeWidget::itemClicked, this, describe);
  // Who walks the list by keyboard reads the description as well. At the start there is none.
  connect(ui_->lstPlugIns, &QTreeWidget::currentItemChanged, this,
          [this, describe](const QTreeWidgetItem* item) {
            if (ui_->lstPlugIns->hasFocus()) describe(item);
          });
  auto* rename = new WidgetRenameDelegate(ui_->LstWCatalogs);
  connect(rename, &WidgetRenameDelegate::Renamed, this, &frmCatalogs::RenameSelected);
  ui_->LstWCatalogs->setItemDelegate(rename);
  ui_->LstWCatalogs->installEventFilter(this);
  ui_->lstPlugIns->installEventFilter(this);
}

// A statement whose failure shows its message and lets the next one run.
void frmCatalogs::Attempt(const Handler& statement) {
  try {
    statement();
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

void frmCatalogs::LoadForm() {
  Attempt([this] { OpenCatalogDatabase(cnnCatalog, AppFile(u"Catalog.db"_qs)); });
  FirstRun();
  Attempt([] { SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"AppPath"_qs, AppPath()); });
  Attempt([this] {
    rsCataloghi.Close();
    rsCataloghi.Open(u"SELECT * FROM CATALOGHI"_qs, cnnCatalog, CursorType::Keyset, LockType::Optimistic);
  });
  FillPlugins(PluginIdentifiers());
  Attempt([this] {
    QTreeWidgetItem* first = ui_->lstPlugIns->topLevelItem(0);
    if (first == nullptr)
      throw Error(EitherLanguage(u"Nessun filtro di pubblicazione è installato"_qs,
                                 u"No publishing filter is installed"_qs));
    ui_->lstPlugIns->setCurrentItem(first);
  });
  Localize_Form();
}

void frmCatalogs::FirstRun() {
  const QString title = ApplicationTitle();
  if (GetSetting(title, u"Riservati"_qs, u"FirstRun"_qs, u"True"_qs) == u"True") {
    for (const SamplePath& path : SamplePaths)
      Attempt([&] { RebaseSampleData(cnnCatalog, path, AppPath()); });
    Attempt([&] { SaveSetting(title, u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs); });
  } else {
    // The settings may be older than the database: a program folder that was laid out anew still has the
    // paths as they were delivered.
    Attempt([this] {
      if (cnnCatalog.IsOpen() && HasSampleRoot(cnnCatalog)) RebaseAllSampleData(cnnCatalog, AppPath());
    });
  }
}

void frmCatalogs::FillPlugins(const QStringList& identifiers) {
  const PluginListing listing = ListPlugins(identifiers, CreatePlugin, [this](const QString& identifier) {
    const QString text = ByLanguage(u"Errore nella istanza della dll: "_qs, u"Error instancing dll: "_qs);
    TheDialogs().Message(this, text + identifier);
  });
  plugins_ = listing.entries;
  for (const PluginEntry& entry : plugins_) {
    auto* item = new QTreeWidgetItem(ui_->lstPlugIns, {entry.name});
    item->setIcon(0, entry.icon);
    item->setData(0, KeyRole, entry.identifier);
    item->setData(0, TagRole, entry.description);
  }
  for (const SkinEntry& skin : listing.skins) {
    QAction* entry =
        mnuInstallaSkin_->addAction(skin.name, this, [this, skin] { InstallSkinFor(skin.identifier); });
    entry->setObjectName(u"mnuPlugIn_%1"_qs.arg(mnuInstallaSkin_->actions().size() - 1));
    entry->setData(skin.identifier);
  }
}

void frmCatalogs::Localize_Form() {
  if (Language != u"English") return;
  setWindowTitle(u"Vorlina - Catalogs"_qs);
  ui_->Label1->setText(u"Available catalogs"_qs);
  ui_->LstWCatalogs->setAccessibleName(u"Available catalogs"_qs);
  ui_->cmdNew->setText(u"&New"_qs);
  ui_->Edit->setText(u"&Edit"_qs);
  ui_->Delete->setText(u"&Delete"_qs);
  ui_->cmdPublish->setText(u"&Publish"_qs);
  ui_->lstPlugIns->headerItem()->setText(0, u"Available filters"_qs);
  ui_->lstPlugIns->setAccessibleName(u"Available filters"_qs);
  ui_->Label3->setText(u"Details"_qs);
  ui_->lblDescription->setText({});
  ui_->Label2->setText(u"Double click to publish"_qs);
  ui_->cmdIndietro->setText(u"<< &Back"_qs);
  ui_->tbr->setWindowTitle(u"Commands"_qs);
  LocalizeCommands(*ui_->tbr, ToolbarCommands);
  for (const MenuCommand& command : HelpCommands)
    mnuHelp_->findChild<QAction*>(Text(command.key))->setText(Text(command.caption.english));
  mnuPlugins_->setTitle(u"Plugins"_qs);
  mnuInstallPlugin_->setText(u"Install new plugin"_qs);
  mnuInstallaSkin_->setTitle(u"Install skin for"_qs);
}

// The selection is kept by the catalog's identifier, so that coming back to the window does not lose it.
void frmCatalogs::ListCatalog() {
  const int before = SelectedCatalogId();
  rsCataloghi.Requery();
  arrIDCataloghi.assign(std::size_t(rsCataloghi.RecordCount()) + 1, 0);
  ui_->LstWCatalogs->clear();
  const QIcon book = CommandIcon(u"catalog"_qs);
  for (std::size_t i = 0; !rsCataloghi.IsEOF(); ++i, rsCataloghi.MoveNext()) {
    arrIDCataloghi[i] = rsCataloghi.Value(u"IDCatalogo"_qs).toInt();
    auto* item =
        new QListWidgetItem(book, NullToEmpty(rsCataloghi.Value(u"NomeCatalogo"_qs)), ui_->LstWCatalogs);
    item->setData(KeyRole, u"_%1"_qs.arg(arrIDCataloghi[i]));
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    if (arrIDCataloghi[i] == before) ui_->LstWCatalogs->setCurrentItem(item);
  }
  if (ui_->LstWCatalogs->currentRow() < 0) ui_->LstWCatalogs->setCurrentRow(0);
}

void frmCatalogs::CreaListaCataloghi() { WriteCatalogList(rsCataloghi, AppFile(u"Cataloghi.txt"_qs)); }

QListWidgetItem* frmCatalogs::SelectedCatalog() const {
  QListWidgetItem* item = ui_->LstWCatalogs->currentItem();
  return item != nullptr && item->isSelected() ? item : nullptr;
}

// 0 when no catalog is selected.
int frmCatalogs::SelectedCatalogId() const {
  const QListWidgetItem* item = SelectedCatalog();
  return item == nullptr ? 0 : arrIDCataloghi[std::size_t(ui_->LstWCatalogs->row(item))];
}

void frmCatalogs::RenameSelected(const QModelIndex& index, const QString& name) {
  if (name.isEmpty()) {
    TheDialogs().Message(
        this,
        ByLanguage(u"Inserire un nome valido per il catalogo"_qs, u"Insert a valid name for the catalog"_qs),
        BoxStyle::Information, u"Attenzione"_qs);
    return;
  }
  try {
    RenameCatalog(cnnCatalog.ConnectionText(), arrIDCataloghi[std::size_t(index.row())], name);
    ui_->LstWCatalogs->item(index.row())->setText(name);
  } catch (const std::exception& error) {
    TheDialogs().Message(this, DescriptionOf(error), BoxStyle::Plain,
                         ByLanguage(u"Attenzione"_qs, u"Warning"_qs));
  }
}

// A catalog without a name is left alone, as is a list in which none is selected.
void frmCatalogs::Delete_Click() {
  try {
    if (const QListWidgetItem* item = SelectedCatalog(); item != nullptr && !item->text().isEmpty()) {
      const int id = SelectedCatalogId();
      if (!TheDialogs().Ask(this, NumberedText(BaseConferma + 0), BoxStyle::QuestionNoFirst)) return;
      const WaitCursor wait;
      DeleteCatalog(id, cnnCatalog);
      blnListaModificata = true;
    }
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
    return;
  }
  ListCatalog();
}

void frmCatalogs::DuplicaCatalogo() {
  try {
    if (const QListWidgetItem* item = SelectedCatalog(); item != nullptr && !item->text().isEmpty()) {
      const int id = SelectedCatalogId();
      const QString name = item->text();  // the list may be made anew while the question stands
      Messaggio = ByLanguage(u"Duplicare il catalogo selezionato e le immagini ad esso relative?"_qs,
                             u"Do you want to clone selected catalog and its images?"_qs);
      if (!TheDialogs().Ask(this, Messaggio)) return;
      CloneWithProgress(id, name);
      blnListaModificata = true;
    }
  } catch (const Stopped&) {
    // The user asked for it, and nothing of the copy is there.
  } catch (const std::exception& error) {
    TheDialogs().Message(
        this,
        ByLanguage(u"Impossibile duplicare il catalogo. "_qs, u"Impossible to clone the catalog. "_qs) +
            u"\r\n"_qs + DescriptionOf(error),
        BoxStyle::Stop);
    return;
  }
  ListCatalog();
}

// Few pictures take no time worth a box.
void frmCatalogs::CloneWithProgress(int id, const QString& name) {
  constexpr int Few = 100;
  const QString prefix = ByLanguage(u"Copia di "_qs, u"Copy of "_qs);
  CatalogClone clone(id, cnnCatalog);
  if (CountPictures(id, cnnCatalog) <= Few) {
    const WaitCursor wait;
    clone.DuplicaCatalogo(prefix, {});
    return;
  }
  WidgetProgressBox box(this, name);
  clone.DuplicaCatalogo(prefix, box.Reporter());
}

// Nothing begins in the middle of a clone: its box may be gone already while it still puts everything back.
// Nor while a plug-in publishes, whose box may not be there yet.
bool frmCatalogs::IsBusy() const {
  return objPlugin != nullptr || (cnnCatalog.IsOpen() && cnnCatalog.InTransaction());
}

void frmCatalogs::Run(const QString& key) {
  if (IsBusy()) return;
  const auto handler = handlers_.find(key);
  if (handler != handlers_.end()) handler->second();
}

// There is one wizard at a time: pressing New again comes back to it.
void frmCatalogs::NewCatalogWizard() {
  if (wizard_ == nullptr || !wizard_->isVisible()) {
    wizard_ = new frmNewCatalog(this);
    wizard_->setAttribute(Qt::WA_DeleteOnClose);
    wizard_->ConnectionText = cnnCatalog.ConnectionText();
    connect(wizard_, &frmNewCatalog::EditWanted, this, [this](int id, const QString& caption) {
      ListCatalog();
      SelectNewest();
      EditCatalog(id, caption);
    });
    connect(wizard_, &frmNewCatalog::MainMenuWanted, this, &frmCatalogs::ShowCatalogs);
    connect(wizard_, &frmNewCatalog::Cancelled, this, &frmCatalogs::ComeToFront);
    connect(wizard_, &frmNewCatalog::AnotherWanted, this, &frmCatalogs::AnotherCatalog);
    wizard_->LoadForm();
    wizard_->show();
  }
  wizard_->activateWindow();
  blnListaModificata = true;
}

void frmCatalogs::EditSelected() {
  if (const QListWidgetItem* item = SelectedCatalog()) EditCatalog(SelectedCatalogId(), item->text());
}

// Several can be open at once, also on the same catalog; each has its own connection.
void frmCatalogs::EditCatalog(int id, const QString& caption) {
  const WaitCursor wait;
  try {
    auto window = std::make_unique<frmEditCatalog>(this);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->Connessione = std::make_unique<Connection>();
    window->Connessione->Open(cnnCatalog.ConnectionText());
    window->rsCatalogo.Open(rsCataloghi.Source(), *window->Connessione, CursorType::Keyset,
                            LockType::Optimistic);
    window->rsCatalogo.SetFilter(u"IDCatalogo"_qs, id);
    window->Plugins = plugins_;
    window->LoadForm();
    window->setWindowTitle(caption);
    connect(window.get(), &frmEditCatalog::Closed, this, &frmCatalogs::ComeToFront);
    window.release()->show();
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

// False where one has a row that cannot be written: it stays, and has told why.
bool frmCatalogs::CloseGridWindows() {
  for (frmEditCatalog* window : findChildren<frmEditCatalog*>(QString(), Qt::FindDirectChildrenOnly))
    if (window->isVisible() && !window->close()) return false;
  return true;
}

void frmCatalogs::ComeToFront() {
  show();
  activateWindow();
}

void frmCatalogs::ShowCatalogs() {
  ComeToFront();
  ListCatalog();
  SelectNewest();
}

void frmCatalogs::AnotherCatalog() {
  ListCatalog();
  SelectNewest();
  ui_->cmdNew->click();
}

// What the next command works on is then what was made last.
void frmCatalogs::SelectNewest() { ui_->LstWCatalogs->setCurrentRow(ui_->LstWCatalogs->count() - 1); }

// The first press shows the plug-ins, the second publishes with the one selected there.
void frmCatalogs::PressPublish() {
  if (ui_->LstWCatalogs->count() == 0)
    throw Error(
        EitherLanguage(u"Non c'è nessun catalogo da pubblicare"_qs, u"There is no catalog to publish"_qs));
  if (SelectedCatalog() != nullptr) ShowPublishPane(true);
  try {
    if (blnPannelloPubblica) {
      const QTreeWidgetItem* plugin = ui_->lstPlugIns->currentItem();
      if (plugin == nullptr || !plugin->isSelected())
        throw Error(EitherLanguage(u"Nessun filtro di pubblicazione è selezionato"_qs,
                                   u"No publishing filter is selected"_qs));
      if (!plugin->text(0).isEmpty()) {
        PublishSelected();
        ShowPublishPane(false);
        objPlugin.reset();
        blnPannelloPubblica = !blnPannelloPubblica;
        return;
      }
      TheDialogs().Message(this,
                           ByLanguage(u"Selezionare un filtro di pubblicazione per il catalogo"_qs,
                                      u"Select a publishing filter"_qs),
                           BoxStyle::Information);
    }
    blnPannelloPubblica = !blnPannelloPubblica;
  } catch (const std::exception& error) {
    objPlugin.reset();
    ShowError(this, DescriptionOf(error));
  }
}

void frmCatalogs::PublishSelected() {
  const int id = SelectedCatalogId();
  if (id == 0) throw Error(EitherLanguage(u"Nessun catalogo è selezionato"_qs, u"No catalog is selected"_qs));
  const QString identifier = ui_->lstPlugIns->currentItem()->data(0, KeyRole).toString();
  objPlugin = CreatePlugin(identifier);
  PublishCatalog(*objPlugin, cnnCatalog, id);
}

void frmCatalogs::ShowPublishPane(bool show) {
  ui_->fmPublish->setVisible(show);
  ui_->fmListCatalog->setVisible(!show);
  for (const int index : CatalogPaneButtons) {
    QAction* button = toolbar_[std::size_t(index) - 1];
    const bool usable = handlers_.contains(button->objectName()) || button == toolbar_.back();
    button->setEnabled(!show && usable);
  }
  QWidget* focus = show ? static_cast<QWidget*>(ui_->lstPlugIns) : ui_->LstWCatalogs;
  focus->setFocus();
}

void frmCatalogs::cmdIndietro_Click() {
  blnPannelloPubblica = false;
  ShowPublishPane(false);
}

void frmCatalogs::InstallSkinFor(const QString& identifier) {
  objPlugin = CreatePlugin(identifier);
  const std::unique_ptr<IVorlinaPlugin> plugin = std::move(objPlugin);
  QString skin;
  CallPlugin([&] { plugin->InstallSkin(skin); });
}

void frmCatalogs::MailSupport() { QDesktopServices::openUrl(QUrl(u"mailto:"_qs + Text(SupportAddress))); }

void frmCatalogs::PopUpPlugins() {
  const QWidget* button = ui_->tbr->widgetForAction(toolbar_[5]);
  mnuPlugins_->popup(button->mapToGlobal(QPoint(0, button->height())));
}

bool frmCatalogs::event(QEvent* event) {
  const bool result = QMainWindow::event(event);
  // The windows that close with this one give it the activation once more.
  if (event->type() == QEvent::WindowActivate && !closed_) {
    // The box that tells of a failed reload gives the activation back to this window: that one is let pass,
    // or the box would come again without end.
    if (std::exchange(activationFailed_, false)) return result;
    activationFailed_ = true;
    ListCatalog();
    activationFailed_ = false;
  }
  return result;
}

bool frmCatalogs::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
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
  if (IsBusy() || !CloseGridWindows()) {
    event->ignore();
    return;
  }
  closed_ = true;
  rsCataloghi.Close();
  cnnCatalog.Close();
  event->accept();
  Q_EMIT Closed();
}

}  // namespace vorlina
