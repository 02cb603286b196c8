#include "catalogs/NewCatalog.h"

#include <QFileInfo>
#include <algorithm>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "publish/EscapedNames.h"
#include "store/GetValue.h"
#include "store/Recordset.h"
#include "store/Transaction.h"
#include "support/Language.h"
#include "support/Messages.h"

namespace vorlina {
namespace {

bool SameName(const QString& a, const QString& b) {
  return !a.isEmpty() && a.compare(b, Qt::CaseInsensitive) == 0;
}

// Each name is compared with those behind it. A reserved name ends the check, the other faults do not.
void CheckNames(const QStringList& names, const QString& alike, const QString& reservedBehind,
                QStringList& messages) {
  for (qsizetype i = 0; i < names.size(); ++i) {
    const auto twin = std::find_if(names.begin() + i + 1, names.end(),
                                   [&](const QString& other) { return SameName(names[i], other); });
    if (twin != names.end()) messages += alike;
    if (IsReservedName(names[i])) {
      messages += Texts::tr("Il nome '") + names[i] + reservedBehind;
      return;
    }
  }
}

QVariant TextOrNull(const QString& text) { return text.isEmpty() ? NullValue() : QVariant(text); }

void SetNames(Recordset& catalogs, const QString& column, const QStringList& names) {
  for (qsizetype i = 0; i < names.size(); ++i)
    catalogs.SetValue(column + QString::number(i + 1), TextOrNull(EscapeName(names[i])));
}

void StoreRow(Recordset& catalogs, NewCatalog& catalog, Connection& connection) {
  Transaction transaction(connection,
                          {QT_TRANSLATE_NOOP("Texts", "Nuovo catalogo %1"), {catalog.NomeCatalogo}});
  // A row that an earlier attempt stored may have been deleted since.
  if (catalogs.IsEOF()) catalogs.AddNew();
  catalogs.SetValue(u"NomeCatalogo"_qs, catalog.NomeCatalogo);
  catalogs.SetValue(u"Descrizione"_qs, TextOrNull(catalog.Descrizione));
  SetNames(catalogs, u"NomeValore"_qs, catalog.valueNames);
  SetNames(catalogs, u"NomeFiltro"_qs, catalog.filterNames);
  for (auto text = catalog.company.cbegin(); text != catalog.company.cend(); ++text)
    catalogs.SetValue(text.key(), TextOrNull(text.value()));
  catalogs.Update();
  transaction.Commit();
  catalog.IDCatalogo = catalogs.Value(u"IDCatalogo"_qs).toInt();
}

void StoreLogo(Recordset& catalogs, const NewCatalog& catalog, Connection& connection) {
  if (catalog.LogoPath.isEmpty() || !QFileInfo::exists(catalog.LogoPath)) return;
  Transaction transaction(connection, {QT_TRANSLATE_NOOP("Texts", "Logo di %1"), {catalog.NomeCatalogo}});
  const QString target = LogoPath(catalog.IDCatalogo);
  PictureChange(transaction, connection).Take(catalog.LogoPath, target);
  catalogs.SetValue(u"Logo"_qs, target);
  catalogs.SetValue(u"Height"_qs, catalog.logoSize.height());
  catalogs.SetValue(u"Width"_qs, catalog.logoSize.width());
  catalogs.Update();
  transaction.Commit();
}

}  // namespace

bool IsReservedName(const QString& name) {
  return SameName(name, Texts::tr("Codice")) || SameName(name, Texts::tr("Descrizione"));
}

QStringList CheckGeneral(const NewCatalog& catalog) {
  QStringList messages;
  if (catalog.NomeCatalogo.isEmpty()) messages += NumberedText(BaseErrore + 0);
  CheckNames(catalog.valueNames, NumberedText(BaseErrore + 4),
             Texts::tr("' non è consentito per  un campo valore."), messages);
  return messages;
}

QStringList CheckFilters(const NewCatalog& catalog) {
  QStringList messages;
  if (catalog.filterNames.value(0).isEmpty()) messages += NumberedText(BaseErrore + 1);
  CheckNames(catalog.filterNames, NumberedText(BaseErrore + 3),
             Texts::tr("' non è consentito per un campo filtro."), messages);
  return messages;
}

QStringList CheckValueFilterNames(const NewCatalog& catalog) {
  QStringList messages;
  for (const QString& filter : catalog.filterNames)
    for (const QString& value : catalog.valueNames)
      if (SameName(filter, value)) messages += NumberedText(BaseConferma + 8);
  return messages;
}

QMap<QString, QString> OfferedCompany(Connection& connection, const QStringList& columns) {
  QMap<QString, QString> company;
  const int recent = int(NullToZero(GetValue(u"Max(IDCatalogo)"_qs, u"Cataloghi"_qs, connection,
                                             u"IDCatalogo <> 109 And IDCatalogo <> 110"_qs)));
  if (recent == 0) return company;
  Rows rows(connection, u"SELECT * FROM CATALOGHI WHERE IDCATALOGO=?"_qs, {recent});
  if (!rows.Next()) return company;
  for (const QString& column : columns) company[column] = NullToEmpty(rows.Value(column));
  return company;
}

void StoreCatalog(Connection& connection, NewCatalog& catalog) {
  // Nothing equals Null, while a database that was filled by hand may have a catalog 0.
  const QVariant row = catalog.IDCatalogo == 0 ? NullValue() : QVariant(catalog.IDCatalogo);
  Recordset catalogs;
  catalogs.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {row}}, connection);
  StoreRow(catalogs, catalog, connection);
  StoreLogo(catalogs, catalog, connection);
}

QString CatalogCaption(const QString& name, const QVariant& description) {
  constexpr qsizetype LongDescription = 100;
  constexpr qsizetype Beginning = 10;
  if (description.isNull()) return name;
  const QString text = NullToEmpty(description);
  if (text.size() < LongDescription) return name + u" - "_qs + text;
  // Not through the middle of a character of two units.
  const qsizetype cut = text[Beginning].isLowSurrogate() ? Beginning - 1 : Beginning;
  return name + u" - "_qs + text.left(cut) + u"..."_qs;
}

}  // namespace vorlina
