#include "images/ScreenPicture.h"

#include <QColorSpace>
#include <QTransform>
#include <algorithm>

#include "images/ColourConversion.h"
#include "images/FitPicture.h"
#include "images/ImagePipeline.h"
#include "images/JpegDecompressor.h"
#include "images/Resample.h"

namespace vorlina {
namespace {

QImage DecodeRgb(JpegDecompressor& decompressor) {
  decompressor.StartLines(decompressor.IsCmyk() ? JCS_CMYK : JCS_RGB);
  const jpeg_decompress_struct& info = decompressor.Info();
  const int width = int(info.output_width);
  QImage image(width, int(info.output_height), QImage::Format_RGB888);
  std::vector<std::uint8_t> line(std::size_t(width) * std::size_t(info.output_components));
  for (int y = 0; y < image.height(); ++y) {
    decompressor.ReadLine(line.data());
    if (decompressor.IsCmyk()) CmykToRgb(line.data(), width, info.saw_Adobe_marker == TRUE);
    std::copy_n(line.data(), std::size_t(width) * 3, image.scanLine(y));
  }
  decompressor.Finish();
  return image;
}

QImage TurnUpright(const QImage& image, int orientation) {
  switch (orientation) {
    case 2:
      return image.mirrored(true, false);
    case 3:
      return image.mirrored(true, true);
    case 4:
      return image.mirrored(false, true);
    case 5:
      return image.transformed(QTransform().rotate(90)).mirrored(true, false);
    case 6:
      return image.transformed(QTransform().rotate(90));
    case 7:
      return image.transformed(QTransform().rotate(270)).mirrored(true, false);
    case 8:
      return image.transformed(QTransform().rotate(270));
    default:
      return image;
  }
}

}  // namespace

QImage LoadPicture(const QString& path, QSize box, QSize* size) {
  const QByteArray jpeg = ReadPictureFile(path);
  JpegDecompressor decompressor(jpeg);
  const JpegHead& head = decompressor.Head();
  const QSize upright = UprightSize(head);
  if (size != nullptr) *size = upright;
  const QSize shown = FitPicture(upright, box, false).size().toSize();
  decompressor.ScaleToCover(SwapsSides(head.orientation) ? shown.transposed() : shown);
  QImage image = DecodeRgb(decompressor).convertToFormat(QImage::Format_RGB32);
  if (!decompressor.IsCmyk() && IsOtherThanSrgb(head.iccProfile)) {
    image.setColorSpace(QColorSpace::fromIccProfile(head.iccProfile));
    image.convertToColorSpace(QColorSpace(QColorSpace::SRgb));
  }
  return TurnUpright(image, head.orientation);
}

}  // namespace vorlina
