// Saving and restoring from the main window, as its user comes to it.
#include <QAction>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QProgressDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

#include "base/Settings.h"
#include "catalogs/AutomaticBackup.h"
#include "catalogs/Backup.h"
#include "catalogs/frmBackups.h"
#include "grid/DataGrid.h"
#include "products/CatalogWork.h"
#include "products/frmEditCatalog.h"
#include "shell/frmCatalogs.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"

using namespace vorlina;

namespace {

// Without what differs from run to run.
class PlainDialogs : public ScriptedDialogs {
 protected:
  static QString Plain(QString text) {
    static const QRegularExpression size(u", [\\d.]+ \\w+"_qs);
    static const QRegularExpression made(u" of \\d[^(?]+"_qs);
    static const QRegularExpression date(u"Catalog [-0-9. ]{24}"_qs);
    return text.replace(AppPath(), u"APP"_qs).replace(size, u""_qs).replace(made, u" "_qs).replace(date, {});
  }
  void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override {
    ScriptedDialogs::ShowMessage(owner, Plain(text), style, title);
  }
  bool ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override {
    return ScriptedDialogs::ShowQuestion(owner, Plain(text), style, title);
  }
};

const QString Stays = QStringLiteral(
    "\r\n\r\nWhat is there now stays in the folder APP/Before restore until the next restore, and its "
    "database "
    "also among the automatic copies. The windows of the catalogs will close.");
const QString DatabaseQuestion =
    QStringLiteral(
        "Restore the database APP/Backups/before deletion.db ?\r\n\r\nIt replaces the data of all catalogs. "
        "The "
        "pictures stay as they are: those that were deleted later will be missing.") +
    Stays;

class BackupWindow : public CatalogFixture {
 protected:
  BackupWindow() {
    Fill("Lamps", 2);
    connection_.Execute(u"PRAGMA foreign_keys=ON"_qs);
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs);
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, {});
    connection_.Close();
    UnexpectedModalGuard::allowed = {u"WidgetProgressBox"_qs, u"frmBackups"_qs};
    window_.LoadForm();
    window_.show();
    window_.activateWindow();
    window_.ListCatalog();
  }
  ~BackupWindow() override { UnexpectedModalGuard::allowed.clear(); }

  void Press(const QString& key) const { window_.findChild<QAction*>(key)->trigger(); }
  QListWidget* List() const { return window_.findChild<QListWidget*>(u"LstWCatalogs"_qs); }
  frmBackups* Offered() {
    Press(u"mnuRestore"_qs);
    auto* window = window_.findChild<frmBackups*>();
    EXPECT_TRUE(window != nullptr && window->isModal());
    return window;
  }
  static void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  // Chooses a file in the window, whose question comes behind it.
  void RestoreFile(const QString& file, const std::function<void()>& expect) {
    dialogs_.ExpectFile(file);
    expect();
    Offered()->findChild<QPushButton*>(u"cmdFile"_qs)->click();
    Settle();
    EXPECT_EQ(window_.findChild<frmBackups*>(), nullptr);
    EXPECT_EQ(dialogs_.Left(), 0);
  }
  // Begins to change the first product in a grid's window, and leaves the row in edit.
  frmEditCatalog* Edited() {
    Press(u"cmdEdit"_qs);
    auto* window = window_.findChild<frmEditCatalog*>();
    auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
    grid->GoTo(0, u"Descrizione"_qs);
    QTest::keyClick(grid, Qt::Key_F2);
    auto* editor = grid->viewport()->findChild<QLineEdit*>();
    editor->selectAll();
    QTest::keyClicks(editor, u"typed"_qs);
    return window;
  }

  PlainDialogs dialogs_;
  frmCatalogs window_;
};

}  // namespace

