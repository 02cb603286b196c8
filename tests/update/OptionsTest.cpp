// The options, and where the password goes.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>

#include "base/Error.h"
#include "base/Settings.h"
#include "support/Language.h"
#include "support/ScriptedDialogs.h"
#include "update/PasswordStore.h"
#include "update/frmOptions.h"

using namespace vorlina;

namespace {

// Answers when the test has it answer.
class TestKeyring : public PasswordKeeper {
 public:
  void Read(std::function<void(std::optional<QString>)> done) override { read = std::move(done); }
  void Write(const QString& password, std::function<void(bool)> done) override {
    written += password;
    write = std::move(done);
  }
  std::function<void(std::optional<QString>)> read;
  std::function<void(bool)> write;
  QStringList written;
};

QString Stored(const QString& key) {
  return GetSetting(ApplicationTitle(), u"Aggiornamento"_qs, key, u"(none)"_qs);
}

class Options : public testing::Test {
 protected:
  Options() {
    SetSettingsFolder(folder_.path());
    SetLanguage(u"English"_qs);
    InstallPasswordStore(&store_);
  }
  ~Options() override { InstallPasswordStore(nullptr); }

  void Store(const QString& key, const QString& value) {
    SaveSetting(ApplicationTitle(), u"Aggiornamento"_qs, key, value);
  }
  std::unique_ptr<frmOptions> Open() {
    auto window = std::make_unique<frmOptions>();
    window->LoadForm();
    window->show();
    return window;
  }
  static void Click(const frmOptions& window, const QString& button) {
    window.findChild<QPushButton*>(button)->click();
  }
  static QLineEdit& Password(const frmOptions& window) {
    return *window.findChild<QLineEdit*>(u"txtPassword"_qs);
  }

  QTemporaryDir folder_;
  ScriptedDialogs dialogs_;
  TestKeyring keyring_;
  PasswordStore store_{&keyring_};
};

}  // namespace

