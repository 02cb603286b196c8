// The product card over the grid's window, worked by keys and the mouse.
#include <QAbstractItemView>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTimer>
#include <QToolButton>

#include "GridWindowFixture.h"
#include "base/Settings.h"
#include "base/WidgetDialogs.h"
#include "images/PictureFolder.h"
#include "products/frmFilterData.h"
#include "products/frmProduct.h"
#include "products/frmTechData.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

const QString SaveQuestion = u"Do you want to save?"_qs;

class CardWindow : public GridWindow {
 protected:
  CardWindow() {
    Name(u"NomeValore1"_qs, u"Prezzo \\042"_qs);
    Name(u"NomeFiltro2"_qs, u"Colore"_qs);
    red_ = AddFilterValue(2, u"Rosso"_qs);
    AddFilterValue(2, u"Rosa"_qs);
    AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
    UnexpectedModalGuard::allowed = {u"frmProduct"_qs};
  }
  ~CardWindow() override { UnexpectedModalGuard::allowed.clear(); }

  frmProduct* Card() const { return window_->findChild<frmProduct*>(); }
  bool IsOpen() const { return Card() != nullptr && Card()->isVisible(); }
  // Opens the product of a row by a double click.
  void OpenRow(int row) {
    Activate(*window_);
    const QPoint at = PointOf(row, Description);
    Click(at);
    QTest::mouseDClick(window_->windowHandle(), Qt::LeftButton, {}, at);
    QCoreApplication::processEvents();
    ASSERT_TRUE(IsOpen());
  }
  // A button of the grid's toolbar, or of the card's.
  void Push(QWidget& window, const QString& key) const {
    Activate(window);
    auto* bar = window.findChild<QToolBar*>(u"tbr"_qs, Qt::FindDirectChildrenOnly);
    QWidget* button = bar->widgetForAction(bar->findChild<QAction*>(key, Qt::FindDirectChildrenOnly));
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, button->mapTo(&window, QPoint(9, 9)));
    QCoreApplication::processEvents();
  }
  void Push(const QString& key) const { Push(*Card(), key); }
  // To whatever has the focus on the card.
  void CardKey(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
    Activate(*Card());
    QTest::keyClick(Card()->windowHandle(), Qt::Key(key), modifiers);
    QCoreApplication::processEvents();
  }
  // Types over what a box holds, faster than a person.
  void Write(const QString& box, const QString& text) const {
    auto* widget = Card()->findChild<QWidget*>(box);
    ASSERT_TRUE(widget != nullptr && widget->isEnabled()) << box;
    Activate(*Card());
    widget->setFocus();
    QTest::keyClick(Card()->windowHandle(), Qt::Key_A, Qt::ControlModifier);
    if (text.isEmpty()) QTest::keyClick(Card()->windowHandle(), Qt::Key_Delete);
    for (const QChar letter : text) QTest::keyClick(Card()->windowHandle(), letter.toLatin1());
  }
  QString Text(const QString& box) const {
    return Card()
        ->findChild<QWidget*>(box)
        ->metaObject()
        ->userProperty()
        .read(Card()->findChild<QWidget*>(box))
        .toString();
  }
  QString Combo() const { return Card()->findChild<QComboBox*>(u"cmbFilter_2"_qs)->currentText(); }
  bool IsEnabled(const QString& key) const { return Card()->findChild<QAction*>(key)->isEnabled(); }
  // What a product holds, as the card writes it.
  QString Product(const QString& code) {
    return Stored(code, u"json_array(Descrizione,Valore1,IDFiltro2)"_qs);
  }

  int red_;
};

}  // namespace

