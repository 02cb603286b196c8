#include "products/commands/ShowPictures.h"

#include "images/frmImageViewer.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/GridContext.h"

namespace vorlina {

void ShowPictures(GridContext& context) {
  WidgetProductGrid& grid = context.grid;
  if (!grid.LeaveRow()) return;
  frmImageViewer viewer(&context.owner);
  viewer.IDCatalogo = context.IDCatalogo;
  viewer.Connection = context.connection;
  const QString code = viewer.ShowCatalog(grid.CondizioneRicerca);
  if (!code.isEmpty()) grid.GoToProduct(code, grid.CurrentKey());
}

}  // namespace vorlina
