#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "base/AppPath.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/SafeFile.h"
#include "base/Settings.h"
#include "catalogs/frmNewCatalog.h"
#include "products/frmEditCatalog.h"
#include "shell/frmCatalogs.h"
#include "store/GetValue.h"
#include "support/AppFolder.h"
#include "support/ScriptedDialogs.h"
#include "support/WritingConnection.h"

using namespace vorlina;

namespace {

class MainWindow : public testing::Test {
 protected:
  MainWindow() {
    SetLanguage(u"English"_qs);
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"True"_qs);
    UsePlugins(u"Test.Good"_qs);
    QFile::link(QStringLiteral(TEST_PLUGINS), folder_.Path() + u"/PubWiz"_qs);
    SetAppPath(folder_.Path());
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
  QString Extras(int id) const {
    return NullToEmpty(
        GetValue(u"Extras"_qs, u"Cataloghi"_qs, window_->cnnCatalog, u"IDCatalogo=?"_qs, {id}));
  }
  QLineEdit* Editor() const { return Catalogs()->findChild<QLineEdit*>(); }
  void Settle() const {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  // Types a new name over the label of the first catalog and ends with the key. The pasted line break is none
  // of it.
  void Rename(const QString& name, Qt::Key end = Qt::Key_Return) {
    Catalogs()->setCurrentRow(0);
    Catalogs()->setFocus();
    QTest::keyClick(Catalogs(), Qt::Key_F2);
    QLineEdit* editor = Editor();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, name);
    if (!name.isEmpty()) editor->insert(u"\n"_qs);
    QTest::keyClick(editor, end);
    Settle();
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_TRUE(window_->findChildren<frmEditCatalog*>().isEmpty()) << "the key climbed to the list";
  }

  AppFolder folder_{0, false};
  ScriptedDialogs dialogs_;
  std::unique_ptr<frmCatalogs> window_;
};

}  // namespace

TEST_F(MainWindow, AFirstStartRebasesTheSamplesAndIsRemembered) {
  Open();
  EXPECT_EQ(Catalogs()->count(), 2);
  const QString logo =
      GetValue(u"Logo"_qs, u"Cataloghi"_qs, window_->cnnCatalog, u"IDCatalogo=109"_qs).toString();
  EXPECT_EQ(logo, AppFile(u"Images/109-Logo.jpg"_qs));
  EXPECT_EQ(GetSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"-"_qs), u"False"_qs);
  EXPECT_EQ(GetSetting(ApplicationTitle(), u"Riservati"_qs, u"AppPath"_qs, u"-"_qs), AppPath());

  // A logo that is right already does not hide what was not finished.
  Write(window_->cnnCatalog,
        u"UPDATE Prodotti SET Immagine='/vorlina-sample-data/x.jpg' WHERE IDCatalogo=109"_qs);
  window_->close();
  Open();
  EXPECT_EQ(GetValue(u"Immagine"_qs, u"Prodotti"_qs, window_->cnnCatalog, u"IDCatalogo=109"_qs).toString(),
            AppFile(u"x.jpg"_qs));
}

TEST_F(MainWindow, SpeaksTheChosenLanguage) {
  struct Case {
    const char16_t* language;
    QString title, list, publish, support;
  };
  for (const Case& c :
       {Case{u"Italian", u"Vorlina - Cataloghi"_qs, u"Cataloghi disponibili"_qs, u"Pubblica"_qs,
             u"Supporto"_qs},
        Case{u"English", u"Vorlina - Catalogs"_qs, u"Available catalogs"_qs, u"Publish"_qs, u"Support"_qs}}) {
    SetLanguage(QString::fromUtf16(c.language));
    Open();
    EXPECT_EQ(window_->windowTitle(), c.title);
    EXPECT_EQ(Find<QLabel>(u"Label1"_qs)->text(), c.list);
    EXPECT_EQ(Find<QAction>(u"cmdPublish"_qs)->text(), c.publish);
    EXPECT_EQ(Find<QAction>(u"subSupport"_qs)->text(), c.support);
  }
}

