// What becomes of foreign pictures in memory.
#include <QColorSpace>
#include <QImage>

#include <lcms2.h>

#include "images/BareJpeg.h"
#include "images/PictureRendering.h"
#include "images/ScreenPicture.h"
#include "support/CatalogFixture.h"
#include "support/TestJpeg.h"

using namespace vorlina;
using Colours = JpegForm::Colours;

namespace {

QImage Decoded(const QByteArray& jpeg) { return QImage::fromData(jpeg, "jpeg"); }

// The colours in the middle of the four quarters, from the upper left clockwise, as letters.
QString QuartersOf(const QImage& image) {
  QString letters;
  for (const QPoint& at : {QPoint(1, 1), QPoint(3, 1), QPoint(3, 3), QPoint(1, 3)}) {
    const QRgb pixel = image.pixel(image.width() * at.x() / 4, image.height() * at.y() / 4);
    letters += u"?BG?R??W"[(qRed(pixel) > 200) * 4 + (qGreen(pixel) > 200) * 2 + (qBlue(pixel) > 200)];
  }
  return letters;
}

// The mean difference of two pictures' samples, in steps of 1/255.
double Difference(const QImage& a, const QImage& b) {
  if (a.size() != b.size()) return 255;
  double sum = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      sum += std::abs(qRed(p) - qRed(q)) + std::abs(qGreen(p) - qGreen(q)) + std::abs(qBlue(p) - qBlue(q));
    }
  return sum / (3.0 * a.width() * a.height());
}

QByteArray Saved(cmsHPROFILE profile) {
  cmsUInt32Number size = 0;
  cmsSaveProfileToMem(profile, nullptr, &size);
  QByteArray bytes(qsizetype(size), '\0');
  cmsSaveProfileToMem(profile, bytes.data(), &size);
  cmsCloseProfile(profile);
  return bytes;
}

// A profile for inks, made of a table as those of printers are: the plain formula, with red and blue in each
// other's place.
QByteArray InkProfile() {
  cmsHPROFILE srgb = cmsCreate_sRGBProfile();
  cmsHPROFILE lab = cmsCreateLab2Profile(nullptr);
  cmsHTRANSFORM toLab =
      cmsCreateTransform(srgb, TYPE_RGB_16, lab, TYPE_LabV2_16, INTENT_RELATIVE_COLORIMETRIC, 0);
  const auto colour = [](const cmsUInt16Number in[], cmsUInt16Number out[],
                         void* transform) -> cmsInt32Number {
    cmsUInt16Number rgb[3];
    for (int i = 0; i < 3; ++i) rgb[2 - i] = cmsUInt16Number((65535 - in[i]) * (65535.0 - in[3]) / 65535);
    cmsDoTransform(transform, rgb, out, 1);
    return 1;
  };
  cmsStage* table = cmsStageAllocCLut16bit(nullptr, 17, 4, 3, nullptr);
  cmsStageSampleCLut16bit(table, colour, toLab, 0);
  cmsPipeline* pipeline = cmsPipelineAlloc(nullptr, 4, 3);
  cmsPipelineInsertStage(pipeline, cmsAT_END, table);
  cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
  cmsSetProfileVersion(profile, 2.4);
  cmsSetDeviceClass(profile, cmsSigOutputClass);
  cmsSetColorSpace(profile, cmsSigCmykData);
  cmsSetPCS(profile, cmsSigLabData);
  cmsWriteTag(profile, cmsSigAToB0Tag, pipeline);
  cmsPipelineFree(pipeline);
  cmsDeleteTransform(toLab);
  for (cmsHPROFILE each : {lab, srgb}) cmsCloseProfile(each);
  return Saved(profile);
}

QString FailureOf(const QByteArray& jpeg) {
  return vorlina::FailureOf([&] { FitToLimit(jpeg, 800, {}); });
}

}  // namespace

