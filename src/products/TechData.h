// The technical data of one product: features and their values, what is refused of them, and what belongs to
// a change. Every change is one transaction, or a part of the one that is open.
#pragma once

#include <QString>
#include <QStringList>
#include <vector>

#include "grid/GridColumn.h"
#include "products/ProductStore.h"
#include "store/KeysetQuery.h"

namespace vorlina {

inline const QString FeatureColumn = QStringLiteral("Caratteristica");
inline const QString FeatureValueColumn = QStringLiteral("Valore");

// Why a feature is not stored: messages, one box each, and the column to be mended, "" where nothing is
// refused.
struct FeatureVerdict {
  QStringList refusals;
  QString column;
};

// No value holds a "|", and no feature is longer than 50 characters.
FeatureVerdict CheckFeature(const QString& feature, const QString& value);

class TechData {
 public:
  // The product may get another code while it lives. Throws ConflictError where there is none by now. As in
  // ProductStore, the user is told where a mark cannot be kept.
  TechData(int IDCatalogo, const QString& CodiceProdotto, Connection& connection,
           ProductStore::Telling tellFaultyExtensions = {});

  // The rows of SchedeTecniche in the order in which they came, and the columns of a grid over them.
  KeysetQuery Query() const;
  std::vector<GridColumn> Columns() const;
  // The product's code by now. Throws ConflictError where the product is gone.
  QString Code() const;

  // A row was written, or counts as such: marks the product, in the same transaction. Throws Error.
  void Saved();
  // Deletes rows, and marks the product. Throws Error.
  void Delete(const std::vector<qint64>& rows);
  // A product without technical data has no sheet any more. Nothing where the product is gone. Throws Error.
  void Finish();

  // The first feature of the catalog that begins so, in any letter case and by alphabet; "" for none. Throws
  // Error.
  QString Completed(const QString& typed) const;

 private:
  bool HasEmptySheet() const;

  int IDCatalogo_;
  QString opened_;  // the code at that time
  Connection& connection_;
  ProductStore products_;
  qint64 product_;
};

}  // namespace vorlina
