// The order in which a catalog's products are published: Prodotti.OrdineTemp, from 1 without gaps. Nothing
// enforces that.
#pragma once

#include <QList>
#include <QString>
#include <optional>
#include <vector>

namespace vorlina {

class Connection;

// The number that a new product gets: the catalog's number of products and one, whatever numbers are in use.
// Throws Error.
QString NuovoOrdine(int IDCatalogo, Connection& connection);

// Puts the catalog's products that have no number, never given or emptied, behind the others, in the order in
// which they came; no other number changes. False where there are none. One transaction. Throws Error.
bool NumberUnnumbered(int IDCatalogo, Connection& connection);

// Numbers the products of these bookmarks, which are the rows' own keys, from 1 in the order given and
// without a gap for those that are gone; the catalog's other products keep their numbers. One transaction.
// Throws Error.
void RenumberProducts(int IDCatalogo, const std::vector<qint64>& bookmarks, Connection& connection);

// A block of rows, by the first and the last one.
struct RowBlock {
  int first = 0;
  int last = 0;
};

// The rows as a block; nothing where there are none, or they have holes. The rows are in ascending order.
std::optional<RowBlock> BlockOf(const QList<int>& rows);

// Brings the products of these keys, which are rows' bookmarks, to the place of another product in the
// publication order: before it where it stands before all of them, else behind it. Among themselves they keep
// their order. The numbers between stay the same ones and are dealt out anew, so that a gap stays where it
// is; those outside do not change, but where equal numbers have to be told apart and no gap takes that up.
// Products of equal numbers stand in the order in which they came; where one of those concerned has no
// number, all such are numbered first. False where nothing is moved: the other product is one of them, or
// either is gone. One transaction. Throws Error; the order is then as it was.
bool MoveProducts(int IDCatalogo, std::vector<qint64> moving, qint64 target, Connection& connection);

}  // namespace vorlina
