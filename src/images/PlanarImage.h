// A picture in the planes in which JPEG files hold it.
#pragma once

#include <QSize>
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

}  // namespace vorlina
