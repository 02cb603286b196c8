// Picture files that are dropped on a product, in whatever window shows it.
#pragma once

#include <QStringList>

class QWidget;

namespace vorlina {

class Connection;
struct ProductKey;

// Adds them as PictureDrop, asking for the descriptions of additional ones. Gives a text for each that could
// not be added. What fails as a whole is told in a box of the owner.
QStringList AddDroppedPictures(const ProductKey& product, const QStringList& files, Connection& connection,
                               QWidget& owner);

}  // namespace vorlina
