// The import of a folder of pictures in the grid's window, with what its user does meanwhile.
#include <QClipboard>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>

#include "GridWindowFixture.h"
#include "base/Settings.h"
#include "shell/frmCatalogs.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class GridImport : public GridWindow {
 protected:
  void Put(int pictures) {
    WriteFileSafely(Outside(u"0001.jpg"_qs), MakeJpeg(MakePhoto({16, 12}, 1)));
    for (int i = 2; i <= pictures; ++i)
      QFile::link(Outside(u"0001.jpg"_qs), Outside(u"%1.jpg"_qs.arg(i, 4, 10, QLatin1Char('0'))));
  }
  void Import() {
    dialogs_.ExpectFolder(outside_.path());
    Find<QAction>(u"cmdImporta"_qs)->trigger();
  }
  // Does something once, when so many products have been made.
  void At(int done, const std::function<void()>& step) const {
    auto* bar = Find<QProgressBar>(u"prgElaborazione"_qs);
    QObject::connect(bar, &QProgressBar::valueChanged, bar, [=](int value) {
      if (value == done + 1) QMetaObject::invokeMethod(bar, step, Qt::QueuedConnection);
    });
  }
  void ExpectRefusal(const QString& before) {
    const QString text =
        u"Pictures are being imported into this catalog. Wait for the end of the import, or cancel it."_qs;
    dialogs_.ExpectMessage(before + text, BoxStyle::Stop);
  }
  bool IsImporting() const { return Find<QWidget>(u"fmeProgress"_qs)->isVisible(); }
  QString Told() const { return Find<QLabel>(u"lblImportati"_qs)->text(); }
};

}  // namespace

TEST_F(GridImport, AThousandPicturesComeWithAMovingBarAndAListOfWhatIsLeftOut) {
  Put(1000);
  WriteFileSafely(Outside(u"notes.txt"_qs), "notes");
  Open();
  const QSignalSpy moved(Find<QProgressBar>(u"prgElaborazione"_qs), &QProgressBar::valueChanged);
  int scrolled = -1;
  bool others = true;
  At(500, [&] {
    EXPECT_TRUE(IsImporting());
    others = Find<QAction>(u"cmdImporta"_qs)->isEnabled() || Find<QAction>(u"cmdSearch"_qs)->isEnabled();
    Key(Qt::Key_F5);
    Key(Qt::Key_End, Qt::ControlModifier);
    scrolled = grid_->CurrentRow();
  });
  Import();
  EXPECT_FALSE(IsImporting());
  EXPECT_GE(moved.size(), 999);
  EXPECT_GE(scrolled, 500) << "the grid is in use meanwhile";
  EXPECT_TRUE(!others && Find<QAction>(u"cmdImporta"_qs)->isEnabled());
  EXPECT_EQ(Rows().RecordCount(), 1000);
  EXPECT_EQ(Shown(999, Code) + u' ' + Shown(999, Description), u"1000 1000"_qs);
  EXPECT_EQ(Findings(), QStringList());
  EXPECT_EQ(Told(), u"Imported 1,000 products"_qs);

  Find<QPushButton>(u"cmdEsclusi"_qs)->click();
  Find<QPushButton>(u"cmdCopia"_qs)->click();
  EXPECT_EQ(QApplication::clipboard()->text(), u"notes.txt\tit is no 'jpg' image"_qs);
}

TEST_F(GridImport, EscapeEndsItAndShowsWhatCame) {
  Put(9);
  plugins_ = {{u"Test"_qs, u"Test"_qs, {}, {}}};
  Open();
  Open();
  At(1, [this] {
    ExpectRefusal(QString());
    windows_[0]->findChild<QAction*>(u"Test"_qs)->trigger();
  });
  At(2, [this] {
    Type(AddNewRow(), Description, u"given up"_qs);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Rows().EditRow(), -1);
    Key(Qt::Key_F, Qt::ControlModifier);
    Key(Qt::Key_Escape);  // closes the bar
  });
  At(3, [this] { Key(Qt::Key_Escape); });
  Import();
  EXPECT_EQ(Told(), u"Import cancelled. Imported 3 products of 9, the last from the file 0003.jpg"_qs);
  EXPECT_EQ(Codes(), u"1 2 3"_qs);
  EXPECT_EQ(Findings(), QStringList());
}

TEST_F(GridImport, WhatIsTypedWhenItEndsIsNotCutOff) {
  Put(3);
  AddProducts({u"a"_qs});
  Open();
  At(1, [this] {
    grid_->GoTo(0, Description);
    Key(Qt::Key_F2);
    QTest::keyClicks(Editor(), u"so f"_qs);
  });
  Import();
  ASSERT_NE(Editor(), nullptr);
  QTest::keyClicks(Editor(), u"ar"_qs);
  Key(Qt::Key_Return);
  grid_->LeaveRow();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Rows().RecordCount() == 4; }));
  EXPECT_EQ(Stored(u"a"_qs, Description), u"so far"_qs);
}

TEST_F(GridImport, TheFirstBadFileEndsItAndIsTold) {
  Put(3);
  QFile::remove(Outside(u"0002.jpg"_qs));
  WriteFileSafely(Outside(u"0002.jpg"_qs), "no picture");
  Open();
  dialogs_.ExpectFolder(outside_.path());
  dialogs_.ExpectMessage(
      u"The file %1 cannot be read: it is no JPEG picture\r\n\r\nTake the file out of the folder, or save it "
      "anew as a JPEG picture.\r\nImported 1 product of 3, the last from the file 0001.jpg. Press F5 to see "
      "what came.\r\nBefore importing the rest, move the pictures that were imported, which are that file "
      "and "
      "those before it by name, to another place: they would become products a second time."_qs.arg(
          Outside(u"0002.jpg"_qs)),
      BoxStyle::Stop);
  Find<QAction>(u"cmdImporta"_qs)->trigger();
  EXPECT_FALSE(IsImporting());
  EXPECT_EQ(Rows().RecordCount(), 0) << "the grid stays as it was";
  EXPECT_EQ(Told(), u"Import stopped. Imported 1 product of 3, the last from the file 0001.jpg"_qs);
}

TEST_F(GridImport, TheProgramClosesBehindTheFileInHand) {
  Put(9);
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
  At(1, [&] {
    ExpectRefusal(u"Error: "_qs);
    main.findChild<QAction*>(u"cmdDelete"_qs)->trigger();
  });
  At(2, [&] { EXPECT_FALSE(main.close()); });
  Import();
  EXPECT_TRUE(QTest::qWaitFor([&] { return !main.isVisible(); }));
  EXPECT_EQ(Count(u"Prodotti"_qs), 2);
  EXPECT_EQ(Findings(), QStringList());
}
