// The list of a product's pictures beside the preview, worked by keys and the mouse.
#include <QAction>
#include <QLineEdit>
#include <QMimeData>
#include <QTest>

#include "images/PictureFolder.h"
#include "products/ProductImages.h"
#include "products/WidgetImageList.h"
#include "products/frmImages.h"
#include "support/CatalogFixture.h"
#include "support/Messages.h"
#include "support/Print.h"
#include "support/ScriptedDialogs.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

const QString MainQuestion = QStringLiteral("Deleting main image will delete all the others. Continue?");

class ImagesWindow : public CatalogFixture {
 protected:
  ImagesWindow() : catalog_(AddCatalog(u"Catalog"_qs)) {
    AddProduct(catalog_, u"O'Neil"_qs);
    connection_.Execute(u"UPDATE Prodotti SET Descrizione='Lamp'"_qs);
    ProductStore(catalog_, connection_).SetMainImage(1, {}, {Jpeg(Qt::red), Jpeg(Qt::red), {80, 60}});
    for (const QString& text : {u"front"_qs, u"side"_qs, u"back"_qs})
      ProductImages(catalog_, 1, connection_).Add({}, {Jpeg(Qt::blue), {}, {80, 60}}, text);
  }

  static QByteArray Jpeg(const QColor& colour) {
    QImage image(80, 60, QImage::Format_RGB32);
    image.fill(colour);
    return MakeJpeg(image);
  }
  QString Picture(const QString& name) const {
    WriteFileSafely(Outside(name), Jpeg(Qt::blue));
    return Outside(name);
  }

  void Open(QPoint corner = {100, 50}) {
    preview_ = new frmImage(&card_);
    window_ = new frmImages(preview_);
    preview_->Percorso = MainImagePath(catalog_, u"O'Neil"_qs);
    preview_->ListaImmagini = window_;
    window_->IDCatalogo = catalog_;
    window_->CodiceProdotto = u"O'Neil"_qs;
    window_->Connessione = &connection_;
    window_->Anteprima = preview_;
    window_->MainImageRemoved = [this] { ++removed_; };
    preview_->LoadForm();
    preview_->move(corner);
    window_->LoadForm();
    preview_->show();
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
    list_ = window_->findChild<WidgetImageList*>(u"lstImages"_qs);
  }

  void Key(int key) const {
    QTest::keyClick(window_->windowHandle(), Qt::Key(key));
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void Type(const QString& text) const {
    for (const QChar letter : text) QTest::keyClick(window_->windowHandle(), letter.toLatin1());
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
  void Drop(const QStringList& files) const {
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& file : files) urls += QUrl::fromLocalFile(file);
    data.setUrls(urls);
    const QPoint at(20, 20);
    QDragEnterEvent enter(at, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list_->viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted() && enter.dropAction() == Qt::CopyAction);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(list_->viewport(), &drop);
    QCoreApplication::processEvents();
  }
  QLineEdit* Editor() const {
    auto* editor = list_->viewport()->findChild<QLineEdit*>();
    return editor != nullptr && editor->isVisible() ? editor : nullptr;
  }

  // The labels, with the selected one in brackets.
  QString Labels() const {
    QStringList labels;
    for (int row = 0; row < list_->count(); ++row)
      labels +=
          list_->item(row)->isSelected() ? u'[' + list_->item(row)->text() + u']' : list_->item(row)->text();
    return labels.join(u' ');
  }
  static QString ColourOf(const QImage& image) {
    const QColor colour = image.pixelColor(image.rect().center());
    return colour.red() > 200 && colour.blue() < 60   ? u"red"_qs
           : colour.blue() > 200 && colour.red() < 60 ? u"blue"_qs
                                                      : u"none"_qs;
  }
  QString Shown() const { return ColourOf(preview_->grab().toImage()); }
  QString Stored() { return One(u"group_concat(Descrizione,' ')"_qs, u"Immagini"_qs).toString(); }
  QString Files() const { return QDir(PicturePath({})).entryList(QDir::Files).join(u' '); }

  ScriptedDialogs dialogs_;
  int catalog_;
  int removed_ = 0;
  QWidget card_;
  frmImage* preview_ = nullptr;
  frmImages* window_ = nullptr;
  WidgetImageList* list_ = nullptr;
};

}  // namespace

