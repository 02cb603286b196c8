#include "products/PublicationOrder.h"

#include <QByteArray>
#include <algorithm>

#include "base/Helpers.h"
#include "store/Connection.h"
#include "store/GetValue.h"
#include "store/Ranks.h"

namespace vorlina {
namespace {

bool HasOrders(int IDCatalogo, const QString& condition, qint64 from, qint64 to, Connection& connection) {
  Rows rows(connection, u"SELECT 1 FROM Prodotti WHERE IDCatalogo=? AND "_qs + condition + u" LIMIT 1"_qs,
            {IDCatalogo, from, to});
  return rows.Next();
}

std::vector<qint64> ProductKeys(int IDCatalogo, Connection& connection) {
  std::vector<qint64> keys;
  Rows rows(connection, u"SELECT rowid FROM Prodotti WHERE IDCatalogo=? ORDER BY rowid"_qs, {IDCatalogo});
  while (rows.Next()) keys.push_back(rows.Value(0).toLongLong());
  return keys;
}

}  // namespace

QString NuovoOrdine(int IDCatalogo, Connection& connection) {
  const double count =
      NullToZero(GetValue(u"COUNT(*)"_qs, u"Prodotti"_qs, connection, u"IDCatalogo=?"_qs, {IDCatalogo}));
  return QString::number(qint64(count) + 1);
}

bool HasUnnumbered(int IDCatalogo, Connection& connection) {
  Rows rows(connection, u"SELECT 1 FROM Prodotti WHERE IDCatalogo=? AND OrdineTemp IS NULL LIMIT 1"_qs,
            {IDCatalogo});
  return rows.Next();
}

void RenumberProducts(int IDCatalogo, const std::vector<qint64>& bookmarks, Connection& connection) {
  Transaction transaction(connection);
  const std::vector<qint64> present = ProductKeys(IDCatalogo, connection);
  std::vector<RankPair> pairs;
  pairs.reserve(bookmarks.size());
  for (const qint64 bookmark : bookmarks)
    if (std::binary_search(present.begin(), present.end(), bookmark))
      pairs.push_back({bookmark, qint64(pairs.size()) + 1});
  connection.Execute(
      u"UPDATE Prodotti SET OrdineTemp=VORLINA_RANK(?1,rowid) WHERE IDCatalogo=?2 AND "
      "IFNULL(VORLINA_RANK(?1,rowid),OrdineTemp) IS NOT OrdineTemp"_qs,
      {RankList(std::move(pairs)), IDCatalogo});
  transaction.Commit();
}

std::optional<RowBlock> BlockOf(const QList<int>& rows) {
  if (rows.isEmpty() || rows.last() - rows.first() != int(rows.size()) - 1) return std::nullopt;
  return RowBlock{rows.first(), rows.last()};
}

BlockMove MoveBlock(int IDCatalogo, qint64 first, qint64 last, qint64 target, Connection& connection) {
  if (target == first) return BlockMove::InPlace;
  const bool up = target < first;
  Transaction transaction(connection);
  const bool makesRoom =
      up ? HasOrders(IDCatalogo, u"OrdineTemp>=? AND OrdineTemp<?"_qs, target, first, connection)
         : HasOrders(IDCatalogo, u"OrdineTemp>? AND OrdineTemp<=?"_qs, last, target, connection);
  if (!makesRoom || !HasOrders(IDCatalogo, u"OrdineTemp>=? AND OrdineTemp<=?"_qs, first, last, connection))
    return BlockMove::NothingToMove;
  const qint64 blockStep = up ? target - first : target - last;
  const qint64 roomStep = (up ? 1 : -1) * (last - first + 1);
  connection.Execute(
      u"UPDATE Prodotti SET OrdineTemp=OrdineTemp+CASE WHEN OrdineTemp>=?1 AND OrdineTemp<=?2 THEN ?3 ELSE "
      u"?4 END "
      "WHERE IDCatalogo=?5 AND OrdineTemp>=?6 AND OrdineTemp<=?7"_qs,
      {first, last, blockStep, roomStep, IDCatalogo, std::min(first, target), std::max(last, target)});
  transaction.Commit();
  return BlockMove::Moved;
}

}  // namespace vorlina
