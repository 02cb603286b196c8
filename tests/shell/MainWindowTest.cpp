#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "base/Helpers.h"
#include "base/Settings.h"
#include "catalogs/frmNewCatalog.h"
#include "products/frmEditCatalog.h"
#include "products/frmImages.h"
#include "shell/frmCatalogs.h"
#include "support/ScriptedDialogs.h"
#include "support/StoreFixture.h"
#include "support/frmKeys.h"

using namespace vorlina;

namespace {

class MainWindow : public StoreFixture {
 protected:
  MainWindow() {
    connection_.Execute(
        u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo,Logo) VALUES "
        "(109,'Lamps','/vorlina-sample-data/Images/109-Logo.jpg'),(110,'Toys',NULL)"_qs);
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"True"_qs);
    UsePlugins(u"Test.Good"_qs);
    QFile::link(QStringLiteral(TEST_PLUGINS), AppFile(u"PubWiz"_qs));
  }

  static void UsePlugins(const QString& identifiers) {
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, identifiers);
  }

  void Open() {
    window_ = std::make_unique<frmCatalogs>();
    window_->LoadForm();
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return Catalogs()->count() > 0; }));
  }

  template <class T>
  T* Find(const QString& name) const {
    T* found = window_->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  QListWidget* Catalogs() const { return Find<QListWidget>(u"LstWCatalogs"_qs); }
  QTreeWidget* Plugins() const { return Find<QTreeWidget>(u"lstPlugIns"_qs); }
  bool PublishPane() const { return Find<QWidget>(u"fmPublish"_qs)->isVisible(); }
  void Press(const QString& key) const { Find<QAction>(key)->trigger(); }
  QString Extras(int id) { return One(u"Extras"_qs, u"Cataloghi"_qs, u"IDCatalogo=?"_qs, {id}).toString(); }
  QLineEdit* Editor() const { return Catalogs()->findChild<QLineEdit*>(); }
  void Settle() const {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  void Type(const QString& name) {
    Catalogs()->setCurrentRow(0);
    Catalogs()->setFocus();
    QTest::keyClick(Catalogs(), Qt::Key_F2);
    ASSERT_NE(Editor(), nullptr);
    QTest::keyClick(Editor(), Qt::Key_Delete);
    QTest::keyClicks(Editor(), name);
  }
  // Types a new name over the label of the first catalog and ends with the key. The pasted line break is none
  // of it.
  void Rename(const QString& name, Qt::Key end = Qt::Key_Return) {
    Type(name);
    if (!name.isEmpty()) Editor()->insert(u"\n"_qs);
    QTest::keyClick(Editor(), end);
    Settle();
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_TRUE(window_->findChildren<frmEditCatalog*>().isEmpty()) << "the key climbed to the list";
  }

  ScriptedDialogs dialogs_;
  std::unique_ptr<frmCatalogs> window_;
};

}  // namespace

TEST_F(MainWindow, RenamesInPlace) {
  Open();
  const QString name = u"L'anno \"nuovo\" 100%"_qs;
  const QString invalid = u"Insert a valid name for the catalog"_qs;
  for (const auto& [typed, key, told, after] : {std::tuple{name, Qt::Key_Return, QString(), name},
                                                {QString(), Qt::Key_Return, invalid, name},
                                                {QString(), Qt::Key_Tab, invalid, name},
                                                {u"   "_qs, Qt::Key_Return, invalid, name},
                                                {u"given up"_qs, Qt::Key_Escape, QString(), name},
                                                {u"Tab"_qs, Qt::Key_Tab, QString(), u"Tab"_qs},
                                                {u"other"_qs, Qt::Key_Return, u"refused"_qs, u"Tab"_qs}}) {
    if (told == u"refused") Refuse(u"UPDATE ON Cataloghi"_qs);
    if (!told.isEmpty())
      dialogs_.ExpectMessage(told, told == invalid ? BoxStyle::Information : BoxStyle::Plain);
    Rename(typed, key);
    EXPECT_EQ(Catalogs()->item(0)->text(), after);
    EXPECT_EQ(One(u"NomeCatalogo"_qs, u"Cataloghi"_qs, u"IDCatalogo=109"_qs), after);
    EXPECT_EQ(dialogs_.Left(), 0);
  }
}

