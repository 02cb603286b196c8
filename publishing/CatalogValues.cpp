#include "CatalogValues.h"

#include <IVorlinaPlugin.h>

namespace publishing {
namespace {

// Over the value that is there, where the condition on it holds.
void Keep(IVorlinaConnection& connection, const QVariantList& values, const QString& condition) {
  connection.BeginTrans();
  try {
    connection.Execute(
        QStringLiteral(
            "INSERT INTO Extensions (ExtensionName,C,P) VALUES (?,TRUE,FALSE) ON CONFLICT DO NOTHING"),
        {values.last()});
    connection.Execute(
        QStringLiteral("INSERT INTO CExtension (IDCatalogo,IDExtension,Valore) "
                       "SELECT ?,IDExtension,? FROM Extensions WHERE ExtensionName=? "
                       "ON CONFLICT (IDCatalogo,IDExtension) DO UPDATE SET Valore=excluded.Valore") +
            condition,
        values);
    connection.CommitTrans();
  } catch (...) {
    connection.RollbackTrans();
    throw;
  }
}

}  // namespace

QString KeptWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name) {
  const auto rows = connection.Open(
      QStringLiteral("SELECT CExtension.Valore FROM CExtension JOIN Extensions USING (IDExtension) "
                     "WHERE ExtensionName=? AND IDCatalogo=?"),
      {name, IDCatalogo});
  return rows->Next() ? rows->Value(0).toString() : QString();
}

void KeepWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name,
                     const QString& value) {
  if (!value.isEmpty() && KeptWithCatalog(connection, IDCatalogo, name) == value) return;
  Keep(connection, {IDCatalogo, value, name}, QString());
}

bool KeepOnceWithCatalog(IVorlinaConnection& connection, int IDCatalogo, const QString& name,
                         const QString& value) {
  Keep(connection, {IDCatalogo, value, name}, QStringLiteral(" WHERE COALESCE(CExtension.Valore,'')=''"));
  return KeptWithCatalog(connection, IDCatalogo, name) == value;
}

}  // namespace publishing
