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
  products.Open({.columns = u"CodiceProdotto, Descrizione, Immagine"_qs,
                 .table = u"Prodotti"_qs,
                 .where = u"IDCatalogo=? "_qs + extra,
                 .values = QVariantList{IDCatalogo} + values},
                connection);
}

qint64 PicturePageCount(const Recordset& products) {
  return (products.RecordCount() + PictureTiles - 1) / PictureTiles;
}

std::vector<PictureTile> ReadPicturePage(Recordset& products, qint64 page) {
  if (page > 0 && page <= PicturePageCount(products))
    products.SetAbsolutePosition((page - 1) * PictureTiles + 1);
  std::vector<PictureTile> tiles;
  for (; tiles.size() < PictureTiles && !products.IsEOF(); products.MoveNext())
    tiles.push_back(ReadTile(products));
  return tiles;
}

}  // namespace vorlina
