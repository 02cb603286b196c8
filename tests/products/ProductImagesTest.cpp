// A product's main picture and its additional ones: rows, files and marks.
#include "products/ProductImages.h"

#include "images/PictureFolder.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

class ProductImagesTest : public CatalogFixture {
 protected:
  ProductImagesTest() : catalog_(AddCatalog(u"Catalog"_qs)) {
    AddProduct(catalog_, u"O'Neil"_qs);
    ProductStore(catalog_, connection_).SetMainImage(1, {}, {"main", "thumbnail", {4, 3}});
  }
  // An additional picture of which the file holds its description.
  qint64 Add(const QByteArray& text) {
    return images_.Add({}, {text, {}, {40, 30}}, QString::fromLatin1(text));
  }
  // Gives it another file; tells what failed.
  QString Change(qint64 image, const QByteArray& text) {
    return FailureOf([&] { images_.Change(image, {}, {text, {}, {50, 60}}, QString::fromLatin1(text)); });
  }
  // Its row and its file.
  QString Stored(qint64 image) {
    const QString path = One(u"Immagine"_qs, u"Immagini"_qs, u"IDImmagine=?"_qs, {image}).toString();
    return One(u"Descrizione||Width||'x'||Height"_qs, u"Immagini"_qs, u"IDImmagine=?"_qs, {image})
               .toString() +
           path.section(u'/', -1) + QString::fromLatin1(ContentOf(path));
  }
  void Name(qint64 image, const QString& path) {
    connection_.Execute(u"UPDATE Immagini SET Immagine=? WHERE IDImmagine=?"_qs, {path, image});
  }

  int catalog_;
  ProductImages images_{catalog_, 1, connection_};
};

}  // namespace

TEST_F(ProductImagesTest, TheMainOneTakesTheAdditionalOnesAlong) {
  WriteFileSafely(Outside(u"own.jpg"_qs), "the user's own");
  for (const char* text : {"a", "b", "c", "d"}) Add(text);
  EXPECT_EQ(Count(u"PExtension"_qs), 0);
  Name(2, Outside(u"own.jpg"_qs));
  QFile::remove(PicturePath(u"3.jpg"_qs));
  images_.Delete(1);
  EXPECT_EQ(PictureNames(), u"1-O'Neil.jpg 2.jpg 4.jpg t1-O'Neil.jpg"_qs);
  EXPECT_EQ(Count(u"PExtension"_qs), 2);
  images_.DeleteMain();
  EXPECT_EQ(PictureNames(), u"2.jpg t1-O'Neil.jpg"_qs) << "what no row named, and the thumbnail";
  EXPECT_TRUE(QFile::exists(Outside(u"own.jpg"_qs)));
  EXPECT_EQ(Count(u"Immagini"_qs), 0);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"COALESCE(Immagine,Height,Width) IS NULL"_qs), 1);
  EXPECT_NE(FailureOf([&] { Add("e"); }), QString()) << "none stands without a main one";
}

TEST_F(ProductImagesTest, AChangedOneKeepsItsNameAndIsReplacedWholeOrNotAtAll) {
  const qint64 image = Add("a");
  WriteFileSafely(PicturePath(u"former.jpg"_qs), "former");
  Name(image, PicturePath(u"former.jpg"_qs));
  EXPECT_EQ(Change(image, "b"), QString());
  EXPECT_EQ(Stored(image), u"b50x601.jpgb"_qs);
  EXPECT_EQ(PictureNames(), u"1-O'Neil.jpg 1.jpg t1-O'Neil.jpg"_qs) << "its former name is given up";
  images_.Describe(image, u"\"c\""_qs);
  connection_.Execute(
      u"CREATE TRIGGER Refuse BEFORE UPDATE ON Immagini WHEN new.Immagine<>'' "
      "BEGIN SELECT RAISE(ABORT, 'refused'); END"_qs);
  EXPECT_NE(Change(image, "d"), QString());
  EXPECT_EQ(Stored(image), u"\"c\"50x601.jpgb"_qs);
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  // Other rows name the files of this number and of the next one.
  WriteFileSafely(PicturePath(u"2.jpg"_qs), "another's");
  connection_.Execute(u"UPDATE Cataloghi SET Logo=?"_qs, {PicturePath(u"2.jpg"_qs)});
  connection_.Execute(u"UPDATE Prodotti SET Immagine=?"_qs, {PicturePath(u"1.jpg"_qs)});
  EXPECT_NE(Change(image, "d"), QString());
  EXPECT_EQ(Stored(image), u"\"c\"50x601.jpgb"_qs);
  EXPECT_EQ(Stored(Add("e")), u"e40x303.jpge"_qs);
}

TEST_F(ProductImagesTest, WhatIsGoneMeanwhileIsToldAndLeavesNothing) {
  const qint64 image = Add("a");
  Add("b");
  connection_.Execute(u"DELETE FROM Immagini WHERE IDImmagine=?"_qs, {image});
  const QString before = PictureNames();
  EXPECT_NE(Change(image, "c"), QString());
  EXPECT_NE(FailureOf([&] { images_.Describe(image, u"c"_qs); }), QString());
  images_.Delete(image);
  // Its code may change, and another product get it.
  connection_.Execute(u"UPDATE Prodotti SET CodiceProdotto='other'"_qs);
  AddProduct(catalog_, u"O'Neil"_qs);
  EXPECT_EQ(images_.List().size(), 1U);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='other'"_qs);
  EXPECT_NE(FailureOf([&] { Add("c"); }), QString());
  EXPECT_NE(FailureOf([&] { images_.AddFiles({u"gone.jpg"_qs}, {}); }), QString());
  EXPECT_NE(FailureOf([&] { images_.DeleteMain(); }), QString());
  EXPECT_EQ(PictureNames(), before);
}