TEST(Rendering, APictureStandsUprightOnceAndForAll) {
  // How a camera held in each of the eight ways stores the same scene: mirrored or not, and turned.
  const std::pair<bool, int> ways[] = {{false, 0},  {true, 0},    {false, 180}, {true, 180},
                                       {true, 270}, {false, 270}, {true, 90},   {false, 90}};
  for (int orientation = 1; orientation <= 8; ++orientation) {
    const auto& [mirrored, degrees] = ways[orientation - 1];
    const QImage image =
        MakeQuarters({1600, 1200}).mirrored(mirrored, false).transformed(QTransform().rotate(degrees));
    for (const bool bigEndian : {false, true}) {
      const QByteArray jpeg = MakeJpeg(image, {.exif = MakeExif(orientation, bigEndian)});
      const FittedJpeg fitted = FitToLimit(jpeg, 800, {});
      EXPECT_EQ(fitted.sizes.source, QSizeF(1600, 1200)) << orientation;
      const QImage upright = Decoded(fitted.jpeg);
      EXPECT_EQ(upright.size(), QSize(800, 600)) << orientation;
      EXPECT_EQ(QuartersOf(upright), u"RGBW") << orientation << (bigEndian ? " big" : " little");
      EXPECT_EQ(QuartersOf(Decoded(RenderThumbnail(fitted.jpeg, 200))), u"RGBW") << "turned twice";
    }
  }
}

TEST(Rendering, EveryKindOfJpegComesOutRight) {
  const std::pair<const char*, JpegForm> cases[] = {
      {"4:4:4", {.across = 1, .down = 1}},
      {"4:2:0", {}},
      {"4:1:1", {.across = 4, .down = 1}},
      {"red finer than blue", {.red = {2, 2}}},
      {"blue wide and red high", {.blue = {2, 1}, .red = {1, 2}}},
      {"luma not the finest", {.across = 1, .down = 1, .blue = {2, 2}, .red = {2, 2}}},
      {"progressive", {.progressive = true}},
      {"each colour by itself", {.separateScans = true}},
      {"progressive grey", {.progressive = true, .colours = Colours::Grey}},
      {"RGB", {.colours = Colours::Rgb}},
      {"progressive CMYK", {.progressive = true, .colours = Colours::Cmyk}}};
  // An odd size, so that no plane ends with a block.
  const QImage photo = MakePhoto({1203, 905}, 5);
  for (const auto& [name, form] : cases) {
    const QByteArray jpeg = MakeJpeg(photo, form);
    const QImage expected =
        form.colours == Colours::Grey ? photo.convertToFormat(QImage::Format_Grayscale8) : photo;
    EXPECT_LT(Difference(Decoded(RenderAgain(jpeg, 100)), expected), 6) << name << " in its own size";
    const QImage fitted = Decoded(FitToLimit(jpeg, 800, {}).jpeg);
    EXPECT_EQ(fitted.size(), QSize(806, 606)) << name;  // 66.5 per cent are 67, or 66 to even
    EXPECT_LT(
        Difference(fitted, expected.scaled(fitted.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)),
        5)
        << name;
  }
}

