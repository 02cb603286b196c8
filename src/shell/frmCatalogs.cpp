#include "shell/frmCatalogs.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>

#include "base/AppPath.h"
#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/Settings.h"
#include "catalogs/CatalogNames.h"
#include "images/PicturePaths.h"
#include "shell/CatalogCommands.h"
#include "shell/WidgetRenameDelegate.h"
#include "store/CatalogDatabase.h"
#include "store/LockPatience.h"
#include "store/RowErrors.h"
#include "ui_frmCatalogs.h"

namespace vorlina {
namespace {

constexpr int RetryMilliseconds = 2000;

QString NoNewReason(bool locked) {
  if (locked)
    return EitherLanguage(
        u"Non è possibile creare un catalogo finché un altro programma tiene il database. Chiudere quel "
        "programma."_qs,
        u"No catalog can be made as long as another program holds the database. Close that program."_qs);
  return EitherLanguage(
      u"Non è possibile creare un catalogo: il database dei cataloghi non è aperto. Chiudere il programma, "
      "rimettere il file Catalog.db al suo posto e avviarlo di nuovo."_qs,
      u"No catalog can be made: the database of the catalogs is not open. Close the program, put the file "
      "Catalog.db back in its place and start it again."_qs);
}

// Keeps the same room for each picture, also for one that is small or empty: rows are alike and names
// aligned.
class PluginDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    const QSize room = option->decorationSize;
    QStyledItemDelegate::initStyleOption(option, index);
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = room;
    option->decorationAlignment = Qt::AlignCenter;
  }
};

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
  retry_.setObjectName(u"retry"_qs);
  retry_.setSingleShot(true);
  retry_.setInterval(RetryMilliseconds);
  connect(&retry_, &QTimer::timeout, this, &frmCatalogs::Retry);
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
  ui_->lstPlugIns->setItemDelegate(new PluginDelegate(ui_->lstPlugIns));
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
  ui_->LstWCatalogs->installEventFilter(this);
  ui_->lstPlugIns->installEventFilter(this);
  // Only kept while the editor is there; stored, and told where that fails, when it is gone.
  rename_ = new WidgetRenameDelegate(*ui_->LstWCatalogs);
  connect(rename_, &WidgetRenameDelegate::Renamed, this,
          [this](const QModelIndex& index, const QString& name) {
            newName_ = {arrIDCataloghi[std::size_t(index.row())], name};
          });
  connect(
      rename_, &WidgetRenameDelegate::closeEditor, this,
      [this] {
        ApplyRename();
        if (reloadWaits_) ListUnlessLocked();
      },
      Qt::QueuedConnection);
}

// A statement whose failure shows its message and lets the next one run.
void frmCatalogs::Attempt(const Handler& statement) {
  try {
    statement();
  } catch (const std::exception& error) {
    ShowError(this, DescriptionOf(error));
  }
}

// The same with the database. Another program's lock would fail every one of them: it is waited for and told
// once, and the rest is left to Retry.
void frmCatalogs::AttemptOnDatabase(const Handler& statement) {
  if (locked_) return;
  Attempt([&] {
    const LockPatience patience(retrying_ ? 0 : LockPatience::UsualMilliseconds);
    try {
      statement();
    } catch (const LockedError&) {
      locked_ = true;
      retry_.start();
      if (!retrying_) throw;
    }
  });
}

void frmCatalogs::OpenDatabase() {
  AttemptOnDatabase([this] { OpenCatalogDatabase(cnnCatalog, AppFile(u"Catalog.db"_qs)); });
  if (!locked_) FirstRun();
}

void frmCatalogs::OpenList() {
  AttemptOnDatabase([this] {
    rsCataloghi.Close();
    rsCataloghi.Open(u"SELECT * FROM CATALOGHI"_qs, cnnCatalog, CursorType::Keyset, LockType::Optimistic);
  });
}

