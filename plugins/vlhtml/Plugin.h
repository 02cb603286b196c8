// The plug-in "VLHTML.HTML": publishes a catalog as a plain web site.
#pragma once

#include <IVorlinaPlugin.h>

namespace vlhtml {

class Plugin : public IVorlinaPlugin {
 public:
  explicit Plugin(const VorlinaHost& host) : host_(host), italian_(host.language == u"Italian") {}

  QString GetPluginName() override;
  QIcon GetPluginIcon() override;
  // In the program's window for publishing.
  QVariant Publish(IVorlinaConnection& connection, int& IDCatalogo) override;
  QString GetPluginDescription() override;
  // Installs a skin archive; when the text is empty, asks which of the skins is to be used, or for the file.
  QVariant InstallSkin(QString& skin) override;

 private:
  int ChooseSkin(const QStringList& skins);
  IVorlinaUi& Ui() const;

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
