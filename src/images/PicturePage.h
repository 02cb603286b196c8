// Pages of a catalog's products, nine a page, for choosing one by its picture.
#pragma once

#include <QString>
#include <QVariantList>
#include <vector>

#include "store/Connection.h"
#include "store/Recordset.h"

namespace vorlina {

inline constexpr int PictureTiles = 9;

// What a tile shows. A product that was deleted meanwhile leaves an empty one.
struct PictureTile {
  QString CodiceProdotto;
  QString Descrizione;
  QString Immagine;  // path of the main image
};

// Opens the products of the catalog. The SQL text goes behind the condition on the catalog, as a further one
// or to decide the order; "?" stands for each of the values. Only keys are read here. Throws Error.
void OpenPicturePages(Recordset& products, Connection& connection, int IDCatalogo, const QString& extra,
                      const QVariantList& values);

qint64 PicturePageCount(const Recordset& products);

// The tiles of a page, counted from 1, up to the end of the products. A page that does not exist leaves the
// recordset where it is and goes on from there. Throws Error.
std::vector<PictureTile> ReadPicturePage(Recordset& products, qint64 page);

}  // namespace vorlina
