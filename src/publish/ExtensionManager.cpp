#include "publish/ExtensionManager.h"

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "store/Connection.h"
#include "store/GetValue.h"
#include "store/Recordset.h"

namespace vorlina {
namespace {

QVariant ExtensionValue(const QString& column, const QString& name, Connection& connection) {
  return GetValue(column, u"Extensions"_qs, connection, u"EXTENSIONNAME=?"_qs, {name});
}

int IdentifierOf(const QString& name, Connection& connection) {
  return ExtensionValue(u"IDExtension"_qs, name, connection).toInt();
}

// Sets Valore of the one row, or of the row just begun.
void StoreValue(Recordset& rows, const QVariant& value) {
  rows.SetValue(u"Valore"_qs, value);
  rows.Update();
}

// A program without dialogs, such as the one without a display, gets the text as an error.
void ReportFaultyRow() {
  const QString italian = u"Errore nella tabella Extensions"_qs;
  const QString english = u"Error in Extensions table. Please contact technical support"_qs;
  if (!HasDialogs()) throw Error(EitherLanguage(italian, english));
  TheDialogs().Message(nullptr, ByLanguage(italian, english), BoxStyle::Information);
}

// False where the row of Extensions has neither level, and nothing was stored.
bool StoreExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString& CodiceProdotto,
                    Connection& connection) {
  Transaction transaction(connection);
  if (IdentifierOf(name, connection) == 0)
    connection.Execute(u"INSERT INTO EXTENSIONS (ExtensionName,C,P) VALUES (?,?,?)"_qs,
                       {name, CodiceProdotto.isEmpty(), !CodiceProdotto.isEmpty()});
  const bool isCatalog = ExtensionValue(u"C"_qs, name, connection).toBool();
  const bool isProduct = ExtensionValue(u"P"_qs, name, connection).toBool();
  if (isCatalog)
    SetCatalogExtension(name, value, IDCatalogo, CodiceProdotto, connection);
  else if (isProduct)
    SetProductExtension(name, value, IDCatalogo, CodiceProdotto, connection);
  transaction.Commit();
  return isCatalog || isProduct;
}

}  // namespace

void SetExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString& CodiceProdotto,
                  Connection& connection) {
  if (!StoreExtension(name, value, IDCatalogo, CodiceProdotto, connection)) ReportFaultyRow();
}

void SetCatalogExtension(const QString& name, const QVariant& value, int IDCatalogo, const QString&,
                         Connection& connection) {
  const int identifier = IdentifierOf(name, connection);
  Recordset rows;
  rows.Open(u"SELECT * FROM CEXTENSION WHERE IDCATALOGO=? AND IDEXTENSION=?"_qs, connection,
            CursorType::Keyset, LockType::Optimistic, {IDCatalogo, identifier});
  if (rows.IsEOF() || rows.IsBOF()) {
    rows.AddNew();
    rows.SetValue(u"idcatalogo"_qs, IDCatalogo);
    rows.SetValue(u"IDExtension"_qs, identifier);
  }
  StoreValue(rows, value);
}

void SetProductExtension(const QString& name, const QVariant& value, int IDCatalogo,
                         const QString& CodiceProdotto, Connection& connection) {
  const int identifier = IdentifierOf(name, connection);
  Recordset rows;
  rows.Open(u"SELECT * FROM PEXTENSION WHERE IDCATALOGO=? AND CODICEPRODOTTO=? AND IDEXTENSION=?"_qs,
            connection, CursorType::Keyset, LockType::Optimistic, {IDCatalogo, CodiceProdotto, identifier});
  if (rows.IsEOF() || rows.IsBOF()) {
    rows.AddNew();
    rows.SetValue(u"idcatalogo"_qs, IDCatalogo);
    rows.SetValue(u"codiceprodotto"_qs, CodiceProdotto);
    rows.SetValue(u"IDExtension"_qs, identifier);
  }
  StoreValue(rows, value);
}

void MarkProductChanged(int IDCatalogo, const QString& CodiceProdotto, Connection& connection) {
  int faulty = 0;
  Transaction transaction(connection);
  for (const QString& mark : {u"ImmagineModificata"_qs, u"SchedaModificata"_qs})
    faulty += StoreExtension(mark, u"1"_qs, IDCatalogo, CodiceProdotto, connection) ? 0 : 1;
  transaction.Commit();
  // The boxes are shown when the transaction is over: no lock waits for the user.
  for (; faulty > 0; --faulty) ReportFaultyRow();
}

}  // namespace vorlina
