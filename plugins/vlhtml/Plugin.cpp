#include "Plugin.h"

#include <QFileInfo>
#include <memory>
#include <stdexcept>

#include "SkinFolders.h"
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
  SitePublisher publisher(host_);
  Ui().Publish(publisher, connection, IDCatalogo);
  return {};
}

QVariant Plugin::InstallSkin(QString& skin) {
  QString archive = skin;
  QString name;
  if (archive.isEmpty()) {
    const QStringList skins = Skins(SiteSkin(), host_);
    const int chosen = ChooseSkin(skins);
    if (chosen >= 0 && chosen < skins.size()) {
      name = skins[chosen];
      UseSkin(name, SiteSkin(), host_);
    } else if (chosen >= 0) {
      archive = Ui().ChooseFile(italian_ ? QStringLiteral("Installa skin") : QStringLiteral("Install skin"),
                                QStringLiteral("Skin (*.zip)"), QStringLiteral("Skin"));
    }
  }
  if (!archive.isEmpty()) name = InstallSkinArchive(archive, SiteSkin(), host_);
  if (!name.isEmpty())
    Ui().Tell((italian_ ? QStringLiteral("La skin \"%1\" sarà usata da ora in poi, per tutti i cataloghi.")
                        : QStringLiteral("The skin \"%1\" will be used from now on, for all catalogs."))
                  .arg(name));
  return {};
}

// The number of skins stands for an archive.
int Plugin::ChooseSkin(const QStringList& skins) {
  const qsizetype current = skins.indexOf(QFileInfo(CurrentSkin(SiteSkin(), host_)).fileName());
  return Ui().Choose(italian_ ? QStringLiteral("Skin del sito") : QStringLiteral("Skin of the site"),
                     italian_ ? QStringLiteral("Quale aspetto hanno i siti alla prossima pubblicazione?")
                              : QStringLiteral("What do sites look like when they are published next?"),
                     skins, int(current),
                     italian_ ? QStringLiteral("&Installa da un archivio...")
                              : QStringLiteral("&Install from an archive..."));
}

IVorlinaUi& Plugin::Ui() const {
  if (host_.ui == nullptr)
    throw std::runtime_error(italian_ ? "Questo comando ha bisogno delle finestre di Vorlina."
                                      : "This command needs the windows of Vorlina.");
  return *host_.ui;
}

std::unique_ptr<IVorlinaPlugin> Factory::CreatePlugin(const VorlinaHost& host) {
  return std::make_unique<Plugin>(host);
}

std::unique_ptr<IVorlinaPublisher> Factory::CreatePublisher(const VorlinaHost& host) {
  return std::make_unique<SitePublisher>(host);
}

}  // namespace vlhtml
