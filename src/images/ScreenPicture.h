// Pictures for the screen.
#pragma once

#include <QImage>
#include <QSize>
#include <QString>

namespace vorlina {

// Loads a JPEG file for display: upright, in sRGB, at one of the decoder's reduced scales that still covers
// the size in device pixels (an empty size takes the full scale), which is to be scaled smoothly from there.
// size, if given, receives the size of the whole upright picture. Throws Error for a file that is missing,
// damaged, too large or no JPEG.
QImage LoadPicture(const QString& path, QSize covering, QSize* size = nullptr);

}  // namespace vorlina
