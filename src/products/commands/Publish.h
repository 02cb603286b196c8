// Publishing the catalog from its own window.
#pragma once

#include <QString>

namespace vorlina {

struct GridContext;

// With the plug-in of that identifier; nothing while another one publishes, or where the row in edit cannot
// be left.
void PublishWith(GridContext& context, const QString& identifier);

}  // namespace vorlina
