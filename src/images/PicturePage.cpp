#include "images/PicturePage.h"

#include "base/Helpers.h"

namespace vorlina {
namespace {

PictureTile ReadTile(const Recordset& products) {
  if (!products.RowExists()) return {};
  return {NullToEmpty(products.Value(u"CodiceProdotto"_qs)), NullToEmpty(products.Value(u"Descrizione"_qs)),
          NullToEmpty(products.Value(u"Immagine"_qs))};
}

}  // namespace

void OpenPicturePages(Recordset& products, Connection& connection, int IDCatalogo, const QString& extra,
                      const QVariantList& values) {
  products.SetPageSize(PictureTiles);
  products.Open(u"SELECT * FROM Prodotti WHERE IDCATALOGO=? "_qs + extra, connection, CursorType::Keyset,
                LockType::ReadOnly, QVariantList{IDCatalogo} + values);
}

std::vector<PictureTile> ReadPicturePage(Recordset& products, qint64 page) {
  if (page > 0 && page <= products.PageCount()) products.SetAbsolutePage(page);
  std::vector<PictureTile> tiles;
  for (; tiles.size() < PictureTiles && !products.IsEOF(); products.MoveNext())
    tiles.push_back(ReadTile(products));
  return tiles;
}

}  // namespace vorlina
