// Pictures for the screen.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace vorlina {

// Loads a JPEG file for display: upright, in sRGB, at one of the decoder's reduced scales that still covers
// what it takes to show it whole in the box, in device pixels (an empty box takes the full scale); it is to
// be scaled smoothly from there. size, if given, receives the size of the whole upright picture. Throws Error
// for a file that is missing, damaged, too large or no JPEG.
QImage LoadPicture(const QString& path, QSize box, QSize* size = nullptr);

}  // namespace vorlina
