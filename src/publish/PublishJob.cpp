#include "publish/PublishJob.h"

#include <QDir>
#include <QFileInfo>
#include <algorithm>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Texts.h"
#include "publish/PluginHost.h"
#include "publish/WebPictures.h"

namespace vorlina {
namespace {

// More than any catalog and any window needs.
constexpr qsizetype MostNotes = 50'000;
constexpr qsizetype LongestText = 2000;
constexpr qsizetype MostOptions = 20;
constexpr qsizetype MostChoices = 100;
constexpr qsizetype MostFiles = 20;

VorlinaNote Bounded(const VorlinaNote& note) {
  const auto kind = std::clamp(note.kind, VorlinaNote::Kind::NoPicture, VorlinaNote::Kind::Other);
  return {kind, note.product.left(LongestText), note.text.left(LongestText)};
}

QStringList FilesAmong(const QStringList& paths) {
  QStringList files;
  for (const QString& path : paths.mid(0, MostFiles))
    if (QDir::isAbsolutePath(path) && QFileInfo(path).isFile()) files += path;
  return files;
}

VorlinaReport Bounded(VorlinaReport report) {
  for (int* number : {&report.pages, &report.pictures, &report.added, &report.changed, &report.removed})
    *number = std::max(0, *number);
  report.bytes = std::max<qint64>(0, report.bytes);
  const qsizetype left = report.notes.size() - MostNotes;
  if (left > 0) report.notes.resize(MostNotes);
  for (VorlinaNote& note : report.notes) note = Bounded(note);
  if (left > 0) report.notes += {VorlinaNote::Kind::Other, {}, Texts::tr("Altre note: %1").arg(left)};
  report.open = FilesAmong(report.open);
  return report;
}

// The number of one of the choices, or a yes or no.
QVariant Fitted(const VorlinaOption& option, const QVariant& value) {
  if (option.choices.isEmpty()) return value.toBool();
  return std::clamp(value.toInt(), 0, int(option.choices.size()) - 1);
}

}  // namespace

VorlinaTarget TargetOf(IVorlinaPublisher& publisher) {
  VorlinaTarget target;
  CallPlugin([&] { target = publisher.Target(); });
  const auto odd = [](QChar c) { return !c.isLetterOrNumber(); };
  target.suffix = target.suffix.left(20);
  target.suffix.removeIf(odd);
  return target;
}

QList<VorlinaOption> OptionsOf(IVorlinaPublisher& publisher) {
  QList<VorlinaOption> told;
  CallPlugin([&] { told = publisher.Options(); });
  QList<VorlinaOption> options;
  QStringList keys;
  for (VorlinaOption& option : told) {
    if (option.key.isEmpty() || keys.contains(option.key) || options.size() == MostOptions) continue;
    option.choices = option.choices.mid(0, MostChoices);
    option.value = Fitted(option, option.value);
    keys += option.key;
    options += option;
  }
  return options;
}

void RequireTarget(const VorlinaTarget& kind, const QString& target) {
  const auto require = [](bool good, const QString& why, const QFileInfo& place) {
    if (!good) throw Error(why.arg(QDir::toNativeSeparators(place.filePath())));
  };
  QFileInfo place(target);
  if (kind.isFile) {
    require(!place.isDir(), Texts::tr("%1 è una cartella, e il plug-in fa un file"), place);
    place = QFileInfo(place.path());
  }
  const bool isThere = place.exists();
  while (!place.exists() && !place.isRoot()) place = QFileInfo(place.path());
  require(place.isDir(), Texts::tr("%1 è un file: scegliere una cartella."), place);
  require(isThere || place.isWritable(),
          Texts::tr("Nella cartella %1 non si può creare nulla. Controllare i permessi, o scegliere un'altra "
                    "cartella."),
          place);
}

VorlinaJob MakeJob(IVorlinaPublisher& publisher, int IDCatalogo, const VorlinaProfile& profile,
                   const QString& target, const QVariantMap& options) {
  VorlinaJob job;
  job.IDCatalogo = IDCatalogo;
  job.target = QFileInfo(target).absoluteFilePath();
  job.profile = profile;
  // Kept for when the language was changed by mistake.
  job.profile.sisters.removeIf(
      [&](const VorlinaSister& sister) { return sister.language == profile.language; });
  for (const VorlinaOption& option : OptionsOf(publisher))
    job.options[option.key] = Fitted(option, options.value(option.key, option.value));
  return job;
}

VorlinaReport RunJob(IVorlinaPublisher& publisher, Connection& connection, const VorlinaJob& job,
                     IVorlinaProgress& progress) {
  VorlinaReport report;
  TakeScratchUse();
  CallPlugin(connection,
             [&](IVorlinaConnection& adapter) { report = publisher.Publish(adapter, job, progress); });
  report = Bounded(std::move(report));
  if (TakeScratchUse())
    report.notes +=
        {VorlinaNote::Kind::Other,
         {},
         Texts::tr("Nella cartella %1 non si è potuto scrivere: le immagini per il web sono state "
                   "preparate in una cartella temporanea, e la prossima volta lo saranno di nuovo.")
             .arg(QDir::toNativeSeparators(AppFile(WebPicturesFolder)))};
  return report;
}

}  // namespace vorlina
