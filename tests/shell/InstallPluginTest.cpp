// Installing a plug-in from its package through the menu, and the chooser that the package comes from.
#include <QAction>
#include <QListWidget>
#include <QTreeWidget>

#include "base/LastFolder.h"
#include "base/Settings.h"
#include "publish/PluginPackage.h"
#include "shell/frmCatalogs.h"
#include "support/CatalogFixture.h"
#include "support/FileDialog.h"
#include "support/ScriptedDialogs.h"

using namespace vorlina;

namespace {

const QString Again = u"It replaces version 1.2, which is installed.\r\n\r\n"_qs;

// Remembers what the choosers of files were told.
class ChooserDialogs : public ScriptedDialogs {
 public:
  QStringList ChooseFiles(QWidget* owner, Chooser kind, FileChoice& choice) override {
    told = choice;

    choice.filterIndex = 2;
    return ScriptedDialogs::ChooseFiles(owner, kind, choice);
  }
  FileChoice told;
};

class InstallPluginTest : public CatalogFixture {
 protected:
  InstallPluginTest() {
    connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) VALUES (109,'Lamps')"_qs);
    SetPlugins({});
    package_ = WritePackage(QStringLiteral(TEST_PLUGINS "/Test.Good.so"), u"1.2"_qs, {}, outside_.path());
    Start();
  }
  void Start() {
    window_ = std::make_unique<frmCatalogs>();
    window_->LoadForm();
    window_->ListCatalog();
  }
  void Press(const QString& key) const { window_->findChild<QAction*>(key)->trigger(); }
  void Install(bool agreed, const QString& further = {}) {
    dialogs_.ExpectFile(package_);
    dialogs_.ExpectQuestion(
        u"Do you want to install the plug-in Test.Good, version 1.2?\r\n\r\n"_qs + further +
            u"A plug-in is a program and can do whatever you can: read, change and delete your "
            "catalogs and every other file. Answer Yes only if you know who made it, and trust "
            "them."_qs,
        agreed);
    if (agreed)
      dialogs_.ExpectMessage(
          u"Installation completed. New plugin will be available at the next software reboot."_qs,
          BoxStyle::Information);
    Press(u"mnuInstallPlugin"_qs);
  }
  static QString Plugins() { return GetSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, u"-"_qs); }
  static void SetPlugins(const QString& list) {
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, list);
  }
  QTreeWidget* List() const { return window_->findChild<QTreeWidget*>(u"lstPlugIns"_qs); }

  ChooserDialogs dialogs_;
  std::unique_ptr<frmCatalogs> window_;
  QString package_;
};

}  // namespace

TEST_F(InstallPluginTest, APluginIsListedAndPublishesAfterARestart) {
  Install(false);
  EXPECT_FALSE(QFileInfo::exists(AppFile(u"PubWiz"_qs))) << "nothing is written before the answer";
  Install(true);
  EXPECT_EQ(dialogs_.told.filter, u"Vorlina Plugin|*.vpk"_qs);
  EXPECT_EQ(QDir(dialogs_.told.initial), QDir(outside_.path())) << "where the last one was chosen";
  EXPECT_EQ(List()->topLevelItemCount(), 0);
  Start();
  ASSERT_EQ(List()->topLevelItemCount(), 1);
  EXPECT_EQ(List()->topLevelItem(0)->text(0), u"Test.Good"_qs);
  window_->findChild<QListWidget*>(u"LstWCatalogs"_qs)->setCurrentRow(0);
  Press(u"cmdPublish"_qs);
  Press(u"cmdPublish"_qs);
  EXPECT_EQ(One(u"Extras"_qs, u"Cataloghi"_qs, u"IDCatalogo=109"_qs).toString(),
            u"published by Test.Good"_qs);
  Install(true, Again);
  EXPECT_EQ(Plugins(), u"Test.Good"_qs);
}

TEST_F(InstallPluginTest, TheIdentifierIsEnteredWhereTheListDoesNotHoldIt) {
  Install(true);
  for (const auto& [before, after] : {std::pair{u"A.B"_qs, u"A.B;Test.Good"_qs},
                                      {u"A.B;"_qs, u"A.B;;Test.Good"_qs},
                                      {u"test.good;A.B"_qs, u"test.good;A.B"_qs},
                                      {u"My.Test.Goods"_qs, u"My.Test.Goods"_qs}}) {
    SetPlugins(before);
    Install(true, Again);
    EXPECT_EQ(Plugins(), after);
  }
  const QString title = ApplicationTitle();
  QCoreApplication::setApplicationName(u"Unlisted"_qs);  // settings in which nobody has written
  Install(true, Again);
  EXPECT_EQ(Plugins(), u"VLFlash.FlashCD;VLFlash.FlashHTML;VLWord.WordCat;Test.Good"_qs);
  QCoreApplication::setApplicationName(title);
}

