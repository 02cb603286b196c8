// The product card and the search in the grid's window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include "products/ProductCardOwner.h"

class QAction;

namespace vorlina {

class frmProduct;
struct GridContext;

class CardCommands : public QObject, public ProductCardOwner {
  Q_OBJECT

 public:
  // Has the grid open products by a double click and by Enter. The context outlives it.
  CardCommands(GridContext& context, QAction& cmdSearch);
  ~CardCommands() override;

  // Opens the card in a state of frmProduct: for the product of that code, or without one that of the grid's
  // current row. Where there is no such row nothing happens, unless the flag says to go on. Throws Error.
  void ApriProdotto(int state, const QString& code, bool flag);
  // Opens the card to search, or shows all products again.
  void ToggleSearch();

  // No search is in force any more; the grid is not filled anew.
  void EndSearch();
  // Ends the search and fills the grid.
  void ShowAllProducts();

  // Closes the card for good, before the grid's window closes. False where it has to stay.
  bool Close();

  qint64 Neighbour(qint64 product, bool next) override;
  bool IsBusy() const override;
  void Search(const QString& CondizioneRicerca) override;
  void CardClosed(qint64 product, bool searchGivenUp) override;

 private:
  void OpenRow(int row);
  void OpenCard(int state, qint64 product);
  void OfferAll(bool offered);

  GridContext& context_;
  QAction& cmdSearch_;
  QPointer<frmProduct> card_;
  bool offersAll_ = false;  // the button shows all products again
  bool closing_ = false;
};

// The commands of the toolbar.
void NewProduct(GridContext& context);
void EditProduct(GridContext& context);
void SearchProducts(GridContext& context);

}  // namespace vorlina
