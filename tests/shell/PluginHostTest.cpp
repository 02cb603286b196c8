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
  EXPECT_EQ(
      ChosenPlugins().identifiers.join(u'|'),
      u"VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat|Test.Foreign|Test.Good|Test.Older|Test.Throws");
  for (const QString& value : {u"A.B;"_qs, u"A.B"_qs, u""_qs}) {
    SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, value);
    EXPECT_EQ(ChosenPlugins().identifiers.join(u';'), value);
  }
  QCoreApplication::setApplicationName(title);
}
