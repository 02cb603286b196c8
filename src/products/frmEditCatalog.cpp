#include "products/frmEditCatalog.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>

#include "base/CommandIcon.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "base/WidgetPlace.h"
#include "grid/WidgetFindBar.h"
#include "products/Attempt.h"
#include "products/CellRules.h"
#include "products/GridCommands.h"
#include "products/GridRefusals.h"
#include "products/ProductKeys.h"
#include "products/WidgetColumnMenu.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/CardCommands.h"
#include "products/commands/DropPictures.h"
#include "products/commands/GridContext.h"
#include "products/commands/ImportPictures.h"
#include "products/commands/OrderCommands.h"
#include "products/commands/Properties.h"
#include "products/commands/Publish.h"
#include "products/commands/RowCommands.h"
#include "products/commands/ShowPictures.h"
#include "store/GetValue.h"
#include "support/HTMLHelp.h"
#include "support/Language.h"
#include "support/frmKeys.h"
#include "ui_frmEditCatalog.h"

namespace vorlina {
namespace {

constexpr int HelpTopic = 1002;

using GridCommand = void (*)(GridContext&);

// The Italian help, whatever the language.
void ShowGridHelp(GridContext&) { ShowHelpTopic(HelpTopic, u"Italian"_qs); }

// What a key of the toolbar or of the menu does; null for one that does nothing, which is disabled.
GridCommand CommandOf(const QString& key) {
  static constexpr std::pair<const char16_t*, GridCommand> commands[] = {
      {u"cmdNew", NewProduct},        {u"cmdEdit", EditProduct},
      {u"cmdDelete", DeleteRows},     {u"cmdSearch", SearchProducts},
      {u"cmdImmagini", ShowPictures}, {u"cmdProperties", ShowProperties},
      {u"cmdImporta", ImportFolder},  {u"cmdHelp", ShowGridHelp},
      {u"mnuCopia", CopyRows},        {u"mnuOrdinePubbl", NumberAsShown},
      {u"mnuSpostaSu", MoveRowsUp},   {u"mnuSpostaGiu", MoveRowsDown},
      {u"mnuAggiorna", RefreshRows},  {u"mnuResizeCol", RestoreColumnWidths},
  };
  for (const auto& [name, command] : commands)
    if (key == name) return command;
  return nullptr;
}

}  // namespace

frmEditCatalog::frmEditCatalog(QWidget* parent) : QMainWindow(parent), ui_(new Ui::frmEditCatalog) {
  ui_->setupUi(this);
  grdProducts = ui_->grdProducts;
  context_ = std::make_unique<GridContext>(GridContext{.owner = *this, .grid = *grdProducts});
  refusals_ = std::make_unique<GridRefusals>(*this, *grdProducts);
  MakeStatusBar();
  MakeToolbar();
  MakeMenus();
  MakeFindBar();
  ConnectGrid();
  drops_ = std::make_unique<DropPictures>(*context_);
  card_ = std::make_unique<CardCommands>(*context_, *findChild<QAction*>(u"cmdSearch"_qs));
  context_->card = card_.get();
  import_ = std::make_unique<ImportPictures>(*context_, *ui_->stb);
  context_->import = import_.get();
  connect(import_.get(), &ImportPictures::Finished, this, &frmEditCatalog::CloseLate, Qt::QueuedConnection);
  properties_ = std::make_unique<Properties>(*context_, [this] { LoadCatalog(); });
  context_->properties = properties_.get();
}

// Left to the base class, the grid would outlive the members that it works on, and signal to what is no
// window any more.
frmEditCatalog::~frmEditCatalog() {
  properties_.reset();
  card_.reset();
  ReleaseAll();
  delete grdProducts;
}

void frmEditCatalog::MakeToolbar() {
  for (const ToolbarCommand& command : GridToolbar) {
    const QString key = Text(command.key);
    QAction* action = AddCommand(*ui_->tbr, command);
    action->setEnabled(CommandOf(key) != nullptr);
    connect(action, &QAction::triggered, this, [this, key] { Run(key); });
  }
  mnuPubblica = new QMenu(this);
  mnuPubblica->setObjectName(u"mnuPubblica"_qs);
}

void frmEditCatalog::MakeMenus() {
  mnuGriglia = new QMenu(this);
  mnuGriglia->setObjectName(u"mnuGriglia"_qs);
  for (const MenuCommand& command : GridMenu)
    connect(AddCommand(*mnuGriglia, command, *grdProducts), &QAction::triggered, this,
            [this, key = Text(command.key)] { Run(key); });
  mnuAiuto = new QMenu(this);
  mnuAiuto->setObjectName(u"mnuAiuto"_qs);
  for (const MenuCommand& command : GridHelpMenu) AddCommand(*mnuAiuto, command, *this);
  connect(mnuAiuto->findChild<QAction*>(u"subHelp"_qs), &QAction::triggered, this,
          [] { ShowHelpTopic(HelpTopic, Language); });
  connect(mnuAiuto->findChild<QAction*>(u"mnuTasti"_qs), &QAction::triggered, this,
          [this] { frmKeys::Open(*this, ProductKeys()); });
  SetDropDown(*ui_->tbr, *findChild<QAction*>(u"cmdHelp"_qs), *mnuAiuto, false);
  mnuColonna = new WidgetColumnMenu(*grdProducts);
  mnuColonna->OnSort = [this](const QString& key) { grdProducts->ToggleSort(key, grdProducts->SortOf(key)); };
}

// Its keys work wherever the focus is.
void frmEditCatalog::MakeFindBar() {
  findBar_ = new WidgetFindBar(ui_->centralWidget);
  findBar_->setObjectName(u"findBar"_qs);
  findBar_->SetGrid(*grdProducts);
  ui_->layoutCentral->addWidget(findBar_);
  using Step = void (WidgetFindBar::*)();
  constexpr Step steps[] = {&WidgetFindBar::Open, &WidgetFindBar::FindNext, &WidgetFindBar::FindPrevious};
  QStringList keys;
  for (std::size_t i = 0; i < GridFindMenu.size(); ++i) {
    QAction* entry = AddCommand(*mnuGriglia, GridFindMenu[i], *grdProducts);
    entry->setShortcutContext(Qt::WindowShortcut);
    keys += entry->shortcut().toString(QKeySequence::NativeText);
    connect(entry, &QAction::triggered, findBar_, steps[i]);
  }
  findBar_->SetKeys(keys[1], keys[2]);
}

void frmEditCatalog::MakeStatusBar() {
  lblProdotti = new QLabel(this);
  lblProdotti->setObjectName(u"lblProdotti"_qs);
  lblSelezionati = new QLabel(this);
  lblSelezionati->setObjectName(u"lblSelezionati"_qs);
  lblProdotti->setTextFormat(Qt::PlainText);
  lblSelezionati->setTextFormat(Qt::PlainText);
  for (QLabel* label : {lblProdotti, lblSelezionati}) label->setContentsMargins(8, 2, 8, 2);
  ui_->stb->addWidget(lblProdotti);
  ui_->stb->addPermanentWidget(lblSelezionati);
}

void frmEditCatalog::ConnectGrid() {
  const RecordsetModel& rows = grdProducts->Rows();
  connect(&rows, &QAbstractItemModel::rowsInserted, this, &frmEditCatalog::CountProducts);
  connect(&rows, &QAbstractItemModel::rowsRemoved, this, &frmEditCatalog::CountProducts);
  connect(&rows, &QAbstractItemModel::modelReset, this, &frmEditCatalog::ShowCounts);
  connect(grdProducts, &DataGrid::SelectedRowsChanged, this, &frmEditCatalog::ShowCounts);
  connect(grdProducts, &WidgetProductGrid::Filled, this, &frmEditCatalog::CountProducts);
  connect(grdProducts, &DataGrid::HeaderPressed, this,
          [this](const QString& key, Qt::MouseButton button, const QPoint& position) {
            if (button == Qt::RightButton) PopUpColumnMenu(key, position);
          });
  connect(grdProducts, &DataGrid::CellPressed, this,
          [this](int row, const QString&, Qt::MouseButton button, const QPoint& position) {
            if (row >= 0 && button == Qt::RightButton) PopUpGridMenu(position);
          });
  connect(grdProducts, &DataGrid::RowDropped, this,
          [this](int row) { Attempt(this, [=, this] { DropRowsOn(*context_, row); }); });
}

void frmEditCatalog::Run(const QString& key) {
  if (const GridCommand command = CommandOf(key)) Attempt(this, [&] { command(*context_); });
}

void frmEditCatalog::LoadForm() {
  FitIntoScreen(*this);
  FillPublishMenu();
  ShowCatalog(true);
  NumberNewProducts(*context_);
  // Whoever begins a catalog can type at once.
  if (grdProducts->Rows().RecordCount() == 0) grdProducts->GoTo(0, CodeColumn);
  Localize_Form();
  ShowCounts();
  grdProducts->setFocus();
}

void frmEditCatalog::LoadCatalog() { ShowCatalog(false); }

void frmEditCatalog::ShowCatalog(bool first) {
  context_->connection = Connessione.get();
  context_->IDCatalogo = rsCatalogo.Value(u"IDCatalogo"_qs).toInt();
  grdProducts->ShowCatalog(rsCatalogo, *Connessione, first);
}

// The button itself does nothing: its entries say with what to publish.
void frmEditCatalog::FillPublishMenu() {
  for (const PluginEntry& plugin : Plugins) {
    // An ampersand is a part of the name.
    const QString name = QString(plugin.name).replace(u'&', u"&&"_qs);
    QAction* entry = mnuPubblica->addAction(plugin.icon, name, this, [this, key = plugin.identifier] {
      Attempt(this, [&] { PublishWith(*context_, key); });
    });
    entry->setObjectName(plugin.identifier);
  }
  auto* action = findChild<QAction*>(u"cmdPublish"_qs);
  SetDropDown(*ui_->tbr, *action, *mnuPubblica, true);
  action->setEnabled(!Plugins.empty());
}

void frmEditCatalog::Localize_Form() {
  ui_->retranslateUi(this);
  LocalizeCommands(*this, GridToolbar);
  mnuGriglia->setTitle(Texts::tr("Griglia"));
  LocalizeCommands(*mnuGriglia, GridMenu);
  LocalizeCommands(*mnuAiuto, GridHelpMenu);
  LocalizeCommands(*mnuGriglia, GridFindMenu);
  findBar_->Localize();
  mnuColonna->Localize();
}

void frmEditCatalog::PopUpColumnMenu(const QString& key, const QPoint& position) {
  mnuColonna->PopUp(key, grdProducts->mapToGlobal(position));
}

void frmEditCatalog::PopUpGridMenu(const QPoint& position) {
  mnuGriglia->findChild<QAction*>(u"mnuCopia"_qs)->setEnabled(grdProducts->SelectedCount() > 0);
  mnuGriglia->popup(grdProducts->mapToGlobal(position));
}

// The menu key opens the menu of the rows, with Ctrl that of the column.
void frmEditCatalog::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() != QContextMenuEvent::Keyboard || !grdProducts->currentIndex().isValid()) return;
  const QRect cell = grdProducts->visualRect(grdProducts->currentIndex());
  const QPoint position = grdProducts->viewport()->mapTo(grdProducts, cell.bottomLeft());
  if (event->modifiers().testFlag(Qt::ControlModifier))
    PopUpColumnMenu(grdProducts->CurrentKey(), position);
  else
    PopUpGridMenu(position);
}

