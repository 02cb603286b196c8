// Writes the pictures that the fuzzer starts from: one small one of each form, and one of each kind of
// damage. usage: make_corpus FOLDER
#include <QColorSpace>
#include <QDir>

#include "base/SafeFile.h"
#include "support/TestJpeg.h"

using namespace vorlina;
using Colours = JpegForm::Colours;

int main(int argc, char** argv) {
  if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) return 2;
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  const QImage image = MakePhoto({67, 45}, 7);
  const QByteArray wide = QColorSpace(QColorSpace::DisplayP3).iccProfile();
  const std::pair<const char16_t*, QByteArray> seeds[] = {
      {u"plain", MakeJpeg(image)},
      {u"exif", MakeJpeg(image, {.exif = MakeExif(6)})},
      {u"exif-big", MakeJpeg(image, {.exif = MakeExif(5, true)})},
      {u"profile", MakeJpeg(image, {.icc = wide})},
      {u"444", MakeJpeg(image, {.across = 1, .down = 1})},
      {u"411", MakeJpeg(image, {.across = 4, .down = 1})},
      {u"440", MakeJpeg(image, {.across = 1, .down = 2})},
      {u"red-finer", MakeJpeg(image, {.red = {2, 2}})},
      {u"crossed", MakeJpeg(image, {.blue = {2, 1}, .red = {1, 2}})},
      {u"luma-coarse", MakeJpeg(image, {.across = 1, .down = 1, .blue = {2, 2}, .red = {2, 2}})},
      {u"separate", MakeJpeg(image, {.separateScans = true})},
      {u"progressive", MakeJpeg(image, {.progressive = true})},
      {u"grey", MakeJpeg(image, {.colours = Colours::Grey})},
      {u"cmyk", MakeJpeg(image, {.colours = Colours::Cmyk})},
      {u"rgb", MakeJpeg(image, {.colours = Colours::Rgb})},
      {u"truncated", MakeJpeg(image).left(700)},
      {u"one-pixel", MakeJpeg(image.copy(0, 0, 1, 1))}};
  for (const auto& [name, bytes] : seeds)
    WriteFileSafely(folder.filePath(QString::fromUtf16(name) + u".jpg"), bytes);
  return 0;
}