void frmCatalogs::LoadForm() {
  OpenDatabase();
  Attempt([] { SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"AppPath"_qs, AppPath()); });
  OpenList();
  const PluginChoice plugins = ChosenPlugins();
  FillPlugins(plugins);
  Attempt([&] {
    if (plugins.named && plugins.identifiers.isEmpty()) return;  // as the user wants it
    QTreeWidgetItem* first = ui_->lstPlugIns->topLevelItem(0);
    if (first == nullptr)
      throw Error(EitherLanguage(u"Nessun filtro di pubblicazione è installato"_qs,
                                 u"No publishing filter is installed"_qs));
    ui_->lstPlugIns->setCurrentItem(first);
  });
  Localize_Form();
  OfferNew();
}

// Without a database the wizard would ask for four pages of data that it cannot store.
void frmCatalogs::OfferNew() {
  const bool open = cnnCatalog.IsOpen();
  if (open)
    handlers_[u"cmdNew"_qs] = [this] { NewCatalogWizard(); };
  else
    handlers_.erase(u"cmdNew"_qs);
  const QString reason = open ? QString() : NoNewReason(locked_);
  const Caption& usual = ToolbarCommands.front().toolTip;
  const QString toolTip = Text(Language == u"English" ? usual.english : usual.italian);
  toolbar_.front()->setEnabled(open && ui_->fmListCatalog->isVisibleTo(this));
  toolbar_.front()->setToolTip(PlainToolTip(open ? toolTip : reason));
  ui_->cmdNew->setEnabled(open);
  ui_->cmdNew->setToolTip(PlainToolTip(reason));
  ui_->cmdNew->setAccessibleDescription(reason);
}

// At every start: the folder may have been copied or moved since, or laid out anew with settings that are
// older.
void frmCatalogs::FirstRun() {
  AttemptOnDatabase([this] {
    if (cnnCatalog.IsOpen()) FitPicturePaths(cnnCatalog);
  });
  const QString title = ApplicationTitle();
  if (GetSetting(title, u"Riservati"_qs, u"FirstRun"_qs, u"True"_qs) == u"True")
    Attempt([&] { SaveSetting(title, u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs); });
}

void frmCatalogs::FillPlugins(const PluginChoice& plugins) {
  const PluginListing listing = ListPlugins(plugins, CreatePlugin, [this](const QString& identifier) {
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
  reloadWaits_ = rename_->IsOpen();
  if (reloadWaits_) return;
  rename_->Finish();
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

bool frmCatalogs::event(QEvent* event) {
  const bool result = QMainWindow::event(event);
  // The windows that close with this one give it the activation once more.
  if (event->type() == QEvent::WindowActivate && !closed_) {
    // The box that tells of a failed reload gives the activation back to this window: that one is let pass,
    // or the box would come again without end.
    if (std::exchange(activationFailed_, false)) return result;
    activationFailed_ = true;
    ListUnlessLocked();
    activationFailed_ = false;
  }
  return result;
}

// The list stays as it is under another program's lock, which coming back to the window does not wait for.
void frmCatalogs::ListUnlessLocked() {
  if (locked_) return;
  try {
    const LockPatience none(0);
    ListCatalog();
  } catch (const LockedError&) {
    locked_ = true;
    retry_.start();
  }
}

// Reads what a lock has kept from being read, as soon as it has gone.
void frmCatalogs::Retry() {
  if (closed_) return;
  if (IsBusy()) return retry_.start();
  const QScopedValueRollback<bool> retrying(retrying_, true);
  locked_ = false;
  if (!cnnCatalog.IsOpen())
    OpenDatabase();
  else if (!rsCataloghi.IsOpen())
    FirstRun();
  if (!rsCataloghi.IsOpen()) OpenList();
  AttemptOnDatabase([this] { ListCatalog(); });
  OfferNew();
}

bool frmCatalogs::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && !rename_->IsOpen()) {
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
  if (IsBusy() || !EndRename() || !CloseGridWindows()) {
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
