// What becomes of a picture on its way into a catalog, in memory. Sizes are pixels of the upright picture.
// Any thread may call these procedures.
#pragma once

#include <QByteArray>
#include <QList>
#include <QSize>
#include <QSizeF>
#include <vector>

#include "images/JpegCodec.h"

namespace vorlina {

// What is asked for: the settings ResizeJPG, ReRenderJPG and ReRenderQuality.
struct PictureSettings {
  bool shrink = true;    // a picture over the limit is shrunk
  bool reRender = true;  // one that was not shrunk is encoded again
  int quality = 100;     // 1 to 100
};

// The size before, and the size that was asked for, which is not rounded: pictures are scaled by whole per
// cents, so that the true size may differ by half a per cent of the side.
struct ResizeResult {
  QSizeF source;
  QSizeF target;
};

struct FittedJpeg {
  ResizeResult sizes;
  QByteArray jpeg;    // empty where the picture stays as it is
  PlanarImage image;  // what was encoded: upright, in sRGB
};

// A picture as it is to be stored.
struct PreparedPicture {
  QByteArray jpeg;       // empty where the file is to be copied as it is
  QByteArray thumbnail;  // empty where it could not be made, and for an additional image
  QSize size;            // of the upright picture
};

// The limit of a thumbnail's longer side, in pixels.
inline constexpr int ThumbnailLimit = 200;

// The size of the upright picture.
QSize UprightSize(const JpegHead& head);

// Fits a picture to the limit of its longer side, or encodes it again in its own size, as the settings say.
// Throws Error for a picture that cannot be decoded whole; a failure to encode leaves it as it is.
FittedJpeg FitToLimit(const QByteArray& jpeg, double limit, const PictureSettings& settings);

// The picture with its longer side at the limit, at the quality of thumbnails; a smaller one is enlarged.
// Throws Error.
QByteArray RenderThumbnail(const QByteArray& jpeg, double limit);
// The same of an upright picture in sRGB.
QByteArray RenderThumbnail(PlanarImage image, double limit);

// The picture in its own size, decoded and encoded. Throws Error.
QByteArray RenderAgain(const QByteArray& jpeg, int quality);

// A main image: fitted, with its thumbnail. Throws Error for a picture that cannot be decoded whole.
PreparedPicture PrepareMain(const QByteArray& jpeg, double limit, const PictureSettings& settings);
// An additional image: fitted, and encoded once more where it was not shrunk and the settings say so. Throws
// Error as above.
PreparedPicture PrepareAdditional(const QByteArray& jpeg, double limit, const PictureSettings& settings);

// A picture as readers of a publication get it, in one of its sizes.
struct ReaderPicture {
  QSize size;
  QByteArray jpeg;
  QByteArray webp;  // empty where it would not be smaller than the JPEG by a quarter
};

// The sizes of an upright picture whose longer side is at most each of these limits; a picture is not
// enlarged, so that there may be fewer than limits. The limits ascend, and so do the sizes.
std::vector<QSize> ReaderSizes(QSize size, const QList<int>& limits);

// The picture in these sizes, decoded once: upright, in sRGB, with nothing but the picture in the files.
// Throws Error for one that cannot be decoded whole.
std::vector<ReaderPicture> RenderForReaders(const QByteArray& jpeg, const QList<int>& limits);

// An estimate of the bytes that FitToLimit takes besides the picture's own, and RenderForReaders with its
// largest limit.
qint64 RenderingMemory(const JpegHead& head, double limit, const PictureSettings& settings);

}  // namespace vorlina
