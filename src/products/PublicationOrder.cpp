#include "products/PublicationOrder.h"

#include <QByteArray>
#include <algorithm>
#include <cmath>
#include <limits>

#include "base/Helpers.h"
#include "base/Texts.h"
#include "store/Connection.h"
#include "store/GetValue.h"
#include "store/Ranks.h"
#include "store/Transaction.h"

namespace vorlina {
namespace {

// A product in the publication order.
struct Place {
  qint64 key;
  double number;
  bool moves;
};

constexpr double Infinity = std::numeric_limits<double>::infinity();

std::vector<qint64> Keys(Rows&& rows) {
  std::vector<qint64> keys;
  while (rows.Next()) keys.push_back(rows.Value(0).toLongLong());
  return keys;
}

// The greatest number, as a whole one; 0 where none is greater.
qint64 LastNumber(int IDCatalogo, Connection& connection) {
  Rows rows(connection, u"SELECT MAX(CAST(OrdineTemp AS INTEGER)) FROM Prodotti WHERE IDCatalogo=?"_qs,
            {IDCatalogo});
  return rows.Next() ? std::max(rows.Value(0).toLongLong(), 0LL) : 0;
}

// The numbers that some products have: the least and the greatest one.
struct Span {
  double from = 0;
  double to = 0;
  bool complete = true;  // none of them is without
};

Span SpanOf(int IDCatalogo, const std::vector<qint64>& keys, Connection& connection) {
  Rows rows(connection,
            u"SELECT MIN(OrdineTemp), MAX(OrdineTemp), COUNT(*)=COUNT(OrdineTemp) FROM Prodotti "
            "WHERE IDCatalogo=? AND IDProdotto IN (SELECT value FROM json_each(?))"_qs,
            {IDCatalogo, KeyList(keys)});
  if (!rows.Next()) return {};
  return {rows.Value(0).toDouble(), rows.Value(1).toDouble(), rows.Value(2).toBool()};
}

// The products with the numbers from one to another, in their order; those of the sorted keys move.
std::vector<Place> PlacesIn(int IDCatalogo, const Span& span, const std::vector<qint64>& moving,
                            Connection& connection) {
  std::vector<Place> places;
  Rows rows(
      connection,
      u"SELECT IDProdotto, OrdineTemp FROM Prodotti WHERE IDCatalogo=? AND OrdineTemp>=? AND OrdineTemp<=? "
      "ORDER BY OrdineTemp, IDProdotto"_qs,
      {IDCatalogo, span.from, span.to});
  while (rows.Next()) {
    const qint64 key = rows.Value(0).toLongLong();
    const bool moves = std::binary_search(moving.begin(), moving.end(), key);
    places.push_back({key, rows.Value(1).toDouble(), moves});
  }
  return places;
}

// Brings those that move together: before the target where it stands before all of them, else behind it.
// False where either is not there.
bool Gather(std::vector<Place>& places, qint64 target) {
  const auto at = std::find_if(places.begin(), places.end(), [=](const Place& p) { return p.key == target; });
  const auto first = std::find_if(places.begin(), places.end(), [](const Place& p) { return p.moves; });
  if (at == places.end() || first == places.end()) return false;
  const auto pivot = at < first ? at : at + 1;
  std::stable_partition(places.begin(), pivot, [](const Place& place) { return !place.moves; });
  std::stable_partition(pivot, places.end(), [](const Place& place) { return place.moves; });
  return true;
}

// Deals the places' own numbers out to them anew, as whole ones. Each is greater than the one before, but for
// equal ones that stand together as they stood.
std::vector<RankPair> Deal(const std::vector<Place>& places) {
  constexpr double Most = 1e15;
  std::vector<double> numbers;
  numbers.reserve(places.size());
  for (const Place& place : places) numbers.push_back(std::ceil(std::clamp(place.number, -Most, Most)));
  std::sort(numbers.begin(), numbers.end());
  std::vector<RankPair> dealt;
  dealt.reserve(places.size());
  for (std::size_t i = 0; i < places.size(); ++i) {
    auto number = qint64(numbers[i]);
    if (i > 0) {
      const Place& before = places[i - 1];
      const bool equal = before.number == places[i].number && !before.moves && !places[i].moves;
      number = std::max(number, dealt.back().rank + (equal ? 0 : 1));
    }
    dealt.push_back({places[i].key, number});
  }
  return dealt;
}

// Writes those of the numbers that are other ones than the places have.
void WriteNumbers(const std::vector<Place>& places, const std::vector<RankPair>& dealt,
                  Connection& connection) {
  std::vector<RankPair> changed;
  std::vector<qint64> keys;
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (double(dealt[i].rank) == places[i].number) continue;
    changed.push_back(dealt[i]);
    keys.push_back(places[i].key);
  }
  connection.Execute(
      u"UPDATE Prodotti SET OrdineTemp=VORLINA_RANK(?,IDProdotto) WHERE IDProdotto IN (SELECT value FROM "
      "json_each(?))"_qs,
      {RankList(std::move(changed)), KeyList(keys)});
}

}  // namespace

