// What the grid shows of a catalog, and how it fares beside other windows and programs.

#include "GridWindowFixture.h"
#include "base/Settings.h"
#include "shell/frmCatalogs.h"

using namespace vorlina;

using GridWindowTest = GridWindow;

TEST_F(GridWindowTest, KeysReadTheRowsAnewAndOpenTheirMenu) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  AddProduct(catalog_, u"c"_qs, 3);
  Type(1, Description, u"typed"_qs);
  Key(Qt::Key_F5);
  EXPECT_EQ(Codes() + Stored(u"b"_qs, Description), u"a b ctyped"_qs);
  EXPECT_EQ(grid_->CurrentRow(), 1);
  grid_->GoTo(3);
  Key(Qt::Key_F5);
  EXPECT_EQ(grid_->CurrentRow(), 3) << "the row for new products is a place as well";
  Key(Qt::Key_F10, Qt::ShiftModifier);
  EXPECT_TRUE(Find<QMenu>(u"mnuGriglia"_qs)->isVisible());
}

TEST_F(GridWindowTest, TwoWindowsOnOneCatalogSeeEachOther) {
  Name(u"NomeFiltro1"_qs, u"Colour"_qs);
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  Open();
  Change(0, Description, u"from the second"_qs);
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro1=?"_qs, {AddFilterValue(1, u"red"_qs)});
  Activate(0);
  EXPECT_EQ(Shown(0, Description) + Shown(0, u"Colour"_qs), u"from the secondred"_qs);

  // The same row in both, one after the other.
  Type(1, Description, u"first"_qs);
  Activate(1);
  EXPECT_EQ(Stored(u"b"_qs, Description), u"first"_qs) << "going to the other window wrote it";
  EXPECT_TRUE(QTest::qWaitFor([this] { return Shown(1, Description) == u"first"; }));
}

TEST_F(GridWindowTest, TheRowInEditIsWrittenBeforeTheCatalogIsPublished) {
  AddProducts({u"a"_qs, u"b"_qs});
  plugins_ = {{u"Test.None"_qs, u"None"_qs, {}, {}}};
  Open();
  Type(0, Description, u"typed"_qs);
  dialogs_.ExpectMessage(FailureOf([] { CreatePlugin(u"Test.None"_qs); }), BoxStyle::Stop);
  Find<QAction>(u"Test.None"_qs)->trigger();
  EXPECT_EQ(Stored(u"a"_qs, Description), u"typed"_qs);
}

// The button opens the Italian help, its entry that of the language. No help lies beside this test.
TEST_F(GridWindowTest, TheHelpOfTheButtonAndOfItsEntry) {
  Open();
  for (const auto& [key, file] :
       {std::pair{u"cmdHelp"_qs, u"/Vorlina.qch"_qs}, {u"subHelp"_qs, u"/VorlinaEN.qch"_qs}}) {
    dialogs_.ExpectMessage(
        u"The file %1 does not exist.\nPlease make sure the correct path and file name have been "
        "specified."_qs.arg(DeliveredPath() + file));
    Find<QAction>(key)->trigger();
  }
}

TEST_F(GridWindowTest, ALockThatStaysIsToldAndTheRowStaysInEdit) {
  AddProducts({u"a"_qs, u"b"_qs});
  Open();
  // What would be waited for for five seconds is given up at once.
  window_->Connessione->Execute(u"PRAGMA busy_timeout=20"_qs);
  Type(0, Description, u"typed"_qs);
  connection_.BeginTrans();
  const QString locked =
      FailureOf([&] { Write(*window_->Connessione, u"UPDATE Cataloghi SET Extras='x'"_qs); }) +
      u" Press Esc to give up the change."_qs;
  const std::function<void()> steps[] = {[&] { Key(Qt::Key_Down); }, [&] { grid_->LoadGrid(true); },
                                         [&] { EXPECT_FALSE(Close()); }};
  for (const auto& step : steps) {
    dialogs_.ExpectMessage(locked, BoxStyle::Stop);
    step();
    EXPECT_EQ(Rows().EditRow(), 0);
    EXPECT_EQ(grid_->CurrentRow(), 0);
  }
  connection_.RollbackTrans();
  EXPECT_TRUE(Close());
  EXPECT_EQ(Stored(u"a"_qs, Description), u"typed"_qs);
}

TEST_F(GridWindowTest, ARowThatCannotBeWrittenKeepsTheMainWindowOpen) {
  AddProducts({u"a"_qs, u"b"_qs});
  SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, QString());
  SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs);
  frmCatalogs main;
  main.LoadForm();
  main.show();
  main.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&main));
  main.findChild<QAction*>(u"cmdEdit"_qs)->trigger();
  window_ = main.findChild<frmEditCatalog*>();
  ASSERT_NE(window_, nullptr);
  grid_ = window_->findChild<WidgetProductGrid*>(u"grdProducts"_qs);
  window_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
  Type(0, Code, u"b"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Code \"b\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  EXPECT_FALSE(main.close());
  EXPECT_TRUE(main.isVisible() && window_->isVisible());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(main.close());
  EXPECT_EQ(Orders(), u"a1 b2"_qs);
}
