#include "base/Settings.h"
#include "publish/PluginHost.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

// An application folder whose "PubWiz" holds the test plug-ins.
class PluginHost : public CatalogFixture {
 protected:
  PluginHost() { EXPECT_TRUE(QFile::link(QStringLiteral(TEST_PLUGINS), AppFile(u"PubWiz"_qs))); }
  static QString Creating(const QString& identifier) {
    return FailureOf([&] { CreatePlugin(identifier); });
  }
};

}  // namespace

TEST_F(PluginHost, TellsWhyALibraryCannotBeUsed) {
  EXPECT_EQ(Creating(u"Test.Good"_qs), QString());
  EXPECT_TRUE(Creating(u"Test.Older"_qs).contains(u"made for another version of Vorlina"));
  EXPECT_TRUE(Creating(u"Test.Foreign"_qs).contains(u"is not a plug-in of Vorlina"));
  EXPECT_TRUE(Creating(u"Test.Missing"_qs).contains(u"is not installed"));
  for (const QString& name : {u""_qs, u"../../etc/passwd"_qs, u"a\\b"_qs})
    EXPECT_TRUE(Creating(name).contains(u"is not the name of a plug-in")) << name;
}

TEST_F(PluginHost, PluginsAreThoseThatTheSettingsNameOrElseWhatThereIs) {
  const QString title = ApplicationTitle();
  QCoreApplication::setApplicationName(u"Fresh"_qs);  // settings in which nobody has written
  EXPECT_EQ(
      ChosenPlugins().identifiers.join(u'|'),
      u"VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat|Test.Foreign|Test.Good|Test.Older|Test.Throws");
  for (const QString& value : {u"A.B;"_qs, u"A.B"_qs, u""_qs}) {
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, value);
    EXPECT_EQ(ChosenPlugins().identifiers.join(u';'), value);
  }
  QCoreApplication::setApplicationName(title);
}
