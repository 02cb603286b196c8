#include "Plugin.h"

#include <QApplication>
#include <QFileInfo>
#include <memory>

#include "PluginDialogs.h"
#include "SkinFolders.h"
#include "TargetMemory.h"
#include "engine/CatalogLanguage.h"
#include "engine/Labels.h"
#include "engine/SitePublisher.h"
#include "engine/SiteSkin.h"

// The picture lies in this library.
static void InitPicture() { Q_INIT_RESOURCE(vlhtml); }

namespace vlhtml {

QString Plugin::GetPluginName() {
  return italian_ ? QStringLiteral("Sito HTML") : QStringLiteral("HTML site");
}

QIcon Plugin::GetPluginIcon() {
  InitPicture();
  // The same picture where the entry is selected: it is not tinted.
  QIcon icon;
  for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected})
    icon.addFile(QStringLiteral(":/vlhtml/site.svg"), {}, mode);
  return icon;
}

QString Plugin::GetPluginDescription() {
  return italian_
             ? QStringLiteral(
                   "Crea un sito web con una pagina per ogni prodotto, da mettere sul proprio spazio web o "
                   "da aprire "
                   "direttamente dalla cartella. Solo i prodotti e i valori da pubblicare ne fanno parte.")
             : QStringLiteral(
                   "Makes a web site with a page for each product, to be put on your web space or opened "
                   "straight "
                   "from its folder. Only published products and values are part of it.");
}

QVariant Plugin::Publish(IVorlinaConnection& connection, int& IDCatalogo) {
  QWidget* owner = QApplication::activeWindow();
  QString language = RememberedLanguage(connection, IDCatalogo);
  if (language.isEmpty())
    language = AskSiteLanguage(owner, italian_, LooksItalian(connection, IDCatalogo, italian_));
  if (language.isEmpty()) return {};
  const QString folder = AskTargetFolder(owner, italian_, RememberedTarget(connection, IDCatalogo));
  if (folder.isEmpty()) return {};
  while (!language.isEmpty()) {
    const Languages languages{italian_, language == u"Italian"};
    VorlinaJob job;
    job.IDCatalogo = IDCatalogo;
    job.target = folder;
    job.profile.language = languages.siteItalian ? QStringLiteral("it") : QStringLiteral("en");
    VorlinaReport result;
    {
      const std::unique_ptr<IVorlinaProgress> progress = MakeProgressWindow(owner, italian_);
      result = SitePublisher(host_).Publish(connection, job, *progress);
    }
    if (!result.complete) return {};
    RememberTarget(connection, IDCatalogo, folder);
    RememberLanguage(connection, IDCatalogo, language);
    if (!ShowResult(owner, result, folder, languages)) return {};
    language = AskSiteLanguage(owner, italian_, !languages.siteItalian);
  }
  return {};
}

QVariant Plugin::InstallSkin(QString& skin) {
  QWidget* owner = QApplication::activeWindow();
  QString archive = skin;
  QString name;
  if (archive.isEmpty()) {
    const SkinChoice choice = AskSkin(owner, italian_, Skins(SiteSkin(), host_),
                                      QFileInfo(CurrentSkin(SiteSkin(), host_)).fileName());
    name = choice.skin;
    if (!name.isEmpty()) UseSkin(name, SiteSkin(), host_);
    if (choice.fromArchive) archive = AskSkinArchive(owner, italian_);
  }
  if (!archive.isEmpty()) name = InstallSkinArchive(archive, SiteSkin(), host_);
  if (!name.isEmpty()) TellSkinInstalled(owner, italian_, name);
  return {};
}

std::unique_ptr<IVorlinaPlugin> Factory::CreatePlugin(const VorlinaHost& host) {
  return std::make_unique<Plugin>(host);
}

std::unique_ptr<IVorlinaPublisher> Factory::CreatePublisher(const VorlinaHost& host) {
  return std::make_unique<SitePublisher>(host);
}

}  // namespace vlhtml
