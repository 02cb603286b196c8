// Finds, checks and creates publishing plug-ins by their identifiers, and lists them. A plug-in's library
// stays loaded once it was used; its objects live for one use each.
#pragma once

#include <QIcon>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

#include "publish/plugin/IVorlinaPlugin.h"

namespace vorlina {

class Connection;

// The identifiers that the setting Plugins/Plugins has when it is missing, by language; "" for any other
// language.
QString DefaultPlugins();

// The setting split at ";", empty pieces included. No identifier at all when no language is set.
QStringList PluginIdentifiers();

// The identifiers of the libraries in "PubWiz" below a folder, by name.
QStringList InstalledPlugins(const QString& folder);

// The factory of the library named after the identifier in "PubWiz": the user's own first, then the delivered
// one. Throws Error when there is none, when it was built for another version of the interface, or when it
// cannot be loaded.
IVorlinaPluginFactory& PluginFactoryOf(const QString& identifier);

// What plug-ins are told of this program.
VorlinaHost HostOfPlugins();

// A new plug-in object in the program's language. Throws Error, also for what the plug-in itself throws.
std::unique_ptr<IVorlinaPlugin> CreatePlugin(const QString& identifier);

// Runs something that calls into a plug-in and turns whatever it throws into an Error.
void CallPlugin(const std::function<void()>& call);

// Hands the catalog to the plug-in and waits for it. A transaction that the plug-in leaves open is rolled
// back.
void PublishCatalog(IVorlinaPlugin& plugin, Connection& connection, int IDCatalogo);

// One entry of the list of plug-ins.
struct PluginEntry {
  QString identifier;  // the entry's key
  QString name;
  QIcon icon;
  QString description;  // the entry's tag
};

// One entry of the skin menu; its name stays empty when the plug-in failed.
struct SkinEntry {
  QString identifier;
  QString name;
};

// What the plug-in list and the skin menu show.
struct PluginListing {
  std::vector<PluginEntry> entries;
  std::vector<SkinEntry> skins;
};

// Lists the plug-ins in order. Each step of a plug-in that fails (creation, picture, name, adding the
// picture, adding the entry, the description) is reported by itself with the identifier, and the next step is
// taken all the same.
PluginListing ListPlugins(const QStringList& identifiers,
                          const std::function<std::unique_ptr<IVorlinaPlugin>(const QString&)>& create,
                          const std::function<void(const QString&)>& failed);

}  // namespace vorlina
