// The windows of publishing, worked by keys and clicks with a publisher that does what the test says.
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <QTreeWidget>
#include <QWheelEvent>

#include "base/WidgetDialogs.h"
#include "publish/CatalogLanguage.h"
#include "publish/ProfileStore.h"
#include "publish/WidgetPluginUi.h"
#include "publish/frmHighlights.h"
#include "publish/frmPublish.h"
#include "publish/frmPublished.h"
#include "support/CatalogFixture.h"
#include "support/ScriptedDialogs.h"

using namespace vorlina;

namespace {

// Takes down what it is asked to make.
class FakePublisher : public IVorlinaPublisher {
 public:
  std::vector<VorlinaJob> jobs;
  std::function<VorlinaReport(IVorlinaProgress&)> work = [](IVorlinaProgress&) {
    VorlinaReport report;
    report.complete = true;
    return report;
  };

  QList<VorlinaOption> Options() override { return {{u"zip"_qs, u"As a &zip file"_qs, {}, false}}; }
  VorlinaReport Publish(IVorlinaConnection&, const VorlinaJob& job, IVorlinaProgress& progress) override {
    jobs.push_back(job);
    return work(progress);
  }
};

class PublishWindow : public CatalogFixture {
 protected:
  PublishWindow() {
    connection_.Execute(
        u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo,NomeValore1,NomeValore3,NomeFiltro2) VALUES "
        "(1,'Ceramiche','Peso','Prezzo \\045','Forma &\\046')"_qs);
    UnexpectedModalGuard::allowed = QStringList{u"WidgetProgressBox"_qs};
    Open();
  }
  ~PublishWindow() override { UnexpectedModalGuard::allowed.clear(); }

  void Open() {
    window_ = std::make_unique<frmPublish>();
    window_->Plugin = u"Test.Plugin"_qs;
    window_->Connessione = &connection_;
    window_->IDCatalogo = 1;
    window_->Publisher = &publisher_;
    ASSERT_TRUE(window_->LoadForm());
    window_->show();
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
  }
  template <class Control>
  Control& Get(const QString& name) const {
    return *window_->findChild<Control*>(name);
  }
  QLineEdit& Line(const QString& name) const { return Get<QLineEdit>(name); }
  void Click(const QString& name) const { QTest::mouseClick(&Get<QPushButton>(name), Qt::LeftButton); }
  void Key(Qt::Key key) const { QTest::keyClick(window_->windowHandle(), key); }
  QString Profiles() const {
    QStringList names;
    const auto& list = Get<QComboBox>(u"cmbProfile"_qs);
    for (int i = 0; i < list.count(); ++i)
      names += list.itemText(i) + (i == list.currentIndex() ? u"*"_qs : QString());
    return names.join(u'|');
  }
  VorlinaProfile Stored(const QString& name = u"Standard"_qs) { return ReadProfile(connection_, 1, name); }

  ScriptedDialogs dialogs_;
  FakePublisher publisher_;
  std::unique_ptr<frmPublish> window_;
};

}  // namespace

