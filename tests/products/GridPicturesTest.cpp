// Products' pictures in the grid: dropped files, and how they follow their product.
#include <QDialog>
#include <QFrame>

#include "GridWindowFixture.h"
#include "images/PictureFolder.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

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
    SetImage(code, path);
    return path;
  }
};

}  // namespace

TEST_F(GridPictures, DroppedFilesBecomeTheMainAndAdditionalPictures) {
  const QString code = u"a'Neil 50% 🙂"_qs;
  AddProducts({code});
  Open();
  const QString second = Picture(u"L'altra 50%.JpEg"_qs, 2);
  const QString bad = Outside(u"0.jpg"_qs);
  WriteFileSafely(bad, "no picture");
  dialogs_.ExpectInput(u"Image description for "_qs + second, u"the \"other\" one"_qs);
  dialogs_.ExpectMessage(u"The file %1 cannot be read: it is no JPEG picture"_qs.arg(bad), BoxStyle::Stop);
  DropFiles(0, {bad, Picture(u"a.JPG"_qs), second});
  EXPECT_EQ(One(u"Descrizione"_qs, u"Immagini"_qs, u"CodiceProdotto=?"_qs, {code}), u"the \"other\" one"_qs);
  EXPECT_FALSE(Rows().index(0, ProductColumn::ImmaginePicture).data(Qt::DecorationRole).isNull());
}

// What the store does is left by the grid as well: rows, files and marks agree.
TEST_F(GridPictures, ProductsTakeWhatIsTheirsAlong) {
  const QString code = u"O'Neil 50% 🙂"_qs;
  AddProducts({u"a"_qs, u"b"_qs});
  for (const QString& product : {u"a"_qs, u"b"_qs}) GivePicture(product);
  Open();
  Change(0, Code, code);
  EXPECT_EQ(Rows().Value(0, ProductColumn::Immagine), MainImagePath(catalog_, code))
      << "the new path is known";
  Select({2});
  dialogs_.ExpectQuestion(u"Do you want to delete selected products and their images?\r\nContinue?"_qs, true);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Count(u"PExtension"_qs), 2);
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 2U);
  EXPECT_EQ(Findings(), QStringList());

  // Another letter case of the same code.
  Change(0, Code, u"o'neil 50% 🙂"_qs);
  EXPECT_TRUE(QFile::exists(Stored(u"o'neil 50% 🙂"_qs, u"Immagine"_qs)));
}

TEST_F(GridPictures, APressOnThePictureShowsItUntilThePointerLeaves) {
  AddProducts({u"a"_qs});
  QFile::remove(ThumbnailPath(GivePicture(u"a"_qs)));
  Open();
  Click(0, u"Immagine"_qs);
  EXPECT_TRUE(Find<QFrame>(u"picExt"_qs)->isVisible()) << "without a thumbnail the picture itself";
  Move(PointOf(0, Description));
  EXPECT_FALSE(Find<QFrame>(u"picExt"_qs)->isVisible());
}

TEST_F(GridPictures, WhatIsChosenInThePagerOpensAlsoWhereTheGridDoesNotHaveIt) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  AddProduct(catalog_, u"c"_qs);
  UnexpectedModalGuard::allowed = QStringList{u"frmImageViewer"_qs};
  for (const int steps : {2, 3, 1}) {
    QTimer::singleShot(0, [steps] {
      for (int i = 0; i < steps; ++i) QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Right);
      QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return);
    });
    Find<QAction>(u"cmdImmagini"_qs)->trigger();
    EXPECT_EQ(Find<QLineEdit>(u"txtCode"_qs)->text(), QStringLiteral(" abc")[steps]);
    EXPECT_EQ(grid_->CurrentRow(), steps > 1 ? 1 : 0);
  }
  UnexpectedModalGuard::allowed.clear();
}

TEST_F(GridPictures, ADropOnADeletedProductIsTold) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='a'"_qs);
  const QStringList files{Picture(u"x.jpg"_qs)};
  dialogs_.ExpectMessage(u"The product was deleted meanwhile by another window or program."_qs,
                         BoxStyle::Stop);
  DropFiles(0, files);
  DropFiles(0, files);
  EXPECT_EQ(Stored(u"b"_qs, u"Immagine"_qs), MainImagePath(catalog_, u"b"_qs));
}

TEST_F(GridPictures, ADropWaitsUntilABoxIsAnswered) {
  AddProducts({u"a"_qs});
  Open();
  QDialog box(window_);
  box.setObjectName(u"box"_qs);
  UnexpectedModalGuard::allowed = QStringList{box.objectName()};
  box.setModal(true);
  QObject::connect(grid_, &DataGrid::FilesDropped, &box, &QDialog::show);
  DropFiles(0, {Picture(u"x.jpg"_qs)});
  EXPECT_EQ(Stored(u"a"_qs, u"Immagine"_qs), QString());
  box.close();
  UnexpectedModalGuard::allowed.clear();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Stored(u"a"_qs, u"Immagine"_qs).isEmpty(); }));
}
