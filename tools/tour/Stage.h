// Where windows stand while they are filmed: a plain desktop, on which each has a title bar.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QWidget>
#include <vector>

#include "support/TourFilm.h"

namespace vorlina {

class Stage {
 public:
  explicit Stage(TourFilm& film) : film_(film) {}

  // Nothing stands on it any more.
  void Clear() { put_.clear(); }
  // Puts a window on top of the others, by the corner of its frame. A menu has none.
  void Put(QWidget& window, QPoint corner, bool framed = true);
  // Puts it in the middle.
  void PutInMiddle(QWidget& window);
  // What stands there is the picture of the scenes to come.
  void Take();
  // A scene that tells of a control, or of a part of it, in its own coordinates.
  void Scene(const QString& name, const QWidget& control, QRect part = {}, bool click = false);

 private:
  struct Standing {
    QWidget* window;
    QPoint corner;  // of the frame
    bool framed;
  };
  static QPoint Inside(const Standing& standing);

  TourFilm& film_;
  std::vector<Standing> put_;
  QImage last_;
};

}  // namespace vorlina
