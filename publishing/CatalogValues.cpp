#include "CatalogValues.h"

#include <IVorlinaPlugin.h>

namespace publishing {

QString KeptWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name) {
  const auto rows = connection.Open(
      QStringLiteral("SELECT CExtension.Valore FROM CExtension JOIN Extensions USING (IDExtension) "
                     "WHERE ExtensionName=? AND IDCatalogo=?"),
      {name, IDCatalogo});
  return rows->Next() ? rows->Value(0).toString() : QString();
}

bool KeepWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name,
                     const QString& value) {
  connection.BeginTrans();
  try {
    connection.Execute(
        QStringLiteral(
            "INSERT INTO Extensions (ExtensionName,C,P) VALUES (?,TRUE,FALSE) ON CONFLICT DO NOTHING"),
        {name});
    connection.Execute(
        QStringLiteral("INSERT INTO CExtension (IDCatalogo,IDExtension,Valore) "
                       "SELECT ?,IDExtension,? FROM Extensions WHERE ExtensionName=? "
                       "ON CONFLICT (IDCatalogo,IDExtension) DO UPDATE SET Valore=excluded.Valore "
                       "WHERE COALESCE(CExtension.Valore,'')=''"),
        {IDCatalogo, value, name});
    const bool isKept = KeptWithCatalog(connection, IDCatalogo, name) == value;
    connection.CommitTrans();
    return isKept;
  } catch (...) {
    connection.RollbackTrans();
    throw;
  }
}

}  // namespace publishing
