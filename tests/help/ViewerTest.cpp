#include <gtest/gtest.h>

#include <QAction>
#include <QFile>
#include <QLineEdit>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>

#include "base/SafeFile.h"
#include "make_help/HelpSource.h"
#include "support/HTMLHelp.h"
#include "support/HelpFiles.h"
#include "support/Language.h"
#include "support/Print.h"
#include "support/ScriptedDialogs.h"
#include "support/WidgetHelpCollection.h"
#include "support/WidgetHelpPage.h"
#include "support/frmHelp.h"

using namespace vorlina;

namespace {

class Viewer : public testing::Test {
 protected:
  Viewer() {
    SetLanguage(u"English"_qs);
    help_.CHMFile = HelpFile(Language);
  }
  ~Viewer() override { HTMLHelp::HHClose(); }

  template <class T>
  static T* Find(const QString& name) {
    return frmHelp::Shown()->findChild<T*>(name);
  }
  static QString Page() {
    return Find<WidgetHelpPage>(u"txtPage"_qs)->source().toString().section(u"/doc/"_qs, 1);
  }
  static QString Current(const QString& list) {
    const QModelIndex entry = Find<QTreeView>(list)->currentIndex();
    return entry.data().toString();
  }

  ScriptedDialogs dialogs_;
  HTMLHelp help_;
};

}  // namespace

// In the files as they were made, by their numbers and by the windows.
TEST_F(Viewer, EveryTopicAndWindowHasItsPageInBothLanguages) {
  const HelpSource source(QStringLiteral(VORLINA_SOURCE_DIR "/data/help"));
  for (const auto& [language, code] : {std::pair{u"Italian"_qs, u"it/"_qs}, {u"English"_qs, u"en/"_qs}}) {
    const WidgetHelpCollection collection(HelpFile(language));
    for (const HelpEntry& entry : source.Entries()) {
      QStringList names = entry.windows;
      if (entry.topic != 0) names += QString::number(entry.topic);
      for (const QString& name : names) {
        const std::optional<QUrl> page = collection.PageOf(name);
        ASSERT_TRUE(page) << name;
        EXPECT_TRUE(page->path().endsWith(code + entry.name + u".html"_qs)) << page->toString();
      }
      for (const QString& picture : source.Page(code.left(2), entry.name).pictures)
        EXPECT_FALSE(collection.Content(collection.Home().resolved(QUrl(picture))).isEmpty()) << picture;
    }
  }
}

TEST_F(Viewer, GoesWhereItIsSent) {
  help_.HHTopicID = 1002;
  help_.HHDisplayTopicID();
  const frmHelp* viewer = frmHelp::Shown();
  ASSERT_NE(viewer, nullptr);
  const QString grid = Page();
  EXPECT_TRUE(grid.startsWith(u"en/"));
  const QString title = Find<WidgetHelpPage>(u"txtPage"_qs)->documentTitle();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Current(u"lstContents"_qs) == title; }))
      << Current(u"lstContents"_qs);
  help_.HHTopicID = 9999;
  help_.HHDisplayTopicID();
  EXPECT_EQ(Page(), u"en/"_qs +
                        HelpSource(QStringLiteral(VORLINA_SOURCE_DIR "/data/help")).Entries().front().name +
                        u".html"_qs)
      << "an unknown topic is the first page";
  QTest::keyClick(frmHelp::Shown(), Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(Page(), grid);
  Find<QAction>(u"cmdLanguage"_qs)->trigger();
  EXPECT_EQ(Page(), u"it"_qs + grid.mid(2)) << "the same page";
  EXPECT_EQ(Find<QAction>(u"cmdLanguage"_qs)->text(), u"English"_qs);
  help_.HHTopicURL = grid.mid(3) + u"#there"_qs;
  help_.HHDisplayTopicURL();
  EXPECT_EQ(Page(), grid + u"#there"_qs);
  help_.HHDisplayIndex();
  EXPECT_EQ(Find<QTabWidget>(u"tabHelp"_qs)->currentIndex(), 1);
  EXPECT_EQ(frmHelp::Shown(), viewer) << "there is one";
  QTest::keyClick(frmHelp::Shown(), Qt::Key_Escape);
  EXPECT_EQ(frmHelp::Shown(), nullptr);
}

