// A product's main picture and its additional ones: rows, files and marks.
#include "products/ProductImages.h"

#include "images/PictureFolder.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"
#include "support/TestJpeg.h"

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
  // Its row and its file.
  QString Stored(qint64 image) {
    const QString row = One(u"Descrizione || ' ' || Width || 'x' || Height || ' ' || Immagine"_qs,
                            u"Immagini"_qs, u"IDImmagine=?"_qs, {image})
                            .toString();
    const QString name = row.section(u'/', -1);
    return row.section(u' ', 0, -2) + u' ' + name + u' ' + QString::fromLatin1(ContentOf(PicturePath(name)));
  }
  void Name(qint64 image, const QString& path) {
    connection_.Execute(u"UPDATE Immagini SET Immagine=? WHERE IDImmagine=?"_qs, {path, image});
  }
  QString Files() const { return QDir(PicturePath({})).entryList(QDir::Files).join(u' '); }
  int Marks() { return One(u"COUNT(*)"_qs, u"PExtension"_qs, u"Valore='1'"_qs).toInt(); }

  int catalog_;
  ProductImages images_{catalog_, 1, connection_};
};

}  // namespace

TEST_F(ProductImagesTest, TheMainOneTakesTheAdditionalOnesAlong) {
  WriteFileSafely(Outside(u"own.jpg"_qs), "the user's own");
  for (const char* text : {"a", "b", "c", "d"}) Add(text);
  EXPECT_EQ(Marks(), 0);
  Name(2, Outside(u"own.jpg"_qs));
  QFile::remove(PicturePath(u"3.jpg"_qs));
  images_.Delete(1);
  EXPECT_EQ(Files(), u"1-O'Neil.jpg 2.jpg 4.jpg t1-O'Neil.jpg"_qs);
  EXPECT_EQ(Marks(), 2);
  images_.DeleteMain();
  EXPECT_EQ(Files(), u"2.jpg t1-O'Neil.jpg"_qs) << "what no row named, and the thumbnail";
  EXPECT_EQ(ContentOf(Outside(u"own.jpg"_qs)), "the user's own");
  EXPECT_EQ(Count(u"Immagini"_qs), 0);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"COALESCE(Immagine,Height,Width) IS NULL"_qs), 1);
  images_.DeleteMain();
  images_.DeleteAll();
}

TEST_F(ProductImagesTest, AChangedOneKeepsItsNameAndIsReplacedWholeOrNotAtAll) {
  const qint64 image = Add("a");
  const auto change = [&] {
    return FailureOf([&] { images_.Change(image, {}, {"b", {}, {50, 60}}, u"b \"b\""_qs); });
  };
  EXPECT_EQ(change(), QString());
  EXPECT_EQ(Stored(image), u"b \"b\" 50x60 1.jpg b"_qs);
  EXPECT_EQ(Marks(), 0);
  WriteFileSafely(PicturePath(u"former.jpg"_qs), "former");
  Name(image, PicturePath(u"former.jpg"_qs));
  QFile::remove(PicturePath(u"1.jpg"_qs));
  EXPECT_EQ(change(), QString());
  EXPECT_EQ(Files(), u"1-O'Neil.jpg 1.jpg t1-O'Neil.jpg"_qs) << "its former name is given up";
  images_.Describe(image, u"c"_qs);
  connection_.Execute(
      u"CREATE TRIGGER Refuse BEFORE UPDATE ON Immagini WHEN new.Immagine<>'' "
      "BEGIN SELECT RAISE(ABORT, 'refused'); END"_qs);
  EXPECT_NE(change(), QString());
  EXPECT_EQ(Stored(image), u"c 50x60 1.jpg b"_qs);
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  // Other rows name the files of this number and of the next one.
  WriteFileSafely(PicturePath(u"2.jpg"_qs), "another's");
  connection_.Execute(u"UPDATE Cataloghi SET Logo=?"_qs, {PicturePath(u"2.jpg"_qs)});
  connection_.Execute(u"UPDATE Prodotti SET Immagine=?"_qs, {PicturePath(u"1.jpg"_qs)});
  EXPECT_NE(change(), QString());
  EXPECT_EQ(Stored(image), u"c 50x60 1.jpg b"_qs);
  EXPECT_EQ(Stored(Add("d")), u"d 40x30 3.jpg d"_qs);
  EXPECT_EQ(ContentOf(PicturePath(u"2.jpg"_qs)), "another's");
}

TEST_F(ProductImagesTest, WhatIsGoneMeanwhileIsToldAndLeavesNothing) {
  const qint64 image = Add("a");
  Add("b");
  connection_.Execute(u"DELETE FROM Immagini WHERE IDImmagine=?"_qs, {image});
  const QString before = Files();
  const auto fails = [&](const std::function<void()>& step) { return !FailureOf(step).isEmpty(); };
  EXPECT_TRUE(fails([&] { images_.Change(image, {}, {"b", {}, {5, 6}}, u"b"_qs); }));
  EXPECT_TRUE(fails([&] { images_.Describe(image, u"b"_qs); }));
  images_.Delete(image);
  // Its code may change, and another product get it.
  connection_.Execute(u"UPDATE Prodotti SET CodiceProdotto='other'"_qs);
  AddProduct(catalog_, u"O'Neil"_qs);
  EXPECT_EQ(images_.List().size(), 1U);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='other'"_qs);
  for (const std::function<void()>& step : std::vector<std::function<void()>>{
           [&] { Add("c"); }, [&] { images_.Mark(); }, [&] { images_.DeleteMain(); },
           [&] { images_.AddFiles({Outside(u"gone.jpg"_qs)}, {}); }})
    EXPECT_TRUE(fails(step));
  EXPECT_EQ(Files(), before);
}

TEST_F(ProductImagesTest, FilesAreAddedInTheirOrderUntilNoDescriptionIsGiven) {
  const QString good = Outside(u"good.jpg"_qs);
  WriteFileSafely(good, MakeJpeg(MakePhoto({40, 30}, 1)));
  const QString bad = Outside(u"bad.jpg"_qs);
  WriteFileSafely(bad, ContentOf(good).chopped(500));
  QStringList texts{u"a"_qs, u"b"_qs, QString()};
  const ProductImages::Added added = images_.AddFiles({good, bad, good, good, bad}, [&](const QString& file) {
    EXPECT_EQ(file, good);
    EXPECT_FALSE(connection_.InTransaction());
    return texts.takeFirst();
  });
  EXPECT_TRUE(added.failures.size() == 1 && added.failures[0].contains(bad));
  EXPECT_EQ(added.last, 2);
  EXPECT_EQ(Files(), u"1-O'Neil.jpg 1.jpg 2.jpg t1-O'Neil.jpg"_qs);
  EXPECT_EQ(Stored(1).section(u' ', 0, 2), u"a 40x30 1.jpg"_qs);
}
