#include "products/FilterData.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "products/CellRules.h"
#include "products/FilterValues.h"
#include "publish/EscapedNames.h"
#include "store/Connection.h"
#include "store/Ranks.h"
#include "store/RowErrors.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

const QString ValueField = u"Valore"_qs;

QStringList RefusalsOf(const QString& text) { return CheckCell({}, text, true).refusals; }

}  // namespace

FilterData::FilterData(int IDCatalogo, int filter, Connection& connection)
    : IDCatalogo_(IDCatalogo), filter_(filter), connection_(connection) {}

KeysetQuery FilterData::Query() const {
  return {.columns = u"IDCatalogo,IDNomeFiltro,IDValore,Valore,Pubblica"_qs,
          .table = u"Filtri"_qs,
          .where = u"IDCatalogo=? AND IDNomeFiltro=?"_qs,
          .order = u"Valore"_qs,
          .values = {IDCatalogo_, filter_}};
}

std::vector<GridColumn> FilterData::Columns() const {
  const auto hidden = [](const QString& key, const QVariant& value) {
    return GridColumn{.key = key, .kind = ColumnKind::Number, .visible = false, .defaultValue = value};
  };
  return {hidden(u"IDCatalogo"_qs, IDCatalogo_),
          hidden(u"IDNomeFiltro"_qs, filter_),
          hidden(u"IDValore"_qs, {}),
          {.key = ValueField, .caption = Texts::tr("Valore")},
          {.key = u"Pubblica"_qs,
           .caption = Texts::tr("Pubblica"),
           .kind = ColumnKind::Boolean,
           .defaultValue = true}};
}

QString FilterData::Field() const { return u"IDFiltro%1"_qs.arg(filter_); }

QString FilterData::Fitted(const QString& value) { return OneLine(value).trimmed(); }

QString FilterData::TextOf(qint64 IDValore) const {
  Rows rows(connection_, u"SELECT Valore FROM Filtri WHERE IDValore=?"_qs, {IDValore});
  return rows.Next() ? NullToEmpty(rows.Value(0)) : QString();
}

int FilterData::ProductsWith(const std::vector<qint64>& values) const {
  Rows rows(
      connection_,
      u"SELECT COUNT(*) FROM Prodotti WHERE IDCatalogo=? AND %1 IN (SELECT value FROM json_each(?))"_qs.arg(
          Field()),
      {IDCatalogo_, KeyList(values)});
  rows.Next();
  return rows.Value(0).toInt();
}

QString FilterData::DeletionQuestion(const std::vector<qint64>& values) const {
  const int products = ProductsWith(values);
  if (products == 0) return {};
  return values.size() == 1 ? Texts::tr(
                                  "Prodotti che hanno il valore \"%1\": %2.\r\n"
                                  "Eliminandolo resteranno senza. Procedere?")
                                  .arg(TextOf(values.front()), QString::number(products))
                            : Texts::tr(
                                  "Prodotti che hanno uno dei valori selezionati: %1.\r\n"
                                  "Eliminandoli resteranno senza. Procedere?")
                                  .arg(products);
}

// Another letter case is the same value to everybody.
QString FilterData::ChangeQuestion(qint64 IDValore, const QString& text) const {
  const QString former = TextOf(IDValore);
  if (former.isEmpty() || text.isEmpty() || former.compare(text, Qt::CaseInsensitive) == 0) return {};
  if (!RefusalsOf(text).isEmpty() || IsTaken(text, IDValore)) return {};
  const int products = ProductsWith({IDValore});
  if (products == 0) return {};
  return Texts::tr("Prodotti che hanno il valore \"%1\": %2.\r\nMostreranno \"%3\". Procedere?")
      .arg(former, QString::number(products), text);
}

// What an older file holds can still be published or not.
void FilterData::Saved(qint64 IDValore, const std::optional<QString>& former) const {
  const QString text = TextOf(IDValore);
  Transaction part(connection_, {QT_TRANSLATE_NOOP("Texts", "Valore %1 di un filtro"), {text}});
  if (text != former) {
    if (text.isEmpty()) throw Error(Texts::tr("Specificare un testo per il valore"));
    const QStringList refusals = RefusalsOf(text);
    if (!refusals.isEmpty()) throw Error(refusals.first());
    RequireFilter(IDCatalogo_, filter_, connection_);
    if (IsTaken(text, IDValore)) throw DuplicateError({u"Filtri."_qs + ValueField});
  }
  part.Commit();
}

bool FilterData::IsTaken(const QString& text, qint64 exceptValue) const {
  Rows others(connection_,
              u"SELECT 1 FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=? AND Valore=? COLLATE VORLINA_TEXT "
              "AND IDValore<>?"_qs,
              {IDCatalogo_, filter_, text, exceptValue});
  return others.Next();
}

void FilterData::Delete(const std::vector<qint64>& values) const {
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Eliminazione di %1 valori di un filtro"),
                                        {QString::number(values.size())}});
  const QString keys = KeyList(values);
  connection_.Execute(
      u"DELETE FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=? AND IDValore IN (SELECT "
      "value FROM json_each(?))"_qs,
      {IDCatalogo_, filter_, keys});
  connection_.Execute(
      u"UPDATE Prodotti SET %1=0 WHERE IDCatalogo=? AND %1 IN (SELECT value FROM json_each(?))"_qs.arg(
          Field()),
      {IDCatalogo_, keys});
  transaction.Commit();
}

void FilterData::Rename(const QString& former, const QString& name) const {
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Nuovo nome di un filtro: %1"), {name}});
  const QString field = u"NomeFiltro%1"_qs.arg(filter_);
  Rows rows(connection_, u"SELECT %1 FROM Cataloghi WHERE IDCatalogo=?"_qs.arg(field), {IDCatalogo_});
  if (!rows.Next() || UnescapeName(NullToEmpty(rows.Value(0))) != former)
    throw ConflictError(Texts::tr("Il filtro ha cambiato nome nel frattempo in un'altra finestra."));
  connection_.Execute(u"UPDATE Cataloghi SET %1=? WHERE IDCatalogo=?"_qs.arg(field),
                      {EscapeName(name), IDCatalogo_});
  transaction.Commit();
}

}  // namespace vorlina
