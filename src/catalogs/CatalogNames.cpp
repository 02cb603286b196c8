#include "catalogs/CatalogNames.h"

#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// A value is one line, whatever line breaks it holds.
QString Line(const QVariant& value) {
  QString text = NullToEmpty(value);
  return text.replace(u"\r\n"_qs, u" "_qs).replace(u'\n', u' ').replace(u'\r', u' ') + u'\n';
}

}  // namespace

Error CatalogGone() { return Error(Texts::tr("Il catalogo non esiste più: è stato eliminato altrove")); }

void RenameCatalog(const QString& connectionText, int IDCatalogo, const QString& name) {
  Connection connection;
  connection.Open(connectionText);
  Transaction transaction(connection, {QT_TRANSLATE_NOOP("Texts", "Nuovo nome di un catalogo: %1"), {name}});
  Recordset catalogs;
  catalogs.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {IDCatalogo}}, connection);
  if (catalogs.IsEOF()) throw CatalogGone();
  catalogs.SetValue(u"NomeCatalogo"_qs, name);
  catalogs.Update();
  transaction.Commit();
}

void WriteCatalogList(Recordset& catalogs, const QString& path) {
  QString text;
  for (catalogs.MoveFirst(); !catalogs.IsEOF(); catalogs.MoveNext()) {
    const int id = catalogs.Value(u"IDCatalogo"_qs).toInt();
    text += (id >= 0 ? u" "_qs : QString()) + QString::number(id) + u'\n';
    text += Line(catalogs.Value(u"NomeCatalogo"_qs)) + Line(catalogs.Value(u"Descrizione"_qs));
  }
  WriteFileSafely(path, text.toUtf8());
}

}  // namespace vorlina
