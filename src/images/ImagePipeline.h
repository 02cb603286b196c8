// The rules of stored pictures: fitting a new picture to the size limit, the thumbnail, re-encoding,
// deletion. Sizes are pixels of the upright picture.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <QStringList>

#include "images/PictureRendering.h"
#include "images/PictureStore.h"

namespace vorlina {

class Connection;

// The limit of a thumbnail's longer side, in pixels.
inline constexpr int ThumbnailLimit = 200;

// The settings that say what becomes of a new picture, as they are now.
PictureSettings ReadPictureSettings();

// The limit of a stored picture's longer side, in pixels: the setting ResizeTo.
double PictureLimit();

// Throws the Error of a picture file that cannot be taken.
[[noreturn]] void RefuseFile(const QString& path, const QString& reason);

// A picture file's bytes. Throws Error for one that cannot be read, is no JPEG or is larger than 512 MB.
QByteArray ReadPictureFile(const QString& path);

// Throws Error for a file that is missing or no JPEG.
QSize MeasureImage(const QString& path);
// The same of a picture that is decoded whole, at the smallest scale: also what is damaged or cut short is
// refused.
QSize MeasureWholeImage(const QString& path);

// FitToLimit on a file that was just copied into "Images". It is replaced whole or stays as it was.
ResizeResult ResizeImage(const QString& path, double limit);

// Makes the thumbnail of a main image. Never fails: a missing thumbnail is not reported.
void CreateThumbnail(const QString& path, double limit);

// Writes the thumbnail of a main image; an empty one, or one that cannot be written, leaves none: an older
// one would show another picture. Never fails.
void StoreThumbnail(const QString& path, const QByteArray& thumbnail);

// Decodes and encodes the picture in its own size. Never fails; the file then stays as it was.
void ReRenderImage(const QString& path);

// The files that a product's rows name: main image and additional images. Never fails; what cannot be read is
// left out.
PictureFiles ProductImageFiles(const QString& CodiceProdotto, int IDCatalogo, Connection& connection);

// Removes those files of a product, thumbnail included, that lie in "Images" and that no row of anything else
// names. The rows are its caller's, who calls this first. Never fails.
void DeleteProductImages(const QString& CodiceProdotto, int IDCatalogo, Connection& connection);

}  // namespace vorlina
