#include "products/TechData.h"

#include <algorithm>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "store/Connection.h"
#include "store/Ranks.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

constexpr int LongestFeature = 50;

constexpr char SheetLabel[] = QT_TRANSLATE_NOOP("Texts", "Scheda tecnica di %1");

// The texts that begin so stand between two others in the order of the database, which folds ASCII alone:
// from the first to before the last. Where the first letter is beyond that, behind all that begin with ASCII.
struct Range {
  QString from;
  QString to;
};

Range RangeOf(const QString& begin) {
  const auto* end = std::find_if(begin.begin(), begin.end(), [](QChar c) { return c.unicode() >= 0x80; });
  QString head = begin.left(end - begin.begin()).toLower();
  if (head.isEmpty()) return {QString(QChar(0x80)), QString(QChar(0xFFFF))};
  const QString from = head;
  head.back() = QChar(head.back().unicode() + 1);
  return {from, head};
}

QString PatternOf(const QString& begin) {
  QString pattern = begin;
  for (const QChar sign : {u'\\', u'%', u'_'}) pattern.replace(sign, QString(u'\\') + sign);
  return pattern + u'%';
}

}  // namespace

FeatureVerdict CheckFeature(const QString& feature, const QString& value) {
  FeatureVerdict verdict;
  const auto refuse = [&](const QString& text, const QString& column) {
    verdict.refusals += text;
    if (verdict.column.isEmpty()) verdict.column = column;
  };
  if (value.contains(u'|')) refuse(Texts::tr("Il carattere | non è consentito"), FeatureValueColumn);
  if (feature.size() > LongestFeature)
    refuse(Texts::tr("Il campo \"Caratteristica\" non può contenere più di 50 caratteri"), FeatureColumn);
  return verdict;
}

TechData::TechData(int IDCatalogo, const QString& CodiceProdotto, Connection& connection,
                   ProductStore::Telling tellFaultyExtensions)
    : IDCatalogo_(IDCatalogo),
      opened_(CodiceProdotto),
      connection_(connection),
      products_(IDCatalogo, connection, std::move(tellFaultyExtensions)),
      product_(products_.Find(CodiceProdotto)) {}

KeysetQuery TechData::Query() const {
  return {.columns = u"IDCatalogo,CodiceProdotto,Caratteristica,Valore"_qs,
          .table = u"SchedeTecniche"_qs,
          .where = u"IDCatalogo=? AND CodiceProdotto=?"_qs,
          .order = u"IDScheda"_qs,
          .values = {IDCatalogo_, opened_}};
}

std::vector<GridColumn> TechData::Columns() const {
  return {
      {.key = u"IDCatalogo"_qs, .kind = ColumnKind::Number, .visible = false, .defaultValue = IDCatalogo_},
      {.key = u"CodiceProdotto"_qs, .visible = false, .defaultValue = opened_},
      {.key = FeatureColumn, .caption = Texts::tr("Caratteristica")},
      {.key = FeatureValueColumn, .caption = Texts::tr("Valore")}};
}

QString TechData::Code() const { return products_.ValueOf(product_, u"CodiceProdotto"_qs).toString(); }

void TechData::Saved() {
  const QString code = Code();
  Transaction part(connection_, {SheetLabel, {code}});
  products_.Mark(code, ProductMarks::Sheet);
  part.Commit();
}

void TechData::Delete(const std::vector<qint64>& rows) {
  Transaction transaction(connection_, {SheetLabel, {Code()}});
  connection_.Execute(
      u"DELETE FROM SchedeTecniche WHERE IDCatalogo=? AND CodiceProdotto=? AND IDScheda IN "
      "(SELECT value FROM json_each(?))"_qs,
      {IDCatalogo_, Code(), KeyList(rows)});
  Saved();
  transaction.Commit();
}

bool TechData::HasEmptySheet() const {
  Rows rows(connection_,
            u"SELECT 1 FROM Prodotti P WHERE IDProdotto=? AND IDCatalogo=? AND SchedaTecnica AND NOT EXISTS "
            "(SELECT 1 FROM SchedeTecniche S WHERE S.IDCatalogo=P.IDCatalogo AND "
            "S.CodiceProdotto=P.CodiceProdotto)"_qs,
            {product_, IDCatalogo_});
  return rows.Next();
}

// Asked first without a transaction: most often there is nothing to write, and nothing to wait for.
void TechData::Finish() {
  if (!HasEmptySheet()) return;
  Transaction transaction(connection_, {SheetLabel, {Code()}});
  if (HasEmptySheet()) products_.Change(product_, {{u"SchedaTecnica"_qs, false}}, ProductMarks::None);
  transaction.Commit();
}

QString TechData::Completed(const QString& typed) const {
  const Range range = RangeOf(typed);
  Rows rows(
      connection_,
      u"SELECT Caratteristica FROM SchedeTecniche WHERE IDCatalogo=? AND Caratteristica COLLATE NOCASE>=? "
      "AND Caratteristica COLLATE NOCASE<? AND Caratteristica LIKE ? ESCAPE '\\' "
      "ORDER BY Caratteristica COLLATE NOCASE LIMIT 1"_qs,
      {IDCatalogo_, range.from, range.to, PatternOf(typed)});
  return rows.Next() ? NullToEmpty(rows.Value(0)) : QString();
}

}  // namespace vorlina
