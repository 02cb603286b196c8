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
#include "base/WidgetProgressBox.h"
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

// The first line of each box alone, without what differs from run to run.
class PlainDialogs : public ScriptedDialogs {
  static QString Plain(const QString& text) {
    static const QRegularExpression varies(u", [\\d.]+ \\w+| of \\d[^(?]+\\d|Catalog [-0-9. ]{24}"_qs);
    return text.section(u'\r', 0, 0).section(u'\n', 0, 0).replace(AppPath(), u"APP"_qs).remove(varies);
  }
  void ShowMessage(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override {
    ScriptedDialogs::ShowMessage(owner, Plain(text), style, title);
  }
  bool ShowQuestion(QWidget* owner, const QString& text, BoxStyle style, const QString& title) override {
    return ScriptedDialogs::ShowQuestion(owner, Plain(text), style, title);
  }
};

class BackupWindow : public CatalogFixture {
 protected:
  BackupWindow() {
    Fill("Lamps", 2);
    SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"False"_qs);
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, {});
    WriteBackup(connection_, file_);
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
  QTreeWidget* Offered() const {
    Press(u"mnuRestore"_qs);
    return window_.findChild<frmBackups*>()->findChild<QTreeWidget*>(u"lstBackups"_qs);
  }
  // What comes up behind the window in which something was chosen.
  void Settle() const {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window_.findChild<frmBackups*>(), nullptr);
    EXPECT_EQ(dialogs_.Left(), 0);
  }
  // Restores the backup, which is asked first; what comes of it is told, and then what that leads to.
  void RestoreFile(const QString& told, BoxStyle style, const QString& then = {}) {
    dialogs_.ExpectFile(file_);
    dialogs_.ExpectQuestion(u"Restore %1 (7 files)?"_qs.arg(file_), true);
    for (const QString& text : {told, then})
      if (!text.isEmpty()) dialogs_.ExpectMessage(text, style);
    Offered()->window()->findChild<QPushButton*>(u"cmdFile"_qs)->click();
    Settle();
  }
  // Begins to change the first product in a grid's window.
  frmEditCatalog* Edited() const {
    Press(u"cmdEdit"_qs);
    auto* window = window_.findChild<frmEditCatalog*>();
    auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
    grid->GoTo(0, u"Descrizione"_qs);
    QTest::keyClick(grid, Qt::Key_F2);
    QTest::keyClicks(grid->viewport()->findChild<QLineEdit*>(), u"typed"_qs);
    return window;
  }

  const QString file_ = Outside(u"backup.zip"_qs);
  PlainDialogs dialogs_;
  frmCatalogs window_;
};

}  // namespace

TEST_F(BackupWindow, TheListHasAMenu) {
  const auto open = [this] {
    QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5},
                            List()->viewport()->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(List()->viewport(), &event);
    QStringList names;
    for (const QAction* entry : QApplication::activePopupWidget()->actions())
      if (entry->isEnabled() && !entry->isSeparator()) names += entry->objectName();
    return names.join(u' ');
  };
  EXPECT_EQ(open(), u"mnuApri mnuRinomina mnuDuplica mnuElimina mnuPubblica mnuBackup mnuRestore"_qs);
  for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return})
    QTest::keyClick(QApplication::activePopupWidget(), key);
  ASSERT_NE(List()->findChild<QLineEdit*>(), nullptr) << "Rename is the second one";
  QTest::keyClick(List()->findChild<QLineEdit*>(), Qt::Key_Escape);
  dialogs_.ExpectQuestion(u"Do you want to delete selected catalog and its images?"_qs, false);
  Press(u"mnuElimina"_qs);
  List()->clearSelection();
  EXPECT_EQ(open(), u"mnuBackup mnuRestore"_qs);
  QApplication::activePopupWidget()->close();
  window_.show();
  window_.activateWindow();
  List()->setFocus();
  EXPECT_TRUE(QTest::qWaitFor([&] { return List()->hasFocus(); }));
  QTest::keyClick(List(), Qt::Key_F10, Qt::ShiftModifier);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QApplication::activePopupWidget()->close();
}

TEST_F(BackupWindow, SavesWhatIsBeingTypedAndAsksForMissingPictures) {
  Edited();
  QFile::remove(AppFile(u"Images/7.jpg"_qs));
  const QString file = Outside(u"mine.zip"_qs);
  for (const bool answer : {false, true}) {
    dialogs_.ExpectFile(Outside(u"mine"_qs));
    dialogs_.ExpectQuestion(
        u"No backup was made, and a former one is as it was: pictures are missing, or "
        "cannot be read (1)."_qs,
        answer);
    if (answer)
      dialogs_.ExpectMessage(u"Saved in %1 and verified: 6 files"_qs.arg(file), BoxStyle::Information);
    Press(u"mnuBackup"_qs);
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
        u"Error: Pictures are being imported into a catalog. Wait until the import has "
        "ended, or cancel it."_qs,
        BoxStyle::Stop);
    Press(command);
  }
}

