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

// The lines of the log while it lives.
class Logged {
 public:
  Logged() : before_(qInstallMessageHandler(Take)) { lines_.clear(); }
  ~Logged() { qInstallMessageHandler(before_); }
  Logged(const Logged&) = delete;
  Logged& operator=(const Logged&) = delete;
  static QString Text() { return lines_.join(u'|'); }

 private:
  static void Take(QtMsgType, const QMessageLogContext&, const QString& line) { lines_ += line; }
  static inline QStringList lines_;
  QtMessageHandler before_;
};

// A plug-in whose operations fail as told.
struct Behaviour {
  bool icon = true;
  bool emptyIcon = false;
  bool name = true;
  bool description = true;
};

class FakePlugin : public IVorlinaPlugin {
 public:
  explicit FakePlugin(Behaviour behaviour) : behaviour_(behaviour) {}
  QString GetPluginName() override { return Or(behaviour_.name, u"Name"_qs); }
  QIcon GetPluginIcon() override {
    Or(behaviour_.icon, {});
    if (behaviour_.emptyIcon) return {};
    QPixmap pixmap(8, 8);
    pixmap.fill(Qt::red);
    return pixmap;
  }
  QVariant Publish(IVorlinaConnection&, int&) override { return {}; }
  QString GetPluginDescription() override { return Or(behaviour_.description, u"Description"_qs); }
  QVariant InstallSkin(QString&) override { return {}; }

 private:
  static QString Or(bool works, const QString& text) {
    if (!works) throw std::runtime_error("broken");
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
  EXPECT_THROW(CallPlugin([] { throw std::runtime_error("x"); }), Error);
  for (const auto& silent : {+[] { throw 42; }, +[] { throw std::runtime_error(""); }}) {
    try {
      CallPlugin(silent);
      ADD_FAILURE();
    } catch (const Error& error) {
      EXPECT_EQ(error.Description(), u"The plug-in reported an unknown error"_qs);
    }
  }
  QString skin;
  const std::unique_ptr<IVorlinaPlugin> plugin = CreatePlugin(u"Test.Good"_qs);
  EXPECT_THROW(CallPlugin([&] { plugin->InstallSkin(skin); }), Error);
}

TEST_F(PluginHost, PluginsAreThoseThatTheSettingsNameOrElseWhatThereIs) {
  const QString title = ApplicationTitle();
  QCoreApplication::setApplicationName(u"Fresh"_qs);  // settings in which nobody has written
  const auto chosen = []() -> QString {
    const PluginChoice choice = ChosenPlugins();
    return (choice.named ? u"named:"_qs : u"found:"_qs) + choice.identifiers.join(u'|');
  };
  const QString found = u"|Test.Foreign|Test.Good|Test.Older|Test.Small|Test.Throws"_qs;
  EXPECT_EQ(chosen(), u"found:VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat"_qs + found);
  SetLanguage(u"Italian"_qs);
  EXPECT_EQ(chosen(), u"found:VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat|VLHTML.HTML"_qs + found);
  for (const QString& value : {u"A.B;"_qs, u"A.B"_qs, u""_qs}) {
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, value);
    EXPECT_EQ(chosen(), QString(u"named:"_qs + value).replace(u';', u'|'));
  }
  EXPECT_EQ(ChosenPlugins().identifiers, QStringList()) << "not one without a name";
  SetLanguage(u"French"_qs);
  EXPECT_EQ(chosen(), u"found:"_qs);
  QCoreApplication::setApplicationName(title);
}

// Every step that fails is told by itself, and the plug-ins that follow are listed all the same. The reason
// is logged once.
TEST_F(PluginHost, ListingTellsEachFailedStepAndGoesOn) {
  struct Case {
    const char* what;
    PluginChoice choice;
    Behaviour behaviour;
    int failures;
    QString entries;
    QString skins;
    QString log;
  };
  const QString whole = u"B=Name:Description"_qs;
  const auto named = [](const QStringList& identifiers) { return PluginChoice{identifiers, true}; };
  const Case cases[] = {
      {"all works",
       named({u"A"_qs, u"B"_qs}),
       {},
       0,
       u"A=Name:Description "_qs + whole,
       u"A=Name B=Name"_qs,
       {}},
      {"cannot be created", named({u"no"_qs, u"B"_qs}), {}, 6, whole, u"no= B=Name"_qs, u"no: not made"_qs},
      {"and nobody named it", {{u"no"_qs, u"B"_qs}}, {}, 0, whole, u"B=Name"_qs, u"no: not made"_qs},
      {"empty identifier at the end", named({u"B"_qs, {}}), {}, 6, whole, u"B=Name ="_qs, u": not made"_qs},
      {"no picture", named({u"B"_qs}), {.icon = false}, 4, {}, u"B=Name"_qs, u"B: broken"_qs},
      {"an empty picture", named({u"B"_qs}), {.emptyIcon = true}, 0, whole, u"B=Name"_qs, {}},
      {"no name", named({u"B"_qs}), {.name = false}, 1, u"B=:Description"_qs, u"B="_qs, u"B: broken"_qs},
      {"no description",
       named({u"B"_qs}),
       {.description = false},
       1,
       u"B=Name:"_qs,
       u"B=Name"_qs,
       u"B: broken"_qs},
      {"twice",
       named({u"B"_qs, u"B"_qs}),
       {},
       3,
       whole,
       u"B=Name B=Name"_qs,
       u"B: is in the list already"_qs},
  };
  for (const Case& c : cases) {
    int failures = 0;
    const auto create = [&](const QString& identifier) -> std::unique_ptr<IVorlinaPlugin> {
      if (identifier.isEmpty() || identifier == u"no") throw Error(u"not made"_qs);
      return std::make_unique<FakePlugin>(c.behaviour);
    };
    const Logged log;
    const PluginListing listing = ListPlugins(c.choice, create, [&](const QString&) { ++failures; });
    EXPECT_EQ(Logged::Text(), c.log) << c.what;
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
