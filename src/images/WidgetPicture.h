// A picture box: the picture whole, sharp on every screen. While its size changes the picture is stretched in
// a quick way; at rest it is scaled smoothly to the very pixels it covers, and decoded again where it grew
// beyond what was decoded.
#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include "images/ShownPicture.h"

namespace vorlina {

class WidgetPicture : public QWidget {
 public:
  explicit WidgetPicture(QWidget* parent = nullptr);

  // Shows the picture in the middle of the box that it was given, or nothing.
  void SetPicture(ShownPicture picture);
  bool IsEmpty() const { return picture_.image.isNull(); }

  // Takes place in a box of its parent: centred and as large as fits, or all of it where there is no picture.
  void FitInto(const QRect& box);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize Pixels() const;
  void Settle();

  ShownPicture picture_;
  QRect box_;
  QPixmap painted_;  // the picture as it was last scaled
  QTimer settle_;    // runs while the size changes
};

// A size of a window's part, in device pixels.
QSize DevicePixels(const QWidget& window, QSize size);

}  // namespace vorlina
