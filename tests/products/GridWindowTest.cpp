// What the grid shows of a catalog, and how it fares beside other windows and programs.
#include <QElapsedTimer>
#include <QToolBar>
#include <thread>

#include "GridWindowFixture.h"
#include "base/Settings.h"
#include "shell/frmCatalogs.h"

using namespace vorlina;

namespace {

class GridWindowTest : public GridWindow {
 protected:
  // A lock that would be waited for for five seconds is given up at once.
  void WaitForNoLock() const { window_->Connessione->Execute(u"PRAGMA busy_timeout=20"_qs); }
  QString LockedText() {
    return FailureOf([&] { Write(*window_->Connessione, u"UPDATE Cataloghi SET Extras='x'"_qs); });
  }
};

}  // namespace

TEST_F(GridWindowTest, TheColumnsAreThoseThatTheCatalogNames) {
  struct Case {
    QMap<QString, QVariant> names;
    QString captions;  // English
  };
  const QString code = QStringLiteral("||Code|Description|");
  const QString order = QStringLiteral("Publish|Order");
  for (const Case& c : {
           Case{{}, order},
           Case{{{u"NomeValore2"_qs, u""_qs}}, order},
           Case{{{u"NomeValore1"_qs, u"Size"_qs}, {u"NomeFiltro5"_qs, u"Colour"_qs}},
                u"Size|Colour|"_qs + order},
           Case{{{u"NomeValore1"_qs, uR"(a "b" [c] 'd' ; \\ é 🙂)"_qs}},
                uR"(a "b" [c] 'd' ; \ é 🙂|)"_qs + order},
           Case{{{u"NomeValore1"_qs, uR"(100\037 \04612)"_qs}}, u"100% .12|"_qs + order},
           Case{{{u"NomeValore1"_qs, u"Ordine"_qs},
                 {u"NomeValore2"_qs, u"codice"_qs},
                 {u"NomeFiltro1"_qs, u"IMMAGINE"_qs}},
                u"Ordine|codice|IMMAGINE|"_qs + order},
           Case{{{u"NomeValore1"_qs, u"Size"_qs},
                 {u"NomeValore2"_qs, u"SIZE"_qs},
                 {u"NomeFiltro1"_qs, u"size"_qs}},
                u"Size|SIZE|size|"_qs + order},
           Case{{{u"NomeValore1"_qs, u"_secret"_qs}, {u"NomeValore2"_qs, u"seen"_qs}}, u"seen|"_qs + order},
       }) {
    catalog_ = AddCatalog(u"Catalog"_qs);
    for (const QString& field : c.names.keys()) Name(field, c.names[field]);
    AddProduct(catalog_, u"a"_qs, 1);
    connection_.Execute(u"UPDATE Prodotti SET Valore1='one',Valore2='two' WHERE IDCatalogo=?"_qs, {catalog_});
    Open();
    EXPECT_EQ(Captions(), code + c.captions);
    EXPECT_EQ(Rows().columnCount(), 17);
    EXPECT_EQ(Rows().Value(0, ProductColumn::Valore1), u"one"_qs) << c.captions;
    EXPECT_EQ(Rows().Value(0, ProductColumn::Ordine).toInt(), 1) << c.captions;
    // Each column is written to its own field, whatever its name.
    const QString key = Rows().Column(ProductColumn::Valore1).key;
    if (!grid_->isColumnHidden(ProductColumn::Valore1)) {
      Change(0, key, u"typed"_qs);
      EXPECT_EQ(Stored(u"a"_qs, u"Valore1||Valore2||OrdineTemp"_qs), u"typedtwo1"_qs) << c.captions;
    }
    EXPECT_TRUE(Close());
  }
  SetLanguage(u"Italian"_qs);
  Open();
  EXPECT_EQ(Captions(), u"||Codice|Descrizione|seen|Pubblica|Ordine"_qs);
}

TEST_F(GridWindowTest, AReloadFindsTheProductAgainByItsCode) {
  const QStringList codes{u"a"_qs, u"b'Neil"_qs, u"c 50%"_qs, u"d_\"x\""_qs, u"e 🙂"_qs, u"È"_qs};
  AddProducts(QStringList{u"0"_qs, u"1"_qs, u"2"_qs, u"3"_qs, u"4"_qs, u"5"_qs} + codes);
  Open();
  for (const QString& code : codes) {
    const int row = Rows().FindRow(Code, code);
    ASSERT_TRUE(grid_->GoTo(row, Description)) << code;
    connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto=?"_qs, {Shown(0, Code)});
    grid_->LoadGrid(true);
    EXPECT_EQ(Shown(grid_->CurrentRow(), Code), code);
    EXPECT_EQ(grid_->CurrentRow(), row - 1);
    EXPECT_EQ(grid_->CurrentKey(), Description) << "in the same column";
  }
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='È'"_qs);
  grid_->LoadGrid(true);
  EXPECT_EQ(grid_->CurrentRow(), 0) << "the product is gone";
}

