#include "products/commands/CardCommands.h"

#include <QAction>
#include <QScopedValueRollback>
#include <algorithm>

#include "base/CommandIcon.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "products/Attempt.h"
#include "products/ProductStore.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/GridContext.h"
#include "products/frmProduct.h"

namespace vorlina {

CardCommands::CardCommands(GridContext& context, QAction& cmdSearch)
    : context_(context), cmdSearch_(cmdSearch) {
  cmdSearch.setCheckable(true);
  connect(&context.grid, &DataGrid::DoubleClicked, this, [this](int row, const QString&) { OpenRow(row); });
  context.grid.SetOnEnter([this] { OpenRow(context_.grid.CurrentRow()); });
}

// The card works on what its opener has.
CardCommands::~CardCommands() { delete card_; }

// What is at work when the row is pressed goes before it: the row may be another product's by then. The new
// row has no product yet, and is typed into.
void CardCommands::OpenRow(int row) {
  WidgetProductGrid& grid = context_.grid;
  if (row < 0) return;
  if (grid.Rows().IsAddNewRow(row)) {
    if (grid.currentIndex().flags().testFlag(Qt::ItemIsEditable)) grid.edit(grid.currentIndex());
    return;
  }
  QMetaObject::invokeMethod(
      this,
      [this, product = grid.Rows().BookmarkOf(row)] {
        Attempt(&context_.owner, [&] { OpenCard(frmProduct::Edit, product); });
      },
      Qt::QueuedConnection);
}

void CardCommands::ApriProdotto(int state, const QString& code, bool flag) {
  const RecordsetModel& rows = context_.grid.Rows();
  const int row = context_.grid.CurrentRow();
  const bool hasRow = row >= 0 && !rows.IsAddNewRow(row);
  if (state == frmProduct::Edit && !hasRow && !flag) return;
  if (context_.connection == nullptr || !context_.grid.LeaveRow()) return;
  qint64 product = 0;
  if (state == frmProduct::Edit)
    product = code.isEmpty() ? rows.BookmarkOf(row)
                             : ProductStore(context_.IDCatalogo, *context_.connection).Find(code);
  OpenCard(state, product);
}

// A card that is open asks for what is unsaved on it before it shows something else.
void CardCommands::OpenCard(int state, qint64 product) {
  if (context_.busy || context_.connection == nullptr || !context_.grid.LeaveRow()) return;
  if (card_ == nullptr) card_ = new frmProduct(&context_.owner);
  if (card_->isVisible()) {
    const bool shown = state == frmProduct::Edit && card_->Stato == state && card_->Product() == product;
    if (shown || !(state == frmProduct::Search ? card_->close() : card_->Leave())) return card_->Open();
  }
  card_->Connessione = context_.connection;
  card_->IDCatalogo = context_.IDCatalogo;
  card_->Griglia = this;
  {
    const WaitCursor wait;
    card_->LoadForm(state, product);
  }
  card_->Open();
}

void CardCommands::ToggleSearch() {
  WidgetProductGrid& grid = context_.grid;
  // The press has turned the button already.
  cmdSearch_.setChecked(!grid.CondizioneRicerca.isEmpty());
  if (!offersAll_) {
    ApriProdotto(frmProduct::Search, {}, false);
    if (card_ != nullptr && card_->isVisible()) cmdSearch_.setChecked(card_->Stato == frmProduct::Search);
    return;
  }
  if (grid.LeaveRow()) ShowAllProducts();
}

void CardCommands::EndSearch() {
  OfferAll(false);
  cmdSearch_.setChecked(false);
  context_.grid.CondizioneRicerca.clear();
}

void CardCommands::ShowAllProducts() {
  EndSearch();
  context_.grid.LoadGrid(true);
}

void CardCommands::OfferAll(bool offered) {
  offersAll_ = offered;
  cmdSearch_.setText(offered ? Texts::tr("Tutti") : Texts::tr("Cerca"));
  SetToolTip(cmdSearch_,
             offered ? Texts::tr("Mostra di nuovo tutti i prodotti") : Texts::tr("Cerca un prodotto"));
}

void CardCommands::Search(const QString& CondizioneRicerca) {
  context_.grid.CondizioneRicerca = CondizioneRicerca;
  cmdSearch_.setChecked(true);
  OfferAll(true);
  context_.grid.LoadGrid(true);
}

// Products that somebody else has deleted keep their places in the grid.
qint64 CardCommands::Neighbour(qint64 product, bool next) {
  WidgetProductGrid& grid = context_.grid;
  const RecordsetModel& rows = grid.Rows();
  const int step = next ? 1 : -1;
  const int start = rows.RowOf(product);
  for (int row = (start >= 0 ? start : grid.CurrentRow()) + step; row >= 0 && row < rows.RecordCount();
       row += step)
    if (rows.StateOf(row) != RowState::Deleted) return grid.GoTo(row) ? rows.BookmarkOf(row) : 0;
  return 0;
}

bool CardCommands::IsBusy() const { return context_.busy; }

void CardCommands::CardClosed(qint64 product, bool searchGivenUp) {
  if (searchGivenUp) cmdSearch_.setChecked(false);
  if (closing_) return;
  WidgetProductGrid& grid = context_.grid;
  const RecordsetModel& rows = grid.Rows();
  const int former = rows.RowOf(product);
  if (grid.HasChanged()) grid.LoadGrid(true);
  // A product that is gone is stood in for by the one that has its place.
  const int row = rows.RowOf(product) >= 0 ? rows.RowOf(product) : std::min(former, rows.RecordCount() - 1);
  // A row that stays in edit was told of.
  if (row >= 0 && row != grid.CurrentRow() && rows.EditRow() < 0) grid.GoTo(row);
  // Once the card is gone.
  QMetaObject::invokeMethod(
      this,
      [this] {
        if (card_ == nullptr || card_->isVisible() || context_.connection == nullptr) return;
        context_.owner.activateWindow();
        context_.grid.setFocus();
      },
      Qt::QueuedConnection);
}

bool CardCommands::Close() {
  const QScopedValueRollback<bool> closing(closing_, true);
  return card_ == nullptr || !card_->isVisible() || card_->close();
}

void NewProduct(GridContext& context) { context.card->ApriProdotto(frmProduct::New, {}, false); }

void EditProduct(GridContext& context) { context.card->ApriProdotto(frmProduct::Edit, {}, false); }

void SearchProducts(GridContext& context) { context.card->ToggleSearch(); }

}  // namespace vorlina
