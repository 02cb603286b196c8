#include <QJsonArray>

#include "base/Texts.h"
#include "batch/Commands.h"
#include "batch/Output.h"
#include "publish/PluginHost.h"
#include "publish/PublishJob.h"

namespace vorlina {
namespace {

// Those that the settings name, in their order, then what lies in "PubWiz" besides.
QStringList AllIdentifiers() {
  QStringList identifiers;
  if (const PluginChoice chosen = ChosenPlugins(); chosen.named) identifiers = chosen.identifiers;
  identifiers.removeAll(QString());
  for (const QString& identifier : InstalledPlugins())
    if (!identifiers.contains(identifier, Qt::CaseInsensitive)) identifiers += identifier;
  identifiers.removeDuplicates();
  return identifiers;
}

struct Listed {
  QString identifier;
  QString name;
  QString description;
  bool publishes = false;  // without windows
  VorlinaTarget target;
  QString error;
};

// The picture is not asked for: nothing shows it.
Listed Look(const QString& identifier) {
  Listed listed{identifier, {}, {}, false, {}, {}};
  try {
    const std::unique_ptr<IVorlinaPlugin> plugin = CreatePlugin(identifier);
    CallPlugin([&] {
      listed.name = plugin->GetPluginName();
      listed.description = plugin->GetPluginDescription();
    });
    const std::unique_ptr<IVorlinaPublisher> publisher = CreatePublisher(identifier);
    listed.publishes = publisher != nullptr;
    if (publisher) listed.target = TargetOf(*publisher);
  } catch (const Error& error) {
    listed.error = error.Description();
  }
  return listed;
}

}  // namespace

Outcome RunPlugins() {
  QJsonArray plugins;
  std::vector<QStringList> lines;
  for (const QString& identifier : AllIdentifiers()) {
    const Listed listed = Look(identifier);
    plugins.append(QJsonObject{{u"identifier"_qs, listed.identifier},
                               {u"installed"_qs, listed.error.isEmpty()},
                               {u"name"_qs, listed.name},
                               {u"description"_qs, listed.description},
                               {u"publishesToFolder"_qs, listed.publishes && !listed.target.isFile},
                               {u"publishesToFile"_qs, listed.publishes && listed.target.isFile},
                               {u"suffix"_qs, listed.target.suffix},
                               {u"error"_qs, listed.error}});
    const QString usable = listed.publishes ? Texts::tr("sì") : u"no"_qs;
    lines.push_back({identifier, usable, (listed.error.isEmpty() ? listed.name : listed.error).simplified()});
  }
  Outcome outcome;
  outcome.json = {{u"plugins"_qs, plugins}};
  outcome.text = Table({Texts::tr("Identificatore"), Texts::tr("Con publish"), Texts::tr("Nome")}, lines);
  return outcome;
}

}  // namespace vorlina
