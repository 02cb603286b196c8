// The main picture on the product card, as large as there is room for it, or a line that stands in for it.
#pragma once

#include <QFrame>

class QLabel;

namespace vorlina {

class WidgetPicture;

class WidgetCardPicture : public QFrame {
  Q_OBJECT

 public:
  explicit WidgetCardPicture(QWidget* parent = nullptr);

  // Shows a main picture by its thumbnail, sharper where there is more room; without one, or where it cannot
  // be shown, the text.
  void Show(const QString& mainImage, const QString& otherwise);

 Q_SIGNALS:
  void Clicked();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void Fit();

  WidgetPicture* picture_;
  QLabel* text_;
};

}  // namespace vorlina