TEST_F(BackupWindow, TheListHasAMenu) {
  const auto open = [this] {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                            List()->viewport()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(List()->viewport(), &event);
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    EXPECT_TRUE(menu != nullptr && menu->objectName() == u"mnuCataloghi");
    return menu;
  };
  QMenu* menu = open();
  QStringList names;
  for (const QAction* entry : menu->actions())
    if (!entry->isSeparator()) names += entry->objectName() + (entry->isEnabled() ? u"+"_qs : u"-"_qs);
  EXPECT_EQ(names.join(u' '),
            u"mnuApri+ mnuRinomina+ mnuDuplica+ mnuElimina+ mnuPubblica+ mnuBackup+ mnuRestore+"_qs);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Down);
  QTest::keyClick(menu, Qt::Key_Return);
  ASSERT_NE(List()->findChild<QLineEdit*>(), nullptr) << "Rename is the second one";
  QTest::keyClick(List()->findChild<QLineEdit*>(), Qt::Key_Escape);
  List()->clearSelection();
  menu = open();
  EXPECT_FALSE(menu->findChild<QAction*>(u"mnuElimina"_qs)->isEnabled());
  menu->close();
  List()->setCurrentRow(0);
  open();
  dialogs_.ExpectQuestion(u"Do you want to delete selected catalog and its images?"_qs, false);
  Press(u"mnuElimina"_qs);
}

TEST_F(BackupWindow, SavesWhatIsBeingTypedAndAsksForMissingPictures) {
  Edited();
  QFile::remove(AppFile(u"Images/7.jpg"_qs));
  const QString file = Outside(u"mine.zip"_qs);
  const QString missing =
      u"No backup was made, and a former one is as it was: pictures are missing, or cannot be read "
      "(1).\n  APP/Images/7.jpg\r\n\r\nSave the rest, without them?"_qs;
  for (const bool answer : {false, true}) {
    dialogs_.ExpectFile(Outside(u"mine"_qs));
    dialogs_.ExpectQuestion(missing, answer);
    if (answer)
      dialogs_.ExpectMessage(
          u"Saved in %1 and verified: 6 files\nMissing from the backup (1):\n  APP/Images/7.jpg"_qs.arg(file),
          BoxStyle::Information);
    Press(u"mnuBackup"_qs);
    EXPECT_EQ(dialogs_.Left(), 0);
    EXPECT_EQ(QFile::exists(file), answer);
  }
  connection_.Open(ConnectionTextFor(Path()));
  EXPECT_EQ(One(u"Descrizione"_qs, u"Prodotti"_qs, u"CodiceProdotto='È 0'"_qs), u"typed"_qs);
  // The name that got its ending by the program alone.
  dialogs_.ExpectFile(Outside(u"mine"_qs));
  dialogs_.ExpectQuestion(u"The file %1 exists already. Replace it?"_qs.arg(file), false);
  Press(u"mnuBackup"_qs);
  const CatalogWork work(109, CatalogWork::Kind::Import);
  for (const QString& command : {u"mnuBackup"_qs, u"mnuRestore"_qs}) {
    dialogs_.ExpectMessage(
        u"Error: Pictures are being imported into a catalog. Wait until the import has ended, or cancel it."_qs,
        BoxStyle::Stop);
    Press(command);
  }
}

TEST_F(BackupWindow, ADeletedCatalogComesBackByTheListOfCopies) {
  WriteFileSafely(AppFile(u"Backups"_qs), "in the way");
  dialogs_.ExpectQuestion(u"Do you want to delete selected catalog and its images?"_qs, true);
  dialogs_.ExpectQuestion(
      u"An automatic copy of the database could not be kept beforehand.\r\nThe folder "
      "APP/Backups cannot be created\r\n\r\nGo on without it?"_qs,
      false);
  Press(u"cmdDelete"_qs);
  EXPECT_EQ(List()->count(), 1);
  QFile::remove(AppFile(u"Backups"_qs));
  dialogs_.ExpectQuestion(u"Do you want to delete selected catalog and its images?"_qs, true);
  Press(u"cmdDelete"_qs);
  EXPECT_EQ(List()->count(), 0);
  for (const bool answer : {false, true}) {
    frmBackups* window = Offered();
    auto* list = window->findChild<QTreeWidget*>(u"lstBackups"_qs);
    EXPECT_EQ(list->topLevelItemCount(), 1);
    dialogs_.ExpectQuestion(DatabaseQuestion, answer);
    if (answer)
      dialogs_.ExpectMessage(
          u"Restored the database APP/Backups/before deletion.db\nWhat was there before stays in APP/Before "
          "restore until the next restore.\r\n\r\nMissing pictures (4):\r\n  APP/Images/109-Logo.jpg\n  "
          "APP/Images/109-È 0.jpg\n  APP/Images/109-È 1.jpg\n  APP/Images/7.jpg"_qs,
          BoxStyle::Information);
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_Return);  // a window that has closed restores nothing once more
    Settle();
    EXPECT_EQ(dialogs_.Left(), 0);
    EXPECT_EQ(List()->count(), answer ? 1 : 0);
  }
}