TEST_F(ImagesWindow, WhatIsPickedIsShownAndWhatIsGoneLeaves) {
  Open();
  EXPECT_EQ(Labels(), u"[Lamp] front side back"_qs);
  EXPECT_EQ(Shown(), u"red"_qs);
  const auto icon = [&](int row) { return ColourOf(list_->item(row)->icon().pixmap(72, 54).toImage()); };
  EXPECT_TRUE(QTest::qWaitFor([&] { return icon(0) == u"red"_qs && icon(3) == u"blue"_qs; }));
  Key(Qt::Key_Down);
  EXPECT_EQ(Shown(), u"blue"_qs);
  connection_.Execute(u"DELETE FROM Immagini WHERE Descrizione='side'"_qs);
  ClickItem(2);
  EXPECT_EQ(Shown(), u"none"_qs) << "deleted by another program";
  QEvent activate(QEvent::WindowActivate);
  QCoreApplication::sendEvent(window_, &activate);
  QCoreApplication::processEvents();
  EXPECT_EQ(Labels(), u"[Lamp] front back"_qs);
  EXPECT_EQ(Shown(), u"red"_qs);
}

TEST_F(ImagesWindow, LabelsAreTypedOverAndKeysStayInTheEditor) {
  Open();
  Key(Qt::Key_F2);
  ClickItem(0);
  EXPECT_EQ(Editor(), nullptr) << "the main one's text is the product's";
  Key(Qt::Key_Down);
  Key(Qt::Key_F2);
  ASSERT_NE(Editor(), nullptr);
  Key(Qt::Key_Delete);  // asks for nothing
  Type(u"top"_qs);
  Key(Qt::Key_Return);
  EXPECT_EQ(Stored(), u"top side back"_qs);
  Key(Qt::Key_F2);
  Type(u"x"_qs);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window_->isVisible());
  Key(Qt::Key_F2);
  Key(Qt::Key_Delete);
  Key(Qt::Key_Return);
  EXPECT_EQ(Labels(), u"Lamp [top] side back"_qs) << "an empty text changes nothing";
  ClickItem(1);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Editor() != nullptr; }));
  Type(u"new"_qs);
  // A command takes what is typed first, and so does closing.
  dialogs_.ExpectQuestion(u"Delete selected image?"_qs, false);
  Press(u"cmdDelete"_qs);
  EXPECT_EQ(Stored(), u"new side back"_qs);
  Key(Qt::Key_F2);
  Type(u"last"_qs);
  connection_.Execute(u"DELETE FROM Immagini WHERE Descrizione='new'"_qs);
  QEvent activate(QEvent::WindowActivate);
  QCoreApplication::sendEvent(window_, &activate);
  EXPECT_EQ(list_->count(), 4) << "the list waits while a text is typed";
  dialogs_.ExpectMessage(u"Error: The image was deleted meanwhile by another window or program."_qs,
                         BoxStyle::Stop);
  Key(Qt::Key_Return);
  EXPECT_EQ(Labels(), u"[Lamp] side back"_qs);
  ClickItem(1);
  Key(Qt::Key_F2);
  Type(u"closed"_qs);
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(Stored(), u"closed back"_qs);
}

TEST_F(ImagesWindow, AddedPicturesNeedADescription) {
  Open();
  dialogs_.ExpectFiles({});
  Press(u"cmdAdd"_qs);
  EXPECT_EQ(Count(u"PExtension"_qs), 2) << "marked before a file is chosen";
  EXPECT_EQ(Count(u"Immagini"_qs), 3);
  dialogs_.ExpectFiles({Picture(u"a.jpg"_qs)});
  for (const QString& answer : {QString(), u" "_qs, u"O'Neil \"top\""_qs})
    dialogs_.ExpectInput(u"Image description"_qs, answer);
  Press(u"cmdAdd"_qs);
  EXPECT_EQ(Labels(), u"Lamp front side back [O'Neil \"top\"]"_qs);
  EXPECT_EQ(Shown(), u"blue"_qs);
  // Several at once, one of them broken, and the last one given up.
  const QString broken = Outside(u"broken.jpg"_qs);
  WriteFileSafely(broken, "no picture");
  dialogs_.ExpectInput(u"Image description for b.jpg"_qs, u"b"_qs);
  dialogs_.ExpectInput(u"Image description for c.JPEG"_qs, u""_qs);
  dialogs_.ExpectInput(u"Image description for c.JPEG"_qs, u"c"_qs);
  dialogs_.ExpectInput(u"Image description for d.jpg"_qs, {});
  dialogs_.ExpectMessage(u"Error: The file %1 cannot be read: it is no JPEG picture"_qs.arg(broken),
                         BoxStyle::Stop);
  Drop({Picture(u"b.jpg"_qs), broken, Outside(u"text.txt"_qs), Picture(u"c.JPEG"_qs), Picture(u"d.jpg"_qs)});
  EXPECT_EQ(Labels(), u"Lamp front side back O'Neil \"top\" b [c]"_qs);
}

