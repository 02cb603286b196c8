#include "publish/ExtensionManager.h"

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "store/Connection.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

enum class Level { Unknown, None, Catalog, Product };

Level LevelOf(const QString& name, Connection& connection) {
  Rows rows(connection, u"SELECT C,P FROM Extensions WHERE ExtensionName=?"_qs, {name});
  if (!rows.Next()) return Level::Unknown;
  if (rows.Value(0).toBool()) return Level::Catalog;
  return rows.Value(1).toBool() ? Level::Product : Level::None;
}

}  // namespace

bool SetExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString& CodiceProdotto,
                  Connection& connection) {
  Transaction transaction(connection);
  Level level = LevelOf(name, connection);
  if (level == Level::Unknown) {
    level = CodiceProdotto.isEmpty() ? Level::Catalog : Level::Product;
    connection.Execute(u"INSERT INTO Extensions (ExtensionName,C,P) VALUES (?,?,?)"_qs,
                       {name, level == Level::Catalog, level == Level::Product});
  }
  if (level == Level::Catalog) {
    SetCatalogExtension(name, value, IDCatalogo, CodiceProdotto, connection);
  } else if (level == Level::Product) {
    SetProductExtension(name, value, IDCatalogo, CodiceProdotto, connection);
  }
  transaction.Commit();
  return level != Level::None;
}

QString CatalogExtension(const QString& name, int IDCatalogo, Connection& connection) {
  Rows rows(connection,
            u"SELECT Valore FROM CExtension JOIN Extensions USING (IDExtension) "
            "WHERE ExtensionName=? AND IDCatalogo=?"_qs,
            {name, IDCatalogo});
  return rows.Next() ? NullToEmpty(rows.Value(0)) : QString();
}

bool HasCatalogExtension(const QString& name, int IDCatalogo, Connection& connection) {
  Rows rows(connection,
            u"SELECT 1 FROM CExtension JOIN Extensions USING (IDExtension) "
            "WHERE ExtensionName=? AND IDCatalogo=?"_qs,
            {name, IDCatalogo});
  return rows.Next();
}

void KeepCatalogExtension(const QString& name, const QString& value, int IDCatalogo, Connection& connection) {
  if (!SetExtension(name, value, IDCatalogo, {}, connection))
    throw Error(Texts::tr("Errore nella tabella Extensions"));
}

void TellFaultyExtensions(QWidget* owner) {
  TheDialogs().Message(owner, Texts::tr("Errore nella tabella Extensions"), BoxStyle::Information);
}

void SetCatalogExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString&,
                         Connection& connection) {
  connection.Execute(
      u"INSERT INTO CExtension (IDCatalogo,IDExtension,Valore) SELECT ?,IDExtension,? FROM Extensions WHERE "
      "ExtensionName=? ON CONFLICT DO UPDATE SET Valore=excluded.Valore "
      "WHERE Valore IS NOT excluded.Valore"_qs,
      {IDCatalogo, value, name});
}

void SetProductExtension(const QString& name, const QVariant& value, int IDCatalogo,
                         const QString& CodiceProdotto, Connection& connection) {
  connection.Execute(
      u"INSERT INTO PExtension (IDCatalogo,CodiceProdotto,IDExtension,Valore) SELECT ?,?,IDExtension,? FROM "
      "Extensions WHERE ExtensionName=? ON CONFLICT DO UPDATE SET Valore=excluded.Valore "
      "WHERE Valore IS NOT excluded.Valore"_qs,
      {IDCatalogo, CodiceProdotto, value, name});
}

}  // namespace vorlina