// The list is not made anew under an editor, and a command stores what was typed before it begins.
TEST_F(MainWindow, WhatHappensWhileANameIsTyped) {
  Open();
  Type(u"Typed"_qs);
  connection_.Execute(u"UPDATE Cataloghi SET NomeCatalogo='elsewhere' WHERE IDCatalogo=110"_qs);
  window_->ListCatalog();
  ASSERT_NE(Editor(), nullptr);
  EXPECT_NE(Catalogs()->item(1)->text(), u"elsewhere"_qs);
  Press(u"cmdEdit"_qs);
  EXPECT_EQ(Catalogs()->item(0)->text(), u"Typed"_qs);
  const QList<frmEditCatalog*> grids = window_->findChildren<frmEditCatalog*>();
  ASSERT_EQ(grids.size(), 1);
  EXPECT_EQ(grids[0]->windowTitle(), u"Typed"_qs);
  EXPECT_TRUE(QTest::qWaitFor([this] { return Catalogs()->item(1)->text() == u"elsewhere"; }));

  grids[0]->close();
  Type({});
  dialogs_.ExpectMessage(u"Insert a valid name for the catalog"_qs, BoxStyle::Information);
  Press(u"cmdDelete"_qs);  // asks nothing

  Type(u"Gone"_qs);
  connection_.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=109"_qs);
  dialogs_.ExpectMessage(u"The catalog is not there any more: it was deleted elsewhere"_qs);
  EXPECT_FALSE(window_->close());
  dialogs_.ExpectMessage(u"Error: The catalog is not there any more: it was deleted elsewhere"_qs,
                         BoxStyle::Stop);
  Press(u"cmdEdit"_qs);
}

TEST_F(MainWindow, AClickOnTheSelectedLabelRenamesUnlessSomethingElseBegins) {
  const int interval = QApplication::doubleClickInterval();
  QApplication::setDoubleClickInterval(1);
  Open();
  Catalogs()->setFocus();
  const auto click = [this] {
    QTest::mouseClick(Catalogs()->viewport(), Qt::LeftButton, {},
                      Catalogs()->visualItemRect(Catalogs()->currentItem()).center());
  };
  click();
  EXPECT_TRUE(QTest::qWaitFor([this] { return Editor() != nullptr; }));
  QTest::keyClick(Editor(), Qt::Key_Escape);
  Settle();
  click();
  dialogs_.ExpectQuestion(u"Do you want to delete selected catalog and its images?"_qs, false);
  Press(u"cmdDelete"_qs);
  // A timer that began later ends later: by then the editor would be open.
  bool passed = false;
  QTimer::singleShot(2, [&] { passed = true; });
  EXPECT_TRUE(QTest::qWaitFor([&] { return passed; }));
  EXPECT_EQ(Editor(), nullptr);
  QApplication::setDoubleClickInterval(interval);
}

TEST_F(MainWindow, PluginsThatMisbehaveAreToldAndTheOthersWork) {
  UsePlugins(u"Test.Missing;Test.Throws;Test.Good"_qs);
  for (int step = 0; step < 6; ++step) dialogs_.ExpectMessage(u"Error instancing dll: Test.Missing"_qs);
  Open();
  EXPECT_EQ(Plugins()->topLevelItemCount(), 2);
  Press(u"cmdPublish"_qs);
  dialogs_.ExpectMessage(u"Error: The plug-in reported an unknown error"_qs, BoxStyle::Stop);
  QTest::keyClick(Plugins(), Qt::Key_Return);
  EXPECT_TRUE(PublishPane());
  const QRect good = Plugins()->visualItemRect(Plugins()->topLevelItem(1));
  QTest::mouseClick(Plugins()->viewport(), Qt::LeftButton, {}, good.center());
  EXPECT_EQ(Extras(109), QString());
  QTest::keyClick(Plugins(), Qt::Key_Return);
  EXPECT_FALSE(PublishPane());
  EXPECT_EQ(Extras(109), u"published by Test.Good"_qs);
  // The transaction that the plug-in left open is gone with what it did.
  EXPECT_EQ(Count(u"Cataloghi"_qs), 2);
}

