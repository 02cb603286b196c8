// The pictures of the product on the card: its main picture beside the boxes, choosing another one, and files
// that are dropped on the card.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <utility>
#include <vector>

namespace vorlina {

class Connection;
class ProductCard;
class WidgetCardPicture;
class frmImage;
struct ProductKey;

class CardPictures : public QObject {
  Q_OBJECT

 public:
  // The boxes that it shows belong to the window.
  CardPictures(QWidget& window, WidgetCardPicture& box);

  // The card outlives its use; null for none.
  void SetCard(ProductCard* card, int IDCatalogo, Connection* connection);
  // Shows the main picture that the product has by now. False where it has none that can be viewed. Never
  // fails.
  bool Show();

  // Shows the pictures in windows of their own; where there is no main one, it is chosen first. Throws Error.
  void Open();
  // Has the user choose the main picture. Gives the path of the one that stays where none was chosen or it
  // could not be taken, which is told; "" where it was changed. Throws Error where the product is gone.
  QString Change();
  // The same, and shows what was chosen.
  void ChangeAndOpen();

  // Takes files over for the product on the card, once the drop is done and no box is up.
  void Drop(const QStringList& files);
  void TakeHeld();
  // While files are taken over, or wait for that, the card stays.
  bool IsBusy() const { return busy_ || !held_.empty(); }

 Q_SIGNALS:
  // The main picture is another one, or gone.
  void Changed(bool hasMain);

 private:
  void OpenPreview(const QString& path);
  void Take();

  QWidget& window_;
  WidgetCardPicture& box_;
  ProductCard* card_ = nullptr;
  int IDCatalogo_ = 0;
  Connection* connection_ = nullptr;
  std::vector<std::pair<qint64, QStringList>> held_;  // files by the product on which they were dropped
  QPointer<frmImage> preview_;
  bool busy_ = false;
};

}  // namespace vorlina
