// What becomes of picture files.
#include <QImage>

#include "base/Settings.h"
#include "images/FitPicture.h"
#include "images/ImagePipeline.h"
#include "images/ScreenPicture.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class PipelineTest : public StoreFixture {
 protected:
  QString Write(const QString& name, const QByteArray& bytes) const {
    QString path = AppFile(u"Images/"_qs + name);
    WriteFileSafely(path, bytes);
    return path;
  }
  static QSize SizeOf(const QByteArray& jpeg) { return QImage::fromData(jpeg, "jpeg").size(); }
  static void Set(const QString& key, const QString& value) {
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, key, value);
  }
  ~PipelineTest() override {
    for (const auto& [key, value] :
         {std::pair{u"ResizeJPG"_qs, u"1"_qs}, std::pair{u"ReRenderJPG"_qs, u"1"_qs},
          std::pair{u"ResizeTo"_qs, u"800"_qs}, std::pair{u"ReRenderQuality"_qs, u"100"_qs}})
      Set(key, value);
  }
  const QByteArray large_ = MakeJpeg(MakePhoto({1600, 1200}, 1));
};

}  // namespace

TEST_F(PipelineTest, APictureIsPreparedByTheSettingsAsTheyAre) {
  struct Case {
    QString shrinks, encodes, limit;
    QSize size;
    bool stays;
  };
  const QString path = Write(u"1-1.jpg"_qs, large_);
  Set(u"ReRenderQuality"_qs, u"90"_qs);
  for (const Case& c : {Case{u"1"_qs, u"1"_qs, u"800"_qs, {800, 600}, false},
                        Case{u"0"_qs, u"0"_qs, u"800"_qs, {1600, 1200}, true},
                        Case{u"0"_qs, u"1"_qs, u"800"_qs, {1600, 1200}, false},
                        Case{u"1"_qs, u"0"_qs, u"400"_qs, {400, 300}, false}}) {
    Set(u"ResizeJPG"_qs, c.shrinks);
    Set(u"ReRenderJPG"_qs, c.encodes);
    Set(u"ResizeTo"_qs, c.limit);
    const PreparedPicture main = PrepareMainFile(path);
    const PreparedPicture additional = PrepareAdditionalFile(path);
    EXPECT_GT(SizeOf(main.thumbnail).width(), 150);
    EXPECT_TRUE(additional.thumbnail.isEmpty());
    for (const PreparedPicture& picture : {main, additional}) {
      EXPECT_EQ(picture.size, c.size);
      EXPECT_EQ(picture.jpeg.isEmpty(), c.stays);
      EXPECT_EQ(SizeOf(c.stays ? large_ : picture.jpeg), c.size);
    }
    const bool again = c.encodes == u"1" && c.size.width() == 1600;
    EXPECT_EQ(additional.jpeg, again ? RenderAgain(main.jpeg, 90) : main.jpeg);
  }
  for (const QString& bad :
       {Write(u"1-bad.jpg"_qs, large_.left(large_.size() / 2)), AppFile(u"none.jpg"_qs)}) {
    EXPECT_TRUE(FailureOf([&] { PrepareMainFile(bad); }).contains(bad));
    EXPECT_TRUE(FailureOf([&] { PrepareAdditionalFile(bad); }).contains(bad));
  }
}

TEST_F(PipelineTest, ForTheScreenAPictureIsUprightAndNoLargerThanNeeded) {
  const QByteArray turned = MakeJpeg(MakeQuarters({1600, 1200}), {.exif = MakeExif(6)});
  const QString path = Write(u"1-1.jpg"_qs, turned);
  QSize size;
  const QImage image = LoadPicture(path, {240, 320}, &size);
  EXPECT_EQ(size, QSize(1200, 1600));
  EXPECT_EQ(image.size(), QSize(300, 400));
  EXPECT_EQ(image.pixelColor(30, 30), QColor(Qt::white))
      << "the lower left quarter is now the upper left one";
  EXPECT_GT(image.pixelColor(270, 30).red(), 250);
  EXPECT_EQ(LoadPicture(path, {}).size(), QSize(1200, 1600));
  EXPECT_NE(FailureOf([&] { LoadPicture(Write(u"1-2.jpg"_qs, turned.left(3000)), {}); }), QString());
}

TEST(FitPicture, ShowsThePictureWhole) {
  EXPECT_EQ(FitPicture({800, 600}, {400, 400}, false), QRectF(0, 0, 400, 300));
  EXPECT_EQ(FitPicture({800, 600}, {400, 400}, true), QRectF(0, 50, 400, 300));
  EXPECT_EQ(FitPicture({100, 200}, {400, 100}, true), QRectF(175, 0, 50, 100));
  EXPECT_EQ(FitPicture({10, 10}, {90, 90}, true), QRectF(0, 0, 90, 90));
  EXPECT_TRUE(FitPicture({0, 10}, {90, 90}, true).isEmpty());
  EXPECT_TRUE(FitPicture({10, 10}, {0, 90}, true).isEmpty());
}
