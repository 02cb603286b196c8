// The order in which a catalog's products are published: Prodotti.OrdineTemp, from 1 without gaps. Nothing
// enforces that.
#pragma once

#include <QString>

namespace vorlina {

class Connection;

// The number that a new product gets: the catalog's number of products and one, whatever numbers are in use.
// Throws Error.
QString NuovoOrdine(int IDCatalogo, Connection& connection);

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