TEST_F(CardWindow, ADoubleClickOpensTheProductUnderTheHandWhateverComesBetween) {
  Open();
  Type(0, Description, u"first"_qs);
  OpenRow(1);
  EXPECT_EQ(Stored(u"a"_qs, Description), u"first") << "the row that was in edit is written";
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Text(u"txtCode"_qs), u"b");
  EXPECT_FALSE(Card()->findChild<QWidget*>(u"txtCode"_qs)->isEnabled());
  EXPECT_EQ(Card()->findChild<QLabel*>(u"lblFields_0"_qs)->text(), u"Prezzo *");
  EXPECT_FALSE(Card()->findChild<QWidget*>(u"txtValue_1"_qs)->isVisible() ||
               Card()->findChild<QWidget*>(u"cmbFilter_1"_qs)->isVisible());
  EXPECT_FALSE(IsEnabled(u"cmdFind"_qs) || IsEnabled(u"cmdImageView"_qs));
  Card()->resize(700, 520);
  CardKey(Qt::Key_Escape);
  EXPECT_EQ(GetSetting(ApplicationTitle(), u"Riservati"_qs, u"ProdottoHeight"_qs, {}), u"520");
  EXPECT_FALSE(IsOpen());
  EXPECT_TRUE(QTest::qWaitFor([&] { return window_->isActiveWindow() && grid_->hasFocus(); }));

  // Enter in an editor takes the cell; on a shown cell it opens the product, on the new row it types.
  grid_->GoTo(0, Description);
  Key(Qt::Key_F2);
  Key(Qt::Key_Return);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(grid_->CurrentRow(), 1);
  Key(Qt::Key_Return);
  ASSERT_TRUE(IsOpen());
  // Held on it writes nothing; in a box of one line it does nothing.
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, u"\r"_qs, true);
  QCoreApplication::sendEvent(Card()->focusWidget(), &held);
  EXPECT_EQ(Text(u"txtDescription"_qs), QString());
  for (const QString& box : {u"txtValue_0"_qs, u"cmbFilter_2"_qs}) {
    Card()->findChild<QWidget*>(box)->setFocus();
    CardKey(Qt::Key_Return);
    EXPECT_TRUE(IsOpen() && Card()->Salvato);
  }
  CardKey(Qt::Key_Escape);
  grid_->GoTo(AddNewRow(), Description);
  Key(Qt::Key_Return);
  EXPECT_FALSE(IsOpen());
  EXPECT_NE(Editor(), nullptr);
  Key(Qt::Key_Escape);
}

TEST_F(CardWindow, SavesWhatIsTypedFastAndCompletes) {
  Open();
  OpenRow(0);
  Write(u"txtDescription"_qs, u"one"_qs);
  Write(u"txtValue_0"_qs, u"12'\""_qs);
  Write(u"cmbFilter_2"_qs, u"ross"_qs);
  EXPECT_EQ(Combo(), u"Rosso");
  EXPECT_FALSE(Card()->Salvato);
  CardKey(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(Card()->Salvato);
  EXPECT_EQ(Product(u"a"_qs), u"[\"one\",\"12'\\\"\",%1]"_qs.arg(red_));
  CardKey(Qt::Key_Backspace);
  EXPECT_EQ(Combo(), u"Ross") << "what is taken away is not completed again";
  Write(u"cmbFilter_2"_qs, {});
  Write(u"txtDescription"_qs, {});
  CardKey(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Product(u"a"_qs), u"[\"\",\"12'\\\"\",0]");
  EXPECT_EQ(Shown(0, Description), QString());
}

TEST_F(CardWindow, AnUnknownValueIsAskedAboutBeforeAnythingElse) {
  Open();
  OpenRow(0);
  const QString question = u"Do you want to insert a new item in the table?: "_qs;
  Write(u"cmbFilter_2"_qs, u"L'\"x\""_qs);
  const std::function<void()> ways[] = {[&] { Push(u"cmdSave"_qs); },
                                        [&] { CardKey(Qt::Key_S, Qt::ControlModifier); },
                                        [&] { CardKey(Qt::Key_Tab); }};
  for (const auto& go : ways) {
    dialogs_.ExpectQuestion(question + u"L'\"x\""_qs, false);
    go();
    EXPECT_EQ(dialogs_.Left(), 0);
    EXPECT_TRUE(IsOpen() && Card()->findChild<QWidget*>(u"cmbFilter_2"_qs)->hasFocus());
  }
  EXPECT_EQ(Count(u"Filtri"_qs), 2);
  EXPECT_EQ(Product(u"a"_qs), u"[null,null,null]");
  // It goes with the rest, but not with a key that was meant for something else.
  const std::function<void()> ends[] = {[&] { CardKey(Qt::Key_Escape); }, [&] { window_->close(); },
                                        [&] { Push(u"cmdNew"_qs); }};
  for (const auto& end : ends) {
    dialogs_.ExpectDismissed(SaveQuestion);
    end();
    EXPECT_TRUE(IsOpen() && Combo() == u"L'\"x\"");
  }
  QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, {}, {}, true);
  QCoreApplication::sendEvent(Card(), &held);
  dialogs_.ExpectQuestion(SaveQuestion, false);
  CardKey(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen());
  OpenRow(0);
  Write(u"cmbFilter_2"_qs, u"L'\"x\""_qs);
  dialogs_.ExpectQuestion(question + u"L'\"x\""_qs, true);
  Push(u"cmdSave"_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"(SELECT Valore FROM Filtri WHERE IDValore=IDFiltro2)"_qs), u"L'\"x\"");
  EXPECT_EQ(Count(u"Filtri"_qs), 3);
}

