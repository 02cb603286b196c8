// Products: the one place for what belongs to adding, changing and deleting them, whoever does it. Each step
// is one transaction, or a part of the one that is open: rows, marks and pictures are written together or not
// at all.
#pragma once

#include <QMap>
#include <QString>
#include <QVariant>
#include <functional>
#include <vector>

#include "images/PictureStore.h"

namespace vorlina {

class Connection;
class Transaction;

// What a user knows a product by. The code may change, which the product's number, the key of its row, never
// does.
struct ProductKey {
  int IDCatalogo = 0;
  QString CodiceProdotto;
};

// The marks that a product gets when its picture or its data change; their value is "1".
inline const QString ImmagineModificata = QStringLiteral("ImmagineModificata");
inline const QString SchedaModificata = QStringLiteral("SchedaModificata");
enum class ProductMarks { None, Picture, Sheet, Both };

// Values by the columns of Prodotti.
using ProductValues = QMap<QString, QVariant>;

class ProductStore {
 public:
  using Telling = std::function<void()>;

  // Of one catalog. Where a mark cannot be kept the user is told once the transaction is stored: by
  // TellFaultyExtensions, or by what is given.
  ProductStore(int IDCatalogo, Connection& connection, Telling tellFaultyExtensions = {});

  // The smallest free number above the catalog's number of products, as text: codes stay numeric and dense,
  // and no existing code's value is looked at. It is also above the other bound. Throws Error.
  QString NuovoCodice(qint64 above = 0) const;
  // The same, passing over numbers whose picture is there: a product may have been given another code since,
  // or a copy of the database, which may come back, has the product. Throws Error.
  QString FreePictureCode();

  // Whether another product of the catalog has the code but for letter case, in every script. A new product
  // has no number yet. Throws Error.
  bool IsCodeTaken(const QString& code, qint64 exceptProduct = 0) const;

  // The number of the product with a code, and what a product has in columns of Prodotti. Throw
  // ConflictError where there is no such product by now.
  qint64 Find(const QString& CodiceProdotto) const;
  QVariant ValueOf(qint64 product, const QString& column) const;
  ProductValues ValuesOf(qint64 product, const QStringList& columns) const;

  // Adds a product, with the next code where none is given, and gives its number. Throws Error:
  // DuplicateError for a code that is there, NoNumberError for a text in a column of numbers.
  qint64 Add(ProductValues values, ProductMarks marks);
  // Changes what is given of a product. Throws Error as Add, and ConflictError where it is gone.
  void Change(qint64 product, const ProductValues& values, ProductMarks marks);
  // What belongs to a product whose row was written by other means, in the same transaction: marks, and the
  // pictures that follow a changed code. The former code is "" for a product that was added. Throws Error,
  // for a code that a cell refuses too.
  void Saved(qint64 product, const QString& formerCode, ProductMarks marks);
  // Marks the product with a code as changed. Throws Error where the mark cannot be written.
  void Mark(const QString& code, ProductMarks marks);
  // Deletes products with all that belongs to them; those that are gone are passed over. Throws Error.
  void Delete(const std::vector<qint64>& products);

  // Makes a file the product's main image, without a mark. Throws Error: where the product is gone, where
  // another row names the file's name, where it cannot be written. What it gives tells, once all is stored,
  // whether it has the place of a file that had the name.
  PictureChange SetMainImage(qint64 product, const QString& source, const PreparedPicture& picture);

  // The number of a filter's value, which is added where it is not there yet: without the blanks around it,
  // in any letter case. A filter is 1 to 5. Throws Error, also for a value that no cell takes.
  qint64 FilterValue(int filter, const QString& value);

 private:
  QString CodeOf(qint64 product) const;
  void RequireCode(const QString& code, qint64 product) const;
  void TakePicturesAlong(qint64 product, const QString& code, Transaction& part);

  int IDCatalogo_;
  Connection& connection_;
  qint64 lastTaken_ = 0;  // the last number whose picture was there
  Telling tellFaultyExtensions_;
};

}  // namespace vorlina
