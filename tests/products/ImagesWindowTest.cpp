// The list of a product's pictures beside the preview, worked by keys and the mouse.
#include <QAction>
#include <QLineEdit>
#include <QTest>

#include "images/PictureFolder.h"
#include "products/ProductImages.h"
#include "products/WidgetImageList.h"
#include "products/frmImages.h"
#include "support/CatalogFixture.h"
#include "support/Drop.h"
#include "support/Messages.h"
#include "support/Print.h"
#include "support/ScriptedDialogs.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

const QString DeleteQuestion = QStringLiteral("Delete selected image?");
const QString MainQuestion = QStringLiteral("Deleting main image will delete all the others. Continue?");

// The main picture is wide, the additional ones are tall.
class ImagesWindow : public CatalogFixture {
 protected:
  ImagesWindow() : catalog_(AddCatalog(u"Catalog"_qs)) {
    AddProduct(catalog_, u"O'Neil"_qs);
    connection_.Execute(u"UPDATE Prodotti SET Descrizione='Lamp'"_qs);
    ProductStore(catalog_, connection_).SetMainImage(1, {}, {Jpeg({80, 60}), Jpeg({80, 60}), {}});
    for (const QString& text : {u"front"_qs, u"side"_qs, u"back"_qs}) AddPicture(text);
    preview_.Percorso = MainImagePath(catalog_, u"O'Neil"_qs);
    window_->IDCatalogo = catalog_;
    window_->CodiceProdotto = u"O'Neil"_qs;
    window_->Connessione = &connection_;
    window_->Anteprima = &preview_;
    window_->MainImageRemoved = [this] { ++removed_; };
    preview_.LoadForm();
    window_->LoadForm();
    list_ = window_->findChild<WidgetImageList*>(u"lstImages"_qs);
    preview_.show();
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_));
  }

  static QByteArray Jpeg(QSize size) { return MakeJpeg(MakePhoto(size, 1)); }
  void AddPicture(const QString& text) {
    ProductImages(catalog_, 1, connection_).Add({}, {Jpeg({60, 80}), {}, {}}, text);
  }
  QString File(const QString& name, const QByteArray& content = Jpeg({60, 80})) const {
    WriteFileSafely(Outside(name), content);
    return Outside(name);
  }

  void Key(int key) const {
    QTest::keyClick(window_->windowHandle(), Qt::Key(key));
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void Type(const QString& text) const {
    Key(Qt::Key_F2);
    ASSERT_NE(Editor(), nullptr);
    QTest::keyClicks(Editor(), text);
  }
  void ClickItem(int row) const {
    const QPoint at = list_->visualItemRect(list_->item(row)).center();
    QTest::mouseClick(window_->windowHandle(), Qt::LeftButton, {}, list_->viewport()->mapTo(window_, at));
    QCoreApplication::processEvents();
  }
  void Press(const QString& command) const {
    window_->findChild<QAction*>(command)->trigger();
    QCoreApplication::processEvents();
  }
  // Another program deletes a picture, and the window is come back to.
  void LoseAndReturn(const QString& text) {
    connection_.Execute(u"DELETE FROM Immagini WHERE Descrizione=?"_qs, {text});
    QEvent activate(QEvent::WindowActivate);
    QCoreApplication::sendEvent(window_, &activate);
    QCoreApplication::processEvents();
  }

  QLineEdit* Editor() const { return list_->viewport()->findChild<QLineEdit*>(); }
  // The labels, with the selected one in brackets.
  QString Labels() const {
    QString labels;
    for (int row = 0; row < list_->count(); ++row)
      labels +=
          QString(list_->item(row)->isSelected() ? u"[%1]"_qs : u" %1 "_qs).arg(list_->item(row)->text());
    return labels.simplified();
  }
  QString Shown() const {
    const auto* box = preview_.findChild<QWidget*>(u"Picture1"_qs);
    return !box->isVisible() ? u"nothing"_qs : box->width() > box->height() ? u"main"_qs : u"another"_qs;
  }

  ScriptedDialogs dialogs_;
  int catalog_;
  int removed_ = 0;
  frmImage preview_;
  frmImages* window_ = new frmImages(&preview_);
  WidgetImageList* list_ = nullptr;
};

}  // namespace

TEST_F(ImagesWindow, WhatIsPickedIsShownAndWhatIsGoneLeaves) {
  EXPECT_EQ(Labels(), u"[Lamp] front side back"_qs);
  const auto isSeen = [&] {
    const QPoint at = list_->visualItemRect(list_->item(3)).topLeft() + QPoint(36, 30);
    return list_->viewport()->grab().toImage().pixelColor(at) != list_->palette().color(QPalette::Base);
  };
  EXPECT_TRUE(QTest::qWaitFor(isSeen)) << "an empty place is left";
  Key(Qt::Key_Down);
  EXPECT_EQ(Shown(), u"another"_qs);
  connection_.Execute(u"DELETE FROM Immagini WHERE Descrizione='side'"_qs);
  ClickItem(2);
  EXPECT_EQ(Shown(), u"nothing"_qs);
  LoseAndReturn(u"front"_qs);
  EXPECT_EQ(Labels() + Shown(), u"[Lamp] backmain"_qs);
}

