#include "images/JpegCodec.h"

#include <algorithm>

#include "images/ColourConversion.h"
#include "images/JpegDecompressor.h"

namespace vorlina {
namespace {

// Whether the planes can be taken as they are stored: grey, or YCbCr whose first plane is the finest.
bool HasUsablePlanes(const jpeg_decompress_struct& info) {
  if (info.jpeg_color_space == JCS_GRAYSCALE) return info.num_components == 1;
  return info.jpeg_color_space == JCS_YCbCr && info.num_components == 3 &&
         info.comp_info[0].h_samp_factor == info.max_h_samp_factor &&
         info.comp_info[0].v_samp_factor == info.max_v_samp_factor;
}

// The library writes whole blocks: each plane is as large as its blocks, and what is beyond the picture
// becomes padding.
struct BlockPlane {
  Plane plane;
  std::vector<JSAMPROW> rows;  // of one band

  BlockPlane(const jpeg_component_info& component, unsigned bands)
      : plane(int(component.width_in_blocks) * component.DCT_scaled_size,
              component.v_samp_factor * component.DCT_scaled_size * int(bands)),
        rows(std::size_t(component.v_samp_factor * component.DCT_scaled_size)) {}

  JSAMPARRAY Band(unsigned band) {
    for (std::size_t row = 0; row < rows.size(); ++row) rows[row] = plane.Row(int(band * rows.size() + row));
    return rows.data();
  }
};

PlanarImage DecodePlanes(JpegDecompressor& decompressor) {
  decompressor.StartPlanes();
  const jpeg_decompress_struct& info = decompressor.Info();
  const unsigned lines = unsigned(info.max_v_samp_factor * info.min_DCT_scaled_size);
  const unsigned bands = (info.output_height + lines - 1) / lines;
  std::vector<BlockPlane> all;
  all.reserve(std::size_t(info.num_components));
  for (int i = 0; i < info.num_components; ++i) all.emplace_back(info.comp_info[i], bands);
  for (unsigned band = 0; band < bands; ++band) {
    JSAMPARRAY rows[MAX_COMPONENTS] = {};
    for (std::size_t i = 0; i < all.size(); ++i) rows[i] = all[i].Band(band);
    decompressor.ReadPlanes(rows, lines);
  }
  PlanarImage image;
  for (std::size_t i = 0; i < all.size(); ++i) {
    image.planes.push_back(std::move(all[i].plane));
    image.planes.back().width = int(info.comp_info[i].downsampled_width);
    image.planes.back().height = int(info.comp_info[i].downsampled_height);
  }
  decompressor.Finish();
  return image;
}

// What is not stored as grey or YCbCr goes through RGB.
PlanarImage DecodeThroughRgb(JpegDecompressor& decompressor) {
  const jpeg_decompress_struct& info = decompressor.Info();
  PlanarImage image;
  for (int i = 0; i < 3; ++i) image.planes.emplace_back(int(info.output_width), int(info.output_height));
  decompressor.ReadRgb([&](const std::uint8_t* line, int y) { RgbToPlanes(line, image, y); });
  return image;
}

}  // namespace

JpegHead ReadJpegHead(const QByteArray& jpeg) { return JpegDecompressor(jpeg).Head(); }

PlanarImage DecodeJpeg(const QByteArray& jpeg, QSize atLeast) {
  JpegDecompressor decompressor(jpeg);
  decompressor.ScaleToCover(atLeast);
  return HasUsablePlanes(decompressor.Info()) ? DecodePlanes(decompressor) : DecodeThroughRgb(decompressor);
}

}  // namespace vorlina
