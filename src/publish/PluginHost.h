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

// Which plug-ins are to be listed.
struct PluginChoice {
  QStringList identifiers;
  bool named = false;  // by the user's settings
};

// What the user's setting names, split at ";": nothing where it is empty, otherwise with the empty pieces.
// Where the user has none, what was delivered with the program names, or else the defaults of the language,
// and then what else lies in "PubWiz".
PluginChoice ChosenPlugins();

// The identifiers of the libraries in "PubWiz", by name: those of the application folder, then those that
// were delivered.
QStringList InstalledPlugins();

// The factory of the library named after the identifier in "PubWiz": the user's own first, then the delivered
// one, which also counts where the user's own is for another version of the interface or a newer Qt. Once it
// was loaded it stays the same as long as the program runs. Throws Error when there is none, when it was
// built for another version of the interface, or when it cannot be loaded.
IVorlinaPluginFactory& PluginFactoryOf(const QString& identifier);

// The version of the interface that the identifier's library was built for, of which no code runs; "" for
// what is no plug-in. Throws Error where there is none.
QString InterfaceOf(const QString& identifier);

// What plug-ins are told of this program, and the windows that it shows for them.
VorlinaHost HostOfPlugins(IVorlinaUi* ui = nullptr);

// A new plug-in object in the program's language; the windows outlive it. Throws Error, also for what the
// plug-in itself throws.
std::unique_ptr<IVorlinaPlugin> CreatePlugin(const QString& identifier, IVorlinaUi* ui = nullptr);

// The part of a plug-in that publishes without windows; null where it has none. Throws Error.
std::unique_ptr<IVorlinaPublisher> CreatePublisher(const QString& identifier);

// Whether a plug-in has been called and is not done.
bool PluginAtWork();

// Runs something that calls into a plug-in and turns whatever it throws into an Error.
void CallPlugin(const std::function<void()>& call);

// The same with a connection. When the call ends, rows that are still open are closed and a transaction that
// was left open is rolled back; the connection and rows that the plug-in kept throw from then on.
void CallPlugin(Connection& connection, const std::function<void(IVorlinaConnection&)>& call);

// Hands the catalog to the plug-in and waits for it. Throws Error.
void PublishCatalog(IVorlinaPlugin& plugin, Connection& connection, int IDCatalogo);

// One entry of the list of plug-ins.
struct PluginEntry {
  QString identifier;  // the entry's key
  QString name;
  QIcon icon;           // may be empty
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
// taken all the same; the reason goes to the log. Of plug-ins that the user did not name nothing is reported,
// and one that cannot be created is passed over.
PluginListing ListPlugins(const PluginChoice& choice,
                          const std::function<std::unique_ptr<IVorlinaPlugin>(const QString&)>& create,
                          const std::function<void(const QString&)>& failed);

}  // namespace vorlina
