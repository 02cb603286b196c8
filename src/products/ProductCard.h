// What the product card does with a product: reading it, the checks and steps of saving it, and what others
// have done to it meanwhile. The window shows it, and tells what was typed.
//
// Values go by the columns of Prodotti: texts as the boxes have them, and the numbers of filter values, 0 for
// none.
#pragma once

#include <QStringList>

#include "products/ProductGridQuery.h"
#include "products/ProductStore.h"

namespace vorlina {

class ProductCard {
 public:
  ProductCard(int IDCatalogo, Connection& connection, ProductStore::Telling tellFaultyExtensions = {});

  // The catalog's names as they are now. Throws Error.
  void ReadNames();
  const ProductGridFields& Names() const { return names_; }
  ProductStore& Products() { return products_; }
  // The values of a filter, 1 to 5, and the text of one of them. Throw Error.
  std::vector<LookupItem> FilterItems(int filter) const;
  QString FilterText(int filter, qint64 IDValore) const;

  // The product on the card, 0 for one that is new.
  qint64 Product() const { return product_; }
  QString Code() const { return products_.ValueOf(product_, u"CodiceProdotto"_qs).toString(); }
  // What a product holds, which is on the card from now on, and the texts of its filters' values. Throws
  // ConflictError where it is gone; the card keeps what it had then.
  ProductValues Read(qint64 product);
  QString TextOf(int filter) const { return texts_.value(filter); }
  // What the boxes make of it: what differs from that later was typed.
  void Shown(const ProductValues& values) { shown_ = values; }
  // A new product is begun. What is typed already stays typed.
  void BeginNew() { product_ = 0; }
  // A free code for it. One that is not typed over is another free one when it is saved, should somebody have
  // taken it by then. Throws Error.
  QString ProposeCode() { return proposed_ = products_.FreePictureCode(); }

  // Why what was typed cannot be saved; "" where nothing is in the way.
  QString Refusal(const ProductValues& typed) const;
  // Saves it as a new product, which is on the card then. Throws Error, for a code that is in use one that
  // says so.
  void Add(const ProductValues& typed);
  // Saves it in the product: what was typed, and of the other columns what others have stored meanwhile.
  // Where something would be written over that others have stored, nothing is: gives the names of those
  // columns. Throws Error, ConflictError where the product is gone.
  QStringList Change(const ProductValues& typed);
  // The user has been told of those: the next change writes over them.
  void WriteOver() { known_ = met_; }

  // Whether the product has a technical sheet; and that it has one from now on. Throw Error.
  bool HasTechData() const { return products_.ValueOf(product_, u"SchedaTecnica"_qs).toBool(); }
  void BeginTechData() { products_.Change(product_, {{u"SchedaTecnica"_qs, true}}, ProductMarks::None); }

  // Makes a picture file the product's main image, with the marks of a change. Throws Error; all is as it was
  // then.
  void SetMainImage(const QString& file);
  // The file of the product's main image; "" where it has none, or it is missing. Throws Error.
  QString MainImage() const;

 private:
  bool IsTyped(const ProductValues& typed, const QString& column) const;
  ProductValues ToStore(const ProductValues& typed, const ProductValues& stored) const;
  QString CaptionOf(const QString& column) const;

  int IDCatalogo_;
  Connection& connection_;
  ProductStore products_;
  ProductGridFields names_;
  qint64 product_ = 0;
  QString proposed_;
  QMap<int, QString> texts_;
  ProductValues known_;  // what the product held when it was read
  ProductValues met_;    // what it was found to hold since
  ProductValues shown_;
};

}  // namespace vorlina
