// Pictures that are dropped on a product.
#include "products/PictureDrop.h"

#include <QImage>

#include "catalogs/CatalogCheck.h"
#include "images/ImagePipeline.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class PictureDropTest : public CatalogFixture {
 protected:
  PictureDropTest() : catalog_(AddCatalog(u"Catalog"_qs)) { AddProduct(catalog_, code_); }

  QString Picture(const QString& name, QSize size = {1200, 900}) const {
    WriteFileSafely(Outside(name), MakeJpeg(MakePhoto(size, 1)));
    return Outside(name);
  }
  // What was asked goes to asked_.
  void Drop(const QString& file, const QString& description) {
    PictureDrop(catalog_, code_, connection_).Add(file, [&](const QString& path) {
      asked_ += path;
      EXPECT_FALSE(connection_.InTransaction());
      return description;
    });
  }
  QStringList Findings() {
    QStringList all;
    for (const Finding& finding : CheckCatalogs(connection_))
      all += NameOf(finding.kind) + u' ' + finding.subject;
    return all;
  }

  const QString code_ = QStringLiteral("O'Neil 50%");
  int catalog_;
  QStringList asked_;
};

}  // namespace

TEST_F(PictureDropTest, TheFirstIsTheMainPictureAndTheOthersAreAdditional) {
  Drop(Picture(u"a.JPG"_qs), u"never asked"_qs);
  EXPECT_EQ(asked_, QStringList());
  EXPECT_EQ(One(u"Width || 'x' || Height"_qs, u"Prodotti"_qs), u"804x603"_qs);
  EXPECT_TRUE(QFile::exists(ThumbnailPath(MainImagePath(catalog_, code_))));
  Drop(Picture(u"b.jpeg"_qs, {400, 300}), u"the \"side\""_qs);
  EXPECT_EQ(asked_, QStringList{Outside(u"b.jpeg"_qs)});
  EXPECT_EQ(One(u"Descrizione"_qs, u"Immagini"_qs, u"CodiceProdotto=?"_qs, {code_}), u"the \"side\""_qs);
  EXPECT_EQ(One(u"Width || 'x' || Height"_qs, u"Immagini"_qs), u"400x300"_qs);
  const int files = int(FilesIn(AppFile(u"Images"_qs)).size());
  Drop(Picture(u"c.jpg"_qs), QString());
  EXPECT_EQ(Count(u"Immagini"_qs), 1) << "an empty answer leaves no row";
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), std::size_t(files)) << "and no file";
  EXPECT_EQ(Count(u"PExtension"_qs), 0) << "a drop leaves no mark";
  EXPECT_EQ(Findings(), QStringList());
}

TEST_F(PictureDropTest, NothingOfOthersIsWrittenOver) {
  const QString picture = Picture(u"a.jpg"_qs);
  const auto before = FilesIn(AppFile(u"Images"_qs));
  EXPECT_NE(FailureOf([&] { PictureDrop(catalog_, u"gone"_qs, connection_).Add(picture, {}); }), QString());
  const QString taken = MainImagePath(catalog_, u"Logo"_qs);
  WriteFileSafely(taken, "the logo");
  connection_.Execute(u"UPDATE Cataloghi SET Logo=? WHERE IDCatalogo=?"_qs, {taken, catalog_});
  AddProduct(catalog_, u"Logo"_qs);
  EXPECT_NE(FailureOf([&] { PictureDrop(catalog_, u"Logo"_qs, connection_).Add(picture, {}); }), QString());
  EXPECT_EQ(ContentOf(taken), "the logo");
  QFile::remove(taken);
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), before), QStringList());
}

TEST_F(PictureDropTest, ABadFileIsToldAndHasNoRow) {
  WriteFileSafely(Outside(u"bad.jpg"_qs), "no picture");
  EXPECT_TRUE(FailureOf([&] { Drop(Outside(u"bad.jpg"_qs), u"x"_qs); }).contains(u"cannot be read"_qs));
  EXPECT_TRUE(FailureOf([&] { Drop(Outside(u"gone.jpg"_qs), u"x"_qs); }).contains(u"cannot be read"_qs));
  EXPECT_TRUE(One(u"Immagine"_qs, u"Prodotti"_qs).isNull());
  Drop(Picture(u"a.jpg"_qs), {});
  EXPECT_NE(FailureOf([&] { Drop(Outside(u"bad.jpg"_qs), u"x"_qs); }), QString());
  EXPECT_EQ(Count(u"Immagini"_qs), 0);
  for (const auto& [name, isPicture] : {std::pair{u"a.JPG"_qs, true}, std::pair{u"a.Jpeg"_qs, true},
                                        std::pair{u"a.png"_qs, false}, std::pair{u"jp"_qs, false}})
    EXPECT_EQ(PictureDrop::IsPicture(name), isPicture) << name;
}