TEST_F(ImagesWindow, AChangedPictureIsDescribedAnewAndAChangedMainOneLeavesThePreviewBlank) {
  Open();
  WriteFileSafely(Outside(u"red.jpg"_qs), Jpeg(Qt::red));
  Key(Qt::Key_Down);
  dialogs_.ExpectFile(Outside(u"red.jpg"_qs));
  dialogs_.ExpectInput(u"Image description"_qs, u"detail"_qs);
  Press(u"cmdChange"_qs);
  EXPECT_EQ(Labels(), u"Lamp [detail] side back"_qs);
  EXPECT_EQ(Shown(), u"red"_qs);
  Key(Qt::Key_Up);
  window_->ImageChange = [this] { return preview_->Percorso; };
  Press(u"cmdChange"_qs);
  EXPECT_EQ(Shown(), u"red"_qs) << "nothing was chosen";
  window_->ImageChange = [this] {
    EXPECT_FALSE(preview_->close()) << "while a box may be up";
    return QString();
  };
  Press(u"cmdChange"_qs);
  ClickItem(0);
  EXPECT_EQ(Shown(), u"none"_qs);
}

TEST_F(ImagesWindow, TheMainPictureGoesWithAllOthersAndBothWindows) {
  Open();
  Key(Qt::Key_End);
  dialogs_.ExpectQuestion(u"Delete selected image?"_qs, true);
  dialogs_.ExpectQuestion(MainQuestion, false);
  // Faster than the list can show it.
  QTest::keyClick(window_->windowHandle(), Qt::Key_Delete);
  QTest::keyClick(window_->windowHandle(), Qt::Key_Delete);
  QCoreApplication::processEvents();
  EXPECT_EQ(Labels(), u"[Lamp] front side"_qs);
  dialogs_.ExpectQuestion(u"All the additional images will be deleted. Continue?"_qs, true);
  Press(u"cmdClear"_qs);
  EXPECT_EQ(Labels(), u"[Lamp]"_qs);
  for (const QString& text : {u"a"_qs, u"b"_qs, u"c"_qs})
    ProductImages(catalog_, 1, connection_).Add({}, {Jpeg(Qt::blue), {}, {80, 60}}, text);
  EXPECT_EQ(Files(), u"1-O'Neil.jpg 4.jpg 5.jpg 6.jpg t1-O'Neil.jpg"_qs);
  dialogs_.ExpectQuestion(MainQuestion, true);
  Press(u"cmdDelete"_qs);
  EXPECT_EQ(Files(), u"t1-O'Neil.jpg"_qs);
  EXPECT_FALSE(preview_->isVisible() || window_->isVisible());
  EXPECT_EQ(removed_, 1);
}

TEST_F(ImagesWindow, TheTwoStandSideBySideAndCloseTogether) {
  Open();
  const auto docked = [this] {
    return window_->pos() == preview_->frameGeometry().topRight() + QPoint(1, 0);
  };
  EXPECT_TRUE(QTest::qWaitFor(docked));
  preview_->resize(300, 200);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window_->x() < 500 && docked(); }));
  const int edge = preview_->screen()->availableGeometry().right();
  preview_->move(edge - 320, 20);
  EXPECT_TRUE(QTest::qWaitFor([&] { return window_->frameGeometry().right() == edge; })) << "out of sight";
  Key(Qt::Key_Escape);
  EXPECT_FALSE(preview_->isVisible() || window_->isVisible());
}
