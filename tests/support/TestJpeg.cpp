#include "support/TestJpeg.h"

#include <QPainter>
#include <cmath>
#include <cstdlib>
#include <random>
#include <vector>

#include <cstdio>

#include <jpeglib.h>

namespace vorlina {
namespace {

void SetForm(jpeg_compress_struct& info, const JpegForm& form) {
  using Colours = JpegForm::Colours;
  info.input_components = form.colours == Colours::Cmyk ? 4 : 3;
  info.in_color_space = form.colours == Colours::Cmyk ? JCS_CMYK : JCS_RGB;
  jpeg_set_defaults(&info);
  if (form.colours == Colours::Grey) jpeg_set_colorspace(&info, JCS_GRAYSCALE);
  if (form.colours == Colours::Rgb) jpeg_set_colorspace(&info, JCS_RGB);
  jpeg_set_quality(&info, form.quality, TRUE);
  if (form.progressive) jpeg_simple_progression(&info);
  static const jpeg_scan_info separate[] = {
      {1, {0}, 0, 63, 0, 0}, {1, {1}, 0, 63, 0, 0}, {1, {2}, 0, 63, 0, 0}};
  if (form.separateScans) {
    info.scan_info = separate;
    info.num_scans = 3;
  }
  if (form.colours == Colours::YCbCr) {
    info.comp_info[0].h_samp_factor = form.across;
    info.comp_info[0].v_samp_factor = form.down;
    for (int i = 1; i < 3; ++i) {
      info.comp_info[i].h_samp_factor = (i == 1 ? form.blue : form.red)[0];
      info.comp_info[i].v_samp_factor = (i == 1 ? form.blue : form.red)[1];
    }
  }
}

// A line as RGB, or as inverted CMYK whose black is the darkest of the three.
std::vector<std::uint8_t> LineOf(const QImage& image, int y, bool cmyk) {
  std::vector<std::uint8_t> line;
  for (int x = 0; x < image.width(); ++x) {
    const QRgb pixel = image.pixel(x, y);
    const int rgb[] = {qRed(pixel), qGreen(pixel), qBlue(pixel)};
    const int white = std::max({rgb[0], rgb[1], rgb[2]});
    for (const int value : rgb)
      line.push_back(std::uint8_t(!cmyk ? value : white == 0 ? 255 : value * 255 / white));
    if (cmyk) line.push_back(std::uint8_t(white));
  }
  return line;
}

}  // namespace

QByteArray MakeJpeg(const QImage& image, const JpegForm& form) {
  jpeg_compress_struct info{};
  jpeg_error_mgr errors{};
  info.err = jpeg_std_error(&errors);
  jpeg_create_compress(&info);
  unsigned char* bytes = nullptr;
  unsigned long size = 0;
  jpeg_mem_dest(&info, &bytes, &size);
  info.image_width = JDIMENSION(image.width());
  info.image_height = JDIMENSION(image.height());
  SetForm(info, form);
  jpeg_start_compress(&info, TRUE);
  if (!form.exif.isEmpty())
    jpeg_write_marker(&info, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(form.exif.constData()),
                      unsigned(form.exif.size()));
  if (!form.icc.isEmpty())
    jpeg_write_icc_profile(&info, reinterpret_cast<const JOCTET*>(form.icc.constData()),
                           unsigned(form.icc.size()));
  for (int y = 0; y < image.height(); ++y) {
    std::vector<std::uint8_t> line = LineOf(image, y, form.colours == JpegForm::Colours::Cmyk);
    JSAMPROW row = line.data();
    jpeg_write_scanlines(&info, &row, 1);
  }
  jpeg_finish_compress(&info);
  QByteArray jpeg(reinterpret_cast<const char*>(bytes), qsizetype(size));
  jpeg_destroy_compress(&info);
  std::free(bytes);
  return jpeg;
}

QByteArray MakeExif(int orientation, bool bigEndian) {
  QByteArray exif("Exif\0\0", 6);
  const auto add = [&](int bytes, unsigned value) {
    for (int i = 0; i < bytes; ++i) exif += char(value >> 8 * (bigEndian ? bytes - 1 - i : i));
  };
  const QByteArray camera("VorlinaCam 9\0", 13);
  const QByteArray place("45.0703N 7.6869E\0", 17);
  exif += bigEndian ? "MM" : "II";
  add(2, 42);
  add(4, 8);
  add(2, 3);  // entries: maker, orientation, a text that holds the place
  const unsigned texts = 8 + 2 + 3 * 12 + 4;
  add(2, 0x010F), add(2, 2), add(4, unsigned(camera.size())), add(4, texts);
  add(2, 0x0112), add(2, 3), add(4, 1), add(2, unsigned(orientation)), add(2, 0);
  add(2, 0x010E), add(2, 2), add(4, unsigned(place.size())), add(4, texts + unsigned(camera.size()));
  add(4, 0);
  return exif + camera + place;
}

QImage MakePhoto(QSize size, unsigned seed) {
  std::minstd_rand sensor(seed + 1);
  QImage image(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y)
    for (int x = 0; x < size.width(); ++x) {
      const double shapes = std::sin(x / 47.0 + seed) * std::sin(y / 31.0);
      const double base = 128 + (shapes > 0.2 ? 30 : -15) + double(sensor() % 17) - 8;
      const auto level = [&](double tint) { return std::clamp(int(base + 70 * shapes * tint), 0, 255); };
      image.setPixel(x, y, qRgb(level(1), level(0.6), level(-0.4)));
    }
  return image;
}

QImage MakeQuarters(QSize size) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  const int right = size.width() / 2;
  const int below = size.height() / 2;
  painter.fillRect(0, 0, right, below, Qt::red);
  painter.fillRect(right, 0, size.width(), below, Qt::green);
  painter.fillRect(right, below, size.width(), size.height(), Qt::blue);
  painter.fillRect(0, below, right, size.height(), Qt::white);
  return image;
}

}  // namespace vorlina
