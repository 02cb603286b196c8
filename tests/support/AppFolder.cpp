#include "support/AppFolder.h"

#include <QDir>
#include <QFileInfo>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "store/Connection.h"
#include "store/SampleData.h"
#include "support/WritingConnection.h"

namespace vorlina {
namespace {

QStringList Texts(Connection& connection, const QString& sql, int argument) {
  Rows rows(connection, sql, {argument});
  QStringList texts;
  while (rows.Next()) texts << rows.Value(0).toString();
  return texts;
}

}  // namespace

QString DeliveredData() { return QStringLiteral(VORLINA_DELIVERED); }

AppFolder::AppFolder(int productsWithPictures, bool rebased) {
  const QString delivered = DeliveredData() + u"/Catalog.db";
  if (!QFileInfo::exists(delivered))
    throw Error(delivered + u" is missing: build the target \"delivered\" first");
  QDir(folder_.path()).mkpath(u"Images"_qs);
  CopyFileSafely(delivered, File(u"Catalog.db"_qs));
  SetAppPath(Path());
  WritingConnection connection;
  connection.Open(ConnectionTextFor(File(u"Catalog.db"_qs)));
  if (productsWithPictures > 0) CopyPictures(connection, productsWithPictures);
  if (rebased) RebaseAllSampleData(connection, Path());
}

QString AppFolder::Path() const { return QDir::toNativeSeparators(folder_.path()); }

QString AppFolder::File(const QString& name) const {
  return QDir::toNativeSeparators(folder_.filePath(name));
}

void AppFolder::CopyPictures(Connection& connection, int products) {
  const auto copy = [this](const QString& name) {
    CopyFileSafely(DeliveredData() + u"/Images/" + name, File(u"Images/"_qs + name));
  };
  for (const QString& path :
       Texts(connection, u"SELECT Immagine FROM Prodotti WHERE OrdineTemp <= ?"_qs, products)) {
    copy(FileNameOf(path, true));
    copy(u't' + FileNameOf(path, true));
  }
  for (const QString& path :
       Texts(connection,
             u"SELECT I.Immagine FROM Immagini I JOIN Prodotti P ON P.IDCatalogo = I.IDCatalogo "
             "AND P.CodiceProdotto = I.CodiceProdotto WHERE P.OrdineTemp <= ?"_qs,
             products))
    copy(FileNameOf(path, true));
  for (const QString& path : Texts(connection, u"SELECT Logo FROM Cataloghi WHERE ? > 0"_qs, products))
    copy(FileNameOf(path, true));
}

}  // namespace vorlina