TEST_F(GridWindowTest, KeysReadTheRowsAnewAndOpenTheirMenu) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  AddProduct(catalog_, u"c"_qs, 3);
  Type(1, Description, u"typed"_qs);
  Key(Qt::Key_F5);
  EXPECT_EQ(Codes(), u"a b c"_qs);
  EXPECT_EQ(Stored(u"b"_qs, Description), u"typed"_qs);
  EXPECT_EQ(u"%1 %2"_qs.arg(grid_->CurrentRow()).arg(grid_->CurrentKey()), u"1 "_qs + Description);
  grid_->GoTo(3);
  Key(Qt::Key_F5);
  EXPECT_EQ(grid_->CurrentRow(), 3) << "the row for new products is a place as well";
  Key(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(Find<QMenu>(u"mnuGriglia"_qs)->isVisible());
  auto* images = Find<QToolBar>(u"tbr"_qs)->widgetForAction(Find<QAction>(u"cmdImmagini"_qs));
  EXPECT_EQ(images->toolTip(), QString());
}

TEST_F(GridWindowTest, TwoWindowsOnOneCatalogSeeEachOther) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  Open();
  Change(0, Description, u"from the second"_qs);
  Activate(0);
  EXPECT_EQ(Shown(0, Description), u"from the second"_qs);

  // The same row in both, one after the other.
  Type(1, Description, u"first"_qs);
  Activate(1);
  EXPECT_EQ(Stored(u"b"_qs, Description), u"first"_qs) << "going to the other window wrote it";
  EXPECT_TRUE(QTest::qWaitFor([this] { return Shown(1, Description) == u"first"; }));
  Change(1, Description, u"second"_qs);
  EXPECT_EQ(Stored(u"b"_qs, Description), u"second"_qs);
}

TEST_F(GridWindowTest, ARowThatWasChangedElsewhereIsNotOverwritten) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  Type(0, Description, u"mine"_qs);
  connection_.Execute(u"UPDATE Prodotti SET Descrizione='theirs' WHERE CodiceProdotto='a'"_qs);
  dialogs_.ExpectMessage(
      u"The row was changed meanwhile by another window or program. Press Esc to see it as "
      "it is now."_qs,
      BoxStyle::Stop);
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored(u"a"_qs, Description), u"theirs"_qs);
  EXPECT_EQ(Shown(0, Description), u"mine"_qs) << "what was typed is still there";
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(0, Description), u"theirs"_qs);
  // Another column of the same row does no harm.
  Type(0, Description, u"mine again"_qs);
  connection_.Execute(u"UPDATE Prodotti SET OrdineTemp=7 WHERE CodiceProdotto='a'"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored(u"a"_qs, u"Descrizione||OrdineTemp"_qs), u"mine again7"_qs);
}

TEST_F(GridWindowTest, ARowThatIsDeletedInTheMiddleOfAnEdit) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
  Open();
  Begin(1, Description, u"typed"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='b'"_qs);
  dialogs_.ExpectMessage(u"The row was deleted meanwhile by another window or program."_qs, BoxStyle::Stop);
  Key(Qt::Key_Up);
  EXPECT_EQ(grid_->CurrentRow(), 0);

  Type(2, Description, u"typed"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='c'"_qs);
  dialogs_.ExpectMessage(
      u"The row was deleted meanwhile by another window or program. Press Esc to see it as it "
      "is now."_qs,
      BoxStyle::Stop);
  Key(Qt::Key_Up);
  EXPECT_EQ(Rows().EditRow(), 2);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Orders(), u"a1"_qs);
  grid_->LoadGrid(true);
  EXPECT_EQ(Codes(), u"a"_qs);
  EXPECT_TRUE(Close());
}

