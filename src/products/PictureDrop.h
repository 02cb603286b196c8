// Pictures that are dropped on a product: the first becomes its main picture where it has none, the others
// additional ones.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include "products/ProductStore.h"

namespace vorlina {

class PictureDrop {
 public:
  // Gives the description of an additional picture, asked for with the dropped file's path; "" gives it up.
  using AskDescription = std::function<QString(const QString& file)>;

  PictureDrop(const ProductKey& product, Connection& connection)
      : IDCatalogo_(product.IDCatalogo),
        code_(product.CodiceProdotto),
        connection_(connection),
        products_(product.IDCatalogo, connection) {}

  // Whether the name ends as a JPEG file's does, in any letter case.
  static bool IsPicture(const QString& file);

  // Adds those of the files that are pictures, in the order given. A row is written once its picture is
  // complete, nothing of a picture before its description is given, and no transaction is open while that is
  // asked for. Those that cannot be added are passed over, as is a main picture whose file another row names:
  // gives a text for each, which names it. Throws Error where the product is gone.
  QStringList Add(const QStringList& files, const AskDescription& ask);

 private:
  void AddImage(qint64 product, const QString& file, const AskDescription& ask);

  int IDCatalogo_;
  QString code_;
  Connection& connection_;
  ProductStore products_;
};

}  // namespace vorlina
