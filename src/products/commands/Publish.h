// Publishing the catalog from its own window.
#pragma once

#include <QString>

namespace vorlina {

struct GridContext;

// With the plug-in of that identifier; nothing while another one publishes, or where the row in edit cannot
// be left. Throws Error, also while another window imports into the catalog or publishes it.
void PublishWith(GridContext& context, const QString& identifier);

}  // namespace vorlina
