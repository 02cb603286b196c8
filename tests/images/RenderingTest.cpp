// What becomes of foreign pictures in memory.
#include <QColorSpace>
#include <QImage>
#include <QTemporaryDir>

#include <lcms2.h>

#include "base/Error.h"
#include "base/SafeFile.h"
#include "images/PictureRendering.h"
#include "images/ScreenPicture.h"
#include "support/Print.h"
#include "support/TestJpeg.h"

using namespace vorlina;
using Colours = JpegForm::Colours;

namespace {

QImage Decoded(const QByteArray& jpeg) { return QImage::fromData(jpeg, "jpeg"); }

// The colours in the middle of the four quarters, from the upper left clockwise, as letters.
QString QuartersOf(const QImage& image) {
  const int w = image.width();
  const int h = image.height();
  QString letters;
  for (const QPoint& at : {QPoint(w / 4, h / 4), QPoint(w * 3 / 4, h / 4), QPoint(w * 3 / 4, h * 3 / 4),
                           QPoint(w / 4, h * 3 / 4)}) {
    const QRgb pixel = image.pixel(at);
    const bool red = qRed(pixel) > 200;
    const bool green = qGreen(pixel) > 200;
    const bool blue = qBlue(pixel) > 200;
    letters += red && green && blue     ? u'W'
               : red && !green && !blue ? u'R'
               : green && !blue         ? u'G'
               : blue                   ? u'B'
                                        : u'?';
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

// A profile made of a table, as those of printers and scanners are. Its colours are those of sRGB, or of the
// plain formula for inks, with red and blue in each other's place.
QByteArray TableProfile(cmsColorSpaceSignature space) {
  const auto colour = [](const cmsUInt16Number in[], cmsUInt16Number out[], void* toLab) -> cmsInt32Number {
    cmsUInt16Number rgb[3];
    const bool inks = static_cast<cmsHTRANSFORM*>(toLab)[1] != nullptr;
    for (int i = 0; i < 3; ++i)
      rgb[2 - i] = inks ? cmsUInt16Number((65535 - in[i]) * (65535.0 - in[3]) / 65535) : in[i];
    cmsDoTransform(*static_cast<cmsHTRANSFORM*>(toLab), rgb, out, 1);
    return 1;
  };
  const cmsUInt32Number channels = space == cmsSigCmykData ? 4 : 3;
  cmsHPROFILE srgb = cmsCreate_sRGBProfile();
  cmsHPROFILE lab = cmsCreateLab2Profile(nullptr);
  cmsHTRANSFORM cargo[] = {
      cmsCreateTransform(srgb, TYPE_RGB_16, lab, TYPE_LabV2_16, INTENT_RELATIVE_COLORIMETRIC, 0),
      channels == 4 ? srgb : nullptr};
  cmsStage* table = cmsStageAllocCLut16bit(nullptr, 17, channels, 3, nullptr);
  cmsStageSampleCLut16bit(table, colour, cargo, 0);
  cmsPipeline* pipeline = cmsPipelineAlloc(nullptr, channels, 3);
  cmsPipelineInsertStage(pipeline, cmsAT_END, table);
  cmsHPROFILE profile = cmsCreateProfilePlaceholder(nullptr);
  cmsSetProfileVersion(profile, 2.4);
  cmsSetDeviceClass(profile, cmsSigOutputClass);
  cmsSetColorSpace(profile, space);
  cmsSetPCS(profile, cmsSigLabData);
  cmsWriteTag(profile, cmsSigAToB0Tag, pipeline);
  cmsUInt32Number size = 0;
  cmsSaveProfileToMem(profile, nullptr, &size);
  QByteArray bytes(qsizetype(size), '\0');
  cmsSaveProfileToMem(profile, bytes.data(), &size);
  cmsPipelineFree(pipeline);
  cmsDeleteTransform(cargo[0]);
  for (cmsHPROFILE each : {profile, lab, srgb}) cmsCloseProfile(each);
  return bytes;
}

// A grey profile whose samples are amounts of light.
QByteArray LinearGreyProfile() {
  cmsToneCurve* curve = cmsBuildGamma(nullptr, 1);
  cmsHPROFILE profile = cmsCreateGrayProfile(cmsD50_xyY(), curve);
  cmsUInt32Number size = 0;
  cmsSaveProfileToMem(profile, nullptr, &size);
  QByteArray bytes(qsizetype(size), '\0');
  cmsSaveProfileToMem(profile, bytes.data(), &size);
  cmsFreeToneCurve(curve);
  cmsCloseProfile(profile);
  return bytes;
}

QString FailureOf(const QByteArray& jpeg) {
  try {
    FitToLimit(jpeg, 800, {});
  } catch (const Error& error) {
    return error.Description();
  }
  return {};
}

}  // namespace

TEST(Rendering, APictureStandsUprightOnceAndForAll) {
  // What a camera held in each of the eight ways stores of the same scene R G / W B.
  const char* stored[] = {"RGBW", "GRWB", "BWRG", "WBGR", "RWBG", "GBWR", "BGRW", "WRGB"};
  const char colourOf[] = "RGBW";
  for (int orientation = 1; orientation <= 8; ++orientation) {
    const QSize size = orientation >= 5 ? QSize(1200, 1600) : QSize(1600, 1200);
    const QImage quarters = MakeQuarters(size);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
      for (int x = 0; x < size.width(); ++x) {
        const int quarter = (y < size.height() / 2 ? 0 : 3) + (x < size.width() / 2    ? 0
                                                               : y < size.height() / 2 ? 1
                                                                                       : -1);
        const char colour = stored[orientation - 1][quarter];
        image.setPixel(x, y,
                       colour == colourOf[0]   ? 0xFFFF0000
                       : colour == colourOf[1] ? 0xFF00FF00
                       : colour == colourOf[2] ? 0xFF0000FF
                                               : 0xFFFFFFFF);
      }
    for (const bool bigEndian : {false, true}) {
      const QByteArray jpeg = MakeJpeg(image, {.exif = MakeExif(orientation, bigEndian)});
      const FittedJpeg fitted = FitToLimit(jpeg, 800, {});
      EXPECT_EQ(fitted.sizes.source, QSizeF(1600, 1200)) << orientation;
      const QImage upright = Decoded(fitted.jpeg);
      EXPECT_EQ(upright.size(), QSize(800, 600)) << orientation;
      EXPECT_EQ(QuartersOf(upright), u"RGBW") << orientation << (bigEndian ? " big" : " little");
      EXPECT_EQ(QuartersOf(Decoded(RenderThumbnail(fitted.jpeg, 200))), u"RGBW")
          << "turned twice: " << orientation;
    }
  }
}

TEST(Rendering, EveryKindOfJpegComesOutRight) {
  struct Case {
    const char* name;
    JpegForm form;
    bool grey = false;
  };
  const Case cases[] = {{"4:4:4", {.across = 1, .down = 1}},
                        {"4:2:2", {.across = 2, .down = 1}},
                        {"4:4:0", {.across = 1, .down = 2}},
                        {"4:2:0", {}},
                        {"4:1:1", {.across = 4, .down = 1}},
                        {"red finer than blue", {.red = {2, 2}}},
                        {"blue finer than red", {.blue = {2, 2}}},
                        {"blue wide and red high", {.blue = {2, 1}, .red = {1, 2}}},
                        {"luma not the finest", {.across = 1, .down = 1, .blue = {2, 2}, .red = {2, 2}}},
                        {"3 by 1", {.across = 3, .down = 1}},
                        {"progressive", {.progressive = true}},
                        {"each colour by itself", {.separateScans = true}},
                        {"grey", {.colours = Colours::Grey}, true},
                        {"progressive grey", {.progressive = true, .colours = Colours::Grey}, true},
                        {"RGB", {.colours = Colours::Rgb}},
                        {"CMYK", {.colours = Colours::Cmyk}},
                        {"progressive CMYK", {.progressive = true, .colours = Colours::Cmyk}}};
  // An odd size, so that no plane ends with a block.
  const QImage photo = MakePhoto({1203, 905}, 5);
  for (const Case& one : cases) {
    const QByteArray jpeg = MakeJpeg(photo, one.form);
    QImage expected = photo;
    if (one.grey)
      expected = photo.convertToFormat(QImage::Format_Grayscale8).convertToFormat(QImage::Format_RGB32);
    const QImage again = Decoded(RenderAgain(jpeg, 100)).convertToFormat(QImage::Format_RGB32);
    EXPECT_LT(Difference(again, expected), 6) << one.name << " in its own size";
    const QByteArray cut = MakeJpeg(photo.copy(0, 0, 397, 203), one.form);
    EXPECT_LT(Difference(Decoded(FitToLimit(cut, 800, {}).jpeg).convertToFormat(QImage::Format_RGB32),
                         expected.copy(0, 0, 397, 203)),
              7)
        << one.name << ", not shrunk";
    const FittedJpeg fitted = FitToLimit(jpeg, 800, {});
    EXPECT_EQ(Decoded(fitted.jpeg).size(), QSize(806, 606))
        << one.name;  // 66.5 per cent are 67, or 66 to even
    const QImage small =
        expected.scaled(Decoded(fitted.jpeg).size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_LT(Difference(Decoded(fitted.jpeg).convertToFormat(QImage::Format_RGB32), small), 5) << one.name;
  }
}

TEST(Rendering, ColoursOfAnotherProfileBecomeSrgb) {
  QImage image = MakeQuarters({640, 480});
  image.setColorSpace(QColorSpace(QColorSpace::SRgb));
  const QColorSpace wide(QColorSpace::AdobeRgb);
  const QImage asStored = image.convertedToColorSpace(wide);
  const QByteArray jpeg = MakeJpeg(asStored, {.quality = 98, .icc = wide.iccProfile()});
  const QImage stored = Decoded(RenderAgain(jpeg, 100)).convertToFormat(QImage::Format_RGB32);
  EXPECT_LT(Difference(stored, image), 3);
  ASSERT_GT(Difference(asStored, image), 9) << "left as it was, it would be seen";
  EXPECT_TRUE(stored.colorSpace() == QColorSpace() || stored.colorSpace() == QColorSpace(QColorSpace::SRgb));
  // A profile that is none is passed over.
  EXPECT_EQ(Decoded(RenderAgain(MakeJpeg(image, {.icc = QByteArray(200, 'x')}), 100)).size(), image.size());
}

TEST(Rendering, AProfileOfTablesIsFollowed) {
  const QImage photo = MakePhoto({643, 481}, 5);
  const QImage expected = photo.rgbSwapped();
  const QByteArray inks = TableProfile(cmsSigCmykData);
  const QByteArray colours = TableProfile(cmsSigRgbData);
  struct Case {
    const char* name;
    JpegForm form;
  };
  for (const Case& one : {Case{"CMYK", {.colours = Colours::Cmyk, .icc = inks}},
                          Case{"YCbCr", {.across = 1, .down = 1, .icc = colours}},
                          Case{"RGB", {.colours = Colours::Rgb, .icc = colours}}}) {
    const QByteArray jpeg = MakeJpeg(photo, one.form);
    EXPECT_LT(Difference(Decoded(RenderAgain(jpeg, 100)), expected), 6) << one.name;
    QTemporaryDir folder;
    WriteFileSafely(folder.filePath(u"p.jpg"_qs), jpeg);
    EXPECT_LT(Difference(LoadPicture(folder.filePath(u"p.jpg"_qs), photo.size()), expected), 6) << one.name;
  }
  // One of other samples than the picture's is passed over.
  const QByteArray foreign = MakeJpeg(photo, {.icc = inks});
  EXPECT_LT(Difference(Decoded(RenderAgain(foreign, 100)), photo), 6);
  QImage grey({64, 64}, QImage::Format_RGB32);
  grey.fill(QColor(128, 128, 128));
  const JpegForm linear{.colours = Colours::Grey, .icc = LinearGreyProfile()};
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
  struct Case {
    QSize size;
    QSizeF target;
    QSize stored;
    QSize thumbnail;
  };
  const Case cases[] = {{{800, 600}, {800, 600}, {800, 600}, {200, 150}},
                        {{1600, 1200}, {800, 600}, {800, 600}, {200, 150}},
                        {{1000, 3000}, {1000 * 80.0 / 300, 800}, {270, 810}, {68, 203}},
                        {{801, 801}, {800, 800}, {801, 801}, {200, 200}},
                        {{100, 50}, {100, 50}, {100, 50}, {200, 100}},
                        {{1, 1}, {1, 1}, {1, 1}, {200, 200}},
                        {{9000, 10}, {800, 8.0 / 9}, {810, 1}, {203, 1}}};
  for (const Case& one : cases) {
    QImage image(one.size, QImage::Format_RGB32);
    image.fill(Qt::gray);
    const FittedJpeg fitted = FitToLimit(MakeJpeg(image), 800, {});
    EXPECT_EQ(fitted.sizes.source, QSizeF(one.size));
    EXPECT_NEAR(fitted.sizes.target.width(), one.target.width(), 1e-9);
    EXPECT_NEAR(fitted.sizes.target.height(), one.target.height(), 1e-9);
    EXPECT_EQ(Decoded(fitted.jpeg).size(), one.stored);
    EXPECT_EQ(Decoded(RenderThumbnail(fitted.jpeg, 200)).size(), one.thumbnail);
  }
}

TEST(Rendering, TheSettingsTurnTheStepsOnAndOff) {
  const QByteArray large = MakeJpeg(MakePhoto({1600, 1200}, 1));
  const QByteArray small = MakeJpeg(MakePhoto({640, 480}, 1));
  EXPECT_TRUE(FitToLimit(small, 800, {.reRender = false}).jpeg.isEmpty());
  EXPECT_EQ(Decoded(FitToLimit(large, 800, {.reRender = false}).jpeg).size(), QSize(800, 600));
  EXPECT_EQ(Decoded(FitToLimit(large, 800, {.shrink = false}).jpeg).size(), QSize(1600, 1200));
  EXPECT_EQ(Decoded(FitToLimit(large, 0, {}).jpeg).size(), QSize(1600, 1200)) << "no limit";
  const FittedJpeg untouched = FitToLimit(large, 800, {.shrink = false, .reRender = false});
  EXPECT_TRUE(untouched.jpeg.isEmpty());
  EXPECT_EQ(untouched.sizes.target, QSizeF(1600, 1200));
  EXPECT_LT(FitToLimit(large, 800, {.quality = 40}).jpeg.size(), FitToLimit(large, 800, {}).jpeg.size() / 3);
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
  struct Case {
    const char* name;
    QByteArray bytes;
    const char16_t* reason;
  };
  const Case cases[] = {
      {"empty", {}, u"no JPEG picture"},
      {"a PNG", QByteArray("\x89PNG\r\n\x1a\n", 8) + QByteArray(5000, 'x'), u"no JPEG picture"},
      {"three bytes", jpeg.left(3), u"JPEG"},
      {"the head alone", jpeg.left(600), u"Premature end"},
      {"truncated by half", jpeg.left(jpeg.size() / 2), u"Premature end"},
      {"without its last hundred bytes", jpeg.left(jpeg.size() - 100), u"Premature end"},
      {"damaged in the middle", damaged, u"Corrupt JPEG data"},
      {"progressive, truncated", progressive.left(progressive.size() * 9 / 10), u"Premature end"},
      {"more than 300 megapixels", withSides(jpeg, 30000, 10001), u"too large (30000 x 10001 pixels)"},
      {"more than 65,500 a side", withSides(jpeg, 65501, 1), u"Maximum supported image dimension"},
      {"more memory than allowed", withSides(progressive, 16000, 16000), u"Backing store not supported"},
      {"too many scans", endless, u"too many scans"},
      {"no size", withSides(jpeg, 0, 600), u"Empty JPEG image"}};
  for (const Case& one : cases)
    EXPECT_TRUE(FailureOf(one.bytes).contains(QString::fromUtf16(one.reason)))
        << one.name << ": " << FailureOf(one.bytes);
  EXPECT_EQ(FailureOf(jpeg), QString());
}

// What real pictures have and nothing is missing for.
TEST(Rendering, WhatIsOnlyUnusualIsTaken) {
  const QByteArray jpeg = MakeJpeg(MakePhoto({900, 600}, 1));
  const QByteArray body = jpeg.chopped(2);
  QByteArray scan = jpeg;  // the last three bytes of its head say which coefficients it holds
  const qsizetype head = scan.indexOf("\xFF\xDA");
  scan.replace(head + 2 + scan[head + 3] - 3, 3, QByteArray(3, '\0'));
  const auto stray = [&](const char* marker) {
    QByteArray bytes = jpeg;
    return bytes.insert(bytes.indexOf(marker), "stray");
  };
  QByteArray version = jpeg;
  version[jpeg.indexOf(QByteArray("JFIF\0", 5)) + 5] = 2;
  const std::pair<const char*, QByteArray> cases[] = {
      {"bytes behind the end", jpeg + QByteArray(3000, 'x')},
      {"a second picture behind the first", jpeg + jpeg},
      {"a scan without its parameters", scan},
      {"bytes before a table", stray("\xFF\xDB")},
      {"bytes before the scan", stray("\xFF\xDA")},
      {"zeros before the end", body + QByteArray(15, '\0') + "\xFF\xD9"},
      {"another version of JFIF", version}};
  for (const auto& [name, bytes] : cases) {
    EXPECT_EQ(FailureOf(bytes), QString()) << name;
    EXPECT_EQ(Decoded(FitToLimit(bytes, 800, {}).jpeg).width(), 801) << name;
  }
}

TEST(Rendering, DamagedExifDataIsPassedOver) {
  const QImage image = MakeQuarters({300, 200});
  const QByteArray whole = MakeExif(6, true);
  for (qsizetype length = 6; length <= whole.size(); ++length) {
    const int orientation = ReadJpegHead(MakeJpeg(image, {.exif = whole.left(length)})).orientation;
    EXPECT_EQ(orientation, length < 6 + 8 + 2 + 2 * 12 - 2 ? 1 : 6) << length;
  }
  QByteArray wild = whole;
  wild[10] = wild[11] = char(0xFF);  // the directory lies far outside
  EXPECT_EQ(ReadJpegHead(MakeJpeg(image, {.exif = wild})).orientation, 1);
  EXPECT_EQ(ReadJpegHead(MakeJpeg(image, {.exif = MakeExif(9)})).orientation, 1);
}
