#include <QDir>
#include <QJsonArray>
#include <algorithm>

#include "base/Texts.h"
#include "batch/Commands.h"
#include "batch/Output.h"
#include "publish/NamedPictures.h"
#include "publish/PluginHost.h"
#include "publish/ProfileStore.h"
#include "publish/PublishJob.h"
#include "publish/PublishMemory.h"
#include "publish/ReportText.h"

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
  std::unique_ptr<IVorlinaPublisher> publisher = CreatePublisher(identifier);
  if (publisher == nullptr)
    throw Error(
        Texts::tr("Il plug-in %1 non pubblica senza finestre. Pubblicare il catalogo dal programma Vorlina.")
            .arg(identifier));
  return publisher;
}

// Where there are several, one may show what another one hides.
VorlinaProfile ChosenProfile(Connection& connection, const Arguments& arguments) {
  if (!arguments.profile.isEmpty()) return ReadProfile(connection, arguments.catalog, arguments.profile);
  const QList<VorlinaProfile> profiles = ReadProfiles(connection, arguments.catalog);
  QStringList names;
  for (const VorlinaProfile& profile : profiles) names += profile.name;
  if (names.size() > 1)
    throw Error(Texts::tr("Il catalogo %1 ha più profili; nominarne uno con --profile: %2")
                    .arg(QString::number(arguments.catalog), names.join(u", ")));
  return profiles.first();
}

VorlinaJob JobOf(IVorlinaPublisher& publisher, Connection& connection, const Arguments& arguments) {
  VorlinaProfile profile = ChosenProfile(connection, arguments);
  if (!arguments.published.isEmpty()) profile.language = arguments.published;
  const PublishMemory memory =
      RememberedPublication(connection, arguments.catalog, arguments.plugin, profile.identifier);
  return MakeJob(publisher, arguments.catalog, profile, arguments.target, memory.options);
}

// Nobody is there to see that all of them went.
void RequirePictures(Connection& connection, int IDCatalogo) {
  const QString fault = FaultOfAllPictures(connection, IDCatalogo);
  if (!fault.isEmpty())
    throw Error(fault + u' ' +
                Texts::tr("La pubblicazione resterebbe senza immagini, e nulla è stato fatto."));
}

QString KindOf(VorlinaNote::Kind kind) {
  static const QStringList names{u"no-picture"_qs, u"no-description"_qs, u"double-order"_qs, u"picture"_qs,
                                 u"other"_qs};
  return names.value(int(kind));
}

QString LineOf(const QString& code, const QString& text) {
  return code.isEmpty() ? text : code + u": "_qs + text;
}

QStringList LinesOf(const VorlinaReport& report) {
  QStringList lines;
  for (const ReportGroup& group : GroupsOf(report, {})) {
    QStringList notes;
    for (const ReportLine& line : group.lines) notes += LineOf(line.code, line.text);
    lines += u"%1 (%2)"_qs.arg(group.title).arg(notes.size());
    lines += FirstOf(notes);
  }
  return lines << NumbersOf(report) << ChangesOf(report);
}

QJsonObject JsonOf(const VorlinaJob& job, const QString& plugin, const VorlinaReport& report) {
  QJsonArray notes;
  QJsonArray warnings;
  for (const VorlinaNote& note : report.notes) {
    notes +=
        QJsonObject{{u"kind"_qs, KindOf(note.kind)}, {u"product"_qs, note.product}, {u"text"_qs, note.text}};
    warnings += LineOf(note.product, note.text);
  }
  return {{u"catalog"_qs, job.IDCatalogo},
          {u"plugin"_qs, plugin},
          {u"profile"_qs, job.profile.name},
          {u"language"_qs, job.profile.language},
          {u"target"_qs, QDir::toNativeSeparators(job.target)},
          {u"pages"_qs, report.pages},
          {u"pictures"_qs, report.pictures},
          {u"bytes"_qs, report.bytes},
          {u"added"_qs, report.added},
          {u"changed"_qs, report.changed},
          {u"removed"_qs, report.removed},
          {u"notes"_qs, notes},
          {u"warnings"_qs, warnings}};
}

}  // namespace

Outcome RunPublish(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const std::unique_ptr<IVorlinaPublisher> publisher = PublisherOf(arguments.plugin);
  const VorlinaJob job = JobOf(*publisher, connection, arguments);
  RequireTarget(TargetOf(*publisher), job.target);
  RequirePictures(connection, arguments.catalog);
  PluginProgress pluginProgress(progress);
  const VorlinaReport report = RunJob(*publisher, connection, job, pluginProgress);

  const QString target = QDir::toNativeSeparators(job.target);
  Outcome outcome;
  outcome.ok = report.complete;
  outcome.json = JsonOf(job, arguments.plugin, report);
  if (report.complete)
    outcome.text = (LinesOf(report) << Texts::tr("Il catalogo %1 è pubblicato in %2")
                                           .arg(QString::number(arguments.catalog), target))
                       .join(u'\n');
  else
    outcome.error = Texts::tr("Pubblicazione interrotta. %1 è com'era.").arg(target);
  return outcome;
}

}  // namespace vorlina
