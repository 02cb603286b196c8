#include <QProcess>

#include "publish/PluginConnection.h"
#include "publish/PluginHost.h"
#include "publish/PluginInstallation.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class Progress : public IVorlinaProgress {
 public:
  explicit Progress(bool goOn) : goOn_(goOn) {}
  bool Report(int, int, const QString&) override { return goOn_; }

 private:
  bool goOn_;
};

class ExampleTest : public StoreFixture {};

}  // namespace

TEST_F(ExampleTest, PublishesThroughTheHeaderAlone) {
  const QTemporaryDir kit;
  ASSERT_EQ(QProcess::execute(QStringLiteral(MAKE_PACKAGE),
                              {QStringLiteral(EXAMPLE_LIBRARY), u"1.0"_qs, kit.path()}),
            0);
  ASSERT_TRUE(AggiornaPluginMsi(kit.filePath(u"Example.PriceList.vpk"_qs), AppFile(u"PubWiz"_qs)));
  const int catalog = AddCatalog(u"c"_qs);
  AddProduct(catalog, u"B"_qs, 1);
  AddProduct(catalog, u"A\t2"_qs, 2);
  connection_.Execute(u"UPDATE Prodotti SET Valore1='5,00', Descrizione='L''uno'||char(10)||'due'"_qs);
  PluginConnection connection(connection_);
  IVorlinaPluginFactory& factory = PluginFactoryOf(u"Example.PriceList"_qs);
  VorlinaJob job;
  job.IDCatalogo = catalog;
  job.target = AppPath();
  Progress stopping(false);
  EXPECT_FALSE(factory.CreatePublisher(HostOfPlugins())->Publish(connection, job, stopping).complete);
  EXPECT_FALSE(QFile::exists(AppFile(u"prices.txt"_qs)));
  Progress going(true);
  EXPECT_TRUE(factory.CreatePublisher(HostOfPlugins())->Publish(connection, job, going).complete);
  QFile list(AppFile(u"prices.txt"_qs));
  ASSERT_TRUE(list.open(QIODevice::ReadOnly));
  EXPECT_EQ(QString::fromUtf8(list.readAll()), u"B\tL'uno due\t5,00\nA 2\tL'uno due\t5,00\n"_qs);
}
