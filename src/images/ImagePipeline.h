// Picture files on their way into a catalog: what is taken, and what the settings make of it. Sizes are
// pixels of the upright picture.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <exception>

#include "images/PictureRendering.h"

namespace vorlina {

// The settings that say what becomes of a new picture, as they are now.
PictureSettings ReadPictureSettings();

// The limit of a stored picture's longer side, in pixels: the setting ResizeTo.
double PictureLimit();

// Throws the Error of a picture file that cannot be taken.
[[noreturn]] void RefuseFile(const QString& path, const QString& reason);

// A failure as it is told among those of other files: with the file's name, which it may hold already.
QString FailureOfFile(const QString& file, const std::exception& error);

// A picture file's bytes. Throws Error for one that cannot be read, is no JPEG or is larger than 512 MB.
QByteArray ReadPictureFile(const QString& path);

// The upright size of a picture that is decoded whole, at the smallest scale. Throws Error for a file that is
// missing, no JPEG, damaged or cut short.
QSize MeasureWholeImage(const QString& path);

// A picture file as it is, and its upright size: a logo is neither fitted nor encoded again. Throws Error as
// above.
PreparedPicture PrepareLogoFile(const QString& path);

// Prepare a picture file for a catalog by the settings as they are. Throw Error for one that cannot be read
// or is no whole JPEG picture.
PreparedPicture PrepareMainFile(const QString& path);
PreparedPicture PrepareAdditionalFile(const QString& path);

}  // namespace vorlina
