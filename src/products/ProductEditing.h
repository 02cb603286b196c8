// The rules that the product grid lays over the editing of rows: what a cell accepts, what a new row gets by
// itself, what belongs to a changed or deleted product.
#pragma once

#include <QObject>

#include "grid/RecordsetModel.h"
#include "products/CellRules.h"
#include "products/ProductGridQuery.h"
#include "products/ProductStore.h"

class QWidget;

namespace vorlina {

class ProductEditing : public QObject {
  Q_OBJECT

 public:
  // Hooks into the grid's rows. The boxes that it shows belong to the owner. Both outlive it.
  ProductEditing(RecordsetModel& rows, QWidget* owner);

  // The catalog that is edited.
  void SetCatalog(int IDCatalogo, Connection& connection);

  // Offers a new row its code and its order number. Throws Error.
  void OfferDefaults();
  // Has the code that is offered be a free one by now. Throws Error, but not for another program's lock,
  // which is not waited for.
  void RefreshCode();
  // Has the drop-downs offer what the filters have by now: another window may have added to them. Never
  // fails, and does not wait for another program's lock: it tries again by itself.
  void RefreshFilterValues();

 Q_SIGNALS:
  // A cell does not take what was typed: text for the user.
  void Refused(const QString& text);

 private:
  void OfferCode();
  void RenewCode(int row);
  void CheckCell(CellChange& change);
  bool Refuses(const CellVerdict& verdict);
  ProductStore Products();
  bool AskToDelete();
  void RequireFilterValues(int row, bool added) const;
  bool AddFilterValue(int column, const QString& text);
  void OfferFilterValues(int column);

  RecordsetModel& rows_;
  QWidget* owner_;
  int IDCatalogo_ = 0;
  Connection* connection_ = nullptr;
};

}  // namespace vorlina
