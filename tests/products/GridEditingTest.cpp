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
  EXPECT_EQ(Shown(3, Code) + u' ' + Shown(3, u"Ordine"_qs), u"5 4"_qs) << "4 is taken";
  Change(3, Description, u"first"_qs);
  EXPECT_EQ(Stored(u"5"_qs, u"Descrizione||OrdineTemp||Pubblica"_qs), u"first41"_qs);
  EXPECT_EQ(grid_->CurrentKey(), Description) << "the user went up, and the column with him";
  EXPECT_EQ(Shown(4, Code) + u' ' + Shown(4, u"Ordine"_qs), u"6 5"_qs);

  Type(4, Code, u"O'Neil 50% 🙂"_qs);
  grid_->GoTo(4, Description);
  Key(Qt::Key_Down);
  EXPECT_EQ(grid_->CurrentKey(), Code) << "ready for the next one";
  EXPECT_EQ(Stored(u"O'Neil 50% 🙂"_qs, u"OrdineTemp"_qs), u"5"_qs) << "the code that was typed";
  for (const QString& name : {u"ImmagineModificata"_qs, u"SchedaModificata"_qs})
    EXPECT_EQ(
        One(u"COUNT(*)"_qs, u"PExtension P JOIN Extensions E USING (IDExtension)"_qs,
            u"P.Valore='1' AND E.ExtensionName=? AND P.CodiceProdotto IN ('5','O''Neil 50% 🙂')"_qs, {name})
            .toInt(),
        2)
        << name;
  EXPECT_EQ(Count(u"PExtension"_qs), 4) << "rows that were there get no mark";
  Change(0, Description, u"changed"_qs);
  EXPECT_EQ(One(u"group_concat(Valore,'')"_qs, u"PExtension"_qs, u"CodiceProdotto='1'"_qs).toString(),
            u"11"_qs);

  // What another program adds meanwhile is not offered again.
  AddProduct(catalog_, u"7"_qs, 6);
  grid_->GoTo(AddNewRow(), Description);
  Key(Qt::Key_Home);
  grid_->GoTo(AddNewRow(), Code);
  EXPECT_EQ(Shown(AddNewRow(), Code), u"8"_qs);
}

TEST_F(GridEditing, AFaultyExtensionsTableIsToldWhenTheRowIsWritten) {
  AddProducts({u"1"_qs, u"2"_qs});
  connection_.Execute(u"INSERT INTO Extensions (ExtensionName) VALUES ('ImmagineModificata')"_qs);
  Open();
  dialogs_.ExpectMessage(u"Error in Extensions table. Please contact technical support"_qs,
                         BoxStyle::Information);
  Change(0, Description, u"written"_qs);
  EXPECT_EQ(Stored(u"1"_qs, Description), u"written"_qs);
}

TEST_F(GridEditing, TheFirstProductOfAnEmptyCatalog) {
  Open();
  EXPECT_EQ(Shown(0, Code) + u' ' + Shown(0, u"Ordine"_qs), u"1 1"_qs);
  Key(Qt::Key_X);
  ASSERT_NE(Editor(), nullptr) << "typed into at once";
  Type(0, Description, u"only"_qs);
  EXPECT_EQ(Count(u"Prodotti"_qs), 0) << "not before the row is left";
  EXPECT_TRUE(Close());
  EXPECT_EQ(Stored(u"x"_qs, u"Descrizione"_qs), u"only"_qs);
}