TEST_F(Options, AFreshInstallationShowsTheDefaultsAndSavesAllKeysAsTheyStand) {
  InstallPasswordStore(nullptr);
  const QStringList keys{u"CDUnit"_qs, u"Url"_qs,      u"Host"_qs,     u"ProxyType"_qs,   u"Proxy"_qs,
                         u"Port"_qs,   u"Username"_qs, u"Password"_qs, u"UseRemoteDns"_qs};
  const auto window = Open();
  EXPECT_EQ(window->windowTitle(), u"Settings"_qs);
  EXPECT_EQ(Password(*window).echoMode(), QLineEdit::Password);
  auto* tabs = window->findChild<QTabWidget*>(u"tbsOptions"_qs);
  QTest::keyClick(window->findChild<QLineEdit*>(u"txtProxy"_qs), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(tabs->currentWidget()->objectName(), u"tabAggiornamenti"_qs);
  Click(*window, u"cmdCancel"_qs);
  for (const QString& key : keys) EXPECT_EQ(Stored(key), u"(none)"_qs) << key;

  const auto again = Open();
  Click(*again, u"cmdOK"_qs);
  EXPECT_FALSE(again->isVisible());
  QStringList values;
  for (const QString& key : keys) values += Stored(key);
  EXPECT_EQ(
      values.join(u'|'),
      u"D:|https://updates.vorlina.example/supporto/vl/updates|updates.vorlina.example|No Proxy|0.0.0.1|80|||1"_qs);
}

// What a person put into the settings by hand comes back as it was.
TEST_F(Options, WhatTheListsDoNotHaveShowsAndStays) {
  Store(u"CDUnit"_qs, u"/mnt/update disc"_qs);
  Store(u"ProxyType"_qs, u"HTTPS Proxy"_qs);
  Store(u"UseRemoteDns"_qs, u"0"_qs);
  const auto window = Open();
  EXPECT_EQ(window->findChild<QComboBox*>(u"CmbDrive"_qs)->currentText(), u"/mnt/update disc"_qs);
  auto* proxy = window->findChild<QComboBox*>(u"cmbProxyServer"_qs);
  EXPECT_EQ(proxy->currentText(), u"HTTPS Proxy"_qs);
  EXPECT_EQ(proxy->itemText(3), u"SOCKS5 Proxy"_qs);
  QTest::keyClick(window->findChild<QLineEdit*>(u"txtProxyPort"_qs), Qt::Key_Return);
  EXPECT_EQ(Stored(u"ProxyType"_qs), u"HTTPS Proxy"_qs);
  EXPECT_EQ(Stored(u"UseRemoteDns"_qs), u"0"_qs);
}

TEST_F(Options, SettingsThatCannotBeSavedAreToldAndTheWindowStays) {
  const auto window = Open();
  SetSettingsFolder(u"/dev/null"_qs);
  dialogs_.ExpectMessage(
      u"Error: The settings cannot be saved in /dev/null/Norsel/Vorlina.settings: The folder "
      "/dev/null/Norsel cannot be created"_qs,
      BoxStyle::Stop);
  Click(*window, u"cmdOK"_qs);
  EXPECT_TRUE(window->isVisible());
}

TEST_F(Options, ThePasswordMovesIntoTheKeyring) {
  Store(u"Password"_qs, u"from the file"_qs);
  auto window = Open();
  EXPECT_EQ(Password(*window).text(), u"from the file"_qs);
  Click(*window, u"cmdOK"_qs);
  EXPECT_EQ(Stored(u"Password"_qs), u"from the file"_qs) << "it is nowhere else yet";
  keyring_.write(true);
  EXPECT_EQ(Stored(u"Password"_qs), QString());
  window = Open();
  keyring_.read(u"from the keyring"_qs);
  EXPECT_EQ(Password(*window).text(), u"from the keyring"_qs);
  Click(*window, u"cmdOK"_qs);
  EXPECT_EQ(keyring_.written.size(), 1) << "it has that one already";
}

// The keyring is locked, and its user does not open it.
TEST_F(Options, APasswordThatTheKeyringDoesNotTellIsNotTakenForAnEmptyOne) {
  auto window = Open();
  Click(*window, u"cmdOK"_qs);
  keyring_.read(std::nullopt);
  EXPECT_TRUE(keyring_.written.isEmpty());
  window = Open();
  QTest::keyClicks(&Password(*window), u"typed"_qs);
  keyring_.read(u"late"_qs);
  EXPECT_EQ(Password(*window).text(), u"typed"_qs);
  Click(*window, u"cmdOK"_qs);
  window.reset();
  keyring_.write(false);
  EXPECT_EQ(Stored(u"Password"_qs), u"typed"_qs);
}

TEST_F(Options, WhatIsOnItsWayToTheKeyringIsNotLost) {
  store_.Save(u"first"_qs);
  store_.Save(u"second"_qs);
  EXPECT_EQ(keyring_.written, QStringList{u"first"_qs});
  keyring_.write(true);
  EXPECT_EQ(keyring_.written.last(), u"second"_qs);
  EXPECT_EQ(Stored(u"Password"_qs), u"(none)"_qs);
  QString shown;
  QObject receiver;
  store_.Read(&receiver, [&](const std::optional<QString>& password) { shown = password.value_or(u"?"_qs); });
  EXPECT_EQ(shown, u"second"_qs);
  store_.Flush();
  EXPECT_EQ(Stored(u"Password"_qs), u"second"_qs);
  keyring_.write(true);
  EXPECT_EQ(Stored(u"Password"_qs), QString());
  store_.Save(u"third"_qs);
  SetSettingsFolder(u"/dev/null"_qs);
  EXPECT_THROW(keyring_.write(false), Error);
  SetSettingsFolder(folder_.path());
  store_.Flush();
  EXPECT_EQ(Stored(u"Password"_qs), u"third"_qs);
}

TEST_F(Options, APasswordThatIsRemovedDoesNotComeBack) {
  Store(u"Password"_qs, u"old"_qs);
  store_.Save({});
  keyring_.write(false);
  PasswordStore later(&keyring_);
  QString shown = u"?"_qs;
  QObject receiver;
  const auto show = [&](const std::optional<QString>& password) { shown = password.value_or(u"?"_qs); };
  later.Read(&receiver, show);
  EXPECT_EQ(shown, QString());
  EXPECT_EQ(keyring_.written.size(), 2) << "asked once more";
  keyring_.write(true);
  later.Read(&receiver, show);
  keyring_.read(u"new"_qs);
  EXPECT_EQ(shown, u"new"_qs);
}
