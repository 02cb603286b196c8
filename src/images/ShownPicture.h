// A picture as a window shows it: what has been decoded of it, and where there is more.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace vorlina {

struct ShownPicture {
  QImage image;     // null where there is nothing to show
  QSize size;       // of the whole picture, in pixels
  QString sharper;  // the file that has more pixels than the image; empty where none has
};

// A picture file, decoded to show it whole in a box of so many device pixels. Nothing to show for a file that
// is missing, damaged or no JPEG: never fails.
ShownPicture ShowPicture(const QString& path, QSize box);

// A product's picture for a small place: the thumbnail of its main image, or the main image where there is
// no thumbnail that can be read. Never fails.
ShownPicture ShowThumbnail(const QString& mainImage, QSize box);

// Decodes the picture again where that does not show it sharp in the box and its file has more. True
// where it changed. Never fails.
bool Sharpen(ShownPicture& picture, QSize box);

}  // namespace vorlina
