#include "products/ProductStore.h"

#include <QFile>
#include <algorithm>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "images/PictureFolder.h"
#include "images/PictureStore.h"
#include "products/CellRules.h"
#include "products/FilterValues.h"
#include "publish/ExtensionManager.h"
#include "store/Connection.h"
#include "store/Ranks.h"
#include "store/Recordset.h"
#include "store/RowErrors.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

const QString CodeField = u"CodiceProdotto"_qs;

ConflictError Gone() {
  return ConflictError(
      Texts::tr("Il prodotto è stato eliminato nel frattempo da un'altra finestra o da un altro programma."));
}

bool IsAscii(const QString& text) {
  return std::all_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() < 0x80; });
}

// Writes the values into the row, and what belongs to it.
void Write(Recordset& row, const ProductValues& values, const std::function<void(qint64 product)>& within) {
  for (auto value = values.cbegin(); value != values.cend(); ++value)
    row.SetValue(value.key(), value.value());
  row.Update(within);
}

}  // namespace

ProductStore::ProductStore(int IDCatalogo, Connection& connection, Telling tellFaultyExtensions)
    : IDCatalogo_(IDCatalogo),
      connection_(connection),
      tellFaultyExtensions_(tellFaultyExtensions ? std::move(tellFaultyExtensions)
                                                 : [] { TellFaultyExtensions(); }) {}

QString ProductStore::NuovoCodice(qint64 above) const {
  Rows rows(connection_,
            u"WITH RECURSIVE Candidate(n) AS ("
            "SELECT MAX(COUNT(*),?2)+1 FROM Prodotti WHERE IDCatalogo=?1 "
            "UNION ALL SELECT n+1 FROM Candidate WHERE EXISTS "
            "(SELECT 1 FROM Prodotti WHERE IDCatalogo=?1 AND CodiceProdotto=CAST(n AS TEXT))) "
            "SELECT MAX(n) FROM Candidate"_qs,
            {IDCatalogo_, above});
  rows.Next();
  return rows.Value(0).toString();
}

QString ProductStore::FreePictureCode() {
  const auto isTaken = [this](const QString& code) {
    return QFile::exists(MainImagePath(IDCatalogo_, code));
  };
  QString code = NuovoCodice(lastTaken_);
  while (isTaken(code)) {
    // The rows are counted once for all that lie there: after a restore these may be thousands.
    for (lastTaken_ = code.toLongLong(); isTaken(QString::number(lastTaken_ + 1));) ++lastTaken_;
    code = NuovoCodice(lastTaken_);
  }
  return code;
}

qint64 ProductStore::Find(const QString& CodiceProdotto) const {
  Rows rows(connection_, u"SELECT IDProdotto FROM Prodotti WHERE IDCatalogo=? AND CodiceProdotto=?"_qs,
            {IDCatalogo_, CodiceProdotto});
  if (!rows.Next()) throw Gone();
  return rows.Value(0).toLongLong();
}

bool ProductStore::IsCodeTaken(const QString& code, qint64 exceptProduct) const {
  Rows others(
      connection_,
      u"SELECT 1 FROM Prodotti WHERE IDCatalogo=? AND CodiceProdotto=? COLLATE %1 AND IDProdotto<>?"_qs.arg(
          IsAscii(code) ? u"NOCASE"_qs : u"VORLINA_TEXT"_qs),
      {IDCatalogo_, code, exceptProduct});
  return others.Next();
}

// What the database itself cannot refuse: codes become file names, and its columns tell letter cases apart
// beyond ASCII.
void ProductStore::RequireCode(const QString& code, qint64 product) const {
  const QStringList refusals = CheckCell(CodeColumn, code, false).refusals;
  if (!refusals.isEmpty()) throw Error(refusals.first());
  if (!IsAscii(code) && IsCodeTaken(code, product))
    throw DuplicateError({u"Prodotti.IDCatalogo"_qs, u"Prodotti.CodiceProdotto"_qs});
}

ProductValues ProductStore::ValuesOf(qint64 product, const QStringList& columns) const {
  QStringList names;
  for (const QString& column : columns) names += QuoteName(column);
  Rows rows(connection_,
            u"SELECT "_qs + names.join(u',') + u" FROM Prodotti WHERE IDProdotto=? AND IDCatalogo=?"_qs,
            {product, IDCatalogo_});
  if (!rows.Next()) throw Gone();
  ProductValues values;
  for (int i = 0; i < columns.size(); ++i) values[columns[i]] = rows.Value(i);
  return values;
}

QVariant ProductStore::ValueOf(qint64 product, const QString& column) const {
  return ValuesOf(product, {column}).value(column);
}

QString ProductStore::CodeOf(qint64 product) const { return ValueOf(product, CodeField).toString(); }

qint64 ProductStore::Add(ProductValues values, ProductMarks marks) {
  QVariant& code = values[CodeField];
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Nuovo prodotto %1"), {code.toString()}});
  if (code.isNull()) code = FreePictureCode();
  values[u"IDCatalogo"_qs] = IDCatalogo_;
  Recordset row;
  row.Open({.table = u"Prodotti"_qs, .where = u"FALSE"_qs}, connection_);
  row.AddNew();
  qint64 added = 0;
  Write(row, values, [&](qint64 product) { Saved(added = product, {}, marks); });
  transaction.Commit();
  return added;
}