TEST_F(GridWindowTest, TheRowInEditIsWrittenBeforeTheCatalogIsPublished) {
  AddProducts({u"a"_qs, u"b"_qs});
  plugins_ = {{u"Test.None"_qs, u"None"_qs, {}, {}}};
  Open();
  Type(0, Description, u"typed"_qs);
  dialogs_.ExpectMessage(FailureOf([] { CreatePlugin(u"Test.None"_qs); }), BoxStyle::Stop);
  Find<QAction>(u"Test.None"_qs)->trigger();
  EXPECT_EQ(Stored(u"a"_qs, Description), u"typed"_qs);
  Type(0, Code, u"b"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Code \"b\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  Find<QAction>(u"Test.None"_qs)->trigger();
  EXPECT_EQ(Rows().EditRow(), 0) << "nothing is published then";
}

TEST_F(GridWindowTest, ALockThatPassesIsWaitedFor) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  Type(0, Description, u"typed"_qs);
  QElapsedTimer waited;
  waited.start();
  connection_.BeginTrans();
  std::thread other([this] {
    std::this_thread::sleep_for(std::chrono::seconds(2));
    connection_.CommitTrans();
  });
  Key(Qt::Key_Down);
  other.join();
  EXPECT_GE(waited.elapsed(), 2000);
  EXPECT_EQ(Stored(u"a"_qs, Description), u"typed"_qs);
}

TEST_F(GridWindowTest, ALockThatStaysIsToldAndTheRowStaysInEdit) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  WaitForNoLock();
  Type(0, Description, u"typed"_qs);
  connection_.BeginTrans();
  const QString locked = LockedText() + u" Press Esc to give up the change."_qs;
  for (int attempt = 0; attempt < 2; ++attempt) {
    dialogs_.ExpectMessage(locked, BoxStyle::Stop);
    Key(Qt::Key_Down);
    EXPECT_EQ(Rows().EditRow(), 0);
    EXPECT_EQ(grid_->CurrentRow(), 0);
  }
  dialogs_.ExpectMessage(locked, BoxStyle::Stop);
  grid_->LoadGrid(true);
  EXPECT_EQ(Shown(0, Description), u"typed"_qs) << "a reload does not drop it";
  dialogs_.ExpectMessage(locked, BoxStyle::Stop);
  EXPECT_FALSE(Close());
  connection_.RollbackTrans();
  EXPECT_TRUE(Close());
  EXPECT_EQ(Stored(u"a"_qs, Description), u"typed"_qs);
}

TEST_F(GridWindowTest, OtherCommandsUnderALock) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
  Open();
  WaitForNoLock();
  connection_.BeginTrans();
  const QString locked = LockedText();
  dialogs_.ExpectQuestion(u"Do you want to delete selected products and their images?\r\nContinue?"_qs, true);
  dialogs_.ExpectMessage(locked, BoxStyle::Stop);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Codes(), u"a b c"_qs);
  dialogs_.ExpectMessage(locked, BoxStyle::Stop);
  Drag({3}, 1);
  EXPECT_EQ(grid_->viewport()->cursor().shape(), Qt::ArrowCursor);
  connection_.RollbackTrans();
  EXPECT_EQ(Orders(), u"a1 b2 c3"_qs);
  Drag({3}, 1);
  EXPECT_EQ(Orders(), u"c1 a2 b3"_qs);
}

TEST_F(GridWindowTest, ARowThatCannotBeWrittenKeepsTheMainWindowOpen) {
  AddProducts({u"a"_qs, u"b"_qs});
  SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, u"None"_qs);
  SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs);
  for (int step = 0; step < 6; ++step) dialogs_.ExpectMessage(u"Error instancing dll: None"_qs);
  dialogs_.ExpectMessage(u"Error: No publishing filter is installed"_qs, BoxStyle::Stop);
  frmCatalogs main;
  main.LoadForm();
  main.show();
  main.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
  main.findChild<QAction*>(u"cmdEdit"_qs)->trigger();
  window_ = main.findChild<frmEditCatalog*>();
  ASSERT_NE(window_, nullptr);
  EXPECT_EQ(window_->windowTitle(), u"Catalog"_qs);
  grid_ = window_->findChild<WidgetProductGrid*>(u"grdProducts"_qs);
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
  Type(0, Code, u"b"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Code \"b\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  EXPECT_FALSE(main.close());
  EXPECT_TRUE(main.isVisible() && window_->isVisible());
  EXPECT_TRUE(main.cnnCatalog.IsOpen());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(main.close());
  EXPECT_EQ(Orders(), u"a1 b2"_qs);
}
