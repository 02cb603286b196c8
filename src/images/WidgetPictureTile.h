// One place on a page of pictures: a frame with the picture of a product and its code beneath.
#pragma once

#include <QWidget>

#include "images/PicturePage.h"
#include "images/ShownPicture.h"

namespace vorlina {

class WidgetPicture;

class WidgetPictureTile : public QWidget {
  Q_OBJECT

 public:
  // The picture box inside the frame: sized to the picture.
  WidgetPicture* const intPicture;

  explicit WidgetPictureTile(QWidget* parent = nullptr);

  // Shows a product, described by the text that is also its tooltip. An empty code makes an empty tile.
  void Show(const QString& code, const QString& description, ShownPicture picture);
  const QString& Code() const { return code_; }
  // The place for the picture, in device pixels.
  QSize PicturePixels() const;
  void SetSelected(bool selected);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void Clicked();
  void DoubleClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  QRect Box() const;
  int CaptionHeight() const;
  void PaintFrame(QPainter& painter) const;
  void PaintCaption(QPainter& painter) const;

  QString code_;
  bool selected_ = false;
};

}  // namespace vorlina
