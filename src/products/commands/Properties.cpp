#include "products/commands/Properties.h"

#include <memory>

#include "base/Helpers.h"
#include "base/WaitCursor.h"
#include "catalogs/CatalogNames.h"
#include "catalogs/frmCatalog.h"
#include "products/Attempt.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/CardCommands.h"
#include "products/commands/GridContext.h"

namespace vorlina {

Properties::Properties(GridContext& context, std::function<void()> LoadCatalog)
    : context_(context), LoadCatalog_(std::move(LoadCatalog)) {}

// The window works on what its opener has.
Properties::~Properties() { delete window_; }

void Properties::Open() {
  if (context_.busy || context_.connection == nullptr || !context_.grid.LeaveRow()) return;
  if (window_ == nullptr || !window_->isVisible()) window_ = NewWindow();
  window_->show();
  window_->raise();
  window_->activateWindow();
}

frmCatalog* Properties::NewWindow() {
  const WaitCursor wait;
  auto window = std::make_unique<frmCatalog>(&context_.owner);
  window->setAttribute(Qt::WA_DeleteOnClose);
  window->CatalogRs.Open(
      {.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {context_.IDCatalogo}},
      *context_.connection);
  if (window->CatalogRs.IsEOF()) throw CatalogGone();
  window->Connessione = context_.connection;
  window->IsBusy = [this] { return context_.busy; };
  window->MayWrite = [this](bool names) { return MayWrite(names); };
  window->LoadForm();
  connect(window.get(), &frmCatalog::CatalogStored, this, &Properties::Stored);
  // A row that stays in edit was told of.
  connect(window.get(), &frmCatalog::CatalogRefused, this, [this] {
    if (context_.grid.Rows().EditRow() < 0) context_.card->ShowAllProducts();
  });
  connect(window.get(), &frmCatalog::Closed, this, [this] {
    context_.owner.activateWindow();
    context_.grid.setFocus();
  });
  return window.release();
}

// The card and its windows would go on with names and values that are gone.
bool Properties::MayWrite(bool names) {
  return !context_.busy && context_.grid.LeaveRow() && (!names || context_.card->Close());
}

// What the search looked for may be gone with its filter.
void Properties::Stored(const QString& caption) {
  context_.owner.setWindowTitle(PlainTitle(caption));
  context_.card->EndSearch();
  Attempt(&context_.owner, LoadCatalog_);
}

bool Properties::Close() { return window_ == nullptr || !window_->isVisible() || window_->close(); }

void ShowProperties(GridContext& context) { context.properties->Open(); }

}  // namespace vorlina
