#include "products/commands/ShowPictures.h"

#include "images/frmImageViewer.h"
#include "products/CellRules.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/CardCommands.h"
#include "products/commands/GridContext.h"
#include "products/frmProduct.h"

namespace vorlina {

void ShowPictures(GridContext& context) {
  WidgetProductGrid& grid = context.grid;
  if (!grid.LeaveRow()) return;
  frmImageViewer viewer(&context.owner);
  viewer.IDCatalogo = context.IDCatalogo;
  viewer.Connection = context.connection;
  const QString code = viewer.ShowCatalog(grid.CondizioneRicerca);
  if (code.isEmpty()) return;
  // It may have come since the grid was filled, or be gone.
  if (grid.Rows().FindRow(CodeColumn, code) >= 0) grid.GoToProduct(code, grid.CurrentKey());
  context.card->ApriProdotto(frmProduct::Edit, code, true);
}

}  // namespace vorlina
