// How products are edited in the grid.
#include "GridWindowFixture.h"

using namespace vorlina;

namespace {

class GridEditing : public GridWindow {};

// Boxes that take the focus, as real ones do.
class FocusTakingDialogs : public ScriptedDialogs {
 protected:
  void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override {
    QWidget box(owner, Qt::Dialog);
    box.show();
    box.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
    ScriptedDialogs::ShowMessage(owner, text, style, title);
  }
};

}  // namespace

TEST_F(GridEditing, ANewRowTakesWhatWasTypedAndItsDefaults) {
  AddProducts({u"1"_qs, u"2"_qs, u"4"_qs});
  Open();
  Change(3, Description, u"first"_qs);
  EXPECT_EQ(Stored(u"5"_qs, u"Descrizione||OrdineTemp||Pubblica"_qs), u"first41"_qs) << "4 is taken";
  EXPECT_EQ(grid_->CurrentKey(), Description) << "the user went up, and the column with him";
  Type(4, Code, u"O'Neil 50% 🙂"_qs);
  grid_->GoTo(4, Description);
  Key(Qt::Key_Down);
  EXPECT_EQ(grid_->CurrentKey(), Code) << "ready for the next one";
  EXPECT_EQ(Stored(u"O'Neil 50% 🙂"_qs, u"OrdineTemp"_qs), u"5"_qs) << "the code that was typed";
  EXPECT_EQ(Count(u"PExtension"_qs), 4) << "two marks a new row, and none for those that were there";

  // What another program adds meanwhile is not offered again.
  AddProduct(catalog_, u"7"_qs, 6);
  Key(Qt::Key_Up);
  grid_->GoTo(AddNewRow(), Code);
  EXPECT_EQ(Shown(AddNewRow(), Code), u"8"_qs);
  // Nor is it refused where that comes even later.
  Type(AddNewRow(), Description, u"late"_qs);
  AddProduct(catalog_, u"8"_qs, 7);
  Key(Qt::Key_Up);
  EXPECT_EQ(Stored(u"9"_qs, Description), u"late"_qs);
}

TEST_F(GridEditing, AFilterTakesWhatItsListOffersAndMoreAfterAQuestion) {
  Name(u"NomeFiltro1"_qs, u"Colour"_qs);
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  const int red = AddFilterValue(1, u"red"_qs);
  Change(0, u"Colour"_qs, u" RED "_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"IDFiltro1"_qs), QString::number(red)) << "another window's value";
  Change(0, u"Colour"_qs, u"  "_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"quote(IDFiltro1)"_qs), u"0"_qs) << "emptied is 0, not Null";
  const QString text = u"dell'Elba ÈÉ 🙂%_'); DROP TABLE Filtri; --"_qs;
  const QString question = NumberedText(BaseConferma + 1) + u": "_qs + text;
  dialogs_.ExpectQuestion(question, false);
  Type(0, u"Colour"_qs, text);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Count(u"Filtri"_qs), 1);
  dialogs_.ExpectQuestion(question, true);
  Change(0, u"Colour"_qs, text);
  EXPECT_EQ(One(u"Valore"_qs, u"Filtri F JOIN Prodotti P ON F.IDValore=P.IDFiltro1"_qs).toString(), text);
}

// Also where the user has been told already and works in another window by now.
TEST_F(GridEditing, ARefusedCellKeepsTheWindowAndSaysSo) {
  AddProducts({u"a"_qs});
  Open();
  FocusTakingDialogs dialogs;
  QWidget other;
  dialogs.ExpectMessage(u"| is an invalid character"_qs, BoxStyle::Stop);
  Type(0, Description, u"1|2"_qs);
  for (const bool elsewhere : {false, true}) {
    if (elsewhere) {
      dialogs.ExpectMessage(u"| is an invalid character"_qs, BoxStyle::Stop);
      other.show();
      other.activateWindow();
      EXPECT_TRUE(QTest::qWaitFor([&] { return dialogs.Left() == 0; }));
    }
    dialogs.ExpectMessage(u"| is an invalid character. Press Esc to give up the change."_qs, BoxStyle::Stop);
    EXPECT_FALSE(windows_[0]->close());
    EXPECT_EQ(dialogs.Left(), 0) << elsewhere;
  }
  Activate(0);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(Close());
}

TEST_F(GridEditing, DeletesWhatIsSelectedAfterOneQuestion) {
  const QString question = u"Do you want to delete selected products and their images?\r\nContinue?"_qs;
  AddProducts({u"a"_qs, u"b'Neil 50% 🙂"_qs, u"c"_qs, u"d"_qs, u"e"_qs});
  Open();
  Type(1, Description, u"typed"_qs);
  dialogs_.ExpectQuestion(question, false);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Shown(1, Description), u"typed"_qs) << "a No keeps what was typed";
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored(u"b'Neil 50% 🙂"_qs, Description), u"typed"_qs);
  Select({2, 3, 5});
  dialogs_.ExpectQuestion(question, true);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Orders() + u' ' + Codes(), u"a1 d4 a d"_qs);
  EXPECT_EQ(Shown(AddNewRow(), u"Ordine"_qs), u"3"_qs);
  dialogs_.ExpectQuestion(question, true);
  Find<QAction>(u"cmdDelete"_qs)->trigger();
  EXPECT_EQ(Codes(), u"a"_qs) << "the toolbar deletes the row that is current";
}