TEST(Rendering, ColoursOfAProfileBecomeSrgb) {
  const QImage photo = MakePhoto({643, 481}, 5);
  const QColorSpace wide(QColorSpace::AdobeRgb);
  QImage pure = MakeQuarters({640, 480});
  pure.setColorSpace(QColorSpace(QColorSpace::SRgb));
  const QImage inWide = pure.convertedToColorSpace(wide);
  ASSERT_GT(Difference(inWide, pure), 9) << "left as it was, it would be seen";
  const QByteArray inks = InkProfile();
  for (const auto& [stored, form, expected] :
       {std::tuple{inWide, JpegForm{.across = 1, .down = 1, .icc = wide.iccProfile()}, pure},
        {inWide, {.colours = Colours::Rgb, .icc = wide.iccProfile()}, pure},
        {photo, {.colours = Colours::Cmyk, .icc = wide.iccProfile()}, photo},
        {photo, {.colours = Colours::Cmyk, .icc = inks}, photo.rgbSwapped()},
        {photo, {.icc = inks}, photo},
        {photo, {.icc = QByteArray(200, 'x')}, photo}}) {
    const QByteArray jpeg = MakeJpeg(stored, form);
    EXPECT_LT(Difference(Decoded(RenderAgain(jpeg, 100)), expected), 6);
    const QTemporaryDir folder;
    WriteFileSafely(folder.filePath(u"p.jpg"_qs), jpeg);
    EXPECT_LT(Difference(LoadPicture(folder.filePath(u"p.jpg"_qs), stored.size()), expected), 6);
  }
  // Grey samples that are amounts of light.
  QImage grey({64, 64}, QImage::Format_RGB32);
  grey.fill(QColor(128, 128, 128));
  cmsToneCurve* curve = cmsBuildGamma(nullptr, 1);
  const JpegForm linear{.colours = Colours::Grey, .icc = Saved(cmsCreateGrayProfile(cmsD50_xyY(), curve))};
  cmsFreeToneCurve(curve);
  EXPECT_NEAR(qRed(Decoded(RenderAgain(MakeJpeg(grey, linear), 100)).pixel(32, 32)), 188, 2);
}

TEST(Rendering, NothingButThePictureSurvives) {
  const QColorSpace wide(QColorSpace::DisplayP3);
  const QByteArray jpeg = MakeJpeg(MakePhoto({900, 600}, 1), {.exif = MakeExif(6), .icc = wide.iccProfile()});
  ASSERT_TRUE(jpeg.contains("45.0703N"));
  const QByteArray main = FitToLimit(jpeg, 800, {}).jpeg;
  for (const QByteArray& stored : {main, RenderThumbnail(main, 200), RenderAgain(jpeg, 100)})
    for (const char* trace : {"Exif", "VorlinaCam", "45.0703N", "ICC_PROFILE"})
      EXPECT_FALSE(stored.contains(trace)) << trace;
}

TEST(Rendering, TheLongerSideDecides) {
  for (const auto& [size, stored, thumbnail] : {std::array{QSize(1, 1), QSize(1, 1), QSize(200, 200)},
                                                {QSize(1000, 3000), QSize(270, 810), QSize(68, 203)},
                                                {QSize(9000, 10), QSize(810, 1), QSize(203, 1)}}) {
    const FittedJpeg fitted = FitToLimit(MakeJpeg(MakeQuarters(size)), 800, {});
    EXPECT_EQ(fitted.sizes.source, QSizeF(size));
    EXPECT_EQ(Decoded(fitted.jpeg).size(), stored);
    EXPECT_EQ(Decoded(RenderThumbnail(fitted.jpeg, 200)).size(), thumbnail);
  }
}

