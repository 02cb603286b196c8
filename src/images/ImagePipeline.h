// The rules of stored pictures: fitting a new picture to the size limit, the thumbnail, re-encoding,
// deletion. Sizes are pixels of the upright picture.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QSizeF>
#include <QString>

namespace vorlina {

class Connection;
struct JpegHead;

// The limit of a thumbnail's longer side, and its JPEG quality.
inline constexpr int ThumbnailLimit = 200;
inline constexpr int ThumbnailQuality = 70;

// The settings that say what becomes of a new picture, each read when this is made.
struct PictureSettings {
  bool shrink;    // ResizeJPG: a picture over the limit is shrunk
  bool reRender;  // ReRenderJPG: one that was not shrunk is encoded again
  int quality;    // ReRenderQuality, 1 to 100

  static PictureSettings Read();
};

// The size before, and the size that was asked for, which is not rounded: pictures are scaled by whole per
// cents, so that the true size may differ by half a per cent.
struct ResizeResult {
  QSizeF source;
  QSizeF target;
};

// What becomes of a new picture, in memory.
struct FittedJpeg {
  ResizeResult sizes;
  QByteArray jpeg;  // empty where the file stays as it is
};

// The limit of a stored picture's longer side, in pixels: the setting ResizeTo.
double PictureLimit();

// A picture file's bytes. Throws Error for one that cannot be read, is no JPEG or is larger than 512 MB.
QByteArray ReadPictureFile(const QString& path);

// The size of the upright picture.
QSize UprightSize(const JpegHead& head);

// Throws Error for a file that is missing or no JPEG.
QSize MeasureImage(const QString& path);

// The file of a product's main image: "Images", catalog, code.
QString MainImagePath(int IDCatalogo, const QString& CodiceProdotto);

// The thumbnail's file of a main image: "t" before its name, in the folder "Images".
QString ThumbnailPath(const QString& mainImage);

// Fits a picture to the limit of its longer side, or encodes it again in its own size, as the settings say.
// Throws Error for a picture that cannot be decoded whole; a failure to encode leaves it as it is. Any thread
// may call it.
FittedJpeg FitToLimit(const QByteArray& jpeg, double limit, const PictureSettings& settings);

// The picture with its longer side at the limit; a smaller one is enlarged. Throws Error. Any thread may call
// it.
QByteArray RenderThumbnail(const QByteArray& jpeg, double limit);

// FitToLimit on a file that was just copied into "Images". It is replaced whole or stays as it was.
ResizeResult ResizeImage(const QString& path, double limit);

// Makes the thumbnail of a main image. Never fails: a missing thumbnail is not reported.
void CreateThumbnail(const QString& path, double limit);

// Decodes and encodes the picture in its own size. Never fails; the file then stays as it was.
void ReRenderImage(const QString& path);

// Deletes the files of a product: main image, thumbnail, additional images. The rows are its caller's, who
// calls this first. Never fails.
void DeleteProductImages(const QString& CodiceProdotto, int IDCatalogo, Connection& connection);

}  // namespace vorlina