TEST_F(GridEditing, RefusesValuesInOrderAndKeepsTheCell) {
  const QString invalid = uR"(\ / : * " ? < > | are invalid character in product code)"_qs;
  const QString bar = u"| is an invalid character"_qs;
  const QString empty = u"Insert a value for the product code"_qs;
  struct Case {
    QString key, typed;
    QStringList messages;
  };
  AddProducts({u"a"_qs, u"b"_qs});
  Name(u"NomeValore1"_qs, u"V"_qs);
  Name(u"NomeFiltro1"_qs, u"Colour"_qs);
  Open();
  for (const Case& c : {Case{Code, {}, {empty}}, Case{Code, u"x|y"_qs, {invalid, bar}},
                        Case{Code, u"x/y"_qs, {invalid}}, Case{Code, uR"(x\y)"_qs, {invalid}},
                        Case{Code, u"x\"y"_qs, {invalid}}, Case{Description, u"1|2"_qs, {bar}},
                        Case{u"V"_qs, u"|"_qs, {bar}}, Case{u"Colour"_qs, u"|"_qs, {bar}},
                        Case{u"Ordine"_qs,
                             u"inf"_qs,
                             {u"\"inf\" is no number fit for Order. Press Esc to give up the change."_qs}}}) {
    for (const QString& message : c.messages) dialogs_.ExpectMessage(message, BoxStyle::Stop);
    Type(0, c.key, c.typed);
    EXPECT_EQ(dialogs_.Left(), 0) << c.typed;
    ASSERT_NE(Editor(), nullptr) << c.typed;
    EXPECT_EQ(Editor()->text(), c.typed);
    Key(Qt::Key_Escape);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Rows().EditRow(), -1);
  }
  EXPECT_EQ(Orders(), u"a1 b2"_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"Descrizione IS NULL AND Valore1 IS NULL"_qs), u"1"_qs);
}

TEST_F(GridEditing, AFilterTakesWhatItsListOffersAndMoreAfterAQuestion) {
  const int red = AddFilterValue(1, u"red"_qs);
  Name(u"NomeFiltro1"_qs, u"Colour"_qs);
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  Change(0, u"Colour"_qs, u"RED"_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"IDFiltro1"_qs), QString::number(red));
  EXPECT_EQ(Shown(0, u"Colour"_qs), u"red"_qs);
  Change(0, u"Colour"_qs, {});
  EXPECT_EQ(Stored(u"a"_qs, u"quote(IDFiltro1)"_qs), u"0"_qs) << "emptied is 0, not Null";

  const auto question = [](const QString& text) -> QString {
    return NumberedText(BaseConferma + 1) + u": "_qs + text;
  };
  dialogs_.ExpectQuestion(question(u"blue"_qs), false);
  Type(0, u"Colour"_qs, u"blue"_qs);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Count(u"Filtri"_qs), 1);

  dialogs_.ExpectMessage(u"| is an invalid character"_qs, BoxStyle::Stop);
  Type(0, u"Colour"_qs, u"a|b"_qs);
  Key(Qt::Key_Escape);
  Change(0, u"Colour"_qs, u" Red "_qs);
  EXPECT_EQ(Shown(0, u"Colour"_qs), u"red"_qs) << "blanks around it are nothing";
  Change(0, u"Colour"_qs, u"  "_qs);
  EXPECT_EQ(Stored(u"a"_qs, u"quote(IDFiltro1)"_qs), u"0"_qs);

  dialogs_.ExpectQuestion(question(u"19\""_qs), true);
  dialogs_.ExpectMessage(u"You can't insert \" character, replace it with '"_qs, BoxStyle::Information);
  Type(0, u"Colour"_qs, u"19\""_qs);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Count(u"Filtri"_qs), 1);

  for (const QString& text : {u"dell'Elba"_qs, u"ÈÉ 🙂%_"_qs, u"'); DROP TABLE Filtri; --"_qs}) {
    dialogs_.ExpectQuestion(question(text), true);
    Change(0, u"Colour"_qs, text);
    EXPECT_EQ(Shown(0, u"Colour"_qs), text);
    EXPECT_EQ(One(u"Valore"_qs, u"Filtri F JOIN Prodotti P ON F.IDValore=P.IDFiltro1"_qs).toString(), text);
  }

  connection_.Execute(
      u"CREATE TRIGGER Refuse BEFORE INSERT ON Filtri BEGIN SELECT RAISE(ABORT, 'no'); END"_qs);
  dialogs_.ExpectQuestion(question(u"grey"_qs), true);
  dialogs_.ExpectMessage(u"Error inserting a new value for the filter. no"_qs, BoxStyle::Stop);
  Type(1, u"Colour"_qs, u"grey"_qs);
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->text(), u"grey"_qs);
}

