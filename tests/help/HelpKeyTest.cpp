#include <gtest/gtest.h>

#include <QAction>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMessageBox>
#include <QTest>
#include <QTreeWidget>
#include <QWindow>

#include "base/Settings.h"
#include "grid/DataGrid.h"
#include "products/frmEditCatalog.h"
#include "products/frmProduct.h"
#include "publish/PluginHost.h"
#include "shell/WidgetHelpKey.h"
#include "shell/frmCatalogs.h"
#include "support/HTMLHelp.h"
#include "support/HelpFiles.h"
#include "support/ScriptedDialogs.h"
#include "support/StoreFixture.h"
#include "support/WidgetHelpCollection.h"
#include "support/WidgetHelpPage.h"
#include "support/frmHelp.h"

using namespace vorlina;

namespace {

class HelpKey : public StoreFixture {
 protected:
  HelpKey() : help_(HelpFile(u"English"_qs)) {
    catalog_ = AddCatalog(u"Lamps"_qs);
    AddProduct(catalog_, u"a"_qs, 1);
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, {});
    window_.LoadForm();
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitFor([&] { return List()->count() > 0; }));
    List()->setCurrentRow(0);
  }
  ~HelpKey() override { HTMLHelp::HHClose(); }

  QListWidget* List() const { return window_.findChild<QListWidget*>(u"LstWCatalogs"_qs); }
  frmEditCatalog* OpenGrid() {
    window_.findChild<QAction*>(u"cmdEdit"_qs)->trigger();
    return window_.findChild<frmEditCatalog*>();
  }
  // What F1 in a window shows: the page is that of the topic.
  void ExpectHelp(QWidget& control, const QString& topic) {
    const std::optional<QUrl> page = help_.PageOf(topic);
    ASSERT_TRUE(page) << topic;
    const auto shown = [&] {
      const frmHelp* viewer = frmHelp::Shown();
      return viewer == nullptr ? QUrl() : viewer->findChild<WidgetHelpPage*>(u"txtPage"_qs)->source();
    };
    QTest::keyClick(&control, Qt::Key_F1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown() == *page; })) << topic << " " << shown().toString();
  }

  ScriptedDialogs dialogs_;
  int catalog_ = 0;
  const WidgetHelpCollection help_;
  const WidgetHelpKey key_;
  frmCatalogs window_;
};

}  // namespace

TEST_F(HelpKey, OpensThePageOfTheWindow) {
  ExpectHelp(*List(), u"1000"_qs);
  ExpectHelp(*window_.findChild<QTreeWidget*>(u"lstPlugIns"_qs), u"1018"_qs);
  frmEditCatalog* grid = OpenGrid();
  auto* rows = grid->findChild<DataGrid*>(u"grdProducts"_qs);
  ExpectHelp(*rows, u"1002"_qs);
  grid->findChild<QAction*>(u"cmdProperties"_qs)->trigger();
  ExpectHelp(*grid->findChild<QLineEdit*>(u"txtNomeCatalogo"_qs), u"1003"_qs);
  grid->findChild<QAction*>(u"cmdNew"_qs)->trigger();
  ExpectHelp(*grid->findChild<QLineEdit*>(u"txtCode"_qs), u"1004"_qs);
  grid->findChild<frmProduct*>()->Salvato = true;
}

// What is typed in a cell is stored, as by any other window that comes up.
TEST_F(HelpKey, InACellThatIsTypedIntoLosesNothing) {
  frmEditCatalog* grid = OpenGrid();
  auto* rows = grid->findChild<DataGrid*>(u"grdProducts"_qs);
  rows->GoTo(0, u"Descrizione"_qs);
  QTest::keyClick(rows, Qt::Key_F2);
  auto* editor = rows->viewport()->findChild<QLineEdit*>(u"editor"_qs);
  ASSERT_NE(editor, nullptr);
  QTest::keyClicks(editor, u"typed"_qs);
  ExpectHelp(*editor, u"1002"_qs);
  grid->close();
  EXPECT_EQ(One(u"Descrizione"_qs, u"Prodotti"_qs, u"CodiceProdotto='a'"_qs), u"typed"_qs);
}

TEST_F(HelpKey, InAMenuClosesIt) {
  auto* menu = window_.findChild<QMenu*>(u"mnuHelp"_qs);
  menu->popup(window_.mapToGlobal(QPoint(10, 10)));
  menu->setActiveAction(menu->findChild<QAction*>(u"mnuBackup"_qs));
  ExpectHelp(*menu, u"1020"_qs);
  EXPECT_FALSE(menu->isVisible());
}

// A box has its owner's page, one of a plug-in that of the plug-ins, and the help beside it takes input.
TEST_F(HelpKey, BesideABoxIsOfUse) {
  frmEditCatalog* grid = OpenGrid();
  UnexpectedModalGuard::allowed = {u"box"_qs};
  const auto show = [&](const QString& topic) {
    QMessageBox box(QMessageBox::Question, u"?"_qs, u"?"_qs, QMessageBox::Ok, grid);
    box.setObjectName(u"box"_qs);
    box.setWindowModality(Qt::ApplicationModal);
    box.show();
    ExpectHelp(box, topic);
    const auto takesKeys = [] {
      auto* find = frmHelp::Shown()->findChild<QAction*>(u"cmdFind"_qs);
      QTest::keyClick(frmHelp::Shown()->windowHandle(), Qt::Key_F, Qt::ControlModifier);
      return find->isEnabled() && frmHelp::Shown()->findChild<QLineEdit*>(u"txtFind"_qs)->isVisible();
    };
    EXPECT_TRUE(QTest::qWaitFor(takesKeys)) << topic;
    QTest::keyClick(frmHelp::Shown()->findChild<QLineEdit*>(u"txtFind"_qs), Qt::Key_Escape);
  };
  show(u"1002"_qs);
  CallPlugin([&] { show(u"1018"_qs); });
  UnexpectedModalGuard::allowed.clear();
}
