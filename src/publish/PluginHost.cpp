#include "publish/PluginHost.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>
#include <algorithm>
#include <map>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/Settings.h"
#include "publish/PluginConnection.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

#ifdef Q_OS_WIN
const QString LibrarySuffix = QStringLiteral(".dll");
#else
const QString LibrarySuffix = QStringLiteral(".so");
#endif

QString LibraryOf(const QString& identifier) {
  if (identifier.isEmpty() || !IsValidFileName(identifier))
    throw Error(
        EitherLanguage(u"\"%1\" non è il nome di un plug-in"_qs, u"\"%1\" is not the name of a plug-in"_qs)
            .arg(identifier));
  for (const QString& folder : {AppPath(), DeliveredPath()}) {
    QString path = QDir(folder).filePath(u"PubWiz/"_qs + identifier + LibrarySuffix);
    if (QFileInfo::exists(path)) return path;
  }
  throw Error(EitherLanguage(u"Il plug-in %1 non è installato: manca il file %2"_qs,
                             u"The plug-in %1 is not installed: the file %2 is missing"_qs)
                  .arg(identifier, AppFile(u"PubWiz/"_qs + identifier + LibrarySuffix)));
}

// Looks at the library's metadata alone, so that no code of a library of another version runs.
void CheckVersion(const QPluginLoader& loader) {
  const QString version = loader.metaData().value(u"IID"_qs).toString();
  if (version == QStringLiteral(VORLINA_PLUGIN_IID)) return;
  const QString path = QDir::toNativeSeparators(loader.fileName());
  if (version.startsWith(u"vorlina."))
    throw Error(EitherLanguage(
                    u"%1 è fatto per un'altra versione di Vorlina (%2). Installarne una versione adatta."_qs,
                    u"%1 is made for another version of Vorlina (%2). Install a version that fits."_qs)
                    .arg(path, version));
  throw Error(
      EitherLanguage(u"%1 non è un plug-in di Vorlina"_qs, u"%1 is not a plug-in of Vorlina"_qs).arg(path));
}

// Statements that fail one by one, each with its own report.
class Steps {
 public:
  explicit Steps(std::function<void()> failed) : failed_(std::move(failed)) {}

  template <class Step>
  void Try(Step&& step) const {
    try {
      CallPlugin(step);
    } catch (const std::exception&) {
      failed_();
    }
  }

 private:
  std::function<void()> failed_;
};

template <class T>
T& Needed(const std::unique_ptr<T>& object) {
  if (object == nullptr)
    throw Error(EitherLanguage(u"Il plug-in non è disponibile"_qs, u"The plug-in is not available"_qs));
  return *object;
}

void Require(bool condition) {
  if (!condition) throw Error(EitherLanguage(u"Voce non valida"_qs, u"The entry is not valid"_qs));
}

}  // namespace

QString DefaultPlugins() {
  return ByLanguage(u"VLFlash.FlashCD;VLFlash.FlashHTML;VLWord.WordCat;VLHTML.HTML"_qs,
                    u"VLFlash.FlashCD;VLFlash.FlashHTML;VLWord.WordCat"_qs);
}

QStringList PluginIdentifiers() {
  if (DefaultPlugins().isEmpty()) return {};
  return GetSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, DefaultPlugins()).split(u';');
}

QStringList InstalledPlugins(const QString& folder) {
  const QStringList libraries =
      QDir(folder + u"/PubWiz"_qs).entryList({u'*' + LibrarySuffix}, QDir::Files, QDir::Name);
  QStringList identifiers;
  for (const QString& library : libraries) identifiers += library.chopped(LibrarySuffix.size());
  return identifiers;
}

IVorlinaPluginFactory& PluginFactoryOf(const QString& identifier) {
  static std::map<QString, std::unique_ptr<QPluginLoader>> loaders;
  const QString path = LibraryOf(identifier);
  std::unique_ptr<QPluginLoader>& loader = loaders[path];
  if (loader == nullptr) loader = std::make_unique<QPluginLoader>(path);
  if (!loader->isLoaded()) {
    CheckVersion(*loader);
    if (!loader->load()) {
      const QString reason = loader->errorString();
      loader.reset();
      throw Error(EitherLanguage(u"Impossibile caricare il plug-in %1: %2"_qs,
                                 u"The plug-in %1 cannot be loaded: %2"_qs)
                      .arg(identifier, reason));
    }
  }
  auto* factory = qobject_cast<IVorlinaPluginFactory*>(loader->instance());
  if (factory == nullptr)
    throw Error(EitherLanguage(u"%1 non offre l'interfaccia dei plug-in di Vorlina"_qs,
                               u"%1 does not offer the plug-in interface of Vorlina"_qs)
                    .arg(identifier));
  return *factory;
}

VorlinaHost HostOfPlugins() { return {Language, AppPath(), DeliveredPath()}; }

std::unique_ptr<IVorlinaPlugin> CreatePlugin(const QString& identifier) {
  std::unique_ptr<IVorlinaPlugin> plugin;
  CallPlugin([&] { plugin = PluginFactoryOf(identifier).CreatePlugin(HostOfPlugins()); });
  Needed(plugin);
  return plugin;
}

void CallPlugin(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error&) {
    throw;
  } catch (const std::exception& error) {
    throw Error(DescriptionOf(error));
  } catch (...) {
    throw Error(EitherLanguage(u"Il plug-in ha segnalato un errore sconosciuto"_qs,
                               u"The plug-in reported an unknown error"_qs));
  }
}

void PublishCatalog(IVorlinaPlugin& plugin, Connection& connection, int IDCatalogo) {
  PluginConnection adapter(connection);
  struct Tidy {
    Connection& connection;
    ~Tidy() { connection.RollbackIfOpen(); }
  } const tidy{connection};
  CallPlugin([&] { plugin.Publish(adapter, IDCatalogo); });
}

PluginListing ListPlugins(const QStringList& identifiers,
                          const std::function<std::unique_ptr<IVorlinaPlugin>(const QString&)>& create,
                          const std::function<void(const QString&)>& failed) {
  PluginListing listing;
  std::vector<QString> pictures;
  const auto hasPicture = [&](const QString& identifier) {
    return std::find(pictures.begin(), pictures.end(), identifier) != pictures.end();
  };
  for (qsizetype i = 0; i < identifiers.size(); ++i) {
    const QString& identifier = identifiers[i];
    const Steps step([&] { failed(identifier); });
    std::unique_ptr<IVorlinaPlugin> plugin;
    QIcon icon;
    QString name;
    PluginEntry* entry = nullptr;
    step.Try([&] { plugin = create(identifier); });
    step.Try([&] { icon = Needed(plugin).GetPluginIcon(); });
    step.Try([&] { name = Needed(plugin).GetPluginName(); });
    step.Try([&] {
      Require(!icon.isNull() && !hasPicture(identifier));
      pictures.push_back(identifier);
    });
    step.Try([&] {
      const bool known =
          std::any_of(listing.entries.begin(), listing.entries.end(),
                      [&](const PluginEntry& other) { return other.identifier == identifier; });
      Require(hasPicture(identifier) && !known);
      entry = &listing.entries.emplace_back(PluginEntry{identifier, name, icon, {}});
    });
    step.Try([&] {
      Require(entry != nullptr);
      entry->description = Needed(plugin).GetPluginDescription();
    });
    listing.skins.push_back({identifier, name});
  }
  return listing;
}

}  // namespace vorlina
