#include "publish/NamedPictures.h"

#include <QDir>
#include <QFileInfo>

#include "base/AppPath.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/PictureFolder.h"
#include "store/Connection.h"

namespace vorlina {

// One that serves is enough, and mostly the first does.
QString FaultOfAllPictures(Connection& connection, int IDCatalogo) {
  PictureFolder pictures;
  QString first;
  Rows rows(connection,
            u"SELECT Immagine FROM Prodotti WHERE IDCatalogo=?1 AND Pubblica AND IFNULL(Immagine,'')<>'' "
            "UNION ALL SELECT I.Immagine FROM Immagini I JOIN Prodotti P USING (IDCatalogo,CodiceProdotto) "
            "WHERE IDCatalogo=?1 AND P.Pubblica AND IFNULL(I.Immagine,'')<>''"_qs,
            {IDCatalogo});
  while (rows.Next()) {
    const QString path = NullToEmpty(rows.Value(0));
    if (pictures.Holds(path) && QFileInfo(path).isReadable()) return {};
    if (first.isEmpty()) first = path;
  }
  if (first.isEmpty()) return {};
  const QFileInfo folder(AppFile(u"Images"_qs));
  const QString told = QDir::toNativeSeparators(folder.filePath());
  if (!folder.isDir()) return Texts::tr("La cartella delle immagini %1 non esiste.").arg(told);
  if (!folder.isReadable() || !folder.isExecutable())
    return Texts::tr("La cartella delle immagini %1 non si può leggere.").arg(told);
  return Texts::tr("Nella cartella %1 manca ogni immagine dei prodotti pubblicati, per esempio %2.")
      .arg(told, first);
}

}  // namespace vorlina