QString NuovoOrdine(int IDCatalogo, Connection& connection) {
  const double count =
      NullToZero(GetValue(u"COUNT(*)"_qs, u"Prodotti"_qs, connection, u"IDCatalogo=?"_qs, {IDCatalogo}));
  return QString::number(qint64(count) + 1);
}

bool NumberUnnumbered(int IDCatalogo, Connection& connection) {
  const auto unnumbered = [&] {
    return Keys(Rows(
        connection,
        u"SELECT IDProdotto FROM Prodotti WHERE IDCatalogo=? AND OrdineTemp IS NULL ORDER BY IDProdotto"_qs,
        {IDCatalogo}));
  };
  if (unnumbered().empty()) return false;
  Transaction transaction(connection,
                          {QT_TRANSLATE_NOOP("Texts", "Numerazione dei prodotti senza numero"), {}});
  std::vector<RankPair> pairs;
  qint64 number = LastNumber(IDCatalogo, connection);
  for (const qint64 key : unnumbered()) pairs.push_back({key, ++number});
  connection.Execute(
      u"UPDATE Prodotti SET OrdineTemp=VORLINA_RANK(?,IDProdotto) WHERE IDCatalogo=? AND OrdineTemp IS NULL"_qs,
      {RankList(std::move(pairs)), IDCatalogo});
  transaction.Commit();
  return true;
}

void RenumberProducts(int IDCatalogo, const std::vector<qint64>& bookmarks, Connection& connection) {
  Transaction transaction(connection,
                          {QT_TRANSLATE_NOOP("Texts", "Ordine di pubblicazione del catalogo"), {}});
  const std::vector<qint64> present =
      Keys(Rows(connection, u"SELECT IDProdotto FROM Prodotti WHERE IDCatalogo=? ORDER BY IDProdotto"_qs,
                {IDCatalogo}));
  std::vector<RankPair> pairs;
  pairs.reserve(bookmarks.size());
  for (const qint64 bookmark : bookmarks)
    if (std::binary_search(present.begin(), present.end(), bookmark))
      pairs.push_back({bookmark, qint64(pairs.size()) + 1});
  connection.Execute(
      u"UPDATE Prodotti SET OrdineTemp=VORLINA_RANK(?1,IDProdotto) WHERE IDCatalogo=?2 AND "
      "IFNULL(VORLINA_RANK(?1,IDProdotto),OrdineTemp) IS NOT OrdineTemp"_qs,
      {RankList(std::move(pairs)), IDCatalogo});
  transaction.Commit();
}

std::optional<RowBlock> BlockOf(const QList<int>& rows) {
  if (rows.isEmpty() || rows.last() - rows.first() != int(rows.size()) - 1) return std::nullopt;
  return RowBlock{rows.first(), rows.last()};
}

bool MoveProducts(int IDCatalogo, std::vector<qint64> moving, qint64 target, Connection& connection) {
  std::sort(moving.begin(), moving.end());
  if (std::binary_search(moving.begin(), moving.end(), target)) return false;
  std::vector<qint64> concerned = moving;
  concerned.push_back(target);
  Transaction transaction(connection, {QT_TRANSLATE_NOOP("Texts", "Spostamento di %1 prodotti"),
                                       {QString::number(moving.size())}});
  Span span = SpanOf(IDCatalogo, concerned, connection);
  if (!span.complete) {
    NumberUnnumbered(IDCatalogo, connection);
    span = SpanOf(IDCatalogo, concerned, connection);
  }
  std::vector<Place> places = PlacesIn(IDCatalogo, span, moving, connection);
  if (!Gather(places, target)) return false;
  std::vector<RankPair> dealt = Deal(places);
  // Equal numbers that had to be told apart take the numbers of those behind, up to the next gap.
  if (double(dealt.back().rank) > span.to) {
    const Span behind{std::nextafter(span.to, Infinity), Infinity};
    const std::vector<Place> more = PlacesIn(IDCatalogo, behind, moving, connection);
    places.insert(places.end(), more.begin(), more.end());
    dealt = Deal(places);
  }
  WriteNumbers(places, dealt, connection);
  transaction.Commit();
  return true;
}

}  // namespace vorlina