void ProductStore::Change(qint64 product, const ProductValues& values, ProductMarks marks) {
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Modifica di %1"), {CodeOf(product)}});
  Recordset row;
  row.Open({.table = u"Prodotti"_qs,
            .where = u"IDCatalogo=? AND IDProdotto=?"_qs,
            .values = {IDCatalogo_, product}},
           connection_);
  const QString former = row.Value(CodeField).toString();
  Write(row, values, [&](qint64) { Saved(product, former, marks); });
  transaction.Commit();
}

void ProductStore::Saved(qint64 product, const QString& formerCode, ProductMarks marks) {
  const QString code = CodeOf(product);
  Transaction part(connection_, {formerCode.isEmpty() ? QT_TRANSLATE_NOOP("Texts", "Nuovo prodotto %1")
                                                      : QT_TRANSLATE_NOOP("Texts", "Modifica di %1"),
                                 {code}});
  if (code != formerCode) RequireCode(code, product);
  Mark(code, marks);
  if (!formerCode.isEmpty() && code != formerCode) TakePicturesAlong(product, code, part);
  part.Commit();
}

void ProductStore::Mark(const QString& code, ProductMarks marks) {
  if (marks == ProductMarks::None) return;
  Transaction part(connection_, {QT_TRANSLATE_NOOP("Texts", "Modifica di %1"), {code}});
  bool kept = true;
  const auto set = [&](const QString& mark) {
    kept = SetExtension(mark, u"1"_qs, IDCatalogo_, code, connection_) && kept;
  };
  if (marks != ProductMarks::Sheet) set(ImmagineModificata);
  if (marks != ProductMarks::Picture) set(SchedaModificata);
  if (!kept) part.OnCommit(tellFaultyExtensions_);
  part.Commit();
}

// A picture that does not lie in "Images", is missing, or whose new name another file has, keeps its name.
// Also another letter case of the code is the same file on some systems: to give the former name up would be
// to delete the copy.
void ProductStore::TakePicturesAlong(qint64 product, const QString& code, Transaction& part) {
  const QString former = NullToEmpty(ValueOf(product, u"Immagine"_qs));
  const QString target = MainImagePath(IDCatalogo_, code);
  if (!IsPictureFile(former) || !PictureFolder().Holds(former) || IsSameFile(former, target) ||
      QFile::exists(target))
    return;
  PictureChange pictures(part, connection_);
  pictures.CopyMain(former, target);
  pictures.Retire({{former}, {}});
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE IDProdotto=?"_qs, {target, product});
}

void ProductStore::Delete(const std::vector<qint64>& products) {
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Eliminazione di %1 prodotti"),
                                        {QString::number(products.size())}});
  PictureChange(transaction, connection_).Retire(PicturesOfProducts(products, connection_));
  connection_.Execute(
      u"DELETE FROM Prodotti WHERE IDCatalogo=? AND IDProdotto IN (SELECT value FROM json_each(?))"_qs,
      {IDCatalogo_, KeyList(products)});
  transaction.Commit();
}

PictureChange ProductStore::SetMainImage(qint64 product, const QString& source,
                                         const PreparedPicture& picture) {
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Immagine di %1"), {CodeOf(product)}});
  // Another program may have changed it until the transaction began.
  const QString code = CodeOf(product);
  const QString target = MainImagePath(IDCatalogo_, code);
  if (!IsPictureNameFree(target, connection_, product))
    throw Error(
        Texts::tr("Il file %1 è già usato come immagine o logo altrove. Cambiare il codice.").arg(target));
  PictureChange pictures(transaction, connection_);
  pictures.TakeMain(source, target, picture);
  connection_.Execute(u"UPDATE Prodotti SET Immagine=?,Height=?,Width=? WHERE IDProdotto=?"_qs,
                      {target, picture.size.height(), picture.size.width(), product});
  transaction.Commit();
  return pictures;
}

qint64 ProductStore::FilterValue(int filter, const QString& value) {
  const QString name = value.trimmed();
  const QStringList refusals = CheckCell({}, name, true).refusals;
  if (!refusals.isEmpty()) throw Error(refusals.first());
  Transaction transaction(connection_, {QT_TRANSLATE_NOOP("Texts", "Nuovo valore %1 di un filtro"), {name}});
  Rows found(connection_,
             u"SELECT IDValore FROM Filtri WHERE IDCatalogo=? AND IDNomeFiltro=? AND Valore=? COLLATE "
             "VORLINA_TEXT ORDER BY IDValore"_qs,
             {IDCatalogo_, filter, name});
  if (found.Next()) return found.Value(0).toLongLong();
  RequireFilter(IDCatalogo_, filter, connection_);
  connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (?,?,?)"_qs,
                      {IDCatalogo_, filter, name});
  const qint64 number = connection_.LastInsertId();
  transaction.Commit();
  return number;
}

}  // namespace vorlina
