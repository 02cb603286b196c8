// The plug-in "VLHTML.HTML": publishes a catalog as a plain web site.
#pragma once

#include <IVorlinaPlugin.h>

namespace vlhtml {

class Plugin : public IVorlinaPlugin {
 public:
  explicit Plugin(const VorlinaHost& host) : host_(host), italian_(host.language == u"Italian") {}

  QString GetPluginName() override;
  QIcon GetPluginIcon() override;
  // Asks for the folder and, the first time, for the language of the site, which are kept with the catalog,
  // and publishes with a progress window.
  QVariant Publish(IVorlinaConnection& connection, int& IDCatalogo) override;
  QString GetPluginDescription() override;
  // Installs a skin archive; when the text is empty, asks which of the skins is to be used, or for the file.
  QVariant InstallSkin(QString& skin) override;

 private:
  VorlinaHost host_;
  bool italian_;
};

class Factory : public QObject, public IVorlinaPluginFactory {
  Q_OBJECT
  Q_PLUGIN_METADATA(IID VORLINA_PLUGIN_IID)
  Q_INTERFACES(IVorlinaPluginFactory)

 public:
  std::unique_ptr<IVorlinaPlugin> CreatePlugin(const VorlinaHost& host) override;
  std::unique_ptr<IVorlinaPublisher> CreatePublisher(const VorlinaHost& host) override;
};

}  // namespace vlhtml
