// Pictures that are dropped on a product.
#include "products/PictureDrop.h"

#include <QImage>

#include "images/PictureFolder.h"
#include "support/CatalogFixture.h"
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
  // Gives what failed; what was asked goes to asked_.
  QStringList Drop(const QStringList& files, const QString& description) {
    return PictureDrop({catalog_, code_}, connection_).Add(files, [&](const QString& path) {
      asked_ += path;
      EXPECT_FALSE(connection_.InTransaction());
      return description;
    });
  }

  const QString code_ = QStringLiteral("O'Neil 50%");
  int catalog_;
  QStringList asked_;
};

}  // namespace

TEST_F(PictureDropTest, TheFirstIsTheMainPictureAndTheOthersAreAdditional) {
  Drop({Picture(u"a.JPG"_qs), Picture(u"b.jpeg"_qs, {400, 300})}, u"side"_qs);
  EXPECT_EQ(asked_, QStringList{Outside(u"b.jpeg"_qs)});
  for (const auto& [table, size] :
       {std::pair{u"Prodotti"_qs, u"804x603"_qs}, {u"Immagini"_qs, u"400x300"_qs}})
    EXPECT_EQ(One(u"Width || 'x' || Height"_qs, table), size);
  Drop({Picture(u"c.jpg"_qs)}, QString());
  EXPECT_EQ(Count(u"Immagini"_qs), 1) << "an empty answer leaves no row";
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 3U) << "and no file";
  EXPECT_EQ(Count(u"PExtension"_qs), 0) << "a drop leaves no mark";
}

TEST_F(PictureDropTest, NothingOfOthersIsWrittenOver) {
  const QString picture = Picture(u"a.jpg"_qs);
  const auto before = FilesIn(AppFile(u"Images"_qs));
  const QString taken = MainImagePath(catalog_, u"Logo"_qs);
  WriteFileSafely(taken, "the logo");
  connection_.Execute(u"UPDATE Cataloghi SET Logo=? WHERE IDCatalogo=?"_qs, {taken, catalog_});
  AddProduct(catalog_, u"Logo"_qs);
  EXPECT_TRUE(
      PictureDrop({catalog_, u"Logo"_qs}, connection_).Add({picture}, {}).value(0).startsWith(picture));
  EXPECT_EQ(ContentOf(taken), "the logo");
  QFile::remove(taken);
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), before), QStringList());
}

TEST_F(PictureDropTest, BadFilesAreToldByTheirNamesAndTheOthersAreTaken) {
  const QString good = Picture(u"good.jpg"_qs);
  const QString cut = Outside(u"cut.JPG"_qs);
  const QString gone = Outside(u"gone.jpeg"_qs);
  WriteFileSafely(cut, ContentOf(good).chopped(2000));
  const QStringList failures = Drop({cut, Outside(u"p.png"_qs), good, gone, cut, good}, u"x"_qs);
  ASSERT_EQ(failures.size(), 3);
  for (const auto& [i, file] : {std::pair{0, cut}, {1, gone}, {2, cut}})
    EXPECT_TRUE(failures[i].contains(file) && !failures[i].contains(u"Images"_qs)) << failures[i];
  EXPECT_EQ(Count(u"Immagini"_qs), 1);
}
