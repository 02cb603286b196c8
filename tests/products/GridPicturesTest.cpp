// Products' pictures in the grid: dropped files, and how they follow their product.
#include <QFrame>
#include <QInputDialog>
#include <QScreen>

#include "GridWindowFixture.h"
#include "base/WidgetDialogs.h"
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
  const QString first = Picture(u"a.JPG"_qs);
  const QString second = Picture(u"L'altra 50%.JpEg"_qs, 2);
  const QString third = Picture(u"c.jpg"_qs, 3);
  const QString png = Outside(u"p.png"_qs);
  WriteFileSafely(png, "no picture");
  dialogs_.ExpectInput(Asks(second), u"the \"other\" one"_qs);
  dialogs_.ExpectInput(Asks(third), {});
  DropFiles(0, {first, png, second, third});
  EXPECT_EQ(Images(), u"%1-%2.jpg 1.jpg t%1-%2.jpg"_qs.arg(catalog_).arg(code));
  EXPECT_EQ(One(u"Descrizione||Width"_qs, u"Immagini"_qs, u"CodiceProdotto=?"_qs, {code}),
            u"the \"other\" one80"_qs);
  EXPECT_EQ(Count(u"Immagini"_qs), 1);
  EXPECT_EQ(grid_->CurrentRow(), 0);
  EXPECT_FALSE(Rows().index(0, ProductColumn::ImmaginePicture).data(Qt::DecorationRole).isNull());
  EXPECT_TRUE(Rows().index(1, ProductColumn::ImmaginePicture).data(Qt::DecorationRole).isNull());
}

TEST_F(GridPictures, AFileThatIsNoPictureIsNotTaken) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  WriteFileSafely(Outside(u"p.png"_qs), "x");
  Type(0, u"Descrizione"_qs, u"typed"_qs);
  DropFiles(1, {Outside(u"p.png"_qs)});
  EXPECT_EQ(Rows().EditRow(), 0) << "nothing happens";
  DropFiles(AddNewRow(), {Picture(u"a.jpg"_qs)});
  EXPECT_EQ(Images(), QString()) << "the row for new products takes no files";
}

TEST_F(GridPictures, FilesThatCannotBeTakenAreToldInOneBox) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  const QString good = Picture(u"good.jpg"_qs);
  QStringList files;
  QStringList told;
  for (int i = 0; i < 12; ++i) {
    files += Outside(u"%1.jpg"_qs.arg(i));
    WriteFileSafely(files.last(), "no picture");
    if (i < 10) told += FailureOf([&] { MeasureImage(files.last()); });
  }
  dialogs_.ExpectMessage(told.join(u"\r\n"_qs) + u"\r\n... and 2 more"_qs, BoxStyle::Stop);
  DropFiles(0, files + QStringList{good});
  EXPECT_EQ(Stored(u"a"_qs, u"Immagine IS NOT NULL"_qs), u"1"_qs);
  EXPECT_FALSE(Rows().index(0, ProductColumn::ImmaginePicture).data(Qt::DecorationRole).isNull());
}

TEST_F(GridPictures, TheQuestionForADescriptionShowsTheFileAsItIs) {
  const QString file = u"/home/"_qs + QString(500, u'x') + u"/a <b>bold<u>b.jpg"_qs;
  const auto box = WidgetDialogs::InputBox(nullptr, Asks(file), u"Add/edit image"_qs, {});
  const auto* label = box->findChild<QLabel*>();
  ASSERT_NE(label, nullptr);
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  EXPECT_TRUE(label->text().startsWith(u"Image description for /home/x"_qs)) << label->text();
  EXPECT_TRUE(label->text().endsWith(u"x/a <b>bold<u>b.jpg"_qs)) << label->text();
  EXPECT_LE(box->sizeHint().width(), box->screen()->availableGeometry().width());
}

TEST_F(GridPictures, FilesOverARowThatCannotBeLeft) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
  Open();
  Type(0, Code, u"b"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Code \"b\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  DropFiles(2, {Picture(u"a.jpg"_qs)});  // told once, at the drop
  EXPECT_EQ(Images(), QString());
  EXPECT_EQ(Shown(0, Code), u"b"_qs) << "what was typed is still there";
  EXPECT_EQ(Rows().EditRow(), 0);
}

TEST_F(GridPictures, AHundredFilesAtOnce) {
  AddProducts({u"a"_qs});
  Open();
  QStringList files;
  for (int i = 0; i < 100; ++i) {
    files += Picture(u"%1.jpg"_qs.arg(i), unsigned(i));
    if (i > 0) dialogs_.ExpectInput(Asks(files.last()), u"picture %1"_qs.arg(i));
  }
  DropFiles(0, files);
  EXPECT_EQ(Count(u"Immagini"_qs), 99);
  EXPECT_EQ(Images().split(u' ').size(), 101);
}

