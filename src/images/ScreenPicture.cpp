#include "images/ScreenPicture.h"

#include <QTransform>
#include <algorithm>

#include "images/ColourProfile.h"
#include "images/FitPicture.h"
#include "images/ImagePipeline.h"
#include "images/JpegDecompressor.h"
#include "images/Resample.h"

namespace vorlina {
namespace {

QImage DecodeRgb(JpegDecompressor& decompressor) {
  const jpeg_decompress_struct& info = decompressor.Info();
  const int width = int(info.output_width);
  QImage image(width, int(info.output_height), QImage::Format_RGB888);
  const ColourProfile profile(decompressor.Head().iccProfile, ColourProfile::Samples::Rgb);
  decompressor.ReadRgb([&](const std::uint8_t* line, int y) {
    if (profile.Converts())
      profile.ToRgb(line, image.scanLine(y), width);
    else
      std::copy_n(line, std::size_t(width) * 3, image.scanLine(y));
  });
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
  return TurnUpright(DecodeRgb(decompressor).convertToFormat(QImage::Format_RGB32), head.orientation);
}

}  // namespace vorlina
