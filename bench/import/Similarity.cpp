#include "Similarity.h"

namespace vorlina {

Grey GreyOf(const QImage& image) {
  Grey grey{image.width(), image.height(), {}};
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x) {
      const QRgb pixel = image.pixel(x, y);
      grey.values.push_back(0.299 * qRed(pixel) + 0.587 * qGreen(pixel) + 0.114 * qBlue(pixel));
    }
  return grey;
}

double Ssim(const Grey& a, const Grey& b) {
  constexpr int Window = 8;
  constexpr double C1 = 0.01 * 255 * 0.01 * 255;
  constexpr double C2 = 0.03 * 255 * 0.03 * 255;
  double sum = 0;
  int windows = 0;
  for (int top = 0; top + Window <= a.height; top += 4)
    for (int left = 0; left + Window <= a.width; left += 4, ++windows) {
      double meanA = 0, meanB = 0, squareA = 0, squareB = 0, product = 0;
      for (int y = top; y < top + Window; ++y)
        for (int x = left; x < left + Window; ++x) {
          const double p = a.At(x, y);
          const double q = b.At(x, y);
          meanA += p, meanB += q, squareA += p * p, squareB += q * q, product += p * q;
        }
      constexpr double n = Window * Window;
      meanA /= n, meanB /= n;
      const double varianceA = squareA / n - meanA * meanA;
      const double varianceB = squareB / n - meanB * meanB;
      const double covariance = product / n - meanA * meanB;
      sum += (2 * meanA * meanB + C1) * (2 * covariance + C2) /
             ((meanA * meanA + meanB * meanB + C1) * (varianceA + varianceB + C2));
    }
  return sum / windows;
}

}  // namespace vorlina