TEST_F(BackupWindow, ADeletedCatalogComesBackByTheListOfCopies) {
  WriteFileSafely(AppFile(u"Backups"_qs), "in the way");
  for (const bool kept : {false, true}) {
    dialogs_.ExpectQuestion(u"Do you want to delete selected catalog and its images?"_qs, true);
    if (!kept)
      dialogs_.ExpectQuestion(u"An automatic copy of the database could not be kept beforehand."_qs, false);
    Press(u"cmdDelete"_qs);
    EXPECT_EQ(List()->count(), kept ? 0 : 1);
    QFile::remove(AppFile(u"Backups"_qs));
  }
  auto* cancel = Offered()->window()->findChild<QPushButton*>(u"cmdCancel"_qs);
  cancel->setFocus();
  QTest::keyClick(cancel, Qt::Key_Return);
  Settle();
  for (const bool answer : {false, true}) {
    QTreeWidget* list = Offered();
    EXPECT_EQ(list->topLevelItemCount(), 1);
    dialogs_.ExpectQuestion(u"Restore the database APP/Backups/before deletion.db?"_qs, answer);
    if (answer)
      dialogs_.ExpectMessage(u"Restored the database APP/Backups/before deletion.db"_qs,
                             BoxStyle::Information);
    QTest::keyClick(list, Qt::Key_Return);
    QTest::keyClick(list, Qt::Key_Return);  // a window that has closed restores nothing once more
    Settle();
    EXPECT_EQ(List()->count(), answer ? 1 : 0);
  }
}

// Whatever keeps it from that leaves everything as it was, and usable; nothing else begins in the middle.
TEST_F(BackupWindow, ARestoreThatDoesNotComeAboutChangesNothing) {
  const frmEditCatalog* grid = Edited();
  connection_.Open(ConnectionTextFor(Path()));
  Refuse(u"UPDATE ON Prodotti"_qs);
  RestoreFile(u"refused. Press Esc to give up the change."_qs, BoxStyle::Stop);
  EXPECT_TRUE(grid->isVisible());
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  const QString open = u"Error: The catalogs in APP are open in another program. Close it and try again."_qs;
  RestoreFile(open, BoxStyle::Stop);
  EXPECT_TRUE(window_.cnnCatalog.IsOpen());
  QFile::rename(Path(), Path() + u'x');
  RestoreFile(open, BoxStyle::Stop,
              u"Error: The database APP/Catalog.db does not exist. Restore a backup or install the program "
              "again."_qs);
  QFile::rename(Path() + u'x', Path());
  connection_.Close();

  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, &watch, [&] {
    auto* box = qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
    if (box == nullptr) return;
    for (const QString& command : {u"cmdNew"_qs, u"cmdDelete"_qs, u"mnuRestore"_qs, u"mnuBackup"_qs})
      Press(command);
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&window_, &activation);
    EXPECT_FALSE(window_.close());
    box->findChild<QPushButton*>()->click();
  });
  watch.start(0);
  RestoreFile({}, BoxStyle::Plain);
  EXPECT_TRUE(AutomaticBackups().empty()) << "it was stopped before";
  Edited();

  // One that does leaves what was there as the first of what can be restored next.
  watch.stop();
  SaveSetting(ApplicationTitle(), u"Riservati"_qs, u"FirstRun"_qs, u"True"_qs);
  window_.OnFirstRun = [] { ADD_FAILURE() << "the start is over"; };
  RestoreFile(u"Restored from %1: 7 files"_qs.arg(file_), BoxStyle::Information);
  for (const auto* window : window_.findChildren<frmEditCatalog*>()) EXPECT_FALSE(window->isVisible());
  QTreeWidget* offered = Offered();
  EXPECT_EQ(offered->topLevelItem(0)->text(1), u"last restore"_qs);
  QTest::keyClick(offered, Qt::Key_Down);
  dialogs_.ExpectQuestion(u"Restore the database APP/Backups/before restore.db?"_qs, true);
  dialogs_.ExpectMessage(u"Restored the database APP/Backups/before restore.db"_qs, BoxStyle::Information);
  QTest::keyClick(offered, Qt::Key_Return);
  Settle();
  offered = Offered();
  EXPECT_EQ(offered->topLevelItem(0)->text(1), u"restore"_qs) << "the newest one is the first";
  EXPECT_EQ(offered->topLevelItem(1)->text(2), u"database, pictures and layouts"_qs);
  EXPECT_EQ(offered->topLevelItem(1)->text(1), u"restore"_qs) << "it is not the last one";
  QTest::keyClick(offered, Qt::Key_Escape);
}

// Bytes of a backup are soon more than a number of the box can be.
TEST_F(BackupWindow, TheProgressOfManyBytesShows) {
  WidgetProgressBox box(&window_, u"x"_qs);
  EXPECT_TRUE(box.Reporter()(3'000'000'000, 6'000'000'000, {}));
  EXPECT_NEAR(2.0 * box.value() / box.maximum(), 1, 0.001);
}