TEST_F(CardWindow, TheBoxThatAsksToSaveTellsItsEndFromNo) {
  using Answer = Dialogs::Answer;
  UnexpectedModalGuard::allowed = {QString()};
  const auto answer = [](int key) {
    QTimer::singleShot(0, [key] {
      QWidget* box = QApplication::activeModalWidget();
      QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, {}, true);
      QCoreApplication::sendEvent(box->focusWidget(), &held);
      QTest::keyClick(box, Qt::Key(key));
    });
    return WidgetDialogs().AskToSave(nullptr, SaveQuestion);
  };
  EXPECT_EQ(answer(Qt::Key_Escape), Answer::Cancel);
  EXPECT_EQ(answer(Qt::Key_N), Answer::No);
  EXPECT_EQ(answer(Qt::Key_Return), Answer::Yes);
}

TEST_F(CardWindow, ClosingAndGoingOnAskForWhatIsUnsaved) {
  Open();
  OpenRow(0);
  Write(u"txtDescription"_qs, u"one"_qs);
  dialogs_.ExpectQuestion(SaveQuestion, true);
  CardKey(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Text(u"txtCode"_qs), u"b");
  EXPECT_EQ(grid_->CurrentRow(), 1);
  EXPECT_EQ(Stored(u"a"_qs, Description), u"one");
  for (const QString& text : {u"x"_qs, QString()}) Write(u"txtValue_0"_qs, text);
  Write(u"txtDescription"_qs, u"given up"_qs);
  dialogs_.ExpectQuestion(SaveQuestion, false);
  CardKey(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Text(u"txtCode"_qs), u"c");
  CardKey(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(Text(u"txtCode"_qs), u"c") << "the last one";
  for (const QString& box : {u"txtValue_0"_qs, u"txtDescription"_qs}) {
    Card()->findChild<QWidget*>(box)->setFocus();
    CardKey(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Text(box), QString()) << "what was typed for another product";
  }

  // A save that fails keeps the card, and both windows, open.
  Write(u"txtDescription"_qs, u"a|b"_qs);
  for (QWidget* window : {static_cast<QWidget*>(Card()), static_cast<QWidget*>(window_)}) {
    dialogs_.ExpectQuestion(SaveQuestion, true);
    dialogs_.ExpectMessage(u"| is an invalid character"_qs, BoxStyle::Stop);
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(IsOpen() && window_->isVisible());
  }
  // Another product takes its place.
  dialogs_.ExpectQuestion(SaveQuestion, false);
  OpenRow(0);
  EXPECT_EQ(Text(u"txtDescription"_qs), u"one");
  CardKey(Qt::Key_Escape);
  EXPECT_EQ(Shown(0, Description), u"one");
}

TEST_F(CardWindow, AProductThatOthersHaveChangedOrDeletedIsNotLost) {
  Open();
  OpenRow(0);
  Write(u"txtDescription"_qs, u"mine"_qs);
  connection_.Execute(u"UPDATE Prodotti SET Descrizione='theirs',Valore1='9' WHERE CodiceProdotto='a'"_qs);
  const QString changed =
      u"Meanwhile another window or program has changed the product: Description.\r\n"
      "Replace those values with what is written here?"_qs;
  dialogs_.ExpectQuestion(changed, false);
  Push(u"cmdSave"_qs);
  EXPECT_EQ(Text(u"txtDescription"_qs), u"mine");
  EXPECT_FALSE(Card()->Salvato);
  dialogs_.ExpectQuestion(changed, true);
  Push(u"cmdSave"_qs);
  EXPECT_EQ(Product(u"a"_qs), u"[\"mine\",\"9\",0]");
  EXPECT_EQ(Text(u"txtValue_0"_qs), u"9");

  Write(u"txtDescription"_qs, u"still mine"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='a'"_qs);
  const QString gone =
      u"The product was deleted meanwhile by another window or program. "
      "Save what is written here as a new product?"_qs;
  dialogs_.ExpectQuestion(gone, true);
  Push(u"cmdSave"_qs);
  EXPECT_EQ(Product(u"a"_qs), u"[\"still mine\",\"9\",0]");
  CardKey(Qt::Key_Escape);
  EXPECT_EQ(Codes(), u"b c a");
  EXPECT_EQ(grid_->CurrentRow(), 2);
}

TEST_F(CardWindow, ANewProductHasAFreeCodeAndIsDeleted) {
  Open();
  Push(*window_, u"cmdNew"_qs);
  EXPECT_EQ(Text(u"txtCode"_qs), u"4");
  EXPECT_EQ(Card()->findChild<QAction*>(u"cmdNew"_qs)->toolTip(), u"New product (Ctrl+N)");
  dialogs_.ExpectMessage(u"The product has not been saved yet: there is nothing to delete."_qs,
                         BoxStyle::Information);
  Push(u"cmdDelete"_qs);
  Write(u"txtCode"_qs, u"B"_qs);
  dialogs_.ExpectMessage(
      u"Error: The code \"B\" is already used by another product of this catalog. Choose another code."_qs,
      BoxStyle::Stop);
  Push(u"cmdSave"_qs);
  Write(u"txtCode"_qs, u"d"_qs);
  Push(u"cmdSave"_qs);
  EXPECT_EQ(Card()->Stato, frmProduct::Edit);
  EXPECT_EQ(Product(u"d"_qs), u"[null,null,0]");
  Push(u"cmdNew"_qs);
  EXPECT_EQ(Text(u"txtCode"_qs), u"5");
  dialogs_.ExpectQuestion(SaveQuestion, false);
  CardKey(Qt::Key_Escape);
  EXPECT_EQ(Codes(), u"a b c d");
  OpenRow(3);
  dialogs_.ExpectQuestion(u"Do you want to delete the selected product?"_qs, true);
  Push(u"cmdDelete"_qs);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Codes(), u"a b c");
}

TEST_F(CardWindow, SearchesAndShowsAllAgain) {
  AddProducts({u"O'Neil_1"_qs, u"O'Neil21"_qs});
  Open();
  const auto* button = Find<QAction>(u"cmdSearch"_qs);
  const auto state = [&]() -> QString {
    return button->text() + (button->isChecked() ? u" on"_qs : u" off"_qs);
  };
  const auto* status = Find<QLabel>(u"lblProdotti"_qs);
  Push(*window_, u"cmdSearch"_qs);
  EXPECT_TRUE(Card()->isModal());
  EXPECT_EQ(state(), u"Search on");
  CardKey(Qt::Key_Escape);
  EXPECT_EQ(state(), u"Search off");

  Push(*window_, u"cmdSearch"_qs);
  Write(u"txtCode"_qs, u"zzz"_qs);
  CardKey(Qt::Key_Return);
  EXPECT_EQ(status->text(), u"Search active: 0 of 5 products");
  Push(*window_, u"cmdSearch"_qs);
  EXPECT_EQ(status->text(), u"5 products");

  Push(*window_, u"cmdSearch"_qs);
  Write(u"txtCode"_qs, u"o'neil_"_qs);
  Write(u"txtDescription"_qs, {});
  CardKey(Qt::Key_Return);
  EXPECT_FALSE(IsOpen());
  EXPECT_EQ(Codes(), u"O'Neil_1");
  EXPECT_EQ(state(), u"All on");
  EXPECT_EQ(status->text(), u"Search active: 1 of 5 products");
  OpenRow(0);
  EXPECT_FALSE(Card()->isModal());
  Write(u"txtDescription"_qs, u"x"_qs);
  CardKey(Qt::Key_S, Qt::ControlModifier);
  CardKey(Qt::Key_Escape);
  EXPECT_EQ(Codes(), u"O'Neil_1") << "the search stays";
  Push(*window_, u"cmdSearch"_qs);
  EXPECT_EQ(state(), u"Search off");
  EXPECT_EQ(status->text(), u"5 products");

  // An empty mask shows all, and releases the button, which offers all nevertheless.
  Push(*window_, u"cmdSearch"_qs);
  Push(u"cmdFind"_qs);
  EXPECT_EQ(state(), u"All off");
  EXPECT_EQ(Rows().RecordCount(), 5);
}

TEST_F(CardWindow, ADroppedPictureIsTheProductsThatItWasDroppedOn) {
  Open();
  OpenRow(0);
  WriteFileSafely(Outside(u"a.jpeg"_qs), MakeJpeg(MakePhoto({80, 60}, 1)));
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(Outside(u"a.jpeg"_qs))});
  QWidget* box = Card()->findChild<QPlainTextEdit*>()->viewport();
  QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(box, &enter);
  ASSERT_TRUE(enter.isAccepted());
  QDropEvent drop(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(box, &drop);
  EXPECT_EQ(Text(u"txtDescription"_qs), QString()) << "the box leaves it to the card";
  Card()->LoadForm(frmProduct::Edit, Rows().BookmarkOf(1));
  QCoreApplication::processEvents();
  EXPECT_EQ(Stored(u"a"_qs, u"Immagine"_qs), MainImagePath(catalog_, u"a"_qs));
  EXPECT_EQ(Stored(u"b"_qs, u"Immagine"_qs), QString());
  connection_.Execute(u"UPDATE Prodotti SET Immagine=?"_qs, {MainImagePath(catalog_, u"a"_qs)});
  Activate(*window_);
  Activate(*Card());
  EXPECT_TRUE(IsEnabled(u"cmdImageView"_qs)) << "a picture that it got elsewhere";
}

