// The boxes of the filters on the product card.
#pragma once

#include <QObject>
#include <array>
#include <functional>

#include "products/ProductCard.h"

class QLabel;
class QToolButton;

namespace vorlina {

class WidgetFilterCombo;

// Of one filter.
struct FilterControls {
  QLabel* label;
  WidgetFilterCombo* combo;
  QToolButton* button;
};

class CardFilters : public QObject {
  Q_OBJECT

 public:
  CardFilters(QWidget& card, const std::array<FilterControls, 5>& controls);

  // Whether nothing must be stored.
  std::function<bool()> IsBusy;

  // Shows those that the catalog has, with their names. The card outlives its use.
  void SetCard(ProductCard& card);
  // Shows the values of the product that was read, or none.
  void Show(const ProductValues& values);
  // The values by their columns; a text that is no value gives none. Throws Error.
  ProductValues Typed();
  // The values are read anew when they are asked for.
  void Forget();
  // The values of a filter, 1 to 5, have changed: its box shows the text that its value has by now. Throws
  // Error.
  void Renew(int filter);
  void Rename(int filter, const QString& name);
  void EnableButtons(bool enabled);

  // Has every text be a value: for one that is none it asks whether to add it. False where one is not: the
  // user was told why, and stands in its box. Every command of the card begins with it.
  bool Settle();

 Q_SIGNALS:
  void Edited();
  void ButtonClicked(int filter);

 private:
  bool IsInUse(std::size_t index) const;
  bool Settle(std::size_t index);
  bool Offer(WidgetFilterCombo& combo, int filter);

  QWidget& window_;
  std::array<FilterControls, 5> controls_;
  ProductCard* card_ = nullptr;
  bool asking_ = false;
};

}  // namespace vorlina
