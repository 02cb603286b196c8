// What readers' pictures weigh and how near they come to what they were made of, for a range of qualities and
// as they are made. usage: reader_quality FOLDER [SIDE...]
#include <QCoreApplication>
#include <QDir>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numeric>

#include <webp/decode.h>

#include "../import/Similarity.h"
#include "base/Error.h"
#include "images/ImagePipeline.h"
#include "images/Resample.h"
#include "images/WebpEncoder.h"

using namespace vorlina;

namespace {

Grey GreyOf(const PlanarImage& image) {
  const Plane& luma = image.planes[0];
  Grey grey{luma.width, luma.height, {}};
  for (int y = 0; y < luma.height; ++y)
    grey.values.insert(grey.values.end(), luma.Row(y), luma.Row(y) + luma.width);
  return grey;
}

Grey GreyOfWebp(const QByteArray& webp) {
  int width = 0;
  int height = 0;
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(webp.constData());
  std::uint8_t* rgb = WebPDecodeRGB(bytes, std::size_t(webp.size()), &width, &height);
  Grey grey = vorlina::GreyOf(QImage(rgb, width, height, width * 3, QImage::Format_RGB888));
  WebPFree(rgb);
  return grey;
}

struct Sum {
  std::vector<double> bytes, likeness;
  void Add(const QByteArray& file, double ssim) {
    bytes.push_back(double(file.size()));
    likeness.push_back(ssim);
  }
  void Print(const char* kind, int quality) {
    const auto mean = [](const std::vector<double>& values) {
      return std::accumulate(values.begin(), values.end(), 0.0) / double(values.size());
    };
    std::printf("  %-5s %3d  %7.0f bytes  likeness %.4f, the worst %.4f\n", kind, quality, mean(bytes),
                mean(likeness), *std::min_element(likeness.begin(), likeness.end()));
  }
};

// The pictures as they are before they are encoded.
std::vector<PlanarImage> Reduced(const std::vector<QByteArray>& files, int side) {
  std::vector<PlanarImage> images;
  for (const QByteArray& jpeg : files) {
    const QSize size = ReaderSizes(ReadJpegHead(jpeg).size, {side}).front();
    PlanarImage image = Resample(DecodeJpeg(jpeg, size), size);
    for (std::size_t i = 1; i < image.planes.size(); ++i)
      image.planes[i] = Resample(image.planes[i], (size.width() + 1) / 2, (size.height() + 1) / 2);
    images.push_back(std::move(image));
  }
  return images;
}

void PrintQualities(const std::vector<PlanarImage>& images) {
  for (int quality = 66; quality <= 86; quality += 4) {
    Sum jpegs, webps;
    for (const PlanarImage& image : images) {
      const Grey original = GreyOf(image);
      const QByteArray jpeg = EncodeJpeg(image, quality, JpegScans::Several);
      jpegs.Add(jpeg, Ssim(GreyOf(DecodeJpeg(jpeg, {})), original));
      const QByteArray webp = EncodeWebp(image, quality);
      webps.Add(webp, Ssim(GreyOfWebp(webp), original));
    }
    jpegs.Print("JPEG", quality);
    webps.Print("WebP", quality);
  }
}

void PrintMade(const std::vector<QByteArray>& files, int side) {
  qint64 jpegs = 0;
  qint64 smallest = 0;
  int webps = 0;
  std::vector<qint64> each;
  for (const QByteArray& jpeg : files) {
    const ReaderPicture made = RenderForReaders(jpeg, {side}).front();
    jpegs += made.jpeg.size();
    webps += made.webp.isEmpty() ? 0 : 1;
    each.push_back(made.webp.isEmpty() ? made.jpeg.size() : made.webp.size());
    smallest += each.back();
  }
  std::sort(each.rbegin(), each.rend());
  const auto count = std::min<std::size_t>(24, each.size());
  std::printf(
      "  as made: JPEG %lld kB in all, with WebP for %d of %d pictures %lld kB; 24 pictures %lld kB, the "
      "heaviest %lld\n",
      jpegs / 1000, webps, int(files.size()), smallest / 1000, smallest * 24 / qint64(files.size()) / 1000,
      std::accumulate(each.begin(), each.begin() + std::ptrdiff_t(count), qint64(0)) / 1000);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc < 2) return 2;
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  std::vector<QByteArray> files;
  for (const QString& name : folder.entryList({u"*.jpg"_qs}, QDir::Files))
    files.push_back(ReadPictureFile(folder.filePath(name)));
  for (int i = 2; i < std::max(argc, 3); ++i) {
    const int side = argc > 2 ? std::atoi(argv[i]) : 400;
    std::printf("%d pictures of %d pixels\n", int(files.size()), side);
    PrintQualities(Reduced(files, side));
    PrintMade(files, side);
  }
  return 0;
}