TEST_F(PublishWindow, AsksForTheTargetOnceAndKeepsWhatWasChosen) {
  EXPECT_EQ(Get<QCheckBox>(u"chkFilter_2"_qs).text(), u"Forma &&."_qs);
  EXPECT_FALSE(Get<QCheckBox>(u"chkFilter_1"_qs).isVisible());
  EXPECT_EQ(Get<QComboBox>(u"cmbPrice"_qs).currentText(), u"Automatic: Prezzo -"_qs);
  EXPECT_EQ(window_->focusWidget(), &Line(u"txtTarget"_qs));
  auto& languages = Get<QComboBox>(u"cmbLanguage"_qs);
  Line(u"txtSister_%1"_qs.arg(LanguageCodes().indexOf(u"fr"_qs))).setText(u"example.fr"_qs);
  languages.setCurrentIndex(languages.findData(u"fr"_qs));
  Get<QCheckBox>(u"chkValue_3"_qs).click();
  EXPECT_TRUE(Get<QComboBox>(u"cmbPrice"_qs).currentText().startsWith(u"Automatic: no value"))
      << "it is hidden";
  Get<QCheckBox>(u"chkValue_3"_qs).click();
  Get<QCheckBox>(u"chkValue_1"_qs).click();
  dialogs_.ExpectFolder({});
  Key(Qt::Key_Return);
  EXPECT_TRUE(window_->isVisible() && publisher_.jobs.empty()) << "no target was chosen";
  AddProduct(1, u"A"_qs);
  SetImage(u"A"_qs, AppFile(u"Images/gone.jpg"_qs));
  for (const bool yes : {false, true}) {
    if (!yes) dialogs_.ExpectFolder(Outside(u"site"_qs));
    dialogs_.ExpectQuestion(
        u"In the folder %1 every picture of the published products is missing, such as "
        "%1/gone.jpg.\r\n\r\nPublish all the same, without the products' pictures?"_qs.arg(
            AppFile(u"Images"_qs)),
        yes);
    EXPECT_EQ(Count(u"CExtension"_qs), 0) << "nothing is stored yet";
    Key(Qt::Key_Return);
  }
  ASSERT_EQ(publisher_.jobs.size(), 1);
  const VorlinaJob& job = publisher_.jobs[0];
  EXPECT_TRUE(!job.preview && job.target == Outside(u"site"_qs) && job.profile.language == u"fr");
  EXPECT_EQ(job.profile.values, (std::array{false, false, true})) << "nor does what gets its name later show";
  EXPECT_EQ(window_->result(), frmPublish::Accepted);
  EXPECT_EQ(StoredLanguage(connection_, 1), u"fr"_qs);
  EXPECT_EQ(job.profile.sisters.size(), 0);
  EXPECT_EQ(Stored().sisters.value(0).address, u"https://example.fr"_qs) << "the language may be a mistake";
  Open();
  EXPECT_EQ(Line(u"txtTarget"_qs).text(), QDir::toNativeSeparators(Outside(u"site"_qs)));
  EXPECT_FALSE(Get<QCheckBox>(u"chkValue_1"_qs).isChecked());
  Key(Qt::Key_Escape);  // nothing was changed: nothing is asked
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(PublishWindow, GoesToWhatIsNoGoodAndStaysWhereItFails) {
  const QString language = Get<QLabel>(u"lblLanguageHint"_qs).text();
  EXPECT_TRUE(language.contains(u"please check it")) << language;
  WriteFileSafely(Outside(u"file"_qs), "a file");
  Line(u"txtAddress"_qs).setText(u"example.it/a b?c=d"_qs);
  Get<QPlainTextEdit>(u"txtHours"_qs).setPlainText(u"9-12\n15-19"_qs);
  for (const auto& [target, why] :
       {std::pair{u"site"_qs, u"Type the whole path, or choose it with Browse."_qs},
        {Outside(u"file/site"_qs), u"%1 is a file: please choose a folder."_qs.arg(Outside(u"file"_qs))},
        {Outside(u"site"_qs), u"The address \"https://example.it/a b?c=d\" cannot hold \"?\""_qs}}) {
    Line(u"txtTarget"_qs).setText(target);
    Line(u"txtAddress"_qs).setFocus();
    dialogs_.ExpectMessage(why, BoxStyle::Stop);
    Click(u"cmdPublish"_qs);
    EXPECT_EQ(window_->focusWidget(), &Line(why.contains(u'?') ? u"txtAddress"_qs : u"txtTarget"_qs)) << why;
  }
  EXPECT_TRUE(publisher_.jobs.empty());
  EXPECT_EQ(Count(u"CExtension"_qs), 0) << "nothing was used that would be stored";
  EXPECT_EQ(Get<QTabWidget>(u"tbsPublish"_qs).currentIndex(), 1);
  QTest::keyClick(window_->windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(Get<QTabWidget>(u"tbsPublish"_qs).currentIndex(), 0);
  QTest::keyClick(window_->windowHandle(), Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(window_->focusWidget(), &Line(u"txtAddress"_qs));
  Get<QCheckBox>(u"chkLogo"_qs).setFocus();
  Key(Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget()->objectName(), u"cmdLogo"_qs);
  Key(Qt::Key_Tab);
  EXPECT_EQ(window_->focusWidget()->objectName(), u"cmdWide"_qs) << "nothing is chosen that could be cleared";
  Line(u"txtAddress"_qs).setText(u" www.example.it/c/ "_qs);
  publisher_.work = [](IVorlinaProgress&) -> VorlinaReport { throw std::runtime_error("no room"); };
  dialogs_.ExpectMessage(u"Error: no room"_qs, BoxStyle::Stop);
  Click(u"cmdPublish"_qs);
  EXPECT_EQ(window_->focusWidget(), &Line(u"txtTarget"_qs));
  EXPECT_EQ(Stored().address, u"https://www.example.it/c/"_qs);
  EXPECT_EQ(Get<QPlainTextEdit>(u"txtHours"_qs).toPlainText(), u"9-12\n15-19"_qs);
  Key(Qt::Key_Escape);
  Open();
  EXPECT_EQ(Get<QLabel>(u"lblLanguageHint"_qs).text(), language) << "it is proposed until it is published";
}

// What is typed meanwhile goes nowhere, an Enter too many does not stop it, and Escape does.
TEST_F(PublishWindow, IsHeldWhileItPublishesAndStaysWhenThatIsStopped) {
  Line(u"txtTarget"_qs).setText(Outside(u"site"_qs));
  bool wentOn = false;
  publisher_.work = [&](IVorlinaProgress& progress) {
    EXPECT_TRUE(progress.Report(0, 10, u"pages"_qs));
    QWidget* box = QApplication::activeModalWidget();
    EXPECT_EQ(box->findChild<QLabel*>(u"lblProgress"_qs)->text(), u"pages"_qs);
    QTest::keyClick(&Line(u"txtAddress"_qs), Qt::Key_X);
    EXPECT_FALSE(window_->close());
    EXPECT_TRUE(QTest::qWaitForWindowActive(box));
    QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    wentOn = progress.Report(1, 10, u"pages"_qs);
    QTest::keyClick(box->windowHandle(), Qt::Key_Escape);
    EXPECT_FALSE(progress.Report(2, 10, u"pages"_qs));
    return VorlinaReport();
  };
  dialogs_.ExpectMessage(
      u"Publishing was stopped. %1 is as it was."_qs.arg(QDir::toNativeSeparators(Outside(u"site"_qs))),
      BoxStyle::Information);
  Click(u"cmdPublish"_qs);
  EXPECT_TRUE(wentOn && window_->isVisible());
  EXPECT_EQ(Line(u"txtAddress"_qs).text(), QString());
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"CExtension"_qs, u"Valore LIKE '%site%'"_qs), 0) << "no target is kept";
}

TEST_F(PublishWindow, ChangesProfilesAndAsksBeforeOneGoes) {
  EXPECT_FALSE(Get<QPushButton>(u"cmdDeleteProfile"_qs).isEnabled());
  const QString name = u"Name of the profile, such as \"Dealers, with prices\":"_qs;
  Line(u"txtMapLink"_qs).setText(u"example.it/map"_qs);
  dialogs_.ExpectInput(name, u" "_qs);
  dialogs_.ExpectMessage(u"A profile needs a name."_qs, BoxStyle::Stop);
  dialogs_.ExpectInput(name, u"Public"_qs);
  Click(u"cmdNewProfile"_qs);
  EXPECT_EQ(Profiles(), u"Public*|Standard"_qs);
  EXPECT_EQ(Line(u"txtMapLink"_qs).text(), QString());
  EXPECT_EQ(Stored().mapLink, u"https://example.it/map"_qs) << "what was typed before stays that profile's";
  Line(u"txtTarget"_qs).setText(Outside(u"public"_qs));
  Get<QCheckBox>(u"chkTechData"_qs).click();
  Get<QComboBox>(u"cmbProfile"_qs).setFocus();
  Key(Qt::Key_Down);
  EXPECT_EQ(Profiles(), u"Public|Standard*"_qs);
  EXPECT_EQ(Line(u"txtTarget"_qs).text(), QString()) << "another profile's target is not offered";
  EXPECT_FALSE(Stored(u"Public"_qs).techData);
  Key(Qt::Key_Up);
  EXPECT_EQ(Line(u"txtTarget"_qs).text(), Outside(u"public"_qs));
  dialogs_.ExpectInput(name, u"standard"_qs);
  dialogs_.ExpectMessage(u"There is a profile named \"Standard\" already"_qs, BoxStyle::Stop);
  dialogs_.ExpectInput(name, QString(101, u'x'));
  dialogs_.ExpectMessage(u"The name of the profile has more than 100 characters"_qs, BoxStyle::Stop);
  dialogs_.ExpectInput(name, {});
  Click(u"cmdRenameProfile"_qs);
  auto& list = Get<QComboBox>(u"cmbProfile"_qs);
  QWheelEvent wheel(QPointF(5, 5), list.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&list, &wheel);
  EXPECT_EQ(Profiles(), u"Public*|Standard"_qs) << "a wheel turns to no other profile";
  Get<QComboBox>(u"cmbFont"_qs).setCurrentIndex(1);
  dialogs_.ExpectInput(name, u"Copy"_qs);
  Click(u"cmdDuplicateProfile"_qs);
  EXPECT_FALSE(Stored(u"Copy"_qs).techData);
  EXPECT_EQ(Stored(u"Copy"_qs).font, u"sans"_qs);
  EXPECT_EQ(Stored(u"Public"_qs).font, QString()) << "the change is the copy's alone";
  dialogs_.ExpectQuestion(u"Delete the profile \"Copy\"? What is already published stays as it is."_qs,
                          false);
  Click(u"cmdDeleteProfile"_qs);
  EXPECT_EQ(Profiles(), u"Copy*|Public|Standard"_qs);
  dialogs_.ExpectQuestion(u"Delete the profile \"Copy\"? What is already published stays as it is."_qs, true);
  Click(u"cmdDeleteProfile"_qs);
  EXPECT_EQ(Profiles(), u"Public*|Standard"_qs);
  Get<QComboBox>(u"cmbFont"_qs).setCurrentIndex(2);
  const QString save = u"The profile \"Public\" was changed. Save it?"_qs;
  dialogs_.ExpectDismissed(save);
  Key(Qt::Key_Escape);
  EXPECT_TRUE(window_->isVisible());
  dialogs_.ExpectQuestion(save, false);
  Key(Qt::Key_Escape);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(Stored(u"Public"_qs).font, QString());
}

TEST_F(PublishWindow, NeitherPublishesNorPutsBackWhatAnotherProgramHasChanged) {
  Line(u"txtTarget"_qs).setText(Outside(u"site"_qs));
  const auto change = [&](const QString& hours) {
    VorlinaProfile profile = Stored();
    profile.values[2] = !profile.values[2];
    profile.hours = hours;
    StoreProfile(connection_, 1, profile);
  };
  const QString what = u"The profile \"Standard\" was changed or deleted by another program.\r\n"_qs;
  change(u"9-12"_qs);
  dialogs_.ExpectMessage(what + u"The window shows what there is: please check it and try again."_qs,
                         BoxStyle::Stop);
  Click(u"cmdPublish"_qs);
  EXPECT_TRUE(publisher_.jobs.empty());
  EXPECT_FALSE(Get<QCheckBox>(u"chkValue_3"_qs).isChecked());
  Get<QCheckBox>(u"chkValue_1"_qs).click();
  change(u"10-13"_qs);
  dialogs_.ExpectMessage(what + u"The changes made here are not saved: cancel, and open the window again."_qs,
                         BoxStyle::Stop);
  Click(u"cmdPublish"_qs);
  EXPECT_TRUE(publisher_.jobs.empty());
  EXPECT_TRUE(Stored().values[0] && Stored().hours == u"10-13");
  EXPECT_FALSE(Get<QCheckBox>(u"chkValue_1"_qs).isChecked()) << "what was chosen stays to be seen";
}

TEST_F(PublishWindow, PreviewsInAFolderOfItsOwn) {
  struct Browser : QObject {
    QStringList opened;
    QString page;
  } browser;
  browser.page = Outside(u"index.html"_qs);
  WriteFileSafely(browser.page, "page");
  publisher_.work = [&](IVorlinaProgress&) {
    VorlinaReport report;
    report.complete = true;
    report.open = {browser.page};
    return report;
  };
  Line(u"txtTarget"_qs).setText(Outside(u"site"_qs));
  Get<QCheckBox>(u"chkOption_zip"_qs).click();
  Line(u"txtAddress"_qs).setText(u"tried.example.com"_qs);
  dialogs_.ExpectMessage(u"No program to open %1 is found"_qs.arg(QDir::toNativeSeparators(browser.page)),
                         BoxStyle::Information);
  QDesktopServices::setUrlHandler(u"file"_qs, window_.get(), "noSuchSlot");
  Click(u"cmdPreview"_qs);
  QDesktopServices::unsetUrlHandler(u"file"_qs);
  ASSERT_EQ(publisher_.jobs.size(), 1);
  const VorlinaJob& job = publisher_.jobs[0];
  EXPECT_TRUE(job.preview && job.options.value(u"zip"_qs).toBool());
  EXPECT_EQ(job.profile.address, u"https://tried.example.com"_qs);
  EXPECT_EQ(ReadProfiles(connection_, 1)[0].address, QString()) << "it was only tried";
  EXPECT_FALSE(job.target.startsWith(Outside({}))) << job.target;
  EXPECT_TRUE(QDir::isAbsolutePath(job.target) && window_->isVisible() &&
              !QFile::exists(Outside(u"site"_qs)));
}

TEST_F(PublishWindow, OffersThePublishedProductsAsHighlights) {
  for (const QString& code : {u"B"_qs, u"A"_qs, u"Hidden"_qs}) AddProduct(1, code);
  connection_.Execute(
      u"UPDATE Prodotti SET Pubblica=(CodiceProdotto<>'Hidden'),Descrizione="
      "CASE CodiceProdotto WHEN 'A' THEN 'Caffettiera\nblu' ELSE 'Tazza' END"_qs);
  SetImage(u"B"_qs, u"b.jpg"_qs);
  frmHighlights window;
  window.LoadForm(ReadPublishedProducts(connection_, 1), {u"B"_qs, u"gone"_qs});
  window.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  auto* list = window.findChild<QTreeView*>(u"lstProducts"_qs);
  const auto press = [&](Qt::Key pressed) { QTest::keyClick(window.windowHandle(), pressed); };
  EXPECT_EQ(list->model()->rowCount(), 2);
  QTest::keyClicks(window.focusWidget(), u"CAFFE"_qs);
  EXPECT_EQ(list->model()->rowCount(), 1);
  EXPECT_EQ(list->model()->index(0, 1).data().toString(), u"Caffettiera"_qs);
  press(Qt::Key_Return);
  press(Qt::Key_Space);
  EXPECT_EQ(window.findChild<QLabel*>(u"lblCount"_qs)->text(),
            u"Chosen: 2. Without a picture: 1, which do not show on the first page."_qs);
  const QString keep = u"The highlights were changed. Keep the new choice?"_qs;
  dialogs_.ExpectDismissed(keep);
  press(Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
  dialogs_.ExpectQuestion(keep, true);
  window.close();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.Chosen().join(u' '), u"B A"_qs) << "in the order of publication";
}

TEST_F(PublishWindow, TellsWhatCameOfItByKindAndProduct) {
  using Kind = VorlinaNote::Kind;
  VorlinaReport report;
  report.pages = 1234;
  report.changed = 2;
  report.notes = {{Kind::Other, {}, u"no logo"_qs},
                  {Kind::NoPicture, u"B"_qs, u"no\npicture"_qs},
                  {Kind::NoPicture, u"C\t1\n"_qs, u"no\npicture"_qs}};
  frmPublished window;
  window.LoadForm(report, u"Catalog: X."_qs, Outside(u"site"_qs), {{u"B"_qs, u"<b>Tazza"_qs}});
  const auto* list = window.findChild<QTreeWidget*>(u"lstNotes"_qs);
  ASSERT_EQ(list->topLevelItemCount(), 2);
  EXPECT_EQ(list->topLevelItem(0)->text(0), u"Without a picture: 2. no picture"_qs);
  EXPECT_EQ(list->topLevelItem(0)->child(0)->text(1), u"<b>Tazza"_qs);
  EXPECT_TRUE(list->isColumnHidden(2)) << "it is told once";
  EXPECT_FALSE(window.findChild<QPushButton*>(u"cmdOpen"_qs)->isEnabled());
  window.findChild<QPushButton*>(u"cmdCopy"_qs)->click();
  EXPECT_TRUE(QApplication::clipboard()->text().endsWith(
      u"Without a picture: 2. no picture\r\nB\t<b>Tazza\r\nC 1\t\r\n\r\nOther: 1\r\n\t\tno logo"_qs))
      << QApplication::clipboard()->text();
}

// What a plug-in asks for, in the program's own windows.
TEST_F(PublishWindow, ShowsThePluginsQuestions) {
  UnexpectedModalGuard::allowed += u"WidgetChoice"_qs;
  WidgetPluginUi ui(*window_, connection_, u"Test.Plugin"_qs);
  dialogs_.ExpectQuestion(u"Replace?\r\n\r\nIts pages go."_qs, false);
  EXPECT_FALSE(ui.Ask(u"Replace?"_qs, u"Its pages go."_qs));
  dialogs_.ExpectFile(Outside(u"skin.zip"_qs));
  EXPECT_EQ(ui.ChooseFile(u"Skin"_qs, u"Skins (*.zip)"_qs, u"Skin"_qs), Outside(u"skin.zip"_qs));
  EXPECT_EQ(FilterFrom(u"Words (new) (*.docx *.odt)"_qs), u"Words (new)|*.docx;*.odt"_qs);
  {
    Transaction left(connection_);
    EXPECT_THROW(ui.Ask(u"Replace?"_qs, {}), Error) << "other programs would wait for the answer";
  }
  WidgetDialogs real;
  const auto choose = [&](const std::function<void(QWidget&)>& answer) {
    QTimer::singleShot(0, window_.get(), [&answer] { answer(*QApplication::activeModalWidget()); });
    return real.Choose(window_.get(), u"Skin"_qs, u"Which?"_qs, {u"a"_qs, u"b"_qs, u"c"_qs}, 1, u"&More"_qs);
  };
  EXPECT_EQ(choose([](QWidget& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Return); }), 1);
  EXPECT_EQ(choose([](QWidget& box) { QTest::keyClick(box.windowHandle(), Qt::Key_Escape); }), -1);
  EXPECT_EQ(choose([](QWidget& box) { box.findChild<QPushButton*>(u"cmdOther"_qs)->click(); }), 3);
  EXPECT_EQ(choose([](QWidget& box) {
              auto* list = box.findChild<QListWidget*>();
              const QPoint last = list->visualItemRect(list->item(2)).center();
              QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, last);
              QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, last);
            }),
            2);
}
