// Reading and writing JPEG pictures in memory, in the planes in which they are stored: no conversion to RGB
// and back where the colours allow it.
#pragma once

#include <QByteArray>
#include <QSize>

#include "images/JpegHead.h"
#include "images/PlanarImage.h"

namespace vorlina {

// Reads the head. Throws Error for what is no JPEG, has no size or is larger than allowed.
JpegHead ReadJpegHead(const QByteArray& jpeg);

// Decodes at a reduced scale that still covers the wanted size, unturned. Greyscale,
// YCbCr, RGB and CMYK files come out as grey or YCbCr, in the colours of the file's profile. Throws Error; a
// damaged or truncated file is refused, as is one that takes more than 256 MB to decode.
PlanarImage DecodeJpeg(const QByteArray& jpeg, QSize atLeast);

// A picture in several scans takes fewer bytes, and a reader sees all of it from the first scan on; it takes
// more time to make.
enum class JpegScans { One, Several };

// Encodes at a quality of 1 to 100, with nothing but the picture in the file. Throws Error.
QByteArray EncodeJpeg(const PlanarImage& image, int quality, JpegScans scans = JpegScans::One);

}  // namespace vorlina
