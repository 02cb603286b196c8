// What becomes of picture files.
#include <QImage>

#include "base/Settings.h"
#include "images/ImagePipeline.h"
#include "images/ScreenPicture.h"
#include "support/CatalogFixture.h"
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
  const QByteArray large_ = MakeJpeg(MakePhoto({1600, 1200}, 1));
};

}  // namespace

TEST_F(PipelineTest, APictureIsPreparedByTheSettingsAsTheyAre) {
  const QString path = Write(u"1-1.jpg"_qs, large_);
  // Whether it is shrunk, whether it is encoded again, and the width that follows.
  for (const auto& [shrinks, encodes, width] :
       {std::tuple{u"1"_qs, u"1"_qs, 400}, {u"0"_qs, u"0"_qs, 1600}, {u"0"_qs, u"1"_qs, 1600}}) {
    Set(u"ResizeJPG"_qs, shrinks);
    Set(u"ReRenderJPG"_qs, encodes);
    Set(u"ResizeTo"_qs, u"400"_qs);
    const PreparedPicture main = PrepareMainFile(path);
    const PreparedPicture additional = PrepareAdditionalFile(path);
    EXPECT_GT(SizeOf(main.thumbnail).width(), 150);
    EXPECT_TRUE(additional.thumbnail.isEmpty());
    for (const PreparedPicture& picture : {main, additional}) {
      EXPECT_EQ(picture.size.width(), width);
      EXPECT_EQ(picture.jpeg.isEmpty(), encodes == u"0");
      EXPECT_EQ(SizeOf(picture.jpeg.isEmpty() ? large_ : picture.jpeg).width(), width);
    }
  }
}

TEST_F(PipelineTest, ForTheScreenAPictureIsUprightAndNoLargerThanNeeded) {
  const QByteArray turned = MakeJpeg(MakeQuarters({1600, 1200}), {.exif = MakeExif(6)});
  const QImage image = LoadPicture(Write(u"1-1.jpg"_qs, turned), {240, 320});
  EXPECT_EQ(image.size(), QSize(300, 400));
  EXPECT_EQ(image.pixelColor(30, 30), QColor(Qt::white))
      << "the lower left quarter is now the upper left one";
  EXPECT_NE(FailureOf([&] { LoadPicture(Write(u"1-2.jpg"_qs, turned.left(3000)), {}); }), QString());
}
