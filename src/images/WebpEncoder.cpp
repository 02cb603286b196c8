#include "images/WebpEncoder.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include <webp/encode.h>

namespace vorlina {
namespace {

// Among the library's seven steps from fast to small: those beyond take more than twice the time for one part
// in twenty.
constexpr int Effort = 2;

constexpr int NoColour = 128;

// JPEG uses all values of a sample; WebP keeps some free at both ends (ITU-R BT.601).
class Narrowed {
 public:
  // What stands for nothing, no light or no colour, has to stay so to the very value.
  Narrowed(int nothing, int becomes, int range) {
    for (int i = 0; i < 256; ++i)
      values_[std::size_t(i)] = std::uint8_t(becomes + std::lround((i - nothing) * range / 255.0));
  }
  void Copy(const Plane& plane, int width, int height, std::uint8_t* target, int stride) const {
    for (int y = 0; y < height; ++y) {
      const std::uint8_t* row = plane.Row(y);
      std::transform(row, row + width, target + std::ptrdiff_t(y) * stride,
                     [this](std::uint8_t sample) { return values_[sample]; });
    }
  }

 private:
  std::array<std::uint8_t, 256> values_{};
};

void Fill(const PlanarImage& image, WebPPicture& picture) {
  static const Narrowed luma(0, 16, 219);
  static const Narrowed chroma(NoColour, NoColour, 224);
  luma.Copy(image.planes[0], picture.width, picture.height, picture.y, picture.y_stride);
  const int width = (picture.width + 1) / 2;
  const int height = (picture.height + 1) / 2;
  std::array<std::uint8_t*, 2> targets = {picture.u, picture.v};
  for (std::size_t i = 0; i < targets.size(); ++i) {
    if (image.planes.size() > 1) {
      chroma.Copy(image.planes[i + 1], width, height, targets[i], picture.uv_stride);
      continue;
    }
    for (int y = 0; y < height; ++y)
      std::fill_n(targets[i] + std::ptrdiff_t(y) * picture.uv_stride, width, std::uint8_t(NoColour));
  }
}

bool IsEncodable(const PlanarImage& image) {
  const QSize size = image.Size();
  if (size.isEmpty() || std::max(size.width(), size.height()) > WEBP_MAX_DIMENSION) return false;
  return std::all_of(image.planes.begin() + 1, image.planes.end(), [&](const Plane& plane) {
    return plane.width == (size.width() + 1) / 2 && plane.height == (size.height() + 1) / 2;
  });
}

}  // namespace

QByteArray EncodeWebp(const PlanarImage& image, int quality) {
  WebPConfig config;
  WebPPicture picture;
  if (!IsEncodable(image) || WebPConfigInit(&config) == 0 || WebPPictureInit(&picture) == 0) return {};
  config.quality = float(std::clamp(quality, 1, 100));
  config.method = Effort;
  picture.width = image.Size().width();
  picture.height = image.Size().height();
  const std::unique_ptr<WebPPicture, decltype(&WebPPictureFree)> pictureEnd(&picture, WebPPictureFree);
  WebPMemoryWriter written;
  WebPMemoryWriterInit(&written);
  const std::unique_ptr<WebPMemoryWriter, decltype(&WebPMemoryWriterClear)> writerEnd(&written,
                                                                                      WebPMemoryWriterClear);
  picture.writer = WebPMemoryWrite;
  picture.custom_ptr = &written;
  if (WebPPictureAlloc(&picture) == 0) return {};
  Fill(image, picture);
  if (WebPEncode(&config, &picture) == 0) return {};
  return QByteArray(reinterpret_cast<const char*>(written.mem), qsizetype(written.size));
}

}  // namespace vorlina
