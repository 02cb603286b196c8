// The film of the tour: pictures of the program's windows, and for each scene where the pointer goes and what
// is pointed at. It holds one film for each language, and no words: these are the program's own.
#pragma once

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>
#include <map>
#include <vector>

namespace vorlina {

// Places are in the film's own units, whatever the pictures' resolution.
struct TourScene {
  QString name;     // of its caption
  int picture = 0;  // its place among the pictures
  QPoint pointer;
  QRect frame;         // drawn around what the scene tells of; empty for none
  bool click = false;  // at the pointer
};

// Most pictures are those before them but for a part.
struct TourPicture {
  QByteArray png;
  int base = -1;  // the place of the picture that this one is painted on; -1 for a whole one
  QPoint corner;  // of the part, in pixels
};

struct TourFilm {
  QSize size;
  std::vector<TourPicture> pictures;
  std::vector<TourScene> scenes;

  bool IsEmpty() const { return scenes.empty(); }
};

// What is told at a scene, in the language in use; "" for a scene that nobody knows.
QString TourCaption(const QString& scene);

// A picture as it shows; a null one where it cannot be read.
QImage PictureOf(const TourFilm& film, int picture);

// The file beside the program, or in the application folder.
QString TourPath();

// The film in a language, by its English name; in any other than those of the file the Italian one. An empty
// one where there is no file or it is damaged: never fails.
TourFilm ReadTour(const QString& path, const QString& language);

// Writes the films by their languages. Throws Error.
void WriteTour(const QString& path, const std::map<QString, TourFilm>& films);

}  // namespace vorlina
