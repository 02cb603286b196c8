// The pictures of the product on the card: its main picture beside the boxes, choosing another one, and files
// that are dropped on the card.
#pragma once

#include <QObject>
#include <QStringList>
#include <utility>
#include <vector>

namespace vorlina {

class Connection;
class ProductCard;
class WidgetCardPicture;
struct ProductKey;

class CardPictures : public QObject {
  Q_OBJECT

 public:
  // The boxes that it shows belong to the window.
  CardPictures(QWidget& window, WidgetCardPicture& box);

  // The card outlives its use; null for none.
  void SetCard(ProductCard* card, int IDCatalogo, Connection* connection);
  // Shows the main picture that the product has by now. Never fails.
  void Show();
  // Whether the product has a main picture that can be viewed. Never fails.
  bool HasMain() const;

  // Has the user choose the main picture. Gives the path of the one that stays where none was chosen or it
  // could not be taken, which is told; "" where it was changed.
  QString Change();

  // Takes files over for the product on the card, once the drop is done and no box is up.
  void Drop(const QStringList& files);
  void TakeHeld();
  // While files are taken over the card stays.
  bool IsBusy() const { return busy_; }

 Q_SIGNALS:
  void Changed();

 private:
  void Take();

  QWidget& window_;
  WidgetCardPicture& box_;
  ProductCard* card_ = nullptr;
  int IDCatalogo_ = 0;
  Connection* connection_ = nullptr;
  std::vector<std::pair<qint64, QStringList>> held_;  // files by the product on which they were dropped
  bool busy_ = false;
};

}  // namespace vorlina