TEST_F(MainWindow, RenamesInPlace) {
  Open();
  QString expected = u"L'anno \"nuovo\" 100%"_qs;
  const auto check = [&] {
    EXPECT_EQ(Catalogs()->item(0)->text(), expected);
    EXPECT_EQ(
        GetValue(u"NomeCatalogo"_qs, u"Cataloghi"_qs, window_->cnnCatalog, u"IDCatalogo=109"_qs).toString(),
        expected);
    EXPECT_EQ(dialogs_.Left(), 0);
  };
  Rename(expected);
  check();
  for (const QString& none : {QString(), u"   "_qs}) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab}) {
      dialogs_.ExpectMessage(u"Insert a valid name for the catalog"_qs, BoxStyle::Information);
      Rename(none, key);
      check();
    }
  }
  Rename(u"given up"_qs, Qt::Key_Escape);
  check();
  expected = u"Tab"_qs;
  Rename(expected, Qt::Key_Tab);
  check();
  Write(window_->cnnCatalog,
        u"CREATE TRIGGER Refuse BEFORE UPDATE ON Cataloghi BEGIN SELECT RAISE(ABORT, 'refused'); END"_qs);
  dialogs_.ExpectMessage(u"refused"_qs);
  Rename(u"other"_qs);
  check();
}

// The list is not made anew under an editor, and a command stores what was typed before it begins.
TEST_F(MainWindow, WhatHappensWhileANameIsTyped) {
  Open();
  const auto type = [this](const QString& name) {
    Catalogs()->setCurrentRow(0);
    Catalogs()->setFocus();
    QTest::keyClick(Catalogs(), Qt::Key_F2);
    QTest::keyClicks(Editor(), name);
  };
  type(u"Typed"_qs);
  Write(window_->cnnCatalog, u"UPDATE Cataloghi SET NomeCatalogo='elsewhere' WHERE IDCatalogo=110"_qs);
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
  type({});
  QTest::keyClick(Editor(), Qt::Key_Delete);
  dialogs_.ExpectMessage(u"Insert a valid name for the catalog"_qs, BoxStyle::Information);
  Press(u"cmdDelete"_qs);  // asks nothing

  type(u"Gone"_qs);
  Write(window_->cnnCatalog, u"DELETE FROM Cataloghi WHERE IDCatalogo=109"_qs);
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
  QTest::qWait(20);
  EXPECT_EQ(Editor(), nullptr);
  QApplication::setDoubleClickInterval(interval);
}

TEST_F(MainWindow, PublishingTakesTwoPressesAndClosesThePane) {
  Open();
  Catalogs()->setCurrentRow(1);
  Press(u"cmdPublish"_qs);
  EXPECT_TRUE(PublishPane());
  EXPECT_FALSE(Find<QAction>(u"cmdHelp"_qs)->isEnabled());
  EXPECT_TRUE(Find<QAction>(u"cmdPublish"_qs)->isEnabled());
  Press(u"cmdPublish"_qs);
  EXPECT_FALSE(PublishPane());
  EXPECT_TRUE(Find<QAction>(u"cmdHelp"_qs)->isEnabled());
  EXPECT_EQ(Extras(110), u"published by Test.Good"_qs);
  EXPECT_NE(Extras(109), Extras(110));
  EXPECT_EQ(window_->objPlugin, nullptr);
  // The transaction that the plug-in left open is gone with what it did.
  EXPECT_EQ(GetValue(u"COUNT(*)"_qs, u"Cataloghi"_qs, window_->cnnCatalog, {}).toInt(), 2);
}

TEST_F(MainWindow, APluginThatThrowsLeavesThePaneAsItWas) {
  UsePlugins(u"Test.Throws;Test.Good"_qs);
  Open();
  Press(u"cmdPublish"_qs);
  dialogs_.ExpectMessage(u"Error: The plug-in reported an unknown error"_qs, BoxStyle::Stop);
  QTest::keyClick(Plugins(), Qt::Key_Return);
  EXPECT_TRUE(PublishPane());
  Plugins()->setCurrentItem(Plugins()->topLevelItem(1));
  QTest::keyClick(Plugins(), Qt::Key_Return);
  EXPECT_FALSE(PublishPane());
  EXPECT_EQ(Extras(109), u"published by Test.Good"_qs);
}

TEST_F(MainWindow, BackLeavesThePaneAndTheNextPressShowsItAgain) {
  Open();
  Press(u"cmdPublish"_qs);
  QTest::mouseClick(Find<QPushButton>(u"cmdIndietro"_qs), Qt::LeftButton);
  EXPECT_FALSE(PublishPane());
  Press(u"cmdPublish"_qs);
  EXPECT_TRUE(PublishPane());
  EXPECT_EQ(Extras(109).contains(u"published by"), false);
}

TEST_F(MainWindow, WithoutACatalogSelectedTheFirstPressOnlyCounts) {
  Open();
  Catalogs()->clearSelection();
  Press(u"cmdPublish"_qs);
  EXPECT_FALSE(PublishPane());
  dialogs_.ExpectMessage(u"Error: No catalog is selected"_qs, BoxStyle::Stop);
  Press(u"cmdPublish"_qs);
}