TEST_F(ImagesWindow, LabelsAreTypedOverAndKeysStayInTheEditor) {
  Key(Qt::Key_F2);
  EXPECT_EQ(Editor(), nullptr) << "the main one's text is the product's";
  Key(Qt::Key_Down);
  Type(u"x"_qs);
  Key(Qt::Key_Escape);
  Type({});
  Key(Qt::Key_Delete);  // asks for nothing
  Key(Qt::Key_Return);
  EXPECT_EQ(Labels(), u"Lamp [front] side back"_qs);
  ClickItem(1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Editor() != nullptr; }));
  QTest::keyClicks(Editor(), u"new"_qs);
  dialogs_.ExpectQuestion(DeleteQuestion, false);
  Press(u"cmdDelete"_qs);
  EXPECT_EQ(Labels(), u"Lamp [new] side back"_qs) << "stored before the command";
  Type(u"last"_qs);
  LoseAndReturn(u"new"_qs);
  EXPECT_EQ(list_->count(), 4) << "the list waits while a text is typed";
  dialogs_.ExpectMessage(u"Error: The image was deleted meanwhile by another window or program."_qs,
                         BoxStyle::Stop);
  Key(Qt::Key_Return);
  EXPECT_EQ(Labels(), u"[Lamp] side back"_qs);
  Key(Qt::Key_Down);
  Type(u"closed"_qs);
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(One(u"group_concat(Descrizione)"_qs, u"Immagini"_qs), u"closed,back"_qs);
}

TEST_F(ImagesWindow, AddedPicturesNeedADescription) {
  dialogs_.ExpectFiles({});
  Press(u"cmdAdd"_qs);
  EXPECT_EQ(Count(u"PExtension"_qs), 2) << "marked before a file is chosen";
  dialogs_.ExpectFiles({File(u"a.jpg"_qs)});
  for (const QString& answer : {QString(), u" "_qs, u"O'Neil \"top\""_qs})
    dialogs_.ExpectInput(u"Image description"_qs, answer);
  Press(u"cmdAdd"_qs);
  EXPECT_EQ(Labels() + Shown(), u"Lamp front side back [O'Neil \"top\"]another"_qs);
  // Several at once, one of them broken, and the last one given up.
  const QString broken = File(u"broken.jpg"_qs, "no picture");
  const QStringList files{File(u"b.jpg"_qs), broken, File(u"t.txt"_qs), File(u"c.JPEG"_qs),
                          File(u"d.jpg"_qs), broken};
  for (const auto& [name, answer] : {std::pair{u"b.jpg"_qs, u"b"_qs},
                                     {u"c.JPEG"_qs, u""_qs},
                                     {u"c.JPEG"_qs, u"c"_qs},
                                     {u"d.jpg"_qs, QString()}})
    dialogs_.ExpectInput(u"Image description for "_qs + name, answer);
  dialogs_.ExpectMessage(u"Error: The file %1 cannot be read: it is no JPEG picture"_qs.arg(broken),
                         BoxStyle::Stop);
  DropOn(*list_->viewport(), {20, 20}, LocalUrls(files));
  EXPECT_EQ(Labels(), u"Lamp front side back O'Neil \"top\" b [c]"_qs);
}

TEST_F(ImagesWindow, AChangedPictureIsDescribedAnewAndAChangedMainOneLeavesThePreviewBlank) {
  Key(Qt::Key_Down);
  dialogs_.ExpectFile(File(u"wide.jpg"_qs, Jpeg({80, 60})));
  dialogs_.ExpectInput(u"Image description"_qs, u"detail"_qs);
  Press(u"cmdChange"_qs);
  EXPECT_EQ(Labels() + Shown(), u"Lamp [detail] side backmain"_qs);
  ProductStore(catalog_, connection_).Change(1, {{u"CodiceProdotto"_qs, u"b"_qs}}, ProductMarks::None);
  LoseAndReturn({});
  EXPECT_EQ(preview_.Percorso, MainImagePath(catalog_, u"b"_qs)) << "the file goes with the code";
  Key(Qt::Key_Up);
  for (const QString& path : {preview_.Percorso, QString()}) {
    window_->ImageChange = [&] {
      EXPECT_FALSE(preview_.close()) << "while a box may be up";
      return path;
    };
    Press(u"cmdChange"_qs);
    ClickItem(0);
    EXPECT_EQ(Shown(), path.isEmpty() ? u"nothing"_qs : u"main"_qs);
  }
}

TEST_F(ImagesWindow, TheMainPictureGoesWithAllOthersAndBothWindows) {
  Key(Qt::Key_End);
  dialogs_.ExpectQuestion(DeleteQuestion, true);
  dialogs_.ExpectQuestion(MainQuestion, false);
  for (int i = 0; i < 2; ++i)  // faster than anything is shown
    QTest::keyClick(window_->windowHandle(), Qt::Key_Delete);
  EXPECT_EQ(Labels(), u"[Lamp] front side"_qs);
  dialogs_.ExpectQuestion(u"All the additional images will be deleted. Continue?"_qs, true);
  Press(u"cmdClear"_qs);
  EXPECT_EQ(Labels() + Shown(), u"[Lamp]main"_qs);
  for (const QString& text : {u"a"_qs, u"b"_qs, u"c"_qs}) AddPicture(text);
  EXPECT_EQ(PictureNames(), u"1-O'Neil.jpg 4.jpg 5.jpg 6.jpg t1-O'Neil.jpg"_qs);
  dialogs_.ExpectQuestion(MainQuestion, true);
  Press(u"cmdDelete"_qs);
  EXPECT_EQ(PictureNames(), u"t1-O'Neil.jpg"_qs);
  EXPECT_FALSE(preview_.isVisible() || window_->isVisible());
  EXPECT_EQ(removed_, 1);
}

TEST_F(ImagesWindow, TheTwoStandSideBySideAndCloseTogether) {
  preview_.resize(300, 200);
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return window_->pos() == preview_.frameGeometry().topRight() + QPoint(1, 0); }));
  const int edge = preview_.screen()->availableGeometry().right();
  preview_.move(edge - 320, 20);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window_->frameGeometry().right() == edge; })) << "out of sight";
  Key(Qt::Key_Escape);
  EXPECT_FALSE(preview_.isVisible() || window_->isVisible());
}
