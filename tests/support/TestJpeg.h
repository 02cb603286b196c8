// JPEG files for tests and benchmarks, in every form that a camera or a program may write.
#pragma once

#include <QByteArray>
#include <QImage>

namespace vorlina {

struct JpegForm {
  int quality = 92;
  bool progressive = false;
  bool separateScans = false;  // a plain one, each colour by itself
  // How many samples of the first plane stand across and down for one of the others.
  int across = 2;
  int down = 2;
  // The other planes' own factors, where they are not 1.
  int blue[2] = {1, 1};
  int red[2] = {1, 1};
  enum class Colours { YCbCr, Grey, Cmyk, Rgb } colours = Colours::YCbCr;
  QByteArray exif = {};  // the body of an APP1 marker
  QByteArray icc = {};
};

// CMYK is written inverted, as the usual programs do.
QByteArray MakeJpeg(const QImage& image, const JpegForm& form = {});

// EXIF data with an orientation, a camera's name and a place, in either byte order.
QByteArray MakeExif(int orientation, bool bigEndian = false);

// Soft shapes, edges and a sensor's noise. Equal for an equal seed.
QImage MakePhoto(QSize size, unsigned seed);

// One colour in each quarter: red, green, blue and white, from the upper left clockwise to the lower left.
QImage MakeQuarters(QSize size);

}  // namespace vorlina
