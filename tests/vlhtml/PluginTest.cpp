// The plug-in as the program uses it: loaded from "PubWiz", with its own windows worked by hand.
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "publish/PluginConnection.h"
#include "publish/PluginHost.h"
#include "support/Print.h"
#include "support/ScriptedDialogs.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class PluginTest : public StoreFixture {
 protected:
  PluginTest() : catalog_(AddCatalog(u"c"_qs)), site_(folder_.filePath(u"site l'uno"_qs)) {
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QDir(folder_.path()).mkpath(site_);
    EXPECT_TRUE(QFile::link(QStringLiteral(PUBWIZ), AppFile(u"PubWiz"_qs)));
    AddProduct(catalog_, u"A"_qs, 1);
  }
  ~PluginTest() override { UnexpectedModalGuard::allowed.clear(); }

  // Publishes, choosing this folder in the chooser ("" cancels it), the language by the name of its button
  // and closing what follows. Gives the folder that the chooser offered and the text that was shown at the
  // end.
  std::pair<QString, QString> Publish(const QString& folder, const QString& language = {}) {
    QString offered;
    QString told;
    UnexpectedModalGuard::allowed = QStringList{u"QFileDialog"_qs, u"prgPublish"_qs, u"msgPublished"_qs,
                                                u"msgReplaceSite"_qs, u"dlgSiteLanguage"_qs};
    QTimer worker;
    QObject::connect(&worker, &QTimer::timeout, &worker, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      if (auto* chooser = qobject_cast<QFileDialog*>(modal)) {
        offered = chooser->directory().absolutePath();
        if (folder.isEmpty()) return chooser->reject();
        chooser->findChild<QLineEdit*>(u"fileNameEdit"_qs)->setText(folder);
        chooser->findChild<QDialogButtonBox*>(u"buttonBox"_qs)->button(QDialogButtonBox::Open)->click();
      } else if (modal != nullptr && modal->objectName() == u"dlgSiteLanguage") {
        asked_ += 1;
        modal->findChild<QRadioButton*>(language)->click();
        modal->findChild<QPushButton*>(u"cmdContinue"_qs)->click();
      } else if (auto* box = qobject_cast<QMessageBox*>(modal)) {
        told = box->text();
        box->escapeButton()->click();
      }
    });
    worker.start(20);
    const std::unique_ptr<IVorlinaPlugin> plugin = CreatePlugin(u"VLHTML.HTML"_qs);
    PublishCatalog(*plugin, connection_, catalog_);
    return {offered, told};
  }

  // The language of the site that is published without a window.
  QString PublishedLanguage(const QString& asked) {
    class Progress : public IVorlinaProgress {
      bool Report(int, int, const QString&) override { return true; }
    } progress;
    VorlinaHost host = HostOfPlugins();
    host.askedLanguage = asked;
    PluginConnection connection(connection_);
    PluginFactoryOf(u"VLHTML.HTML"_qs)
        .CreateFolderPublisher(host)
        ->PublishTo(connection, catalog_, site_, progress);
    QFile page(site_ + u"/index.html"_qs);
    return page.open(QIODevice::ReadOnly) ? QString::fromUtf8(page.readAll().mid(22, 8)) : QString();
  }

  int catalog_;
  QString site_;
  int asked_ = 0;  // how many times for the language
};

}  // namespace

TEST_F(PluginTest, AsksForAFolderPublishesAndRemembersIt) {
  EXPECT_EQ(Publish({}, u"optEnglish"_qs).second, QString()) << "cancelled";
  EXPECT_EQ(Count(u"CExtension"_qs), 0);
  EXPECT_EQ(Publish(site_, u"optEnglish"_qs).second, u"The site is ready: 3 pages."_qs);
  EXPECT_TRUE(QFile::exists(site_ + u"/p-a.html"_qs));
  SetLanguage(u"Italian"_qs);
  const auto [offered, told] = Publish(site_);
  EXPECT_EQ(offered, site_);
  EXPECT_EQ(told, u"Il sito è pronto: 3 pagine."_qs);
  EXPECT_FALSE(connection_.InTransaction());
}

TEST_F(PluginTest, TheLanguageOfTheSiteIsTheCatalogs) {
  connection_.Execute(u"UPDATE Prodotti SET Descrizione='Cup with a handle'"_qs);
  Publish(site_, u"optItalian"_qs);
  Publish(site_);
  EXPECT_EQ(asked_, 1);
  EXPECT_EQ(PublishedLanguage({}), u"lang=\"it"_qs);
  EXPECT_EQ(PublishedLanguage(u"English"_qs), u"lang=\"en"_qs);
}

TEST_F(PluginTest, OffersTheStandardSkin) {
  UnexpectedModalGuard::allowed = QStringList{u"dlgSkin"_qs, u"msgSkinInstalled"_qs};
  // The folder of this test has a link to the delivered skins, in which nothing is to be written.
  QFile::remove(AppFile(u"PubWiz"_qs));
  ASSERT_TRUE(QDir().mkpath(AppFile(u"PubWiz/VLHTML.HTML/Skins/Mine"_qs)));
  QFile::link(QStringLiteral(PUBWIZ "/VLHTML.HTML.so"), AppFile(u"PubWiz/VLHTML.HTML.so"_qs));
  QFile::link(QStringLiteral(PUBWIZ "/VLHTML.HTML/Skins/Standard"),
              AppFile(u"PubWiz/VLHTML.HTML/Skins/Standard"_qs));
  QFile chosen(AppFile(u"PubWiz/VLHTML.HTML/Skins/current.txt"_qs));
  ASSERT_TRUE(chosen.open(QIODevice::WriteOnly));
  chosen.write("Mine");
  chosen.close();
  QTimer worker;
  QObject::connect(&worker, &QTimer::timeout, &worker, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(modal)) return box->accept();
    if (modal == nullptr) return;
    auto* list = modal->findChild<QListWidget*>(u"lstSkins"_qs);
    EXPECT_EQ(list->currentItem()->text(), u"Mine"_qs);
    list->setCurrentRow(0);
    modal->findChild<QPushButton*>(u"cmdUse"_qs)->click();
  });
  worker.start(20);
  QString none;
  CreatePlugin(u"VLHTML.HTML"_qs)->InstallSkin(none);
  ASSERT_TRUE(chosen.open(QIODevice::ReadOnly));
  EXPECT_EQ(chosen.readAll(), "Standard\n");
}

TEST_F(PluginTest, AsksBeforeItReplacesAnotherCatalogsSite) {
  Publish(site_, u"optEnglish"_qs);
  connection_.Execute(u"UPDATE CExtension SET Valore='0'||Valore"_qs);
  EXPECT_EQ(Publish(site_).second, u"The folder holds the site of another catalog (\"c\"). Replace it?"_qs);
  SetLanguage(u"Italian"_qs);
  EXPECT_EQ(Publish(site_).second,
            u"La cartella contiene il sito di un altro catalogo (\"c\"). Sostituirlo?"_qs);
}