TEST_F(MainWindow, DeletesWithItsKeyAfterTheQuestion) {
  Open();
  for (int left = 2; left > 0; --left)
    for (const bool answer : {false, true}) {
      dialogs_.ExpectQuestion(u"Do you want to delete selected catalog and its images?"_qs, answer);
      QTest::keyClick(Catalogs(), Qt::Key_Delete);
      EXPECT_EQ(Catalogs()->count(), answer ? left - 1 : left);
      EXPECT_EQ(dialogs_.Left(), 0);
    }
  Press(u"cmdDelete"_qs);  // with an empty list nothing is asked
}

TEST_F(MainWindow, ClonesTheSelectedCatalogAndTellsWhatItLacks) {
  Open();
  // More pictures that cannot be read than a box has room for.
  for (int i = 0; i < 12; ++i) AddProduct(110, QString::number(i));
  connection_.Execute(u"UPDATE Prodotti SET Immagine='/dev/null'"_qs);
  Catalogs()->setCurrentRow(1);
  for (const bool answer : {false, true}) {
    dialogs_.ExpectQuestion(u"Do you want to clone selected catalog and its images?"_qs, answer);
    if (answer)
      dialogs_.ExpectMessage(
          u"The picture /dev/null cannot be read, and the copy lacks it\r\n"_qs.repeated(10) +
              u"... and 2 more"_qs,
          BoxStyle::Information);
    Press(u"cmdDuplica"_qs);
    EXPECT_EQ(Catalogs()->count(), answer ? 3 : 2);
  }
  EXPECT_EQ(Catalogs()->currentRow(), 1) << "the selection stays";
}

// More than a hundred pictures are worth a box, from which the user can stop.
TEST_F(MainWindow, ALongCloneCanBeStopped) {
  Open();
  UnexpectedModalGuard::allowed = {u"WidgetProgressBox"_qs};
  AddProduct(110, u"a"_qs);
  connection_.Execute(
      u"INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Immagine) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
      "SELECT i+1 FROM n WHERE i<3000) SELECT 110,'a','missing.jpg' FROM n"_qs);
  Catalogs()->setCurrentRow(1);
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    box->findChild<QPushButton*>()->click();
    // What else the user does in that moment has no effect; nothing is asked.
    QTest::keyClick(Catalogs(), Qt::Key_Delete);
    Press(u"cmdDuplica"_qs);
    window_->close();
  });
  watch.start(0);
  dialogs_.ExpectQuestion(u"Do you want to clone selected catalog and its images?"_qs, true);
  Press(u"cmdDuplica"_qs);
  EXPECT_EQ(Catalogs()->count(), 2);
  EXPECT_TRUE(window_->isVisible());
  UnexpectedModalGuard::allowed.clear();
}

TEST_F(MainWindow, ANewCatalogEndsAsTheWizardWasTold) {
  Open();
  Press(u"cmdNew"_qs);
  Press(u"cmdNew"_qs);  // one wizard at a time
  // Another one, the menu, the grid.
  for (const int choice : {1, 2, 0}) {
    const QList<frmNewCatalog*> wizards = window_->findChildren<frmNewCatalog*>();
    ASSERT_EQ(wizards.size(), 1);
    QTest::keyClicks(wizards[0]->findChild<QLineEdit*>(u"txtCatalogName"_qs), u"menu"_qs);
    QTest::keyClicks(wizards[0]->findChild<QLineEdit*>(u"txtFilter_0"_qs), u"f"_qs);
    for (int step = 1; step < 4; ++step) wizards[0]->findChild<QPushButton*>(u"cmdNav_0"_qs)->click();
    wizards[0]->findChild<QAbstractButton*>(u"optWizEnd_%1"_qs.arg(choice))->click();
    wizards[0]->findChild<QPushButton*>(u"cmdNav_2"_qs)->click();
    Settle();
    EXPECT_EQ(window_->findChildren<frmNewCatalog*>().size(), choice == 1 ? 1 : 0);
    EXPECT_EQ(window_->findChildren<frmEditCatalog*>().size(), choice == 0 ? 1 : 0);
    if (choice == 2) Press(u"cmdNew"_qs);
  }
  EXPECT_EQ(Catalogs()->currentItem()->text(), u"menu"_qs);
  EXPECT_EQ(Catalogs()->count(), 5);
}

