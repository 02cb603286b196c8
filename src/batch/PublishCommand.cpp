#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include "base/Texts.h"
#include "batch/Commands.h"
#include "publish/PluginHost.h"

namespace vorlina {
namespace {

// The progress of a plug-in, passed on.
class PluginProgress : public IVorlinaProgress {
 public:
  explicit PluginProgress(const Progress& progress) : progress_(progress) {}
  bool Report(int done, int total, const QString& step) override { return progress_(done, total, step); }

 private:
  const Progress& progress_;
};

std::unique_ptr<IVorlinaPublisher> PublisherOf(const QString& identifier) {
  std::unique_ptr<IVorlinaPublisher> publisher;
  CallPlugin([&] { publisher = PluginFactoryOf(identifier).CreatePublisher(HostOfPlugins()); });
  if (publisher == nullptr)
    throw Error(
        Texts::tr("Il plug-in %1 non pubblica senza finestre. Pubblicare il catalogo dal programma Vorlina.")
            .arg(identifier));
  return publisher;
}

}  // namespace

Outcome RunPublish(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const std::unique_ptr<IVorlinaPublisher> publisher = PublisherOf(arguments.plugin);
  const QString folder = QFileInfo(arguments.target).absoluteFilePath();
  PluginProgress pluginProgress(progress);
  VorlinaJob job;
  job.IDCatalogo = arguments.catalog;
  job.target = folder;
  job.profile.language = arguments.language == u"English" ? u"en"_qs : u"it"_qs;
  VorlinaReport report;
  CallPlugin(connection,
             [&](IVorlinaConnection& adapter) { report = publisher->Publish(adapter, job, pluginProgress); });
  QStringList warnings;
  for (const VorlinaNote& note : report.notes) warnings += note.text;

  Outcome outcome;
  outcome.ok = report.complete;
  outcome.json = {{u"catalog"_qs, arguments.catalog},
                  {u"plugin"_qs, arguments.plugin},
                  {u"target"_qs, QDir::toNativeSeparators(folder)},
                  {u"warnings"_qs, QJsonArray::fromStringList(warnings)}};
  if (report.complete)
    outcome.text =
        (warnings << Texts::tr("Il catalogo %1 è pubblicato in %2")
                         .arg(QString::number(arguments.catalog), QDir::toNativeSeparators(folder)))
            .join(u'\n');
  else
    outcome.error = Texts::tr("Pubblicazione interrotta. La cartella %1 è com'era.")
                        .arg(QDir::toNativeSeparators(folder));
  return outcome;
}

}  // namespace vorlina
