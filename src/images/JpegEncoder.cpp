#include <algorithm>
#include <array>
#include <cstdlib>

#include "base/Error.h"
#include "base/Texts.h"
#include "images/JpegCodec.h"
#include "images/JpegErrors.h"

namespace vorlina {
namespace {

// How often a chroma plane's sample is stored per sample of the first plane, 1 or 2; 0 for sizes that do not
// fit.
int Subsampling(int luma, int chroma) {
  if (chroma == luma) return 1;
  return chroma == (luma + 1) / 2 ? 2 : 0;
}

// The colours as they are on average, what is coarse in the light, the rest of the colours, the fine. No
// value is sent in two halves: that takes twice the time and, in pictures for readers, more bytes.
constexpr std::array<jpeg_scan_info, 5> ColourScans = {{{3, {0, 1, 2}, 0, 0, 0, 0},
                                                        {1, {0}, 1, 2, 0, 0},
                                                        {1, {1}, 1, 63, 0, 0},
                                                        {1, {2}, 1, 63, 0, 0},
                                                        {1, {0}, 3, 63, 0, 0}}};
constexpr std::array<jpeg_scan_info, 3> GreyScans = {
    {{1, {0}, 0, 0, 0, 0}, {1, {0}, 1, 2, 0, 0}, {1, {0}, 3, 63, 0, 0}}};

class Compressor {
 public:
  Compressor() : info_{} { info_.err = errors_.Install(); }
  ~Compressor() {
    // After a failure the library has not yet told where its buffer has grown to.
    if (info_.dest != nullptr) info_.dest->term_destination(&info_);
    jpeg_destroy_compress(&info_);
    std::free(output_);
  }
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;

  bool Start(const PlanarImage& image, int quality, JpegScans scans) {
    if (setjmp(errors_.back) != 0) return false;
    jpeg_create_compress(&info_);
    jpeg_mem_dest(&info_, &output_, &size_);
    const Plane& luma = image.planes[0];
    info_.image_width = JDIMENSION(luma.width);
    info_.image_height = JDIMENSION(luma.height);
    info_.input_components = int(image.planes.size());
    info_.in_color_space = image.planes.size() == 1 ? JCS_GRAYSCALE : JCS_YCbCr;
    jpeg_set_defaults(&info_);
    jpeg_set_quality(&info_, quality, TRUE);
    info_.raw_data_in = TRUE;
    info_.comp_info[0].h_samp_factor = 1;
    info_.comp_info[0].v_samp_factor = 1;
    if (image.planes.size() == 3) {
      info_.comp_info[0].h_samp_factor = Subsampling(luma.width, image.planes[1].width);
      info_.comp_info[0].v_samp_factor = Subsampling(luma.height, image.planes[1].height);
    }
    if (scans == JpegScans::Several) {
      const bool grey = image.planes.size() == 1;
      info_.scan_info = grey ? GreyScans.data() : ColourScans.data();
      info_.num_scans = int(grey ? GreyScans.size() : ColourScans.size());
    }
    jpeg_start_compress(&info_, TRUE);
    return true;
  }

  bool Write(JSAMPIMAGE rows, unsigned lines) {
    if (setjmp(errors_.back) != 0) return false;
    jpeg_write_raw_data(&info_, rows, lines);
    return true;
  }

  bool Finish() {
    if (setjmp(errors_.back) != 0) return false;
    jpeg_finish_compress(&info_);
    return true;
  }

  const jpeg_compress_struct& Info() const { return info_; }
  QString Reason() const { return QString::fromLatin1(errors_.text); }
  QByteArray Output() const { return QByteArray(reinterpret_cast<const char*>(output_), qsizetype(size_)); }

 private:
  jpeg_compress_struct info_;
  JpegErrors errors_;
  unsigned char* output_ = nullptr;
  unsigned long size_ = 0;
};

void Check(bool done, const Compressor& compressor) {
  if (!done) throw Error(Texts::tr("L'immagine JPEG non può essere scritta: %1").arg(compressor.Reason()));
}

// A band of one plane's rows, widened to whole blocks by repeating the last sample, and by the last row below
// the plane.
class Band {
 public:
  Band(const Plane& plane, int rows, int width)
      : plane_(plane), width_(width), samples_(std::size_t(rows) * std::size_t(width)) {
    for (int row = 0; row < rows; ++row)
      rows_.push_back(samples_.data() + std::size_t(row) * std::size_t(width));
  }

  JSAMPARRAY Fill(int band) {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
      const int y = std::min(band * int(rows_.size()) + int(row), plane_.height - 1);
      std::copy_n(plane_.Row(y), plane_.width, rows_[row]);
      std::fill(rows_[row] + plane_.width, rows_[row] + width_, plane_.Row(y)[plane_.width - 1]);
    }
    return rows_.data();
  }

 private:
  const Plane& plane_;
  int width_;
  std::vector<std::uint8_t> samples_;
  std::vector<JSAMPROW> rows_;
};

void RequireStorable(const PlanarImage& image) {
  const auto& planes = image.planes;
  bool storable = (planes.size() == 1 || planes.size() == 3) && !image.Size().isEmpty();
  for (std::size_t i = 1; storable && i < planes.size(); ++i)
    storable = Subsampling(planes[0].width, planes[i].width) != 0 &&
               Subsampling(planes[0].height, planes[i].height) != 0 && planes[i].width == planes[1].width &&
               planes[i].height == planes[1].height;
  if (!storable) throw Error(Texts::tr("L'immagine non ha una forma che si possa scrivere"));
}

}  // namespace

QByteArray EncodeJpeg(const PlanarImage& image, int quality, JpegScans scans) {
  const std::size_t count = image.planes.size();
  RequireStorable(image);
  Compressor compressor;
  Check(compressor.Start(image, std::clamp(quality, 1, 100), scans), compressor);
  const jpeg_compress_struct& info = compressor.Info();
  std::vector<Band> bands;
  bands.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    const jpeg_component_info& component = info.comp_info[i];
    bands.emplace_back(image.planes[i], component.v_samp_factor * DCTSIZE,
                       int(component.width_in_blocks) * DCTSIZE);
  }
  const unsigned lines = unsigned(info.max_v_samp_factor) * DCTSIZE;
  for (int band = 0; info.next_scanline < info.image_height; ++band) {
    std::array<JSAMPARRAY, 3> rows{};
    for (std::size_t i = 0; i < count; ++i) rows[i] = bands[i].Fill(band);
    Check(compressor.Write(rows.data(), lines), compressor);
  }
  Check(compressor.Finish(), compressor);
  return compressor.Output();
}

}  // namespace vorlina