TEST_F(MainWindow, APluginWithoutANameIsAskedForAndTheFlagTurns) {
  Open();
  Plugins()->topLevelItem(0)->setText(0, {});
  Press(u"cmdPublish"_qs);
  dialogs_.ExpectMessage(u"Select a publishing filter"_qs, BoxStyle::Information);
  Press(u"cmdPublish"_qs);
  EXPECT_TRUE(PublishPane());
  Plugins()->topLevelItem(0)->setText(0, u"Named"_qs);
  Press(u"cmdPublish"_qs);  // only turns the flag again
  EXPECT_TRUE(PublishPane());
  Press(u"cmdPublish"_qs);
  EXPECT_FALSE(PublishPane());
}

TEST_F(MainWindow, APluginThatIsMissingIsToldStepByStepAndTheOthersWork) {
  UsePlugins(u"Test.Missing;Test.Good"_qs);
  for (int step = 0; step < 6; ++step) dialogs_.ExpectMessage(u"Error instancing dll: Test.Missing"_qs);
  Open();
  ASSERT_EQ(Plugins()->topLevelItemCount(), 1);
  EXPECT_TRUE(Plugins()->topLevelItem(0)->isSelected());
  EXPECT_EQ(Find<QLabel>(u"lblDescription"_qs)->text(), QString());
  Press(u"cmdPublish"_qs);
  const QRect first = Plugins()->visualItemRect(Plugins()->topLevelItem(0));
  QTest::mouseClick(Plugins()->viewport(), Qt::LeftButton, {}, first.center());
  EXPECT_EQ(Find<QLabel>(u"lblDescription"_qs)->text(), u"describes Test.Good"_qs);
  const QList<QAction*> skins = Find<QMenu>(u"mnuInstallaSkin"_qs)->actions();
  ASSERT_EQ(skins.size(), 2);
  EXPECT_EQ(skins[0]->text() + u'|' + skins[1]->text(), u"|Test.Good"_qs);
}

TEST_F(MainWindow, WithoutSettingsOrWithNoneNamedNoPluginIsTold) {
  UsePlugins({});
  Open();
  EXPECT_EQ(Plugins()->topLevelItemCount(), 0);
  const QString title = ApplicationTitle();
  QCoreApplication::setApplicationName(u"Newcomer"_qs);
  Open();
  QStringList names;
  for (int i = 0; i < Plugins()->topLevelItemCount(); ++i) names += Plugins()->topLevelItem(i)->text(0);
  EXPECT_EQ(names.join(u' '), u"Test.Good Test.Small Test.Throws"_qs);
  EXPECT_EQ(Find<QMenu>(u"mnuInstallaSkin"_qs)->actions().size(), 3);
  QCoreApplication::setApplicationName(title);
}

TEST_F(MainWindow, APictureIsNotCutToTheFirst) {
  UsePlugins(u"Test.Small;Test.Good"_qs);
  Open();
  Press(u"cmdPublish"_qs);
  for (int row = 0; row < 2; ++row)
    EXPECT_GE(Plugins()->visualItemRect(Plugins()->topLevelItem(row)).height(), 32);
}

TEST_F(MainWindow, TheSelectionSurvivesComingBackToTheWindow) {
  Open();
  Catalogs()->setCurrentRow(1);
  window_->ListCatalog();
  EXPECT_EQ(Catalogs()->currentRow(), 1);
  EXPECT_TRUE(Catalogs()->currentItem()->isSelected());
}

TEST_F(MainWindow, WritesTheListOfCatalogs) {
  Open();
  Rename(u"Nome"_qs);
  Write(window_->cnnCatalog, u"UPDATE Cataloghi SET Descrizione='a'||char(10)||'b' WHERE IDCatalogo=109"_qs);
  window_->ListCatalog();
  window_->CreaListaCataloghi();
  QFile file(AppFile(u"Cataloghi.txt"_qs));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().startsWith(" 109\nNome\na b\n 110\n"));
}

TEST_F(MainWindow, CommandsWithoutAWindowAreDisabled) {
  Open();
  for (const QString& key : {u"subHelp"_qs, u"cmdAggiornamenti"_qs, u"cmdTour"_qs, u"cmdOpzioni"_qs,
                             u"subAbout"_qs, u"mnuInstallPlugin"_qs})
    EXPECT_FALSE(Find<QAction>(key)->isEnabled()) << key;
  EXPECT_TRUE(Find<QAction>(u"subSupport"_qs)->isEnabled());
  QTest::keyClick(Catalogs(), Qt::Key_Return);
  EXPECT_EQ(Catalogs()->count(), 2);
}

