// What the product card needs of the window that opens it.
#pragma once

#include <QString>

namespace vorlina {

class ProductCardOwner {
 public:
  virtual ~ProductCardOwner() = default;

  // The product that is shown behind another one, or before it, which becomes the current one; 0 where there
  // is none.
  virtual qint64 Neighbour(qint64 product, bool next) = 0;
  // Whether something is at work whose transaction the card's statements would become a part of.
  virtual bool IsBusy() const = 0;
  // Shows the products for which a condition holds, as SearchCondition gives it.
  virtual void Search(const QString& CondizioneRicerca) = 0;
  // The card was closed; the product that it showed, 0 for none. A search that was not made may have been
  // given up.
  virtual void CardClosed(qint64 product, bool searchGivenUp) = 0;
};

}  // namespace vorlina