TEST_F(GridEditing, ADuplicateCodeStaysInEditUntilEscape) {
  const QString told =
      u"There is already a row with Code \"È\". Choose another value. Press Esc to give up the change."_qs;
  AddProducts({u"a"_qs, u"è"_qs});
  Open();
  for (const int row : {0, AddNewRow()}) {
    Type(row, Code, u"È "_qs);
    Type(row, Description, u"x"_qs);
    for (const bool closes : {false, true}) {
      dialogs_.ExpectMessage(told, BoxStyle::Stop);
      if (closes)
        EXPECT_FALSE(Close());
      else
        Key(row == 0 ? Qt::Key_Down : Qt::Key_Up);
      EXPECT_EQ(dialogs_.Left(), 0);
    }
    EXPECT_EQ(Rows().EditRow(), row);
    EXPECT_EQ(grid_->CurrentRow(), row);
    EXPECT_EQ(grid_->CurrentKey(), Code) << "where it can be mended";
    EXPECT_EQ(Shown(row, Code), u"È"_qs);
    EXPECT_EQ(Orders(), u"a1 è2"_qs);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Rows().EditRow(), -1);
  }
  EXPECT_EQ(Codes(), u"a è"_qs);
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
  connection_.Execute(
      u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto) SELECT IDCatalogo,"
      "CodiceProdotto FROM Prodotti"_qs);
  Open();
  Select({2, 3, 5});
  dialogs_.ExpectQuestion(question, false);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Count(u"Prodotti"_qs), 5);
  dialogs_.ExpectQuestion(question, true);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Orders(), u"a1 d4"_qs);
  EXPECT_EQ(Count(u"SchedeTecniche"_qs), 2);
  EXPECT_EQ(Codes(), u"a d"_qs);
  EXPECT_EQ(Find<QLabel>(u"lblProdotti"_qs)->text(), u"2 products"_qs);

  dialogs_.ExpectQuestion(question, true);
  Find<QAction>(u"cmdDelete"_qs)->trigger();
  EXPECT_EQ(Codes(), u"a"_qs) << "the toolbar deletes the row that is current";
  SetLanguage(u"Italian"_qs);
  dialogs_.ExpectQuestion(
      u"Eliminare gli articoli selezionati e le immagini ad essi relative?\r\nL'operazione non potrà essere "
      u"annullata.\r\nProcedere con l'eliminazione?"_qs,
      true);
  grid_->GoTo(0);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Count(u"Prodotti"_qs), 0);
  Key(Qt::Key_Delete);
  Find<QAction>(u"cmdDelete"_qs)->trigger();
  EXPECT_EQ(Rows().RecordCount(), 0) << "in an empty catalog nothing is asked";
}

TEST_F(GridEditing, KeepsLongTextsWhole) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  const QString longText = u"Ünï 🙂 "_qs.repeated(100'000 / 7);
  Change(0, Description, longText);
  EXPECT_EQ(Stored(u"a"_qs, Description), longText);
  Begin(0, Description, u"x"_qs);
  Key(Qt::Key_Escape);
  Key(Qt::Key_F2);
  ASSERT_NE(Editor(), nullptr);
  EXPECT_EQ(Editor()->text(), longText) << "the cell shows a part, its editor all";
  Key(Qt::Key_Escape);
  // A code as long does not fit into a file name, but is a value; it has no picture to rename.
  Change(0, Code, QString(100'000, u'k'));
  EXPECT_EQ(Count(u"Prodotti"_qs), 2);
  EXPECT_EQ(One(u"MAX(LENGTH(CodiceProdotto))"_qs, u"Prodotti"_qs).toInt(), 100'000);
  EXPECT_TRUE(Close());
}
