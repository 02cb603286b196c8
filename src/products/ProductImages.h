// The pictures of a product as its user keeps them: the main one, and additional ones, each with a
// description. Without a main one there are no additional ones either.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include "products/ProductStore.h"

namespace vorlina {

class PictureChange;

// An additional picture: a row of Immagini.
struct ProductImage {
  qint64 IDImmagine = 0;
  QString Descrizione;
  QString Immagine;
};

// Rows, marks and files change together, in one transaction a step; files go once the rows say so, and one
// that is missing is no failure. All throw Error: ConflictError where the product, or the picture, is gone by
// now.
class ProductImages {
 public:
  using AskDescription = std::function<QString(const QString& file)>;

  // Of the product with this number, whose code may change meanwhile.
  ProductImages(int IDCatalogo, qint64 product, Connection& connection)
      : products_(IDCatalogo, connection),
        IDCatalogo_(IDCatalogo),
        product_(product),
        connection_(connection) {}

  // The main one; its number is 0, and the description is the product's.
  ProductImage Main() const;
  // The additional ones in the order in which they came.
  std::vector<ProductImage> List() const;
  // One of them.
  ProductImage Find(qint64 image) const;

  // Sets both marks of a product whose pictures are about to change.
  void Mark();

  // One more additional picture, of which the number is given. Sets no mark.
  qint64 Add(const QString& source, const PreparedPicture& picture, const QString& description);
  // Adds picture files in their order. Each is prepared before its description is asked for, and nothing of
  // it is written before that is given; a null description ends it. Those that cannot be taken are passed
  // over, with a text for each, which names it. Sets no mark.
  struct Added {
    qint64 last = 0;  // 0 where there is none
    QStringList failures;
  };
  Added AddFiles(const QStringList& files, const AskDescription& ask);
  // Gives an additional picture another file, under its own name. Sets no mark.
  void Change(qint64 image, const QString& source, const PreparedPicture& picture,
              const QString& description);
  // Sets no mark.
  void Describe(qint64 image, const QString& description);

  // Set both marks. A picture that is gone already is no failure.
  void Delete(qint64 image);
  void DeleteAll();
  // The additional ones as well. The thumbnail stays.
  void DeleteMain();

 private:
  QString Code() const;
  // A step of one transaction, with the product's code.
  using Step = std::function<void(PictureChange& pictures, const QString& code)>;
  void Within(const char* label, const Step& step);
  qint64 NewRow(const QString& code);
  void Fill(qint64 image, PictureChange& pictures, const QString& source, const PreparedPicture& picture,
            const QString& description);
  void DeleteRows(const std::vector<ProductImage>& images, PictureChange& pictures, const QString& code);

  ProductStore products_;
  int IDCatalogo_;
  qint64 product_;
  Connection& connection_;
};

}  // namespace vorlina
