#include "images/ColourConversion.h"

#include <QColorSpace>
#include <QColorTransform>
#include <QImage>
#include <algorithm>

#include "images/Resample.h"

namespace vorlina {
namespace {

// The equations of JFIF (ITU-R BT.601 over the full range), in 16-bit fixed point.
constexpr int Fix(double x) { return int(x * 65536 + (x < 0 ? -0.5 : 0.5)); }
constexpr int Half = 1 << 15;

std::uint8_t Clamp(int value) { return std::uint8_t(std::clamp(value, 0, 255)); }

void PlanesToRgb(const PlanarImage& image, int y, std::uint8_t* rgb) {
  const std::uint8_t* luma = image.planes[0].Row(y);
  const std::uint8_t* blue = image.planes[1].Row(y);
  const std::uint8_t* red = image.planes[2].Row(y);
  for (int x = 0; x < image.planes[0].width; ++x, rgb += 3) {
    const int cb = blue[x] - 128;
    const int cr = red[x] - 128;
    rgb[0] = Clamp(luma[x] + ((Fix(1.402) * cr + Half) >> 16));
    rgb[1] = Clamp(luma[x] + ((Fix(-0.344136) * cb + Fix(-0.714136) * cr + Half) >> 16));
    rgb[2] = Clamp(luma[x] + ((Fix(1.772) * cb + Half) >> 16));
  }
}

}  // namespace

void CmykToRgb(std::uint8_t* line, int width, bool inverted) {
  const std::uint8_t* from = line;
  for (int x = 0; x < width; ++x, from += 4) {
    const int black = inverted ? from[3] : 255 - from[3];
    for (int i = 0; i < 3; ++i) {
      const int ink = inverted ? from[i] : 255 - from[i];
      line[x * 3 + i] = std::uint8_t((ink * black + 127) / 255);
    }
  }
}

void RgbToPlanes(const std::uint8_t* rgb, PlanarImage& image, int y) {
  std::uint8_t* luma = image.planes[0].Row(y);
  std::uint8_t* blue = image.planes[1].Row(y);
  std::uint8_t* red = image.planes[2].Row(y);
  for (int x = 0; x < image.planes[0].width; ++x, rgb += 3) {
    const int r = rgb[0];
    const int g = rgb[1];
    const int b = rgb[2];
    luma[x] = Clamp((Fix(0.299) * r + Fix(0.587) * g + Fix(0.114) * b + Half) >> 16);
    blue[x] = Clamp(((Fix(-0.168736) * r + Fix(-0.331264) * g + Fix(0.5) * b + Half) >> 16) + 128);
    red[x] = Clamp(((Fix(0.5) * r + Fix(-0.418688) * g + Fix(-0.081312) * b + Half) >> 16) + 128);
  }
}

bool IsOtherThanSrgb(const QByteArray& iccProfile) {
  if (iccProfile.isEmpty()) return false;
  const QColorSpace space = QColorSpace::fromIccProfile(iccProfile);
  return space.isValid() && space != QColorSpace(QColorSpace::SRgb);
}

void ConvertToSrgb(PlanarImage& image, const QByteArray& iccProfile) {
  if (image.planes.size() != 3 || !IsOtherThanSrgb(iccProfile)) return;
  const QColorTransform toSrgb =
      QColorSpace::fromIccProfile(iccProfile).transformationToColorSpace(QColorSpace(QColorSpace::SRgb));
  const QSize size = image.Size();
  for (std::size_t i = 1; i < 3; ++i)
    image.planes[i] = Resample(image.planes[i], size.width(), size.height());
  QImage line(size.width(), 1, QImage::Format_RGB888);
  for (int y = 0; y < size.height(); ++y) {
    PlanesToRgb(image, y, line.bits());
    QImage converted = line.convertToFormat(QImage::Format_RGB32);
    converted.applyColorTransform(toSrgb);
    RgbToPlanes(converted.convertToFormat(QImage::Format_RGB888).constBits(), image, y);
  }
}

}  // namespace vorlina
