#include "base/CommandIcon.h"

// The pictures lie in a static library, from which they come when they are asked for.
static void InitPictures() { Q_INIT_RESOURCE(commands); }

namespace vorlina {

QIcon CommandIcon(const QString& name) {
  InitPictures();
  QIcon icon;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
    icon.addFile(u":/commands/"_qs + name + u".svg"_qs, {}, mode);
  return icon;
}

}  // namespace vorlina