TEST_F(CardWindow, ItsListPicksAndCompletesByTheKeyboardAlone) {
  Open();
  OpenRow(0);
  auto* combo = Card()->findChild<QComboBox*>(u"cmbFilter_2"_qs);
  const auto listKey = [&](int key) {
    QTest::keyClick(combo->view()->window()->windowHandle(), Qt::Key(key));
  };
  Activate(*Card());
  combo->setFocus();
  Write(u"cmbFilter_2"_qs, u"none"_qs);
  CardKey(Qt::Key_Down);
  ASSERT_TRUE(combo->view()->isVisible());
  listKey(Qt::Key_Escape);
  EXPECT_EQ(Combo(), u"none") << "a list that is opened asks and changes nothing";
  Write(u"cmbFilter_2"_qs, {});
  EXPECT_TRUE(IsOpen() && !combo->view()->isVisible());
  CardKey(Qt::Key_F4);
  listKey(Qt::Key_Return);
  EXPECT_EQ(Combo(), QString()) << "nothing was chosen";
  EXPECT_FALSE(combo->view()->isVisible());
  CardKey(Qt::Key_Down);
  listKey(Qt::Key_Down);
  listKey(Qt::Key_Return);
  EXPECT_EQ(Combo(), u"Rosa");
  EXPECT_FALSE(Card()->Salvato);
  CardKey(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Stored(u"a"_qs, u"IDFiltro2"_qs), QString::number(red_ + 1));
  CardKey(Qt::Key_Down);
  listKey(Qt::Key_Down);
  listKey(Qt::Key_Tab);
  EXPECT_EQ(Combo(), u"Rosso");
  EXPECT_FALSE(Card()->Salvato);
  CardKey(Qt::Key_S, Qt::ControlModifier);

  // Of equal texts it stays the one that the product has.
  connection_.Execute(u"UPDATE Filtri SET Valore=' Rosso ' WHERE IDValore IN (?,?)"_qs, {red_, red_ + 1});
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=? WHERE CodiceProdotto='b'"_qs, {red_ + 1});
  CardKey(Qt::Key_PageDown, Qt::ControlModifier);
  combo->setFocus();
  CardKey(Qt::Key_F4);
  listKey(Qt::Key_Return);
  CardKey(Qt::Key_Tab);
  Write(u"txtDescription"_qs, u"b"_qs);
  CardKey(Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(Product(u"b"_qs), u"[\"b\",null,%1]"_qs.arg(red_ + 1));
  Write(u"cmbFilter_2"_qs, u"ros"_qs);
  EXPECT_EQ(Combo(), u"Rosso");
  CardKey(Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(Card()->Salvato) << "blanks around a value do not count";
}

TEST_F(CardWindow, ItOpensTheTechnicalDataAndTheValuesOfAFilter) {
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=? WHERE CodiceProdotto='a'"_qs, {red_});
  Open();
  OpenRow(0);
  const QString question = u"Do you want to add tech data for the selected product?"_qs;
  dialogs_.ExpectQuestion(question, false);
  Push(u"cmdTechData"_qs);
  EXPECT_EQ(Card()->findChild<frmTechData*>(), nullptr);
  dialogs_.ExpectQuestion(question, true);
  Push(u"cmdTechData"_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"SchedaTecnica"_qs), u"true");
  Push(u"cmdTechData"_qs);
  EXPECT_EQ(Card()->findChildren<frmTechData*>().size(), 1);

  // A value that is renamed or deleted elsewhere shows so at once; what was not typed is not unsaved.
  auto* button = Card()->findChild<QToolButton*>(u"cmdFilterData_2"_qs);
  QTest::mouseClick(button, Qt::LeftButton);
  const QPointer<frmFilterData> values = Card()->findChild<frmFilterData*>();
  ASSERT_TRUE(values != nullptr && values->isVisible());
  connection_.Execute(u"UPDATE Filtri SET Valore='Crimson' WHERE IDValore=?"_qs, {red_});
  Q_EMIT values->ValuesChanged(2);
  EXPECT_EQ(Combo(), u"Crimson");
  connection_.Execute(u"DELETE FROM Filtri WHERE IDValore=?"_qs, {red_});
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=0"_qs);
  Q_EMIT values->ValuesChanged(2);
  EXPECT_EQ(Combo(), QString());
  EXPECT_TRUE(Card()->Salvato);

  // Another name reaches the card's label at once and the grid with the card's end.
  auto* name = values->findChild<QLineEdit*>(u"txtFilterName"_qs);
  name->setText(u"Tint & <b>"_qs);
  CardKey(Qt::Key_Escape);
  EXPECT_FALSE(IsOpen() || (values != nullptr && values->isVisible()));
  EXPECT_EQ(Card()->findChild<QLabel*>(u"lblFilters_1"_qs)->text(), u"Tint & <b>");
  EXPECT_TRUE(Captions().contains(u"Tint & <b>")) << Captions();
  EXPECT_EQ(Stored(u"a"_qs, u"SchedaTecnica"_qs), u"false") << "no sheet was written";
}