TEST_F(MainWindow, DeletesWithItsKeyAfterTheQuestion) {
  for (const bool english : {false, true}) {
    SetLanguage(english ? u"English"_qs : u"Italian"_qs);
    Open();
    const int before = Catalogs()->count();
    const QString question =
        english ? u"Do you want to delete selected catalog and its images?"_qs
                : u"Procedere all'eliminazione del catalogo e di tutte le immagini ad esso associate ?"_qs;
    Catalogs()->setCurrentRow(0);
    for (const bool answer : {false, true}) {
      dialogs_.ExpectQuestion(question, answer);
      QTest::keyClick(Catalogs(), Qt::Key_Delete);
      EXPECT_EQ(Catalogs()->count(), answer ? before - 1 : before);
      EXPECT_EQ(dialogs_.Left(), 0);
    }
  }
  Press(u"cmdDelete"_qs);
  EXPECT_EQ(Catalogs()->count(), 0) << "with an empty list nothing is asked";
}

TEST_F(MainWindow, ClonesTheSelectedCatalog) {
  Open();
  Catalogs()->setCurrentRow(1);
  const QString name = Catalogs()->item(1)->text();
  const QString question = u"Do you want to clone selected catalog and its images?"_qs;
  dialogs_.ExpectQuestion(question, false);
  Press(u"cmdDuplica"_qs);
  EXPECT_FALSE(window_->cnnCatalog.InTransaction());
  EXPECT_EQ(Catalogs()->count(), 2);
  dialogs_.ExpectQuestion(question, true);
  Press(u"cmdDuplica"_qs);
  ASSERT_EQ(Catalogs()->count(), 3);
  EXPECT_EQ(Catalogs()->item(2)->text(), u"Copy of "_qs + name);
  EXPECT_EQ(Catalogs()->currentRow(), 1);

  Write(window_->cnnCatalog,
        u"CREATE TRIGGER Refuse BEFORE INSERT ON Filtri BEGIN SELECT RAISE(ABORT, 'refused'); END"_qs);
  dialogs_.ExpectQuestion(question, true);
  dialogs_.ExpectMessage(u"Impossible to clone the catalog. \r\nrefused"_qs, BoxStyle::Stop);
  Press(u"cmdDuplica"_qs);
  EXPECT_EQ(Catalogs()->count(), 3);
}

TEST_F(MainWindow, ClonesInItalian) {
  SetLanguage(u"Italian"_qs);
  Open();
  const QString question = u"Duplicare il catalogo selezionato e le immagini ad esso relative?"_qs;
  // More pictures that cannot be read than a box has room for.
  Write(window_->cnnCatalog, u"UPDATE Prodotti SET Immagine='/dev/null' WHERE IDCatalogo=109"_qs);
  const int unread =
      GetValue(u"COUNT(*)"_qs, u"Prodotti"_qs, window_->cnnCatalog, u"IDCatalogo=109"_qs).toInt();
  dialogs_.ExpectQuestion(question, true);
  dialogs_.ExpectMessage(
      u"L'immagine /dev/null non può essere letta e manca nella copia\r\n"_qs.repeated(10) +
          u"... e altri %1"_qs.arg(unread - 10),
      BoxStyle::Information);
  Press(u"cmdDuplica"_qs);
  ASSERT_EQ(Catalogs()->count(), 3);
  EXPECT_TRUE(Catalogs()->item(2)->text().startsWith(u"Copia di "_qs));
  Write(window_->cnnCatalog,
        u"CREATE TRIGGER Refuse BEFORE INSERT ON Filtri BEGIN SELECT RAISE(ABORT, 'no'); END"_qs);
  dialogs_.ExpectQuestion(question, true);
  dialogs_.ExpectMessage(u"Impossibile duplicare il catalogo. \r\nno"_qs, BoxStyle::Stop);
  Press(u"cmdDuplica"_qs);
}

