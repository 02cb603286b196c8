// The properties of a catalog over the grid's window, worked by keys and the mouse.
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

#include "GridWindowFixture.h"
#include "catalogs/frmCatalog.h"
#include "images/PictureFolder.h"
#include "images/frmImage.h"
#include "products/frmProduct.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

const QString SaveQuestion = u"Do you want to save?"_qs;

class PropertiesWindow : public GridWindow {
 protected:
  PropertiesWindow() {
    Name(u"NomeFiltro1"_qs, u"Colore"_qs);
    Name(u"NomeFiltro2"_qs, u"Taglia"_qs);
    AddFilterValue(2, u"grande"_qs);
    AddProducts({u"a"_qs, u"b"_qs});
  }

  frmCatalog* Form() const { return window_->findChild<frmCatalog*>(); }
  bool IsOpen() const { return Form() != nullptr && Form()->isVisible(); }
  void ActivateForm() const { GridWindow::Activate(*Form()); }
  void OpenForm() const {
    Find<QAction>(u"cmdProperties"_qs)->trigger();
    ASSERT_TRUE(IsOpen());
    ActivateForm();
  }
  void FormKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    QTest::keyClick(Form()->windowHandle(), Qt::Key(key), modifiers);
    QCoreApplication::processEvents();
  }
  // Types over what a box on a tab holds.
  void Write(int tab, const QString& box, const QString& text) const {
    Form()->findChild<QTabWidget*>()->setCurrentIndex(tab);
    auto* widget = Form()->findChild<QWidget*>(box);
    ASSERT_TRUE(widget != nullptr && widget->isVisible()) << box;
    widget->setFocus();
    FormKey(Qt::Key_A, Qt::ControlModifier);
    FormKey(Qt::Key_Delete);
    for (const QChar letter : text) QTest::keyClick(Form()->windowHandle(), letter.toLatin1());
  }
  // A file that is taken without a word, or with a message.
  void Browse(const QString& file, const QString& told = {}) {
    Form()->findChild<QTabWidget*>()->setCurrentIndex(2);
    dialogs_.ExpectFile(file);
    if (!told.isEmpty()) dialogs_.ExpectMessage(told, BoxStyle::Information);
    QTest::mouseClick(Form()->findChild<QPushButton*>(u"cmdBrowse"_qs), Qt::LeftButton);
    QCoreApplication::processEvents();
  }
  QString Property(const QString& expression) {
    return NullToEmpty(One(expression, u"Cataloghi"_qs, u"IDCatalogo=?"_qs, {catalog_}));
  }
};

}  // namespace

