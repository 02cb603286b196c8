#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Settings.h"
#include "publish/PluginHost.h"
#include "support/Language.h"
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
      return u"(none)"_qs;
    } catch (const Error& error) {
      return error.Description();
    }
  }

  const QTemporaryDir folder_;
};

// A plug-in whose operations fail as told: by 'p' the picture, 'n' the name, 'd' the description; by 'e' the
// picture is empty.
class FakePlugin : public IVorlinaPlugin {
 public:
  explicit FakePlugin(QString fails) : fails_(std::move(fails)) {}
  QString GetPluginName() override { return Unless(u'n', u"Name"_qs); }
  QIcon GetPluginIcon() override {
    Unless(u'p', {});
    QPixmap pixmap(8, 8);
    return fails_.contains(u'e') ? QIcon() : QIcon(pixmap);
  }
  QVariant Publish(IVorlinaConnection&, int&) override { return {}; }
  QString GetPluginDescription() override { return Unless(u'd', u"Description"_qs); }
  QVariant InstallSkin(QString&) override { return {}; }

 private:
  QString Unless(QChar failure, const QString& text) const {
    if (fails_.contains(failure)) throw std::runtime_error("broken");
    return text;
  }
  QString fails_;
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

TEST_F(PluginHost, PluginsAreThoseThatTheSettingsNameOrElseWhatThereIs) {
  const QString title = ApplicationTitle();
  QCoreApplication::setApplicationName(u"Fresh"_qs);  // settings in which nobody has written
  const auto chosen = []() -> QString {
    const PluginChoice choice = ChosenPlugins();
    return (choice.named ? u"named:"_qs : u"found:"_qs) + choice.identifiers.join(u'|');
  };
  const QString found = u"|Test.Foreign|Test.Good|Test.Older|Test.Throws"_qs;
  EXPECT_EQ(chosen(), u"found:VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat"_qs + found);
  SetLanguage(u"Italian"_qs);
  EXPECT_EQ(chosen(), u"found:VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat|VLHTML.HTML"_qs + found);
  for (const QString& value : {u"A.B;"_qs, u"A.B"_qs, u""_qs}) {
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, value);
    EXPECT_EQ(chosen(), QString(u"named:"_qs + value).replace(u';', u'|'));
  }
  EXPECT_EQ(ChosenPlugins().identifiers, QStringList()) << "not one without a name";
  QCoreApplication::setApplicationName(title);
}

// Every step that fails is told by itself, and the plug-ins that follow are listed all the same.
TEST_F(PluginHost, ListingTellsEachFailedStepAndGoesOn) {
  struct Case {
    QString named, fails;
    int failures;
    QString entries, skins;
  };
  for (const Case& c :
       {Case{u"A B"_qs, {}, 0, u"A=Name:Description B=Name:Description"_qs, u"A=Name B=Name"_qs},
        Case{u"no B"_qs, {}, 6, u"B=Name:Description"_qs, u"no= B=Name"_qs},
        Case{u"B "_qs, {}, 6, u"B=Name:Description"_qs, u"B=Name ="_qs},
        Case{u"B"_qs, u"p"_qs, 4, {}, u"B=Name"_qs},
        Case{u"B"_qs, u"e"_qs, 0, u"B=Name:Description"_qs, u"B=Name"_qs},
        Case{u"B"_qs, u"n"_qs, 1, u"B=:Description"_qs, u"B="_qs},
        Case{u"B"_qs, u"d"_qs, 1, u"B=Name:"_qs, u"B=Name"_qs},
        Case{u"B B"_qs, {}, 3, u"B=Name:Description"_qs, u"B=Name B=Name"_qs}}) {
    int failures = 0;
    const auto create = [&](const QString& identifier) -> std::unique_ptr<IVorlinaPlugin> {
      if (identifier.isEmpty() || identifier == u"no") throw Error(u"not made"_qs);
      return std::make_unique<FakePlugin>(c.fails);
    };
    const PluginListing listing =
        ListPlugins({c.named.split(u' '), true}, create, [&](const QString&) { ++failures; });
    QStringList entries;
    QStringList skins;
    for (const PluginEntry& entry : listing.entries)
      entries += entry.identifier + u'=' + entry.name + u':' + entry.description;
    for (const SkinEntry& skin : listing.skins) skins += skin.identifier + u'=' + skin.name;
    EXPECT_EQ(failures, c.failures) << c.named;
    EXPECT_EQ(entries.join(u' '), c.entries) << c.named;
    EXPECT_EQ(skins.join(u' '), c.skins) << c.named;
  }
}
