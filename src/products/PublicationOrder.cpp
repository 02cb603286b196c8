#include "products/PublicationOrder.h"

#include "base/Helpers.h"
#include "store/Connection.h"
#include "store/GetValue.h"

namespace vorlina {
namespace {

bool HasOrders(int IDCatalogo, const QString& condition, qint64 from, qint64 to, Connection& connection) {
  Rows rows(connection, u"SELECT 1 FROM Prodotti WHERE IDCatalogo=? AND "_qs + condition + u" LIMIT 1"_qs,
            {IDCatalogo, from, to});
  return rows.Next();
}

}  // namespace

QString NuovoOrdine(int IDCatalogo, Connection& connection) {
  const double count =
      NullToZero(GetValue(u"COUNT(*)"_qs, u"Prodotti"_qs, connection, u"IDCatalogo=?"_qs, {IDCatalogo}));
  return QString::number(qint64(count) + 1);
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