TEST_F(Viewer, FindsPagesByTheirWordsAndTextsOnThem) {
  help_.HHTopicID = 1002;
  help_.HHDisplayTopicID();
  EXPECT_TRUE(QTest::qWaitFor([] { return frmHelp::Shown()->isActiveWindow(); }));
  QTest::keyClick(frmHelp::Shown(), Qt::Key_S, Qt::AltModifier);
  auto* words = Find<QLineEdit>(u"txtSearch"_qs);
  EXPECT_TRUE(QTest::qWaitFor([&] { return words->hasFocus(); }));
  words->insert(u"PRODUCT cárd"_qs);
  EXPECT_GT(Find<QTreeWidget>(u"lstSearch"_qs)->topLevelItemCount(), 1);
  QTest::keyClick(words, Qt::Key_Down);
  QTest::keyClick(Find<QTreeWidget>(u"lstSearch"_qs), Qt::Key_Return);
  EXPECT_EQ(Find<WidgetHelpPage>(u"txtPage"_qs)->documentTitle(), Current(u"lstSearch"_qs));
  EXPECT_GT(Find<WidgetHelpPage>(u"txtPage"_qs)->MarkedCount(), 1);
  QTest::keyClick(frmHelp::Shown(), Qt::Key_F, Qt::ControlModifier);
  auto* find = Find<QLineEdit>(u"txtFind"_qs);
  EXPECT_TRUE(QTest::qWaitFor([&] { return find->hasFocus(); }));
  QTest::keyClicks(find, u"nowhere in it"_qs);
  EXPECT_EQ(Find<WidgetHelpPage>(u"txtPage"_qs)->MarkedCount(), 0);
  QTest::keyClick(find, Qt::Key_Escape);
  EXPECT_TRUE(find->isHidden() || !find->isVisible());
  EXPECT_NE(frmHelp::Shown(), nullptr) << "the key closed the line alone";
}

TEST_F(Viewer, TellsWhatItCannotShow) {
  const QTemporaryDir folder;
  const QString missing = folder.filePath(u"missing.qch"_qs), other = folder.filePath(u"help.chm"_qs);
  WriteFileSafely(other, "x");
  for (const auto& [file, told] :
       {std::pair{missing,
                  u"The file %1 does not exist.\nPlease make sure the correct path and file name have been "
                  "specified."_qs.arg(missing)},
        {other, other + u" is not a valid HTML Help file."_qs}}) {
    dialogs_.ExpectMessage(told);
    help_.CHMFile = file;
    help_.HHDisplayIndex();
  }
  help_.CHMFile = u"VorlinaEN.qch"_qs;  // beside the program
  help_.HHShowOnTop = true;
  dialogs_.ExpectMessage(
      u"The HHDisplayContents method was called without a form being specified, while HHShowOnTop was set to True."_qs);
  help_.HHDisplayTopicID();
  EXPECT_EQ(frmHelp::Shown(), nullptr);
  help_.HHShowOnTop = false;
  help_.HHKeyword = u"no such word"_qs;
  help_.HHMsgText = u"Nothing on it"_qs;
  dialogs_.ExpectMessage(help_.HHMsgText);
  help_.HHDisplayKeyword();
}

TEST_F(Viewer, AFileThatIsNoHelpIsTold) {
  const QTemporaryDir folder;
  help_.CHMFile = folder.filePath(u"broken.qch"_qs);
  WriteFileSafely(help_.CHMFile, "no help");
  testing::internal::CaptureStderr();  // Qt logs it as well
  EXPECT_THROW(WidgetHelpCollection{help_.CHMFile}, Error);
  testing::internal::GetCapturedStderr();
}