// More than a hundred pictures are worth a box, from which the user can stop.
TEST_F(MainWindow, ALongCloneShowsItsProgressAndCanBeStopped) {
  Open();
  UnexpectedModalGuard::allowed = {u"WidgetProgressBox"_qs};
  Write(window_->cnnCatalog,
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<3000) "
        "INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Immagine) SELECT 110,"
        "(SELECT CodiceProdotto FROM Prodotti WHERE IDCatalogo=110 LIMIT 1),'missing.jpg' FROM n"_qs);
  Catalogs()->setCurrentRow(1);
  const QString name = Catalogs()->item(1)->text();
  for (const bool stops : {true, false}) {
    QString text;
    QTimer watch;
    watch.setInterval(0);
    QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
      auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      text = box->findChild<QLabel*>(u"lblProgress"_qs)->text();
      if (!stops) return;
      box->findChild<QPushButton*>()->click();
      // What else the user does in that moment has no effect; nothing is asked.
      QTest::keyClick(Catalogs(), Qt::Key_Delete);
      Press(u"cmdDuplica"_qs);
      window_->close();
    });
    watch.start();
    dialogs_.ExpectQuestion(u"Do you want to clone selected catalog and its images?"_qs, true);
    Press(u"cmdDuplica"_qs);
    EXPECT_EQ(text, name);
    EXPECT_EQ(Catalogs()->count(), stops ? 2 : 3);
    EXPECT_FALSE(window_->cnnCatalog.InTransaction());
    EXPECT_TRUE(window_->isVisible());
  }
  UnexpectedModalGuard::allowed.clear();
}

TEST_F(MainWindow, ANewCatalogEndsAsTheWizardWasTold) {
  Open();
  const auto wizard = [this] {
    frmNewCatalog* shown = nullptr;
    for (frmNewCatalog* one : window_->findChildren<frmNewCatalog*>())
      if (one->isVisible()) shown = one;
    return shown;
  };
  const auto finish = [&](const QString& name, int choice) {
    frmNewCatalog* open = wizard();
    ASSERT_NE(open, nullptr);
    QTest::keyClicks(open->findChild<QLineEdit*>(u"txtCatalogName"_qs), name);
    QTest::keyClicks(open->findChild<QLineEdit*>(u"txtFilter_0"_qs), u"f"_qs);
    for (int step = 1; step < 4; ++step) open->findChild<QPushButton*>(u"cmdNav_0"_qs)->click();
    open->findChild<QAbstractButton*>(u"optWizEnd_%1"_qs.arg(choice))->click();
    open->findChild<QPushButton*>(u"cmdNav_2"_qs)->click();
  };
  QTest::mouseClick(Find<QPushButton>(u"cmdNew"_qs), Qt::LeftButton);
  ASSERT_NE(wizard(), nullptr);
  EXPECT_FALSE(wizard()->isModal());
  frmNewCatalog* first = wizard();
  Press(u"cmdNew"_qs);
  EXPECT_EQ(wizard(), first) << "one wizard at a time";

  finish(u"another"_qs, 1);
  EXPECT_EQ(Catalogs()->count(), 3);
  EXPECT_EQ(Catalogs()->currentItem()->text(), u"another"_qs);
  ASSERT_NE(wizard(), nullptr) << "a fresh one";
  EXPECT_EQ(wizard()->findChild<QLineEdit*>(u"txtCatalogName"_qs)->text(), QString());

  for (const int choice : {2, 0}) {
    finish(u"menu"_qs, choice);
    EXPECT_EQ(wizard(), nullptr);
    EXPECT_EQ(Catalogs()->item(Catalogs()->count() - 1)->text(), u"menu"_qs);
    const auto* grid = window_->findChild<frmEditCatalog*>();
    EXPECT_EQ(grid == nullptr ? QString() : grid->windowTitle(), choice == 0 ? u"menu"_qs : QString());
    Press(u"cmdNew"_qs);
  }
  EXPECT_EQ(Catalogs()->count(), 5);
  wizard()->findChild<QPushButton*>(u"cmdNav_3"_qs)->click();
  EXPECT_EQ(wizard(), nullptr);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_EQ(Catalogs()->count(), 5);
  EXPECT_EQ(Catalogs()->currentItem()->text(), u"menu"_qs);
}

TEST_F(MainWindow, ClosingReleasesTheDatabaseAndTellsTheProgram) {
  Open();
  QSignalSpy closed(window_.get(), &frmCatalogs::Closed);
  window_->close();
  EXPECT_EQ(closed.count(), 1);
  EXPECT_FALSE(window_->cnnCatalog.IsOpen());
}

TEST_F(MainWindow, ClosingTakesTheGridWindowsAlong) {
  Open();
  Press(u"cmdEdit"_qs);
  Press(u"cmdEdit"_qs);
  const QList<frmEditCatalog*> grids = window_->findChildren<frmEditCatalog*>();
  ASSERT_EQ(grids.size(), 2);
  EXPECT_TRUE(QTest::qWaitForWindowActive(grids.last()));
  EXPECT_TRUE(window_->close());
  EXPECT_NO_THROW(QTest::qWait(50)) << "they give the activation back to a window without a database";
  EXPECT_EQ(window_->findChildren<frmEditCatalog*>().size(), 0);
}