TEST_F(GridPictures, ANewCodeTakesItsPicturesAndWhatBelongsToItAlong) {
  AddProducts({u"a"_qs, u"b"_qs});
  const QString former = GivePicture(u"a"_qs);
  const QByteArray picture = ContentOf(former);
  const QByteArray thumbnail = ContentOf(ThumbnailPath(former));
  for (const QString& table : {u"Immagini"_qs, u"SchedeTecniche"_qs})
    connection_.Execute(u"INSERT INTO "_qs + table + u" (IDCatalogo,CodiceProdotto) VALUES (?,'a')"_qs,
                        {catalog_});
  connection_.Execute(u"INSERT INTO Extensions (ExtensionName,P) VALUES ('e',1)"_qs);
  connection_.Execute(u"INSERT INTO PExtension (IDCatalogo,CodiceProdotto,IDExtension) VALUES (?,'a',1)"_qs,
                      {catalog_});
  Open();
  const QString code = u"O'Neil 50% 🙂"_qs;
  Change(0, Code, code);
  const QString target = MainImagePath(catalog_, code);
  EXPECT_EQ(Stored(code, u"Immagine"_qs), target);
  EXPECT_EQ(ContentOf(target), picture);
  EXPECT_EQ(ContentOf(ThumbnailPath(target)), thumbnail);
  EXPECT_FALSE(QFile::exists(former) || QFile::exists(ThumbnailPath(former)));
  for (const QString& table : {u"Immagini"_qs, u"SchedeTecniche"_qs, u"PExtension"_qs})
    EXPECT_EQ(One(u"CodiceProdotto"_qs, table).toString(), code) << table;
  EXPECT_EQ(Rows().Value(0, ProductColumn::Immagine), target) << "the grid knows the new path";

  // Another letter case of the same code.
  Change(0, Code, u"o'neil 50% 🙂"_qs);
  EXPECT_TRUE(QFile::exists(Stored(u"o'neil 50% 🙂"_qs, u"Immagine"_qs)));
}

TEST_F(GridPictures, ACodeWhosePictureNameIsTakenKeepsTheFormerName) {
  AddProducts({u"a"_qs, u"b"_qs});
  const QString former = GivePicture(u"a"_qs);
  const QString taken = MainImagePath(catalog_, u"new"_qs);
  WriteFileSafely(taken, "b's");
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto='b'"_qs, {taken});
  Open();
  Change(0, Code, u"new"_qs);
  EXPECT_EQ(Stored(u"new"_qs, u"Immagine"_qs), former);
  EXPECT_TRUE(QFile::exists(former));
  EXPECT_EQ(ContentOf(taken), "b's");
}

TEST_F(GridPictures, ACodeThatCannotBeWrittenLeavesTheFilesAsTheyWere) {
  AddProducts({u"a"_qs, u"b"_qs});
  GivePicture(u"a"_qs);
  Open();
  const auto before = FilesIn(AppFile(u"Images"_qs));
  Type(0, Code, u"b"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Code \"b\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  Key(Qt::Key_Down);
  EXPECT_EQ(Differences(before, FilesIn(AppFile(u"Images"_qs))), QStringList());
  Key(Qt::Key_Escape);

  connection_.Execute(
      u"CREATE TRIGGER Refuse BEFORE UPDATE OF Immagine ON Prodotti BEGIN SELECT "
      "RAISE(ABORT, 'refused'); END"_qs);
  Type(0, Code, u"new"_qs);
  dialogs_.ExpectMessage(u"refused. Press Esc to give up the change."_qs, BoxStyle::Stop);
  Key(Qt::Key_Down);
  EXPECT_EQ(Differences(before, FilesIn(AppFile(u"Images"_qs))), QStringList());
  EXPECT_EQ(Orders(), u"a1 b2"_qs);
  EXPECT_EQ(Rows().EditRow(), 0);
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Orders(), u"new1 b2"_qs) << "the second attempt";
  EXPECT_EQ(Images(), u"%1-new.jpg t%1-new.jpg"_qs.arg(catalog_));
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
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
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
  EXPECT_TRUE(box->isVisible());
  Click(1, key);
  EXPECT_FALSE(box->isVisible()) << "a product without a picture";
  Click(PointOf(0, key), Qt::NoModifier, Qt::RightButton);
  EXPECT_FALSE(box->isVisible());
  Find<QMenu>(u"mnuGriglia"_qs)->hide();
  Click(0, key);
  Key(Qt::Key_Down);
  EXPECT_FALSE(box->isVisible()) << "the row is not current any more";
  WriteFileSafely(picture, "damaged");
  Click(0, key);
  EXPECT_FALSE(box->isVisible());
}
