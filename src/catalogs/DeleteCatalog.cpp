#include "catalogs/DeleteCatalog.h"

#include "base/Error.h"
#include "base/Language.h"
#include "images/PictureStore.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

QStringList Paths(Connection& connection, const QString& sql, int IDCatalogo) {
  QStringList paths;
  Rows rows(connection, sql, {IDCatalogo});
  while (rows.Next()) paths += rows.Value(0).toString();
  return paths;
}

// The logo's file by its rule, and the one that the row names: that of the catalog from which this one was
// cloned.
QStringList LogoFiles(Connection& connection, int IDCatalogo) {
  return QStringList{PicturePath(u"%1-Logo.jpg"_qs.arg(IDCatalogo))} +
         Paths(connection, u"SELECT Logo FROM Cataloghi WHERE IDCatalogo=? AND Logo<>''"_qs, IDCatalogo);
}

PictureFiles FilesOf(Connection& connection, int IDCatalogo) {
  return {
      Paths(connection, u"SELECT Immagine FROM Prodotti WHERE IDCatalogo=? AND Immagine<>''"_qs, IDCatalogo),
      Paths(connection, u"SELECT Immagine FROM Immagini WHERE IDCatalogo=? AND Immagine<>''"_qs, IDCatalogo) +
          LogoFiles(connection, IDCatalogo)};
}

bool IsThere(Connection& connection, int IDCatalogo) {
  Rows rows(connection, u"SELECT 1 FROM Cataloghi WHERE IDCatalogo=?"_qs, {IDCatalogo});
  return rows.Next();
}

// A disk that fails at the very end has the deletion reported as failed, and may still give the rows back
// after a power failure. Their files stay then.
void DeleteRows(Connection& connection, int IDCatalogo, PictureFiles& files) {
  bool ending = false;
  try {
    Transaction transaction(connection);
    files = FilesOf(connection, IDCatalogo);
    connection.Execute(u"DELETE FROM Filtri WHERE IDCatalogo=?"_qs, {IDCatalogo});
    connection.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=?"_qs, {IDCatalogo});
    ending = true;
    transaction.Commit();
  } catch (const Error& error) {
    if (!ending || IsThere(connection, IDCatalogo)) throw;
    throw Error(
        EitherLanguage(
            u"Il catalogo è eliminato, ma il disco ha segnalato un errore; i file delle sue immagini restano in \"Images\". Controllare il disco. (%1)"_qs,
            u"The catalog is deleted, but the disk reported an error; its picture files stay in \"Images\". Check the disk. (%1)"_qs)
            .arg(error.Description()));
  }
}

}  // namespace

void DeleteCatalog(int IDCatalogo, Connection& connection) {
  // Files cannot be brought back with the rows.
  if (connection.InTransaction())
    throw Error(EitherLanguage(u"Un'altra operazione è in corso"_qs, u"Another operation is going on"_qs));
  PictureFiles files;
  DeleteRows(connection, IDCatalogo, files);
  RemoveUnnamedPictures(files, connection);
}

}  // namespace vorlina
