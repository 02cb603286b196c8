#include "images/ColourConversion.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "images/ColourProfile.h"
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

// Grey has 256 colours.
void ConvertGrey(Plane& plane, const ColourProfile& profile) {
  std::array<std::uint8_t, 256> grey;
  std::iota(grey.begin(), grey.end(), std::uint8_t(0));
  std::array<std::uint8_t, 256 * 3> rgb;
  profile.ToRgb(grey.data(), rgb.data(), 256);
  for (std::uint8_t& sample : plane.samples) sample = rgb[std::size_t(sample) * 3 + 1];
}

void ConvertColours(PlanarImage& image, const ColourProfile& profile) {
  const QSize size = image.Size();
  for (std::size_t i = 1; i < 3; ++i)
    image.planes[i] = Resample(image.planes[i], size.width(), size.height());
  std::vector<std::uint8_t> line(std::size_t(size.width()) * 3);
  std::vector<std::uint8_t> converted(line.size());
  for (int y = 0; y < size.height(); ++y) {
    PlanesToRgb(image, y, line.data());
    profile.ToRgb(line.data(), converted.data(), size.width());
    RgbToPlanes(converted.data(), image, y);
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

void ConvertToSrgb(PlanarImage& image, const QByteArray& iccProfile) {
  const bool grey = image.planes.size() == 1;
  const ColourProfile profile(iccProfile, grey ? ColourProfile::Samples::Grey : ColourProfile::Samples::Rgb);
  if (!profile.Converts()) return;
  if (grey)
    ConvertGrey(image.planes[0], profile);
  else
    ConvertColours(image, profile);
}

}  // namespace vorlina