TEST_F(PropertiesWindow, AsksWhenItClosesAndTheGridTakesTheNamesOver) {
  Open();
  OpenForm();
  FormKey(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(Form()->findChild<QTabWidget*>()->currentIndex(), 3);
  FormKey(Qt::Key_Tab, Qt::ControlModifier);
  QStringList names;
  for (QString name; !names.contains(name = Form()->focusWidget()->objectName());) {
    names += name;
    FormKey(Qt::Key_Tab);
  }
  EXPECT_EQ(
      names.join(u' '),
      u"txtNomeCatalogo txtDescrizione qt_tabwidget_tabbar txtNomeValore1 txtNomeValore2 txtNomeValore3");
  FormKey(Qt::Key_Escape);  // nothing was changed
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(QTest::qWaitFor([this] { return grid_->hasFocus(); }));
  OpenForm();
  Write(0, u"txtNomeValore1"_qs, u"Descrizione"_qs);
  Write(0, u"txtNomeValore2"_qs, u"a.b"_qs);
  Write(1, u"txtNomeFiltro3"_qs, QString(60, u'.'));
  Write(3, u"txtSpalla"_qs, u"x|"_qs);
  // What is refused keeps the window, and goes to the box.
  dialogs_.ExpectQuestion(SaveQuestion, true);
  dialogs_.ExpectMessage(u"| is an invalid character "_qs, BoxStyle::Stop);
  EXPECT_FALSE(Close());
  EXPECT_EQ(Form()->focusWidget()->objectName(), u"txtSpalla");
  FormKey(Qt::Key_Backspace);
  // Without an answer the window stays; the command brings it to the front.
  dialogs_.ExpectDismissed(SaveQuestion);
  FormKey(Qt::Key_Escape);
  OpenForm();
  EXPECT_EQ(window_->findChildren<frmCatalog*>().size(), 1);
  dialogs_.ExpectQuestion(SaveQuestion, true);
  FormKey(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Captions(), u"||Code|Description|Descrizione|a.b|Colore|Taglia|............|Publish|Order");
  EXPECT_EQ(window_->windowTitle(), u"Catalog - ");
  EXPECT_EQ(Property(u"NomeValore2||Spalla"_qs), u"a\\046bx"_qs);
}

TEST_F(PropertiesWindow, ARemovedFilterIsGoneFromTheCardsAndTheGrids) {
  frmProduct* cards[2];
  for (frmProduct*& card : cards) {
    Open();
    Find<QAction>(u"cmdEdit"_qs)->trigger();
    card = window_->findChild<frmProduct*>();
  }
  cards[1]->findChild<QPlainTextEdit*>(u"txtDescription"_qs)->setPlainText(u"typed"_qs);
  grid_->CondizioneRicerca = u" AND IDFiltro2=1"_qs;
  OpenForm();
  Write(1, u"txtNomeFiltro2"_qs, {});
  // Someone else has another name for it by then.
  Name(u"NomeFiltro2"_qs, u"Misura"_qs);
  dialogs_.ExpectQuestion(SaveQuestion, true);
  dialogs_.ExpectQuestion(SaveQuestion, true);  // the card's
  dialogs_.ExpectQuestion(
      u"Do you want to delete the selected filterMisura and all data belonging to it? ?"_qs, true);
  dialogs_.ExpectQuestion(
      u"Another window or another program has changed the catalog meanwhile: Filter name 2.\r\n"
      "Replace those values with what is written here?"_qs,
      true);
  FormKey(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen() || cards[1]->isVisible());
  EXPECT_EQ(Stored(u"a"_qs, u"Descrizione||IDFiltro2"_qs), u"typed0"_qs);
  EXPECT_EQ(Count(u"Filtri"_qs), 0);
  const QString captions = u"||Code|Description|Colore|Publish|Order"_qs;
  EXPECT_EQ(Captions(), captions);
  EXPECT_EQ(Codes(), u"a b");
  Activate(0);
  EXPECT_EQ(Captions(), captions);
  GridWindow::Activate(*cards[0]);
  EXPECT_FALSE(cards[0]->findChild<QWidget*>(u"cmbFilter_2"_qs)->isVisible());
}

TEST_F(PropertiesWindow, AFilterThatIsGoneMeanwhileTakesNoValue) {
  Open();
  grid_->SetSort(u"Colore"_qs, SortDirection::Descending);
  Name(u"NomeFiltro1"_qs, u"Tinta"_qs);
  Name(u"NomeFiltro2"_qs, {});
  dialogs_.ExpectMessage(
      u"The filter was deleted meanwhile by another window or program. Press Esc to give up the "
      "change."_qs,
      BoxStyle::Stop);
  Change(0, u"Taglia"_qs, u"grande"_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"quote(IDFiltro2)"_qs), u"NULL");
  for (const int key : {Qt::Key_Escape, Qt::Key_Escape, Qt::Key_F5}) Key(key);
  EXPECT_EQ(Captions(), u"||Code|Description|Tinta|Publish|Order");
  EXPECT_EQ(Rows().SortColumn(), ProductColumn::IDFiltro1);
}

TEST_F(PropertiesWindow, ALogoIsShownAndNoLeavesItAsItWas) {
  const QString target = LogoPath(catalog_);
  WriteFileSafely(target, MakeJpeg(MakePhoto({30, 20}, 1)));
  const QByteArray former = ContentOf(target);
  WriteFileSafely(Outside(u"new.jpg"_qs), MakeJpeg(MakePhoto({50, 40}, 1)));
  Name(u"Logo"_qs, target);
  Open();
  OpenForm();
  auto* box = Form()->findChild<QLineEdit*>(u"txtLogo"_qs);
  box->clear();
  Browse(target, u"Destination and source folder are the same ."_qs);
  EXPECT_EQ(box->text(), target);
  box->setFocus();
  FormKey(Qt::Key_Return);
  EXPECT_EQ(Form()->findChildren<frmImage*>().size(), 1);
  ActivateForm();
  Browse(Outside(u"new.jpg"_qs));
  EXPECT_EQ(Form()->findChild<QLineEdit*>(u"txtWidth"_qs)->text(), u"50");
  ActivateForm();
  box->setFocus();
  FormKey(Qt::Key_Delete);
  EXPECT_EQ(box->text(), QString());
  dialogs_.ExpectQuestion(SaveQuestion, false);
  EXPECT_TRUE(Close());
  EXPECT_EQ(Property(u"Logo||quote(Width)"_qs), QString(target + u"NULL"));
  EXPECT_EQ(ContentOf(target), former);
}
