// The plug-in as the program uses it: loaded from "PubWiz", with its own windows worked by hand.
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

#include "publish/PluginConnection.h"
#include "publish/PluginHost.h"
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

  // Publishes in English, choosing this folder in the chooser ("" cancels it). Gives the folder that the
  // chooser offered and the text that was shown at the end.
  std::pair<QString, QString> Publish(const QString& folder) {
    QString offered;
    QString told;
    UnexpectedModalGuard::allowed =
        QStringList{u"QFileDialog"_qs, u"prgPublish"_qs, u"msgPublished"_qs, u"dlgSiteLanguage"_qs};
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
        modal->findChild<QRadioButton*>(u"optEnglish"_qs)->click();
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

  int catalog_;
  QString site_;
  int asked_ = 0;  // how many times for the language
};

}  // namespace

TEST_F(PluginTest, AsksForAFolderPublishesAndRemembersIt) {
  EXPECT_EQ(Publish({}).second, QString()) << "cancelled";
  EXPECT_EQ(Count(u"CExtension"_qs), 0);
  EXPECT_EQ(Publish(site_).second, u"The site is ready: 3 pages."_qs);
  EXPECT_TRUE(QFile::exists(site_ + u"/p-a.html"_qs));
  const auto [offered, told] = Publish(site_);
  EXPECT_EQ(offered, site_);
  EXPECT_EQ(told, u"The site is ready: 3 pages."_qs);
  EXPECT_EQ(asked_, 2) << "the catalog's language is asked until a site is made";
  EXPECT_FALSE(connection_.InTransaction());
}
