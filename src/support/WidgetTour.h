// Plays the film of the tour: shows a scene whole, at whatever size it has, and moves the pointer to what the
// scene tells of. It goes on to the next scene by itself while it is playing.
#pragma once

#include <QImage>
#include <QTimer>
#include <QVariantAnimation>
#include <QWidget>

#include "support/TourFilm.h"

namespace vorlina {

class WidgetTour : public QWidget {
  Q_OBJECT

 public:
  explicit WidgetTour(QWidget* parent = nullptr);

  // Begins at the first scene, at rest. An empty film shows nothing.
  void SetFilm(const TourFilm& film);
  int Count() const { return int(film_.scenes.size()); }
  int Current() const { return current_; }
  // "" without a film.
  QString Caption() const;

  // Nothing happens beyond the ends.
  void GoTo(int scene);
  // Beginning to play at the last scene starts over.
  void SetPlaying(bool playing);
  bool IsPlaying() const { return playing_; }
  // Whether things may move by themselves, as the desktop wants it.
  bool MayMove() const;

 Q_SIGNALS:
  // Another scene shows, or it began or ended to play.
  void Changed();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void LoadPicture();
  void ShowNext();
  QPointF Pointer() const;

  TourFilm film_;
  int current_ = 0;
  QImage picture_;
  int loaded_ = -1;
  QPointF from_;  // where the pointer comes from
  bool playing_ = false;
  QVariantAnimation glide_;
  QTimer next_;
};

}  // namespace vorlina
