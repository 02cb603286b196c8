#include "products/frmEditCatalog.h"

#include <QCloseEvent>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLoggingCategory>
#include <QMenu>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "base/AppPath.h"
#include "base/CommandIcon.h"
#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/SafeFile.h"
#include "base/WaitCursor.h"
#include "grid/DataGrid.h"
#include "products/CellRules.h"
#include "products/GridCommands.h"
#include "products/ProductEditing.h"
#include "products/PublicationOrder.h"
#include "products/WidgetColumnMenu.h"
#include "products/WidgetGridPreview.h"
#include "ui_frmEditCatalog.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(products, "vorlina.products", QtInfoMsg)

// Logical pixels.
constexpr int PictureWidth = 23;  // 350 of the twips in which the window was designed, 15 to a pixel
constexpr int DescriptionWidth = 280;

}  // namespace

frmEditCatalog::frmEditCatalog(QWidget* parent) : QMainWindow(parent), ui_(new Ui::frmEditCatalog) {
  ui_->setupUi(this);
  grdProducts = ui_->grdProducts;
  grdProducts->setEditTriggers(grdProducts->editTriggers() | QAbstractItemView::DoubleClicked);
  grdProducts->horizontalHeader()->setMinimumSectionSize(PictureWidth);
  handlers_ = {
      {u"cmdDelete"_qs, [this] { cmdDelete_Click(); }},
      {u"cmdImmagini"_qs, [this] { cmdImmagini_Click(); }},
      {u"mnuCopia"_qs, [this] { mnuCopia_Click(); }},
      {u"mnuOrdinePubbl"_qs, [this] { mnuOrdinePubbl_Click(); }},
      {u"mnuResizeCol"_qs, [this] { mnuResizeCol_Click(); }},
      {u"mnuSpostaSu"_qs, [this] { MoveRows(false); }},
      {u"mnuSpostaGiu"_qs, [this] { MoveRows(true); }},
      {u"mnuAggiorna"_qs, [this] { mnuAggiorna_Click(); }},
  };
  editing_ = std::make_unique<ProductEditing>(grdProducts->Rows(), this);
  preview_ = new WidgetGridPreview(*grdProducts);
  lblProdotti = new QLabel(this);
  lblProdotti->setObjectName(u"lblProdotti"_qs);
  lblSelezionati = new QLabel(this);
  lblSelezionati->setObjectName(u"lblSelezionati"_qs);
  lblProdotti->setTextFormat(Qt::PlainText);
  lblSelezionati->setTextFormat(Qt::PlainText);
  for (QLabel* label : {lblProdotti, lblSelezionati}) label->setContentsMargins(8, 2, 8, 2);
  ui_->stb->addWidget(lblProdotti);
  ui_->stb->addPermanentWidget(lblSelezionati);
  MakeToolbar();
  MakeMenus();
  ConnectGrid();
}

// Left to the base class, the grid would outlive the members that it works on, and signal to what is no
// window any more.
frmEditCatalog::~frmEditCatalog() {
  ReleaseAll();
  delete grdProducts;
}

void frmEditCatalog::MakeToolbar() {
  for (const ToolbarCommand& command : GridToolbar) {
    const QString key = Text(command.key);
    QAction* action = AddCommand(*ui_->tbr, command);
    action->setEnabled(handlers_.count(key) > 0);
    connect(action, &QAction::triggered, this, [this, key] { Run(key); });
  }
  mnuPubblica = new QMenu(this);
  mnuPubblica->setObjectName(u"mnuPubblica"_qs);
}

void frmEditCatalog::MakeMenus() {
  mnuGriglia = new QMenu(u"Griglia"_qs, this);
  mnuGriglia->setObjectName(u"mnuGriglia"_qs);
  for (const MenuCommand& command : GridMenu)
    connect(AddCommand(*mnuGriglia, command, *grdProducts), &QAction::triggered, this,
            [this, key = Text(command.key)] { Run(key); });
  mnuColonna = new WidgetColumnMenu(*grdProducts);
  mnuColonna->OnSort = [this](const QString& key) { ToggleSort(key, grdProducts->SortOf(key)); };
}

void frmEditCatalog::Run(const QString& key) {
  const auto handler = handlers_.find(key);
  if (handler != handlers_.end()) Attempt(handler->second);
}

// What fails is told here, as it would be at the top of the event loop: no exception passes through Qt's own
// handling of keys and of the mouse, which would not end it.
void frmEditCatalog::Attempt(const std::function<void()>& step) {
  try {
    step();
  } catch (const std::exception& error) {
    TheDialogs().Message(this, DescriptionOf(error), BoxStyle::Stop);
  }
}

void frmEditCatalog::LoadForm() {
  FillPublishMenu();
  Caricamento = true;
  LoadCatalog();
  Caricamento = false;
  NumberUnnumbered();
  // Whoever begins a catalog can type at once.
  if (grdProducts->Rows().RecordCount() == 0) grdProducts->GoTo(0, CodeColumn);
  Localize_Form();
  ShowCounts();
  grdProducts->setFocus();
}

