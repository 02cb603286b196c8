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

// Whether a product of the catalog has no number. Throws Error.
bool HasUnnumbered(int IDCatalogo, Connection& connection);

// Numbers the products of these bookmarks, which are the rows' own keys, from 1 in the order given; the
// catalog's other products keep their numbers. One statement. Throws Error.
void RenumberProducts(int IDCatalogo, const std::vector<qint64>& bookmarks, Connection& connection);

// A block of rows, by the first and the last one.
struct RowBlock {
  int first = 0;
  int last = 0;
};

// The rows as a block; nothing where there are none, or they have holes. The rows are in ascending order.
std::optional<RowBlock> BlockOf(const QList<int>& rows);

enum class BlockMove {
  NothingToMove,  // there is no product in the block, or none that makes room
  InPlace,        // the block is dropped on its first row
  Moved,
};

// Moves the products with the numbers first to last so that the block stands at target: its first product
// there when it moves up, its last when it moves down. Those between make room by the block's length.
// Products without a number, or with one outside, stay; equal numbers move together. One transaction. Throws
// Error; the order is then as it was.
BlockMove MoveBlock(int IDCatalogo, qint64 first, qint64 last, qint64 target, Connection& connection);

}  // namespace vorlina
