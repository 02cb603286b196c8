// What is known of a JPEG file before it is decoded, and how large one may be.
#pragma once

#include <QByteArray>
#include <QSize>

namespace vorlina {

// What the head of a JPEG file says.
struct JpegHead {
  QSize size;                   // in pixels, as stored, before any turning
  int orientation = 1;          // EXIF orientation, 1 to 8
  qint64 coefficientBytes = 0;  // what decoding a picture that is stored in several scans holds besides
  QByteArray iccProfile;        // empty where there is none
};

// Whether these are the first bytes of a JPEG file.
inline bool IsJpeg(const QByteArray& bytes) { return bytes.startsWith("\xFF\xD8\xFF"); }

// The largest picture that is taken: what JPEG itself allows a side, and 300 megapixels.
inline constexpr int LargestSide = 65500;
inline constexpr qint64 LargestPixels = 300'000'000;

}  // namespace vorlina
