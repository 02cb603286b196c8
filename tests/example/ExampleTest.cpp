#include <QImage>
#include <QProcess>

#include "publish/PluginConnection.h"
#include "publish/PluginHost.h"
#include "publish/PluginInstallation.h"
#include "support/CatalogFixture.h"

using namespace vorlina;

namespace {

class Progress : public IVorlinaProgress {
 public:
  explicit Progress(bool goOn) : goOn_(goOn) {}
  bool Report(int, int, const QString&) override { return goOn_; }

 private:
  bool goOn_;
};

class ExampleTest : public StoreFixture {
 protected:
  VorlinaReport Publish(bool goOn) {
    PluginConnection connection(connection_);
    Progress progress(goOn);
    return PluginFactoryOf(u"Example.PriceList"_qs)
        .CreatePublisher(HostOfPlugins())
        ->Publish(connection, job_, progress);
  }

  VorlinaJob job_;
};

}  // namespace

TEST_F(ExampleTest, PublishesThroughTheKitAlone) {
  const QTemporaryDir kit;
  ASSERT_EQ(QProcess::execute(QStringLiteral(MAKE_PACKAGE),
                              {QStringLiteral(EXAMPLE_LIBRARY), u"1.0"_qs, kit.path()}),
            0);
  ASSERT_TRUE(AggiornaPluginMsi(kit.filePath(u"Example.PriceList.vpk"_qs), AppFile(u"PubWiz"_qs)));
  job_.IDCatalogo = AddCatalog(u"c"_qs);
  job_.target = AppFile(u"lists/prices.html"_qs);
  AddProduct(job_.IDCatalogo, u"B"_qs, 1);
  AddProduct(job_.IDCatalogo, u"A<2"_qs, 2);
  connection_.Execute(u"UPDATE Cataloghi SET NomeValore1='Prezzo'"_qs);
  connection_.Execute(u"UPDATE Prodotti SET Valore1='5,00', Descrizione='L''uno'||char(10)||'due'"_qs);
  QImage picture(200, 100, QImage::Format_RGB32);
  picture.fill(Qt::red);
  ASSERT_TRUE(picture.save(AppFile(u"Images/2.jpg"_qs)));
  connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto='A<2'"_qs,
                      {AppFile(u"Images/2.jpg"_qs)});
  EXPECT_FALSE(Publish(false).complete);
  EXPECT_FALSE(QFile::exists(job_.target));
  for (const bool again : {false, true}) {
    const VorlinaReport report = Publish(true);
    EXPECT_TRUE(report.complete);
    EXPECT_EQ(report.changed, again ? 1 : 0);
    EXPECT_EQ(report.pictures, 1);
    EXPECT_EQ(report.notes.size(), 1) << "the other one has no picture";
  }
  const QString list = QString::fromUtf8(ContentOf(job_.target));
  for (const QString& part :
       {u"<th scope=\"row\">B</th><td>L&apos;uno</td><td>5,00</td></tr>\n<tr><td><img"_qs, u"base64,/9j/"_qs,
        u"<th scope=\"row\">A&lt;2<"_qs})
    EXPECT_TRUE(list.contains(part)) << part << " in " << list;
  WriteFileSafely(job_.target, "mine");
  EXPECT_FALSE(FailureOf([&] { Publish(true); }).isEmpty());
  EXPECT_EQ(ContentOf(job_.target), "mine");
}
