#include "catalogs/DeleteCatalog.h"

#include "base/Error.h"
#include "base/Texts.h"
#include "images/PictureStore.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

bool IsThere(Connection& connection, int IDCatalogo) {
  Rows rows(connection, u"SELECT 1 FROM Cataloghi WHERE IDCatalogo=?"_qs, {IDCatalogo});
  return rows.Next();
}

}  // namespace

void DeleteCatalog(int IDCatalogo, Connection& connection) {
  // The other one might take it back when the user was told that it is done.
  if (connection.InTransaction()) throw Error(Texts::tr("Un'altra operazione è in corso"));
  bool ending = false;
  try {
    Transaction transaction(connection, {QT_TRANSLATE_NOOP("Texts", "Eliminazione del catalogo %1"),
                                         {QString::number(IDCatalogo)}});
    PictureChange(transaction, connection).Retire(PicturesOfCatalog(IDCatalogo, connection));
    connection.Execute(u"DELETE FROM Filtri WHERE IDCatalogo=?"_qs, {IDCatalogo});
    connection.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=?"_qs, {IDCatalogo});
    ending = true;
    transaction.Commit();
  } catch (const Error& error) {
    // A disk that fails at the very end has the deletion reported as failed, and may still give the rows back
    // after a power failure. Their files stay then.
    if (!ending || IsThere(connection, IDCatalogo)) throw;
    throw Error(Texts::tr("Il catalogo è eliminato, ma il disco ha segnalato un errore; i file delle sue "
                          "immagini restano in \"Images\". Controllare il disco. (%1)")
                    .arg(error.Description()));
  }
}

}  // namespace vorlina
