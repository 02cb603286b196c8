#include "publish/PluginHost.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QPluginLoader>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <algorithm>
#include <deque>
#include <map>
#include <optional>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "publish/PluginConnection.h"
#include "publish/PluginLibrary.h"
#include "publish/WebPictures.h"
#include "store/Connection.h"
#include "support/Language.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(publish, "vorlina.publish", QtInfoMsg)

int callsAtWork = 0;

QString LibraryOf(const QString& identifier) {
  if (identifier.isEmpty() || !IsValidFileName(identifier))
    throw Error(Texts::tr("\"%1\" non è il nome di un plug-in").arg(identifier));
  QString unfit;
  for (const QString& folder : {AppPath(), DeliveredPath()}) {
    QString path = QDir(folder).filePath(u"PubWiz/"_qs + identifier + LibrarySuffix);
    if (!QFileInfo::exists(path)) continue;
    const LibraryFacts facts = FactsOf(path);
    if (facts.interface == QStringLiteral(VORLINA_PLUGIN_IID) && FitsOwnQt(facts.qt)) {
      if (!unfit.isEmpty()) qCWarning(publish).noquote() << unfit << "is passed over for" << path;
      return path;
    }
    if (unfit.isEmpty()) unfit = path;
  }
  if (!unfit.isEmpty()) return unfit;
  throw Error(Texts::tr("Il plug-in %1 non è installato: manca il file %2")
                  .arg(identifier, AppFile(u"PubWiz/"_qs + identifier + LibrarySuffix)));
}

// What the library's metadata tell, so that no code of a library of another version runs.
QString VersionOf(const QPluginLoader& loader) { return loader.metaData().value(u"IID"_qs).toString(); }

void CheckVersion(const QPluginLoader& loader) {
  const QString version = VersionOf(loader);
  if (version == QStringLiteral(VORLINA_PLUGIN_IID)) return;
  const QString path = QDir::toNativeSeparators(loader.fileName());
  if (version.startsWith(u"vorlina."))
    throw Error(
        Texts::tr("%1 è fatto per un'altra versione di Vorlina (%2). Installarne una versione adatta.")
            .arg(path, version.left(100).simplified()));
  throw Error(Texts::tr("%1 non è un plug-in di Vorlina").arg(path));
}

// Thrown where a statement has nothing to work on because an earlier one failed, which was logged then.
class FollowingFailure : public Error {
 public:
  FollowingFailure() : Error(Texts::tr("Il plug-in non è disponibile")) {}
};

template <class T>
auto& Needed(T& object) {
  if (!object) throw FollowingFailure();
  return *object;
}

// One plug-in on its way into the list, statement by statement, each with its own report.
class ListedPlugin {
 public:
  using Create = std::function<std::unique_ptr<IVorlinaPlugin>(const QString&)>;

  ListedPlugin(PluginListing& listing, QString identifier, std::function<void()> failed)
      : listing_(listing), identifier_(std::move(identifier)), failed_(std::move(failed)) {}

  bool Make(const Create& create) {
    Try([&] { plugin_ = create(identifier_); });
    return plugin_ != nullptr;
  }

  void Add() {
    std::optional<QIcon> icon;
    QString name;
    PluginEntry* entry = nullptr;
    Try([&] { icon = Needed(plugin_).GetPluginIcon(); });
    Try([&] { name = Needed(plugin_).GetPluginName(); });
    Try([&] {
      Needed(icon);
      if (IsListed()) throw Error(Texts::tr("è già nell'elenco"));
    });
    Try([&] {
      if (IsListed()) throw FollowingFailure();
      entry = &listing_.entries.emplace_back(PluginEntry{identifier_, name, Needed(icon), {}});
    });
    Try([&] { Needed(entry).description = Needed(plugin_).GetPluginDescription(); });
    listing_.skins.push_back({identifier_, name});
  }

 private:
  bool IsListed() const {
    return std::any_of(listing_.entries.begin(), listing_.entries.end(),
                       [this](const PluginEntry& other) { return other.identifier == identifier_; });
  }

  void Try(const std::function<void()>& statement) const {
    try {
      CallPlugin(statement);
      return;
    } catch (const FollowingFailure&) {
    } catch (const std::exception& error) {
      qCWarning(publish).noquote() << identifier_ + u':' << DescriptionOf(error);
    }
    failed_();
  }

  PluginListing& listing_;
  QString identifier_;
  std::function<void()> failed_;
  std::unique_ptr<IVorlinaPlugin> plugin_;
};

}  // namespace

QString DefaultPlugins() {
  const QString both = u"VLFlash.FlashCD;VLFlash.FlashHTML;VLWord.WordCat"_qs;
  return Language == u"English" ? both : both + u";VLHTML.HTML"_qs;
}