// The button opens the Italian help, its entry and the wizard that of the language. None lies beside this
// test.
TEST_F(MainWindow, TheHelpOfTheButtonOfItsEntryAndOfTheWizard) {
  Open();
  const auto expect = [&](const QString& file) {
    dialogs_.ExpectMessage(
        u"The file %1 does not exist.\nPlease make sure the correct path and file name have been specified."_qs
            .arg(DeliveredPath() + file));
  };
  expect(u"/Vorlina.qch"_qs);
  Press(u"cmdHelp"_qs);
  expect(u"/VorlinaEN.qch"_qs);
  Press(u"subHelp"_qs);
  Press(u"cmdNew"_qs);
  expect(u"/VorlinaEN.qch"_qs);
  window_->findChild<QPushButton*>(u"cmdNav_4"_qs)->click();
}

// In the windows as they stand, whatever command is added to them.
TEST_F(MainWindow, TheOverviewOfKeysHasEveryShortcut) {
  Open();
  Press(u"cmdEdit"_qs);
  frmEditCatalog* grid = window_->findChild<frmEditCatalog*>();
  for (const QString& command : {u"cmdProperties"_qs, u"cmdNew"_qs})
    grid->findChild<QAction*>(command)->trigger();
  frmImages images;
  EXPECT_TRUE(QTest::qWaitForWindowActive(grid->findChild<QWidget*>(u"frmProduct"_qs)));
  grid->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(grid));
  QTest::keyClick(grid->windowHandle(), Qt::Key_F1, Qt::ControlModifier);
  for (int press = 0; press < 2; ++press) {
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(window_->windowHandle(), Qt::Key_F1, Qt::ControlModifier);
  }
  const QList<frmKeys*> overviews = window_->findChildren<frmKeys*>();
  ASSERT_EQ(overviews.size(), 2) << "one for each window";
  QTest::keyClick(overviews[0]->findChild<QWidget*>(u"lstKeys"_qs), Qt::Key_C, Qt::ControlModifier);
  const QString all = QApplication::clipboard()->text();
  EXPECT_FALSE(all.contains(u"\n\t"_qs)) << "commands without a shortcut are left out";
  QMap<QString, int> wanted;
  for (const QWidget* window : {static_cast<QWidget*>(window_.get()), static_cast<QWidget*>(&images)})
    for (const QAction* action : window->findChildren<QAction*>())
      for (const QKeySequence& keys : action->shortcuts()) {
        int& lines = wanted[QRegularExpression::escape(keys.toString(QKeySequence::NativeText))];
        if (lines == 0 || !action->objectName().isEmpty()) ++lines;
      }
  for (auto key = wanted.cbegin(); key != wanted.cend(); ++key)
    EXPECT_GE(all.count(QRegularExpression(u"(^|\\n|, )%1(,|\\t)"_qs.arg(key.key()))), key.value())
        << key.key();
  EXPECT_GT(wanted.size(), 25);
  QTest::keyClick(overviews[0]->findChild<QWidget*>(u"lstKeys"_qs), Qt::Key_Escape);
  Settle();
  EXPECT_EQ(window_->findChildren<frmKeys*>().size(), 1);
}

TEST_F(MainWindow, ClosingTakesTheGridWindowsAlongAndTellsTheProgram) {
  Open();
  QSignalSpy closed(window_.get(), &frmCatalogs::Closed);
  Press(u"cmdEdit"_qs);
  Press(u"cmdEdit"_qs);
  const QList<frmEditCatalog*> grids = window_->findChildren<frmEditCatalog*>();
  ASSERT_EQ(grids.size(), 2);
  EXPECT_TRUE(QTest::qWaitForWindowActive(grids.last()));
  EXPECT_TRUE(window_->close());
  EXPECT_NO_THROW(QTest::qWait(50)) << "they give the activation back to a window without a database";
  EXPECT_EQ(window_->findChildren<frmEditCatalog*>().size(), 0);
  EXPECT_EQ(closed.count(), 1);
  EXPECT_FALSE(window_->cnnCatalog.IsOpen());
}
