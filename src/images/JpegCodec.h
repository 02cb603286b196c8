// Reading and writing JPEG pictures in memory, in the planes in which they are stored: no conversion to RGB
// and back where the colours allow it.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>
#include <cstdint>
#include <vector>

namespace vorlina {

// One plane of samples, row by row; a row may be followed by padding.
struct Plane {
  int width = 0;
  int height = 0;
  int stride = 0;  // samples from one row to the next
  std::vector<std::uint8_t> samples;

  Plane() = default;
  Plane(int w, int h) : width(w), height(h), stride(w), samples(std::size_t(w) * std::size_t(h)) {}
  std::uint8_t* Row(int y) { return samples.data() + std::size_t(y) * std::size_t(stride); }
  const std::uint8_t* Row(int y) const { return samples.data() + std::size_t(y) * std::size_t(stride); }
};

// A decoded picture: one plane (grey) or three (YCbCr). The first plane has the picture's size; the chroma
// planes may be smaller.
struct PlanarImage {
  std::vector<Plane> planes;

  QSize Size() const { return planes.empty() ? QSize() : QSize(planes[0].width, planes[0].height); }
};

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

// Reads the head. Throws Error for what is no JPEG, has no size or is larger than allowed.
JpegHead ReadJpegHead(const QByteArray& jpeg);

// Decodes at a reduced scale that still covers the wanted size, unturned. Greyscale,
// YCbCr, RGB and CMYK files come out as grey or YCbCr, in the colours of the file's profile. Throws Error; a
// damaged or truncated file is refused, as is one that takes more than 256 MB to decode.
PlanarImage DecodeJpeg(const QByteArray& jpeg, QSize atLeast);

// Encodes at a quality of 1 to 100, with nothing but the picture in the file. Throws Error.
QByteArray EncodeJpeg(const PlanarImage& image, int quality);

}  // namespace vorlina