TEST(Rendering, ADamagedOrForeignPictureIsRefusedWithItsReason) {
  const QByteArray jpeg = MakeJpeg(MakePhoto({1600, 1200}, 1));
  const QByteArray progressive = MakeJpeg(MakePhoto({1600, 1200}, 1), {.progressive = true});
  // The frame header holds the height and the width at five bytes after its marker.
  const auto withSides = [](QByteArray bytes, quint16 width, quint16 height) {
    const qsizetype frame = std::max(bytes.indexOf("\xFF\xC0"), bytes.indexOf("\xFF\xC2"));
    for (const auto& [at, side] : {std::pair{5, height}, std::pair{7, width}}) {
      bytes[frame + at] = char(side >> 8);
      bytes[frame + at + 1] = char(side & 0xFF);
    }
    return bytes;
  };
  // The last scan again and again.
  QByteArray endless = MakeJpeg(MakePhoto({160, 120}, 1), {.separateScans = true});
  const qsizetype scan = endless.lastIndexOf("\xFF\xDA");
  const QByteArray again = endless.mid(scan, endless.size() - 2 - scan);
  for (int i = 0; i < 250; ++i) endless.insert(endless.size() - 2, again);
  QByteArray damaged = jpeg;
  for (qsizetype i = jpeg.size() / 2; i < jpeg.size() / 2 + 2000; i += 7) damaged[i] = char(0xFF);
  const std::tuple<const char*, QByteArray, const char16_t*> cases[] = {
      {"empty", {}, u"no JPEG picture"},
      {"a PNG", QByteArray("\x89PNG\r\n\x1a\n", 8) + QByteArray(5000, 'x'), u"no JPEG picture"},
      {"the head alone", jpeg.left(600), u"Premature end"},
      {"without its last hundred bytes", jpeg.left(jpeg.size() - 100), u"Premature end"},
      {"damaged in the middle", damaged, u"Corrupt JPEG data"},
      {"progressive, truncated", progressive.left(progressive.size() * 9 / 10), u"Premature end"},
      {"more than 300 megapixels", withSides(jpeg, 30000, 10001), u"too large (30000 x 10001 pixels)"},
      {"more than 65,500 a side", withSides(jpeg, 65501, 1), u"Maximum supported image dimension"},
      {"more memory than allowed", withSides(progressive, 16000, 16000), u"Backing store not supported"},
      {"too many scans", endless, u"too many scans"},
      {"no size", withSides(jpeg, 0, 600), u"Empty JPEG image"}};
  for (const auto& [name, bytes, reason] : cases)
    EXPECT_TRUE(FailureOf(bytes).contains(QString::fromUtf16(reason))) << name << ": " << FailureOf(bytes);
  EXPECT_EQ(FailureOf(jpeg), QString());
}

// What real pictures have and nothing is missing for.
TEST(Rendering, WhatIsOnlyUnusualIsTaken) {
  const QByteArray jpeg = MakeJpeg(MakePhoto({900, 600}, 1));
  const QByteArray body = jpeg.chopped(2);
  const QByteArray scans = MakeJpeg(MakePhoto({900, 600}, 1), {.progressive = true});
  QByteArray scan = jpeg;  // the last three bytes of its head say which coefficients it holds
  const qsizetype head = jpeg.indexOf("\xFF\xDA");
  scan.replace(head + 2 + scan[head + 3] - 3, 3, QByteArray(3, '\0'));
  QByteArray version = jpeg;
  version[jpeg.indexOf(QByteArray("JFIF\0", 5)) + 5] = 2;
  const std::pair<const char*, QByteArray> cases[] = {
      {"bytes behind the end", jpeg + QByteArray(3000, 'x')},
      {"a scan without its parameters", scan},
      {"bytes before the scan", QByteArray(jpeg).insert(head, "stray")},
      {"bytes between scans", QByteArray(scans).insert(scans.lastIndexOf("\xFF\xC4"), "stray")},
      {"zeros before the end", body + QByteArray(15, '\0') + "\xFF\xD9"},
      {"another version of JFIF", version}};
  for (const auto& [name, bytes] : cases) {
    EXPECT_EQ(FailureOf(bytes), QString()) << name;
    const QByteArray fitted = FitToLimit(bytes, 800, {}).jpeg;
    EXPECT_EQ(Decoded(fitted).width(), 801) << name;
    EXPECT_EQ(FitToLimit(BareJpeg(bytes, 1), 800, {}).jpeg, fitted) << name;
  }
}

TEST(Rendering, DamagedExifDataIsPassedOver) {
  const auto orientation = [](const QByteArray& exif) {
    return ReadJpegHead(MakeJpeg(MakeQuarters({300, 200}), {.exif = exif})).orientation;
  };
  QByteArray whole = MakeExif(6, true);
  for (qsizetype length = 6; length <= whole.size(); ++length)
    EXPECT_EQ(orientation(whole.left(length)), length < 6 + 8 + 2 + 2 * 12 - 2 ? 1 : 6) << length;
  EXPECT_EQ(orientation(whole.replace(10, 2, "\xFF\xFF")), 1) << "the directory lies far outside";
  EXPECT_EQ(orientation(MakeExif(9)), 1);
}