// Products that cannot be numbered, as in a database that is read-only, can be looked at all the same.
void frmEditCatalog::NumberUnnumbered() {
  Attempt([this] {
    if (!rsGriglia.IsOpen() || !vorlina::NumberUnnumbered(IDCatalogo, *Connessione)) return;
    // The grid may be sorted by the numbers.
    if (grdProducts->Reload()) grdProducts->GoTo(0);
  });
}

// The button itself does nothing: its entries say with what to publish.
void frmEditCatalog::FillPublishMenu() {
  for (const PluginEntry& plugin : Plugins) {
    QAction* entry = mnuPubblica->addAction(plugin.icon, plugin.name, this, [this, key = plugin.identifier] {
      Attempt([&] { PublishWith(key); });
    });
    entry->setObjectName(plugin.identifier);
  }
  auto* action = findChild<QAction*>(u"cmdPublish"_qs);
  auto* button = qobject_cast<QToolButton*>(ui_->tbr->widgetForAction(action));
  button->setMenu(mnuPubblica);
  button->setPopupMode(QToolButton::InstantPopup);
  action->setEnabled(!Plugins.empty());
}

void frmEditCatalog::Localize_Form() {
  if (Language != u"English") return;
  setWindowTitle(u"Edit catalog"_qs);
  ui_->tbr->setWindowTitle(u"Commands"_qs);
  grdProducts->setAccessibleName(u"Products"_qs);
  LocalizeCommands(*this, GridToolbar);
  mnuGriglia->setTitle(u"Grid"_qs);
  LocalizeCommands(*mnuGriglia, GridMenu);
  mnuColonna->Localize();
}

void frmEditCatalog::LoadCatalog() {
  IDCatalogo = rsCatalogo.Value(u"IDCatalogo"_qs).toInt();
  fields_ = ProductGridFields::Of(rsCatalogo);
  editing_->SetCatalog(IDCatalogo, *Connessione);
  LayoutGriglia.clear();
  LoadGrid(true);
}

void frmEditCatalog::LoadGrid(bool keepLayout) {
  const WaitCursor wait;
  try {
    if (grdProducts->LeaveRow()) FillGrid(keepLayout);
  } catch (const std::exception& error) {
    qCDebug(products) << "the grid was not loaded whole:" << DescriptionOf(error);
  }
}

void frmEditCatalog::FillGrid(bool keepLayout) {
  const int row = grdProducts->CurrentRow();
  const QString code = NullToEmpty(grdProducts->Rows().Value(row, ProductColumn::Codice));
  const QString key = grdProducts->CurrentKey();
  const bool shown = grdProducts->Rows().columnCount() > 0;
  OpenGrid();
  std::vector<GridColumn> columns = ProductGridColumns(fields_, IDCatalogo, *Connessione);
  DecorateColumns(columns);
  grdProducts->Bind(rsGriglia, std::move(columns));
  // Behind the binding, which leaves a column that has another name by now in its place.
  if (shown && keepLayout) LayoutGriglia = LayoutText(grdProducts->Layout());
  PlacePictureColumns();
  ArrangeGrid(keepLayout);
  GoToProduct(code, key);
  editing_->OfferDefaults();
  ShowCounts();
}

// Where the statement fails the grid is empty; how it was arranged is kept for the next one.
void frmEditCatalog::OpenGrid() {
  Recordset fresh;
  try {
    fresh.Open(ProductGridStatement(fields_, CondizioneRicerca), *Connessione, CursorType::Keyset,
               LockType::Optimistic, {IDCatalogo});
  } catch (const Error&) {
    if (grdProducts->Rows().columnCount() > 0) LayoutGriglia = LayoutText(grdProducts->Layout());
    grdProducts->Rows().Unbind();
    rsGriglia.Close();
    throw;
  }
  rsGriglia = std::move(fresh);
}

void frmEditCatalog::DecorateColumns(std::vector<GridColumn>& columns) const {
  for (std::size_t i = 0; i < fields_.filters.size(); ++i)
    if (fields_.filters[i].inUse) columns[ProductColumn::IDFiltro1 + i].icon = CommandIcon(u"filter"_qs);
  columns[ProductColumn::SchedaPicture].icon = CommandIcon(u"sheet"_qs);
  columns[ProductColumn::ImmaginePicture].icon = CommandIcon(u"picture"_qs);
  columns[ProductColumn::Ordine].alignment = Qt::AlignRight | Qt::AlignVCenter;
}

void frmEditCatalog::PlacePictureColumns() {
  grdProducts->SetColumnPosition(u"Scheda"_qs, 0);
  grdProducts->SetColumnPosition(u"Immagine"_qs, 1);
  if (Caricamento) grdProducts->setColumnWidth(ProductColumn::Descrizione, DescriptionWidth);
}

