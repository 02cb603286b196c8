#include "products/commands/Publish.h"

#include <QScopedValueRollback>

#include "base/WidgetInputHold.h"
#include "products/CatalogWork.h"
#include "products/WidgetProductGrid.h"
#include "products/commands/GridContext.h"
#include "publish/PluginHost.h"
#include "publish/WidgetPluginUi.h"

namespace vorlina {

void PublishWith(GridContext& context, const QString& identifier) {
  if (context.busy || !context.grid.LeaveRow()) return;
  CatalogWork::RequireNone(context.IDCatalogo);
  const CatalogWork work(context.IDCatalogo, CatalogWork::Kind::Publication);
  const QScopedValueRollback<bool> busy(context.busy, true);
  // What is typed while the plug-in works would go into its transaction.
  const WidgetInputHold hold(context.owner);
  WidgetPluginUi ui(context.owner, *context.connection, identifier);
  const std::unique_ptr<IVorlinaPlugin> plugin = CreatePlugin(identifier, &ui);
  PublishCatalog(*plugin, *context.connection, context.IDCatalogo);
}

}  // namespace vorlina
