#include "TargetMemory.h"

#include <IVorlinaPlugin.h>

namespace vlhtml {
namespace {
const QString Name = QStringLiteral("VLHTML.HTML.Cartella");
}

QString RememberedTarget(IVorlinaConnection& connection, int IDCatalogo) {
  const auto rows = connection.Open(
      QStringLiteral("SELECT CExtension.Valore FROM CExtension JOIN Extensions USING (IDExtension) "
                     "WHERE ExtensionName=? AND IDCatalogo=?"),
      {Name, IDCatalogo});
  return rows->Next() ? rows->Value(0).toString() : QString();
}

void RememberTarget(IVorlinaConnection& connection, int IDCatalogo, const QString& folder) {
  connection.BeginTrans();
  try {
    connection.Execute(
        QStringLiteral(
            "INSERT INTO Extensions (ExtensionName,C,P) VALUES (?,TRUE,FALSE) ON CONFLICT DO NOTHING"),
        {Name});
    connection.Execute(
        QStringLiteral("INSERT INTO CExtension (IDCatalogo,IDExtension,Valore) "
                       "SELECT ?,IDExtension,? FROM Extensions WHERE ExtensionName=? "
                       "ON CONFLICT (IDCatalogo,IDExtension) DO UPDATE SET Valore=excluded.Valore"),
        {IDCatalogo, folder, Name});
    connection.CommitTrans();
  } catch (...) {
    connection.RollbackTrans();
    throw;
  }
}

}  // namespace vlhtml
