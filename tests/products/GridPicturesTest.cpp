// Products' pictures in the grid: dropped files, and how they follow their product.
#include <QFrame>

#include "GridWindowFixture.h"
#include "images/ImagePipeline.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

const QString Question =
    QStringLiteral("Do you want to delete selected products and their images?\r\nContinue?");

class GridPictures : public GridWindow {
 protected:
  QString Picture(const QString& name, unsigned seed = 1) const {
    WriteFileSafely(Outside(name), MakeJpeg(MakePhoto({80, 60}, seed)));
    return Outside(name);
  }
  // Gives a product a main picture and its thumbnail.
  QString GivePicture(const QString& code) {
    QString path = MainImagePath(catalog_, code);
    WriteFileSafely(path, MakeJpeg(MakePhoto({80, 60}, 1)));
    WriteFileSafely(ThumbnailPath(path), MakeJpeg(MakePhoto({40, 30}, 2)));
    connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE IDCatalogo=? AND CodiceProdotto=?"_qs,
                        {path, catalog_, code});
    return path;
  }
  QString Images() const {
    QStringList names = QDir(AppFile(u"Images"_qs)).entryList(QDir::Files, QDir::Name);
    return names.join(u' ');
  }
  static QString Asks(const QString& file) { return u"Image description for "_qs + file; }
};

}  // namespace

TEST_F(GridPictures, DroppedFilesBecomeTheMainAndAdditionalPictures) {
  const QString code = u"a'Neil 50% 🙂"_qs;
  AddProducts({code, u"b"_qs});
  Open();
  const QString second = Picture(u"L'altra 50%.JpEg"_qs, 2);
  const QString third = Picture(u"c.jpg"_qs, 3);
  dialogs_.ExpectInput(Asks(second), u"the \"other\" one"_qs);
  dialogs_.ExpectInput(Asks(third), {});
  DropFiles(0, {Picture(u"a.JPG"_qs), second, third});
  EXPECT_EQ(Images(), u"%1-%2.jpg 1.jpg t%1-%2.jpg"_qs.arg(catalog_).arg(code));
  EXPECT_EQ(One(u"Descrizione"_qs, u"Immagini"_qs, u"CodiceProdotto=?"_qs, {code}), u"the \"other\" one"_qs);
  EXPECT_FALSE(Rows().index(0, ProductColumn::ImmaginePicture).data(Qt::DecorationRole).isNull());
}

TEST_F(GridPictures, FilesThatCannotBeTakenAreToldInOneBox) {
  AddProducts({u"a"_qs});
  Open();
  QStringList files{Outside(u"0.jpg"_qs), Outside(u"1.jpg"_qs)};
  QStringList told;
  for (const QString& file : files) {
    WriteFileSafely(file, "no picture");
    told += FailureOf([&] { MeasureImage(file); });
  }
  dialogs_.ExpectMessage(told.join(u"\r\n"_qs), BoxStyle::Stop);
  DropFiles(0, files + QStringList{Picture(u"good.jpg"_qs)});
  EXPECT_EQ(Stored(u"a"_qs, u"Immagine IS NOT NULL"_qs), u"1"_qs);
}

TEST_F(GridPictures, ANewCodeTakesItsPicturesAlong) {
  AddProducts({u"a"_qs, u"b"_qs});
  const QString former = GivePicture(u"a"_qs);
  const QByteArray picture = ContentOf(former);
  Open();
  const QString code = u"O'Neil 50% 🙂"_qs;
  Change(0, Code, code);
  const QString target = MainImagePath(catalog_, code);
  EXPECT_EQ(Stored(code, u"Immagine"_qs), target);
  EXPECT_EQ(ContentOf(target), picture);
  EXPECT_FALSE(QFile::exists(former) || QFile::exists(ThumbnailPath(former)));
  EXPECT_EQ(Rows().Value(0, ProductColumn::Immagine), target) << "the grid knows the new path";
}

TEST_F(GridPictures, DeletedProductsTakeTheirFilesButNotThoseOfOthers) {
  const QString code = u"b'Neil 50% 🙂"_qs;
  AddProducts({u"a"_qs, code, u"c"_qs});
  const QString kept = GivePicture(u"a"_qs);
  GivePicture(code);
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto='c'"_qs, {kept});
  const QString additional = AppFile(u"Images/7.jpg"_qs);
  WriteFileSafely(additional, "x");
  connection_.Execute(
      u"INSERT INTO Immagini (IDImmagine,IDCatalogo,CodiceProdotto,Immagine) VALUES (7,?,?,?)"_qs,
      {catalog_, code, additional});
  Open();
  Select({1, 2});
  dialogs_.ExpectQuestion(Question, false);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Images().split(u'.').size(), 6) << "a No leaves all five";
  dialogs_.ExpectQuestion(Question, true);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Codes(), u"c"_qs);
  EXPECT_EQ(Images(), u"%1-a.jpg t%1-a.jpg"_qs.arg(catalog_)) << "c names them";
}

TEST_F(GridPictures, APressOnThePictureShowsItUntilThePointerLeaves) {
  AddProducts({u"a"_qs, u"b"_qs});
  const QString picture = GivePicture(u"a"_qs);
  QFile::remove(ThumbnailPath(picture));
  Open();
  const auto* box = Find<QFrame>(u"picExt"_qs);
  const QString key = u"Immagine"_qs;
  Click(0, key);
  EXPECT_TRUE(box->isVisible()) << "without a thumbnail the picture itself";
  Move(PointOf(0, u"Descrizione"_qs));
  EXPECT_FALSE(box->isVisible());
  Click(0, key);
  Key(Qt::Key_Down);
  EXPECT_FALSE(box->isVisible()) << "the row is not current any more";
}
