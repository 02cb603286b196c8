// How alike two pictures are to the eye.
#pragma once

#include <QImage>
#include <vector>

namespace vorlina {

struct Grey {
  int width = 0;
  int height = 0;
  std::vector<double> values;
  double At(int x, int y) const { return values[std::size_t(y) * std::size_t(width) + std::size_t(x)]; }
};

Grey GreyOf(const QImage& image);

// The mean structural similarity over windows of eight by eight samples, as Wang and others define it (2004).
double Ssim(const Grey& a, const Grey& b);

}  // namespace vorlina
