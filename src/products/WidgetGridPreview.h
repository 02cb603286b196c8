// The floating preview of a product's main picture over the grid, with a shadow.
#pragma once

#include <QObject>
#include <QPoint>
#include <QString>

class QFrame;
class QWidget;

namespace vorlina {

class WidgetPicture;

class WidgetGridPreview : public QObject {
 public:
  // It floats over the grid, in the grid's own parent.
  explicit WidgetGridPreview(QWidget& grid);

  // Shows a main picture's thumbnail, or where there is none the picture itself, with a corner at a point of
  // the grid. A path that is empty or cannot be shown hides the preview.
  void Show(const QString& mainImage, QPoint point);
  // Nothing is shown, and the box has its usual size again.
  void Hide();
  // The pointer is on no cell any more. Hides, unless it is on the box, which comes up under the pointer.
  void PointerLeft();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void HideBox();
  void Place(QPoint point);

  QWidget& grid_;
  QFrame* picShadow;
  QFrame* picExt;
  WidgetPicture* picInt;
  QString Tag;  // the path now shown, "" if none
};

}  // namespace vorlina
