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
  void Warn(const QString& text) override { warnings += text; }

  QStringList warnings;

 private:
  const Progress& progress_;
};

std::unique_ptr<IVorlinaFolderPublisher> PublisherOf(const QString& identifier, const QString& language) {
  VorlinaHost host = HostOfPlugins();
  host.askedLanguage = language;
  std::unique_ptr<IVorlinaFolderPublisher> publisher;
  CallPlugin([&] { publisher = PluginFactoryOf(identifier).CreateFolderPublisher(host); });
  if (publisher == nullptr)
    throw Error(
        Texts::tr("Il plug-in %1 non pubblica senza finestre. Pubblicare il catalogo dal programma Vorlina.")
            .arg(identifier));
  return publisher;
}

}  // namespace

Outcome RunPublish(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const std::unique_ptr<IVorlinaFolderPublisher> publisher =
      PublisherOf(arguments.plugin, arguments.language);
  const QString folder = QFileInfo(arguments.target).absoluteFilePath();
  PluginProgress pluginProgress(progress);
  bool complete = false;
  CallPlugin(connection, [&](IVorlinaConnection& adapter) {
    complete = publisher->PublishTo(adapter, arguments.catalog, folder, pluginProgress);
  });

  Outcome outcome;
  outcome.ok = complete;
  outcome.json = {{u"catalog"_qs, arguments.catalog},
                  {u"plugin"_qs, arguments.plugin},
                  {u"target"_qs, QDir::toNativeSeparators(folder)},
                  {u"warnings"_qs, QJsonArray::fromStringList(pluginProgress.warnings)}};
  if (complete)
    outcome.text = (pluginProgress.warnings
                    << Texts::tr("Il catalogo %1 è pubblicato in %2")
                           .arg(QString::number(arguments.catalog), QDir::toNativeSeparators(folder)))
                       .join(u'\n');
  else
    outcome.error = Texts::tr("Pubblicazione interrotta. La cartella %1 è com'era.")
                        .arg(QDir::toNativeSeparators(folder));
  return outcome;
}

}  // namespace vorlina