PluginChoice ChosenPlugins() {
  const QString named = GetSetting(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs, DefaultPlugins());
  QStringList identifiers = named.isEmpty() ? QStringList() : named.split(u';');
  if (IsSetByUser(ApplicationTitle(), u"Plugins"_qs, u"Plugins"_qs)) return {identifiers, true};
  for (const QString& installed : InstalledPlugins())
    if (!identifiers.contains(installed, Qt::CaseInsensitive)) identifiers += installed;
  return {identifiers, false};
}

QStringList InstalledPlugins() {
  QStringList identifiers;
  for (const QString& folder : {AppPath(), DeliveredPath()}) {
    const QStringList libraries =
        QDir(folder + u"/PubWiz"_qs).entryList({u'*' + LibrarySuffix}, QDir::Files, QDir::Name);
    for (const QString& library : libraries)
      if (const QString identifier = library.chopped(LibrarySuffix.size());
          !identifiers.contains(identifier, Qt::CaseInsensitive))
        identifiers += identifier;
  }
  return identifiers;
}

QString InterfaceOf(const QString& identifier) { return VersionOf(QPluginLoader(LibraryOf(identifier))); }

IVorlinaPluginFactory& PluginFactoryOf(const QString& identifier) {
  // What is installed while one is in use waits for the next start.
  static std::map<QString, std::unique_ptr<QPluginLoader>> loaders;
  std::unique_ptr<QPluginLoader>& loader = loaders[AppFile(u"PubWiz/"_qs + identifier)];
  if (loader == nullptr) {
    auto found = std::make_unique<QPluginLoader>(LibraryOf(identifier));
    CheckVersion(*found);
    if (!found->load())
      throw Error(Texts::tr("Impossibile caricare il plug-in %1: %2").arg(identifier, found->errorString()));
    loader = std::move(found);
  }
  auto* factory = qobject_cast<IVorlinaPluginFactory*>(loader->instance());
  if (factory == nullptr)
    throw Error(Texts::tr("%1 non offre l'interfaccia dei plug-in di Vorlina").arg(identifier));
  return *factory;
}

VorlinaHost HostOfPlugins(IVorlinaUi* ui) {
  return {Language, AppPath(), DeliveredPath(), &PicturesForReaders(), ui};
}

std::unique_ptr<IVorlinaPlugin> CreatePlugin(const QString& identifier, IVorlinaUi* ui) {
  std::unique_ptr<IVorlinaPlugin> plugin;
  CallPlugin([&] { plugin = PluginFactoryOf(identifier).CreatePlugin(HostOfPlugins(ui)); });
  if (plugin == nullptr) throw Error(Texts::tr("%1 non crea nessun plug-in").arg(identifier));
  return plugin;
}

std::unique_ptr<IVorlinaPublisher> CreatePublisher(const QString& identifier) {
  std::unique_ptr<IVorlinaPublisher> publisher;
  CallPlugin([&] { publisher = PluginFactoryOf(identifier).CreatePublisher(HostOfPlugins()); });
  return publisher;
}

bool PluginAtWork() { return callsAtWork > 0; }

void CallPlugin(const std::function<void()>& call) {
  const QScopedValueRollback atWork(callsAtWork, callsAtWork + 1);
  QString told;
  try {
    call();
    return;
  } catch (const Error&) {
    throw;
  } catch (const std::exception& error) {
    told = DescriptionOf(error);
  } catch (...) {
  }
  if (told.trimmed().isEmpty()) told = Texts::tr("Il plug-in ha segnalato un errore sconosciuto");
  throw Error(told);
}

void CallPlugin(Connection& connection, const std::function<void(IVorlinaConnection&)>& call) {
  // They stay for the run: a plug-in may hold on to its reference, which then throws.
  static std::deque<PluginConnection> adapters;
  PluginConnection& adapter = adapters.emplace_back(connection);
  const auto end = qScopeGuard([&] {
    adapter.End();
    connection.RollbackIfOpen();
  });
  CallPlugin([&] { call(adapter); });
}

void PublishCatalog(IVorlinaPlugin& plugin, Connection& connection, int IDCatalogo) {
  CallPlugin(connection, [&](IVorlinaConnection& adapter) { plugin.Publish(adapter, IDCatalogo); });
}

PluginListing ListPlugins(const PluginChoice& choice, const ListedPlugin::Create& create,
                          const std::function<void(const QString&)>& failed) {
  PluginListing listing;
  for (const QString& identifier : choice.identifiers) {
    ListedPlugin plugin(listing, identifier, [&] {
      if (choice.named) failed(identifier);
    });
    if (plugin.Make(create) || choice.named) plugin.Add();
  }
  return listing;
}

}  // namespace vorlina
