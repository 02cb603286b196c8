#include "base/Settings.h"
#include "publish/PluginChange.h"
#include "publish/PluginHost.h"
#include "support/CatalogFixture.h"

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

// A plug-in whose operations fail as told: by 'p' the picture, 'n' the name, 'd' the description.
class FakePlugin : public IVorlinaPlugin {
 public:
  explicit FakePlugin(QString fails) : fails_(std::move(fails)) {}
  QString GetPluginName() override { return Unless(u'n', u"Name"_qs); }
  QIcon GetPluginIcon() override { return Unless(u'p', {}), QIcon(); }
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
  EXPECT_EQ(Creating(u"Test.Good"_qs), QString());
  EXPECT_TRUE(Creating(u"Test.Older"_qs).contains(u"made for another version of Vorlina"));
  EXPECT_TRUE(Creating(u"Test.Foreign"_qs).contains(u"is not a plug-in of Vorlina"));
  QDir().mkpath(DeliveredPlugin({}));
  QFile::copy(QStringLiteral(TEST_PLUGINS "/Test.Good.so"), DeliveredPlugin(u"Test.Foreign.so"_qs));
  EXPECT_EQ(Creating(u"Test.Foreign"_qs), QString()) << "the delivered one";
  QDir(DeliveredPlugin({})).removeRecursively();
  EXPECT_EQ(Creating(u"Test.Foreign"_qs), QString()) << "as long as the program runs";
  EXPECT_TRUE(Creating(u"Test.Missing"_qs).contains(u"is not installed"));
  QFile::remove(AppFile(u"PubWiz"_qs));  // the link
  QByteArray newer = ContentOf(QStringLiteral(TEST_PLUGINS "/Test.Good.so"));
  const qsizetype minorQt = newer.indexOf("qt-project!") + 14;
  ASSERT_EQ(newer[minorQt], QT_VERSION_MINOR);
  newer[minorQt] = 99;
  for (const QString& folder : {AppFile(u"PubWiz"_qs), DeliveredPlugin({})}) QDir().mkpath(folder);
  WriteFileSafely(AppFile(u"PubWiz/Test.Newer.so"_qs), newer);
  EXPECT_TRUE(Creating(u"Test.Newer"_qs).contains(u"cannot be loaded")) << Creating(u"Test.Newer"_qs);
  QFile::copy(QStringLiteral(TEST_PLUGINS "/Test.Good.so"), DeliveredPlugin(u"Test.Newer.so"_qs));
  EXPECT_EQ(Creating(u"Test.Newer"_qs), QString()) << "the delivered one";
  QDir(DeliveredPlugin({})).removeRecursively();
  for (const QString& name : {u""_qs, u"../../etc/passwd"_qs, u"a\\b"_qs})
    EXPECT_TRUE(Creating(name).contains(u"is not the name of a plug-in")) << name;
}

TEST_F(PluginHost, PluginsAreThoseThatTheSettingsNameOrElseWhatThereIs) {
  const QString title = ApplicationTitle();
  QCoreApplication::setApplicationName(u"Fresh"_qs);  // settings in which nobody has written
  EXPECT_EQ(
      ChosenPlugins().identifiers.join(u'|'),
      u"VLFlash.FlashCD|VLFlash.FlashHTML|VLWord.WordCat|Test.Foreign|Test.Good|Test.Older|Test.Throws");
  SaveSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, u"A.B;"_qs);
  EXPECT_EQ(ChosenPlugins().identifiers.join(u';'), u"A.B;"_qs);
  QCoreApplication::setApplicationName(title);
}

TEST_F(PluginHost, ListingTellsEachFailedStepAndGoesOn) {
  for (const auto& [fails, failures, entries] : {std::tuple{u"p"_qs, 4, u"A=Name:Description"_qs},
                                                 {u"n"_qs, 1, u"B=:Description A=Name:Description"_qs},
                                                 {u"d"_qs, 1, u"B=Name: A=Name:Description"_qs}}) {
    int told = 0;
    const PluginListing listing = ListPlugins(
        {{u"B"_qs, u"A"_qs}, true},
        [&fails = fails](const QString& identifier) {
          return std::make_unique<FakePlugin>(identifier == u"B" ? fails : QString());
        },
        [&](const QString&) { ++told; });
    QStringList listed;
    for (const PluginEntry& entry : listing.entries)
      listed += entry.identifier + u'=' + entry.name + u':' + entry.description;
    EXPECT_EQ(told, failures) << fails;
    EXPECT_EQ(listed.join(u' '), entries) << fails;
  }
}