TEST_F(InstallPluginTest, WhatCannotBeInstalledIsToldWithItsReason) {
  dialogs_.ExpectFile({});
  Press(u"mnuInstallPlugin"_qs);
  const QByteArray whole = ContentOf(package_);
  WriteFileSafely(package_, whole.first(1000));
  dialogs_.ExpectFile(package_);
  dialogs_.ExpectMessage(
      u"Impossible to install selected plugin\r\n"_qs + FailureOf([this] { VerifyPackage(package_); }),
      BoxStyle::Stop);
  Press(u"mnuInstallPlugin"_qs);
  EXPECT_FALSE(QFileInfo::exists(AppFile(u"PubWiz"_qs)));
  WriteFileSafely(package_, whole);
  MakeFolder(AppFile(u"PubWiz"_qs));
  WriteFileSafely(AppFile(u"PubWiz/test.Good.so"_qs), "");
  dialogs_.ExpectFile(package_);
  dialogs_.ExpectMessage(
      u"Impossible to install selected plugin\r\nThe plug-in test.Good is installed already. Its name and "
      "Test.Good differ in upper and lower case alone. Obtain a package with the same name."_qs,
      BoxStyle::Stop);
  Press(u"mnuInstallPlugin"_qs);
  EXPECT_EQ(Plugins(), QString());
}

TEST_F(InstallPluginTest, TheChooserTakesAndGivesWhatItsCallersRelyOn) {
  cFileDialog dialog;
  dialog.Filter = u"A:*.a;*.b|All|*.*"_qs;
  dialog.DefaultExt = u"a"_qs;
  dialog.InitDir = u"/tmp"_qs;
  dialog.SetFileName(QString(2000, u'n'));
  EXPECT_EQ(dialog.FileName().size(), 1024);
  dialog.SetFileName(u"first.a"_qs);
  dialogs_.ExpectFile({});
  dialog.ShowSave();
  EXPECT_EQ(dialogs_.told.filter + dialogs_.told.initial + dialogs_.told.defaultExt,
            u"A|*.a;*.b|All|*.*/tmp/first.aa"_qs);
  EXPECT_EQ(dialog.FileName() + dialog.FileTitle, u"first.a"_qs) << "cancelled, it changes nothing";
  dialogs_.ExpectFile(u"/home/anna/a.b"_qs);
  dialog.ShowOpen();
  EXPECT_EQ(dialog.FileName() + u'|' + dialog.FileTitle, u"/home/anna/a.b|a.b"_qs);
  EXPECT_EQ(dialog.FilterIndex, 2);

  const auto parsed = [&]() -> QString {
    QString folder;
    QStringList names;
    const int count = dialog.ParseMultiFileName(folder, names);
    EXPECT_EQ(count, names.size());
    return folder + u'|' + names.join(u'|');
  };
  dialog.flags = cFileDialog::MultipleSelection;
  for (const auto& [chosen, list] : {std::pair{QStringList{u"/x/1.a"_qs}, u"/x/|1.a"_qs},
                                     {{u"/x/1.a"_qs, u"/x/2.a"_qs}, u"/x|1.a|2.a"_qs}}) {
    dialogs_.ExpectFiles(chosen);
    dialog.ShowOpen();
    EXPECT_EQ(parsed(), list);
  }
  dialog.SetFileName(u"plain"_qs);
  EXPECT_EQ(parsed(), u"|plain"_qs);

  dialog.CancelError = true;
  dialog.flags = 0;
  QString sources;
  for (const auto show : {&cFileDialog::ShowOpen, &cFileDialog::ShowSave}) {
    dialogs_.ExpectFile({});
    try {
      (dialog.*show)();
    } catch (const DialogCancelled& cancelled) {
      sources += cancelled.Source() + u' ' + cancelled.Description();
    }
  }
  EXPECT_EQ(sources,
            u"Vorlina.cFileDialog User selected cancel.Vorlina.cFilenDialog User selected cancel."_qs);
}

TEST_F(InstallPluginTest, AChooserBeginsWhereItsPurposeLastEnded) {
  dialogs_.ExpectFile(u"/no/such/folder/a.jpg"_qs);
  OpenFileFor(purpose::Pictures, nullptr, {}, {});
  EXPECT_EQ(LastFolder(purpose::Pictures), QString()) << "it has gone";
  dialogs_.ExpectFiles({Outside(u"a.jpg"_qs), Outside(u"b.jpg"_qs)});
  OpenFilesFor(purpose::Pictures, nullptr, {}, {});
  dialogs_.ExpectFolder(AppPath());
  FolderFor(purpose::Import, nullptr, {});
  EXPECT_EQ(LastFolder(purpose::Pictures) + LastFolder(purpose::Import), outside_.path() + AppPath());
}