// A drop-down's texts always stand at the left, and the columns of pictures have one width.
void frmEditCatalog::ArrangeGrid(bool keepLayout) {
  if (!LayoutGriglia.isEmpty() && keepLayout)
    grdProducts->ApplyLayout(ParseLayout(LayoutGriglia));
  else if (Caricamento)
    LoadLayoutFile();
  for (const NamedField& filter : fields_.filters)
    if (filter.inUse) grdProducts->SetAlignment(filter.key, GridAlignment::Left);
  for (const int column : {ProductColumn::SchedaPicture, ProductColumn::ImmaginePicture})
    grdProducts->setColumnWidth(column, PictureWidth);
}

QString frmEditCatalog::LayoutFile() const { return AppFile(u"Layouts/%1.lyt"_qs.arg(IDCatalogo)); }

// A file that is no layout leaves the columns as they are bound.
void frmEditCatalog::LoadLayoutFile() {
  try {
    MakeFolder(AppFile(u"Layouts"_qs));
    if (QFile::exists(LayoutFile())) grdProducts->ApplyLayout(LoadLayout(LayoutFile()));
  } catch (const Error& error) {
    qCDebug(products) << LayoutFile() << error.Description();
  }
}

void frmEditCatalog::SaveLayoutFile() {
  try {
    if (rsGriglia.IsOpen()) SaveLayout(grdProducts->Layout(), LayoutFile());
  } catch (const Error& error) {
    qCDebug(products) << LayoutFile() << error.Description();
  }
}

// Without a code, or where the product is not among those shown, the first one; in the code's column where
// the column is not there any more.
void frmEditCatalog::GoToProduct(const QString& code, const QString& key) {
  const RecordsetModel& rows = grdProducts->Rows();
  const int row = code.isEmpty() ? -1 : rows.FindRow(CodeColumn, code);
  if (rows.RecordCount() > 0) grdProducts->GoTo(std::max(row, 0), rows.ColumnOf(key) < 0 ? CodeColumn : key);
}

void frmEditCatalog::ShowCounts() {
  const int count = grdProducts->Rows().RecordCount();
  const int selected = grdProducts->SelectedCount();
  const QLocale locale;
  lblProdotti->setText((count == 1 ? EitherLanguage(u"%1 prodotto"_qs, u"%1 product"_qs)
                                   : EitherLanguage(u"%1 prodotti"_qs, u"%1 products"_qs))
                           .arg(locale.toString(count)));
  lblSelezionati->setText((selected == 1 ? EitherLanguage(u"%1 selezionato"_qs, u"%1 selected"_qs)
                                         : EitherLanguage(u"%1 selezionati"_qs, u"%1 selected"_qs))
                              .arg(locale.toString(selected)));
}

bool frmEditCatalog::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate && Connessione != nullptr) editing_->RefreshFilterValues();
  if (event->type() == QEvent::WindowUnblocked) DropHeldFiles();
  return QMainWindow::event(event);
}

void frmEditCatalog::Refuse(const QString& text) {
  if (!refusals_) return TheDialogs().Message(this, text, BoxStyle::Stop);
  if (!text.isEmpty()) *refusals_ += text;
}

// What keeps the window open is told in one box, with the way out.
bool frmEditCatalog::MayClose() {
  if (refusals_) return false;
  refusals_.emplace();
  const bool left = grdProducts->LeaveForGood();
  // Until the box is answered what is refused stays untold: an editor that loses the focus to it asks again.
  if (!left) TellWhyOpen(*refusals_);
  refusals_.reset();
  return left;
}

void frmEditCatalog::TellWhyOpen(QStringList refusals) {
  if (refusals.isEmpty())
    refusals += EitherLanguage(u"Il valore scritto nella riga non è stato accettato."_qs,
                               u"The value that was typed into the row was not accepted."_qs);
  QString& last = refusals.last();
  if (!last.endsWith(u'.')) last += u'.';
  if (!last.contains(EitherLanguage(u"Premere Esc "_qs, u"Press Esc "_qs))) last += u' ' + GiveUpHint();
  activateWindow();
  TheDialogs().Message(this, refusals.join(u"\r\n"_qs), BoxStyle::Stop);
}

void frmEditCatalog::closeEvent(QCloseEvent* event) {
  if (busy_ || !MayClose()) {
    // Who closes the program from elsewhere sees what is in the way.
    activateWindow();
    return event->ignore();
  }
  SaveLayoutFile();
  ReleaseAll();
  event->accept();
  Q_EMIT Closed();
}

void frmEditCatalog::ReleaseAll() {
  grdProducts->Rows().Unbind();
  rsGriglia.Close();
  rsCatalogo.Close();
  Connessione.reset();
}

}  // namespace vorlina
