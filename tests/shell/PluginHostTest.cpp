#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Language.h"
#include "base/SafeFile.h"
#include "base/Settings.h"
#include "publish/PluginHost.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

// An application folder whose "PubWiz" holds the test plug-ins.
class PluginHost : public testing::Test {
 protected:
  PluginHost() {
    SetLanguage(u"English"_qs);
    EXPECT_TRUE(QFile::link(QStringLiteral(TEST_PLUGINS), folder_.filePath(u"PubWiz"_qs)));
    SetAppPath(folder_.path());
  }

  static QString FailureOf(const QString& identifier) {
    try {
      CreatePlugin(identifier);
    } catch (const Error& error) {
      return error.Description();
    }
    return u"(none)"_qs;
  }

  const QTemporaryDir folder_;
};

// A plug-in whose operations fail as told.
struct Behaviour {
  bool icon = true;
  bool name = true;
  bool description = true;
};

class FakePlugin : public IVorlinaPlugin {
 public:
  explicit FakePlugin(Behaviour behaviour) : behaviour_(behaviour) {}
  QString GetPluginName() override { return Or(behaviour_.name, u"Name"_qs); }
  QIcon GetPluginIcon() override {
    Or(behaviour_.icon, {});
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    return pixmap;
  }
  QVariant Publish(IVorlinaConnection&, int&) override { return {}; }
  QString GetPluginDescription() override { return Or(behaviour_.description, u"Description"_qs); }
  QVariant InstallSkin(QString&) override { return {}; }

 private:
  static QString Or(bool works, const QString& text) {
    if (!works) throw std::runtime_error("fails");
    return text;
  }
  Behaviour behaviour_;
};

}  // namespace

TEST_F(PluginHost, TellsWhyALibraryCannotBeUsed) {
  WriteFileSafely(folder_.filePath(u"text"_qs), "no library at all");
  EXPECT_EQ(FailureOf(u"Test.Good"_qs), u"(none)"_qs);
  EXPECT_TRUE(FailureOf(u"Test.Older"_qs).contains(u"made for another version of Vorlina"));
  EXPECT_TRUE(FailureOf(u"Test.Foreign"_qs).contains(u"is not a plug-in of Vorlina"));
  EXPECT_TRUE(FailureOf(u"Test.Missing"_qs).contains(u"is not installed"));
  for (const QString& name : {u""_qs, u"../../etc/passwd"_qs, u"a\\b"_qs})
    EXPECT_TRUE(FailureOf(name).contains(u"is not the name of a plug-in")) << name;
}

TEST_F(PluginHost, WhateverAPluginThrowsBecomesAnError) {
  EXPECT_THROW(CallPlugin([] { throw 42; }), Error);
  EXPECT_THROW(CallPlugin([] { throw std::runtime_error("x"); }), Error);
  QString skin;
  const std::unique_ptr<IVorlinaPlugin> plugin = CreatePlugin(u"Test.Good"_qs);
  EXPECT_THROW(CallPlugin([&] { plugin->InstallSkin(skin); }), Error);
}

TEST_F(PluginHost, IdentifiersComeFromTheSettingOrTheDefaultOfTheLanguage) {
  const QString title = ApplicationTitle();
  QCoreApplication::setApplicationName(u"Fresh"_qs);  // settings in which nobody has written
  EXPECT_EQ(PluginIdentifiers().join(u'|'), u"VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat"_qs);
  SetLanguage(u"Italian"_qs);
  EXPECT_EQ(PluginIdentifiers().join(u'|'),
            u"VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat|VLHTML.HTML"_qs);
  SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, u"A.B;"_qs);
  EXPECT_EQ(PluginIdentifiers().join(u'|'), u"A.B|"_qs);
  SetLanguage(u"French"_qs);
  EXPECT_TRUE(PluginIdentifiers().isEmpty());
  QCoreApplication::setApplicationName(title);
}

// Every step that fails is told by itself, and the plug-ins that follow are listed all the same.
TEST_F(PluginHost, ListingTellsEachFailedStepAndGoesOn) {
  struct Case {
    const char* what;
    QStringList identifiers;
    Behaviour behaviour;
    int failures;
    QString entries;
    QString skins;
  };
  const Case cases[] = {
      {"all works",
       {u"A"_qs, u"B"_qs},
       {},
       0,
       u"A=Name:Description B=Name:Description"_qs,
       u"A=Name B=Name"_qs},
      {"cannot be created", {u"missing"_qs, u"B"_qs}, {}, 6, u"B=Name:Description"_qs, u"missing= B=Name"_qs},
      {"empty identifier at the end", {u"B"_qs, u""_qs}, {}, 6, u"B=Name:Description"_qs, u"B=Name ="_qs},
      {"no picture", {u"A"_qs}, {.icon = false}, 4, u""_qs, u"A=Name"_qs},
      {"no name", {u"A"_qs}, {.name = false}, 1, u"A=:Description"_qs, u"A="_qs},
      {"no description", {u"A"_qs}, {.description = false}, 1, u"A=Name:"_qs, u"A=Name"_qs},
      {"twice", {u"A"_qs, u"A"_qs}, {}, 3, u"A=Name:Description"_qs, u"A=Name A=Name"_qs},
  };
  for (const Case& c : cases) {
    int failures = 0;
    const auto create = [&](const QString& identifier) -> std::unique_ptr<IVorlinaPlugin> {
      if (identifier.isEmpty() || identifier == u"missing") throw Error(u"cannot be created"_qs);
      return std::make_unique<FakePlugin>(c.behaviour);
    };
    const PluginListing listing = ListPlugins(c.identifiers, create, [&](const QString&) { ++failures; });
    QStringList entries;
    QStringList skins;
    for (const PluginEntry& entry : listing.entries)
      entries += entry.identifier + u'=' + entry.name + u':' + entry.description;
    for (const SkinEntry& skin : listing.skins) skins += skin.identifier + u'=' + skin.name;
    EXPECT_EQ(failures, c.failures) << c.what;
    EXPECT_EQ(entries.join(u' '), c.entries) << c.what;
    EXPECT_EQ(skins.join(u' '), c.skins) << c.what;
  }
}