void frmEditCatalog::CountProducts() {
  if (!grdProducts->CondizioneRicerca.isEmpty() && Connessione != nullptr)
    allProducts_ =
        GetValue(u"COUNT(*)"_qs, u"Prodotti"_qs, *Connessione, u"IDCatalogo=?"_qs, {context_->IDCatalogo})
            .toLongLong();
  ShowCounts();
}

void frmEditCatalog::ShowCounts() {
  const int count = grdProducts->Rows().RecordCount();
  const int selected = grdProducts->SelectedCount();
  const QLocale locale;
  const QString text = !grdProducts->CondizioneRicerca.isEmpty()
                           ? Texts::tr("Ricerca attiva: %1 di %2 prodotti")
                                 .arg(locale.toString(count))
                                 .arg(locale.toString(allProducts_))
                       : count == 1 ? Texts::tr("%1 prodotto").arg(count)
                                    : Texts::tr("%1 prodotti").arg(locale.toString(count));
  lblProdotti->setText(text);
  lblSelezionati->setText((selected == 1 ? Texts::tr("%1 selezionato") : Texts::tr("%1 selezionati"))
                              .arg(locale.toString(selected)));
}

bool frmEditCatalog::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) grdProducts->RefreshFilterValues(!context_->busy);
  if (event->type() == QEvent::WindowUnblocked) drops_->TakeHeld();
  return QMainWindow::event(event);
}

void frmEditCatalog::closeEvent(QCloseEvent* event) {
  if (!import_->MayClose()) return event->ignore();
  if (context_->busy || !refusals_->MayClose()) {
    // Who closes the program from elsewhere sees what is in the way.
    activateWindow();
    return event->ignore();
  }
  if (!properties_->Close() || !card_->Close()) return event->ignore();
  grdProducts->SaveLayoutFile();
  ReleaseAll();
  event->accept();
  Q_EMIT Closed();
}

bool frmEditCatalog::ClosesLate() const { return import_->IsClosing(); }

void frmEditCatalog::CloseLate() {
  const bool closed = close();
  if (!closed) import_->FillGrid();
  Q_EMIT ClosedLate(closed);
}

void frmEditCatalog::ReleaseAll() {
  grdProducts->Release();
  rsCatalogo.Close();
  context_->connection = nullptr;
  Connessione.reset();
}

}  // namespace vorlina
