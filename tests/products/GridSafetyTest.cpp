// What other windows and programs do meanwhile, and steps that come when they are not expected: nothing is
// lost.
#include <QDialog>

#include "images/PictureFolder.h"
#include "products/GridWindowFixture.h"
#include "support/TestJpeg.h"

using namespace vorlina;

using GridSafety = GridWindow;

TEST_F(GridSafety, ADropOnADeletedProductIsTold) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='a'"_qs);
  WriteFileSafely(Outside(u"x.jpg"_qs), MakeJpeg(MakePhoto({300, 200}, 1)));
  dialogs_.ExpectMessage(u"The product was deleted meanwhile by another window or program."_qs,
                         BoxStyle::Stop);
  DropFiles(0, {Outside(u"x.jpg"_qs)});
  EXPECT_EQ(dialogs_.Left(), 0);
  DropFiles(0, {Outside(u"x.jpg"_qs)});
  EXPECT_EQ(Stored(u"b"_qs, u"Immagine"_qs), MainImagePath(catalog_, u"b"_qs));
}

TEST_F(GridSafety, ADropWaitsUntilABoxIsAnswered) {
  AddProducts({u"a"_qs});
  Open();
  WriteFileSafely(Outside(u"x.jpg"_qs), MakeJpeg(MakePhoto({300, 200}, 1)));
  QDialog box(window_);
  box.setObjectName(u"box"_qs);
  UnexpectedModalGuard::allowed = QStringList{box.objectName()};
  box.setModal(true);
  QObject::connect(grid_, &DataGrid::FilesDropped, &box, &QDialog::show);
  DropFiles(0, {Outside(u"x.jpg"_qs)});
  EXPECT_EQ(Stored(u"a"_qs, u"Immagine"_qs), QString());
  box.close();
  UnexpectedModalGuard::allowed.clear();
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Stored(u"a"_qs, u"Immagine"_qs).isEmpty(); }));
}

TEST_F(GridSafety, ADoubleClickEdits) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  const QPoint at = PointOf(1, u"Descrizione"_qs);
  Click(at);
  QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, at);
  QCoreApplication::processEvents();
  EXPECT_NE(Editor(), nullptr);
}
