#include "products/DroppedPictures.h"

#include "base/Dialogs.h"
#include "base/Texts.h"
#include "base/WaitCursor.h"
#include "products/Attempt.h"
#include "products/PictureDrop.h"

namespace vorlina {

QStringList AddDroppedPictures(const ProductKey& product, const QStringList& files, Connection& connection,
                               QWidget& owner) {
  const auto ask = [&owner](const QString& file) {
    return TheDialogs().Input(&owner, Texts::tr("Descrizione immagine per ") + file,
                              Texts::tr("Aggiungi/modifica immagine"), {});
  };
  QStringList failures;
  Attempt(&owner, [&] {
    const WaitCursor wait;
    failures = PictureDrop(product, connection).Add(files, ask);
  });
  return failures;
}

}  // namespace vorlina