// Whatever keeps it from that leaves everything as it was, and usable; nothing else begins in the middle.
TEST_F(BackupWindow, ARestoreThatDoesNotComeAboutChangesNothing) {
  const QString file = Outside(u"backup.zip"_qs);
  {
    Connection connection;
    connection.Open(ConnectionTextFor(Path()));
    WriteBackup(connection, file);
  }
  const QString question =
      u"Restore %1 (7 files)?\r\n\r\nIt replaces all catalogs with their pictures and "
      "layouts, also those that were added later."_qs.arg(file) +
      Stays;
  WriteFileSafely(Outside(u"broken.zip"_qs), "PK\3\4 and no more");
  const QString broken = Outside(u"broken.zip"_qs);
  RestoreFile(broken, [&] {
    dialogs_.ExpectMessage(
        u"Error: The archive %1 is damaged, or is no zip archive (Unrecognized archive format)"_qs.arg(
            broken),
        BoxStyle::Stop);
  });

  // A row that cannot be written keeps its window open.
  frmEditCatalog* grid = Edited();
  connection_.Open(ConnectionTextFor(Path()));
  Refuse(u"UPDATE ON Prodotti"_qs);
  RestoreFile(file, [&] {
    dialogs_.ExpectQuestion(question, true);
    dialogs_.ExpectMessage(u"refused. Press Esc to give up the change."_qs, BoxStyle::Stop);
  });
  EXPECT_TRUE(grid->isVisible());
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);

  // Another program has them open.
  RestoreFile(file, [&] {
    dialogs_.ExpectQuestion(question, true);
    dialogs_.ExpectMessage(
        u"Error: The catalogs in APP are open in another program. Close it and try again."_qs,
        BoxStyle::Stop);
  });
  EXPECT_TRUE(window_.cnnCatalog.IsOpen());
  connection_.Close();

  QTimer watch;
  int stopped = 0;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    ++stopped;
    for (const QString& command : {u"cmdNew"_qs, u"cmdDelete"_qs, u"mnuRestore"_qs, u"mnuBackup"_qs})
      Press(command);
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window_, &activation);
    EXPECT_FALSE(window_.close());
    box->findChild<QPushButton*>()->click();
  });
  watch.start(0);
  RestoreFile(file, [&] { dialogs_.ExpectQuestion(question, true); });
  EXPECT_GT(stopped, 0);
  EXPECT_EQ(List()->count(), 1);
  EXPECT_TRUE(AutomaticBackups().empty());
  Press(u"cmdEdit"_qs);
  EXPECT_EQ(window_.findChildren<frmEditCatalog*>().size(), 1);

  // One that does leaves what was there as the first of what can be restored next.
  watch.stop();
  RestoreFile(file, [&] {
    dialogs_.ExpectQuestion(question, true);
    dialogs_.ExpectMessage(
        u"Restored from %1: 7 files\nWhat was there before stays in APP/Before restore until "
        "the next restore."_qs.arg(file),
        BoxStyle::Information);
  });
  for (const auto* window : window_.findChildren<frmEditCatalog*>()) EXPECT_FALSE(window->isVisible());
  frmBackups* offered = Offered();
  EXPECT_EQ(offered->findChild<QTreeWidget*>()->topLevelItem(0)->text(1), u"last restore"_qs);
  QTest::keyClick(offered, Qt::Key_Escape);
}
