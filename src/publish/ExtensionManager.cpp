#include "publish/ExtensionManager.h"

#include "base/Dialogs.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "store/Connection.h"
#include "store/GetValue.h"
#include "store/Recordset.h"

namespace vorlina {
namespace {

QVariant OfExtension(const QString& expression, const QString& name, Connection& connection) {
  return GetValue(expression, u"Extensions"_qs, connection, u"EXTENSIONNAME=?"_qs, {name});
}

// Changes the value of the row found, or adds one with these columns.
void Store(const QString& sql, const std::vector<std::pair<QString, QVariant>>& key, const QVariant& value,
           Connection& connection) {
  QVariantList bound;
  for (const auto& [column, wanted] : key) bound += wanted;
  Recordset rows;
  rows.Open(sql, connection, CursorType::Keyset, LockType::Optimistic, bound);
  if (rows.IsEOF() || rows.IsBOF()) {
    rows.AddNew();
    for (const auto& [column, wanted] : key) rows.SetValue(column, wanted);
  }
  rows.SetValue(u"Valore"_qs, value);
  rows.Update();
}

}  // namespace

void SetExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString& CodiceProdotto,
                  Connection& connection) {
  Transaction transaction(connection);
  if (NullToZero(OfExtension(u"IDExtension"_qs, name, connection)) == 0) {
    const bool product = !CodiceProdotto.isEmpty();
    connection.Execute(u"INSERT INTO EXTENSIONS (ExtensionName,C,P) VALUES (?,?,?)"_qs,
                       {name, !product, product});
  }
  const bool catalogLevel = OfExtension(u"C"_qs, name, connection).toBool();
  const bool productLevel = OfExtension(u"P"_qs, name, connection).toBool();
  if (catalogLevel) {
    SetCatalogExtension(name, value, IDCatalogo, CodiceProdotto, connection);
  } else if (productLevel) {
    SetProductExtension(name, value, IDCatalogo, CodiceProdotto, connection);
  } else {
    TheDialogs().Message(nullptr,
                         ByLanguage(u"Errore nella tabella Extensions"_qs,
                                    u"Error in Extensions table. Please contact technical support"_qs),
                         BoxStyle::Information);
    return;
  }
  transaction.Commit();
}

void SetCatalogExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString&,
                         Connection& connection) {
  Store(
      u"SELECT * FROM CEXTENSION WHERE IDCATALOGO=? AND IDEXTENSION=?"_qs,
      {{u"idcatalogo"_qs, IDCatalogo}, {u"IDExtension"_qs, OfExtension(u"IDExtension"_qs, name, connection)}},
      value, connection);
}

void SetProductExtension(const QString& name, const QVariant& value, int IDCatalogo,
                         const QString& CodiceProdotto, Connection& connection) {
  Store(u"SELECT * FROM PEXTENSION WHERE IDCATALOGO=? AND CODICEPRODOTTO=? AND IDEXTENSION=?"_qs,
        {{u"idcatalogo"_qs, IDCatalogo},
         {u"codiceprodotto"_qs, CodiceProdotto},
         {u"IDExtension"_qs, OfExtension(u"IDExtension"_qs, name, connection)}},
        value, connection);
}

void MarkProductChanged(int IDCatalogo, const QString& CodiceProdotto, Connection& connection) {
  Transaction transaction(connection);
  SetExtension(ImmagineModificata, u"1"_qs, IDCatalogo, CodiceProdotto, connection);
  SetExtension(SchedaModificata, u"1"_qs, IDCatalogo, CodiceProdotto, connection);
  transaction.Commit();
}

}  // namespace vorlina
