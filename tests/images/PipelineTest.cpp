// The rules of stored pictures, on files.
#include <QImage>

#include "base/Settings.h"
#include "images/FitPicture.h"
#include "images/ImagePipeline.h"
#include "images/ScreenPicture.h"
#include "support/CatalogFixture.h"
#include "support/FullDisk.h"
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
  static QSize SizeOf(const QString& path) { return QImage(path, "jpeg").size(); }
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

TEST_F(PipelineTest, ANewPictureIsFittedAndGetsItsThumbnail) {
  const QString path = Write(u"12-ABC.jpg"_qs, large_);
  const ResizeResult result = ResizeImage(path, PictureLimit());
  EXPECT_EQ(result.source, QSizeF(1600, 1200));
  EXPECT_EQ(result.target, QSizeF(800, 600));
  EXPECT_EQ(MeasureImage(path), QSize(800, 600));
  CreateThumbnail(path, ThumbnailLimit);
  EXPECT_EQ(SizeOf(AppFile(u"Images/t12-ABC.jpg"_qs)), QSize(200, 150));
  const QByteArray before = ContentOf(path);
  ReRenderImage(path);
  EXPECT_EQ(MeasureImage(path), QSize(800, 600));
  EXPECT_FALSE(ContentOf(path).isEmpty() || ContentOf(path) == before);
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 2U) << "nothing else may be left there";
}

TEST_F(PipelineTest, TheSettingsAreReadAtEachUse) {
  const QString path = Write(u"1-1.jpg"_qs, large_);
  Set(u"ResizeJPG"_qs, u"0"_qs);
  Set(u"ReRenderJPG"_qs, u"0"_qs);
  EXPECT_EQ(ResizeImage(path, PictureLimit()).target, QSizeF(1600, 1200));
  EXPECT_EQ(ContentOf(path), large_);
  Set(u"ReRenderJPG"_qs, u"1"_qs);
  Set(u"ReRenderQuality"_qs, u"30"_qs);
  ResizeImage(path, PictureLimit());
  EXPECT_LT(ContentOf(path).size(), large_.size() / 2);
  Set(u"ResizeJPG"_qs, u"1"_qs);
  Set(u"ResizeTo"_qs, u"400"_qs);
  ResizeImage(path, PictureLimit());
  EXPECT_EQ(SizeOf(path), QSize(400, 300));
}

// Only what ResizeImage cannot load is told; everything else leaves the file as it was.
TEST_F(PipelineTest, FailuresLeaveTheFileAsItWas) {
  const QString bad = Write(u"1-bad.jpg"_qs, large_.left(large_.size() / 2));
  EXPECT_NE(FailureOf([&] { ResizeImage(bad, 800); }), QString());
  EXPECT_NE(FailureOf([&] { ResizeImage(AppFile(u"Images/none.jpg"_qs), 800); }), QString());
  EXPECT_EQ(FailureOf([&] {
              CreateThumbnail(bad, 200);
              ReRenderImage(bad);
              CreateThumbnail(AppFile(u"Images/none.jpg"_qs), 200);
            }),
            QString());
  EXPECT_EQ(ContentOf(bad), large_.left(large_.size() / 2));
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 1U);

  const QString good = Write(u"1-good.jpg"_qs, large_);
  {
    const FullDisk full(2000);
    EXPECT_EQ(FailureOf([&] {
                ResizeImage(good, 800);
                CreateThumbnail(good, 200);
                ReRenderImage(good);
              }),
              QString());
  }
  EXPECT_EQ(ContentOf(good), large_);
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 2U) << "a half-written file was left";
}

TEST_F(PipelineTest, AProductsPicturesAreDeletedWithTheirThumbnail) {
  const int catalog = AddCatalog(u"Catalog"_qs);
  const QString code = u"O'Neil 50%"_qs;
  for (const QString& product : {code, u"other"_qs}) {
    AddProduct(catalog, product);
    const QString main = Write(QString::number(catalog) + u'-' + product + u".jpg"_qs, large_);
    CreateThumbnail(main, ThumbnailLimit);
    connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto=?"_qs, {main, product});
    for (const QString& extra : {u"7"_qs, u"8"_qs})
      connection_.Execute(u"INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Immagine) VALUES (?,?,?)"_qs,
                          {catalog, product, Write(product.left(1) + extra + u".jpg"_qs, large_)});
  }
  QFile::remove(AppFile(u"Images/O7.jpg"_qs));
  DeleteProductImages(code, catalog, connection_);
  QStringList left;
  for (const auto& file : FilesIn(AppFile(u"Images"_qs))) left += file.first;
  const QString id = QString::number(catalog);
  EXPECT_EQ(left.join(u' '), u"%1-other.jpg o7.jpg o8.jpg t%1-other.jpg"_qs.arg(id));
  EXPECT_EQ(Count(u"Immagini"_qs), 4) << "the rows are the caller's";
  AddProduct(catalog, u"bare"_qs);
  DeleteProductImages(u"bare"_qs, catalog, connection_);
  DeleteProductImages(u"none"_qs, catalog, connection_);
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 4U);
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
