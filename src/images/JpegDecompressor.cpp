#include "images/JpegDecompressor.h"

#include <cstdlib>

#include "base/Error.h"
#include "base/Texts.h"
#include "images/ColourConversion.h"
#include "images/ExifOrientation.h"

namespace vorlina {
namespace {

void RefuseSize(QSize size) {
  if (size.width() > LargestSide || size.height() > LargestSide ||
      qint64(size.width()) * size.height() > LargestPixels)
    throw Error(Texts::tr("l'immagine è troppo grande (%1 x %2 punti)").arg(size.width()).arg(size.height()));
}

// Of the decoder's scales those by halves look best. What they leave out shows where hardly anything is left
// to the filter that follows, which is why they are to be a fifth larger than what is wanted.
unsigned CoveringScale(QSize size, QSize atLeast) {
  if (atLeast.isEmpty()) return 8;
  for (unsigned eighths = 1; eighths < 8; eighths *= 2) {
    const auto covers = [=](int side, int wanted) {
      return qint64(side) * eighths * 5 >= qint64(wanted) * 8 * 6;
    };
    if (covers(size.width(), atLeast.width()) && covers(size.height(), atLeast.height())) return eighths;
  }
  return 8;
}

// A picture in several scans is held whole, as two bytes a coefficient.
qint64 CoefficientBytes(jpeg_decompress_struct& info) {
  if (jpeg_has_multiple_scans(&info) == FALSE) return 0;
  qint64 bytes = 0;
  for (int i = 0; i < info.num_components; ++i)
    bytes += qint64(info.comp_info[i].width_in_blocks) * info.comp_info[i].height_in_blocks * DCTSIZE2 * 2;
  return bytes;
}

}  // namespace

JpegDecompressor::JpegDecompressor(const QByteArray& jpeg) {
  info_.err = errors_.Install();
  if (!IsJpeg(jpeg)) throw Error(Texts::tr("non è un'immagine JPEG"));
  const bool done = TryHead(jpeg);
  try {
    Check(done);
    head_.size = QSize(int(info_.image_width), int(info_.image_height));
    RefuseSize(head_.size);
    head_.coefficientBytes = CoefficientBytes(info_);
    ReadMarkers();
  } catch (...) {
    jpeg_destroy_decompress(&info_);
    throw;
  }
}

JpegDecompressor::~JpegDecompressor() { jpeg_destroy_decompress(&info_); }

void JpegDecompressor::ScaleToCover(QSize atLeast) { Check(TryScale(CoveringScale(head_.size, atLeast))); }

void JpegDecompressor::StartPlanes() {
  info_.raw_data_out = TRUE;
  info_.out_color_space = info_.jpeg_color_space;
  Check(TryStart());
}

void JpegDecompressor::StartLines(J_COLOR_SPACE colours) {
  info_.out_color_space = colours;
  Check(TryStart());
}

void JpegDecompressor::ReadPlanes(JSAMPIMAGE rows, unsigned lines) { Check(TryReadPlanes(rows, lines)); }
void JpegDecompressor::ReadLine(std::uint8_t* line) { Check(TryReadLine(line)); }
void JpegDecompressor::Finish() { Check(TryFinish()); }

ColourProfile::Samples JpegDecompressor::Stored() const {
  using Samples = ColourProfile::Samples;
  if (IsCmyk()) return info_.saw_Adobe_marker == TRUE ? Samples::InvertedCmyk : Samples::Cmyk;
  return info_.jpeg_color_space == JCS_GRAYSCALE ? Samples::Grey : Samples::Rgb;
}

void JpegDecompressor::ReadRgb(const std::function<void(const std::uint8_t* line, int y)>& take) {
  const ColourProfile::Samples stored = Stored();
  const ColourProfile profile(stored == ColourProfile::Samples::Rgb ? QByteArray() : head_.iccProfile,
                              stored);
  StartLines(IsCmyk() ? JCS_CMYK : profile.Converts() ? JCS_GRAYSCALE : JCS_RGB);
  const auto width = std::size_t(info_.output_width);
  std::vector<std::uint8_t> line(width * std::size_t(info_.output_components));
  std::vector<std::uint8_t> rgb(width * 3);
  for (unsigned y = 0; y < info_.output_height; ++y) {
    ReadLine(line.data());
    if (profile.Converts())
      profile.ToRgb(line.data(), rgb.data(), int(width));
    else if (IsCmyk())
      CmykToRgb(line.data(), int(width), stored == ColourProfile::Samples::InvertedCmyk);
    take(profile.Converts() ? rgb.data() : line.data(), int(y));
  }
  Finish();
}

bool JpegDecompressor::TryHead(const QByteArray& jpeg) {
  if (setjmp(errors_.back) != 0) return false;
  jpeg_create_decompress(&info_);
  info_.mem->max_memory_to_use = JpegMemory;
  info_.progress = &errors_.progress;
  jpeg_mem_src(&info_, reinterpret_cast<const unsigned char*>(jpeg.constData()),
               static_cast<unsigned long>(jpeg.size()));
  jpeg_save_markers(&info_, JPEG_APP0 + 1, 0xFFFF);
  jpeg_save_markers(&info_, JPEG_APP0 + 2, 0xFFFF);
  jpeg_read_header(&info_, TRUE);
  return true;
}

bool JpegDecompressor::TryScale(unsigned eighths) {
  if (setjmp(errors_.back) != 0) return false;
  info_.scale_num = eighths;
  info_.scale_denom = 8;
  jpeg_calc_output_dimensions(&info_);
  return true;
}

bool JpegDecompressor::TryStart() {
  if (setjmp(errors_.back) != 0) return false;
  jpeg_start_decompress(&info_);
  return true;
}

bool JpegDecompressor::TryReadPlanes(JSAMPIMAGE rows, unsigned lines) {
  if (setjmp(errors_.back) != 0) return false;
  jpeg_read_raw_data(&info_, rows, lines);
  return true;
}

bool JpegDecompressor::TryReadLine(JSAMPROW line) {
  if (setjmp(errors_.back) != 0) return false;
  jpeg_read_scanlines(&info_, &line, 1);
  return true;
}

bool JpegDecompressor::TryFinish() {
  if (setjmp(errors_.back) != 0) return false;
  jpeg_finish_decompress(&info_);
  return true;
}

bool JpegDecompressor::TryProfile(JOCTET** data, unsigned* size) {
  if (setjmp(errors_.back) != 0) return false;
  return jpeg_read_icc_profile(&info_, data, size) == TRUE;
}

void JpegDecompressor::Check(bool done) const {
  if (!done)
    throw Error(
        Texts::tr("l'immagine è danneggiata o incompleta (%1)").arg(QString::fromLatin1(errors_.text)));
}

void JpegDecompressor::ReadMarkers() {
  // The first EXIF block is the picture's own.
  std::optional<int> orientation;
  for (const jpeg_marker_struct* marker = info_.marker_list; marker != nullptr; marker = marker->next)
    if (marker->marker == JPEG_APP0 + 1 && !orientation)
      orientation = ExifOrientation(marker->data, marker->data_length);
  head_.orientation = orientation.value_or(1);
  // A profile in pieces that do not fit together is a warning of the library; the picture is then taken as
  // sRGB.
  JOCTET* profile = nullptr;
  unsigned size = 0;
  if (TryProfile(&profile, &size))
    head_.iccProfile = QByteArray(reinterpret_cast<const char*>(profile), int(size));
  std::free(profile);
}

}  // namespace vorlina
