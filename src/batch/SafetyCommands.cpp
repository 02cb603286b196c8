#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QLocale>

#include "base/AppPath.h"
#include "base/Texts.h"
#include "batch/Commands.h"
#include "catalogs/Backup.h"

namespace vorlina {
namespace {

Outcome OutcomeOf(const QString& file, const BackupManifest& manifest, const QString& text) {
  Outcome outcome;
  outcome.json = {{u"folder"_qs, AppPath()},
                  {u"file"_qs, QDir::toNativeSeparators(file)},
                  {u"files"_qs, qint64(manifest.files.size())},
                  {u"bytes"_qs, manifest.TotalSize()}};
  outcome.text = text.arg(QDir::toNativeSeparators(file), QString::number(manifest.files.size()),
                          QLocale().formattedDataSize(manifest.TotalSize()));
  return outcome;
}

void Add(Outcome& outcome, const QString& member, const QStringList& paths, const QString& heading) {
  outcome.json[member] = QJsonArray::fromStringList(paths);
  if (!paths.isEmpty()) outcome.text += u'\n' + heading.arg(paths.size()) + u'\n' + ListOfPaths(paths);
}

}  // namespace

Outcome RunBackup(Connection& connection, const Arguments& arguments, const Progress& progress) {
  const QString file = QFileInfo(arguments.file).absoluteFilePath();
  try {
    const BackupReport report =
        WriteBackup(connection, file, progress,
                    arguments.allowMissing ? MissingPictures::Allowed : MissingPictures::Refused);
    Outcome outcome = OutcomeOf(file, report.manifest, Texts::tr("Salvati in %1 e verificati: %2 file, %3"));
    Add(outcome, u"missing"_qs, report.missing, Texts::tr("Mancano nella copia di sicurezza (%1):"));
    Add(outcome, u"outside"_qs, report.outside,
        Texts::tr("Fuori dalla cartella \"Images\", e quindi non nella copia di sicurezza (%1):"));
    return outcome;
  } catch (const MissingPicturesError& error) {
    Outcome outcome;
    outcome.ok = false;
    outcome.json = {{u"missing"_qs, QJsonArray::fromStringList(error.Missing())}};
    outcome.error = error.Description() + u'\n' +
                    Texts::tr("Rimetterle al loro posto, o aggiungere --allow-missing per salvare il resto.");
    return outcome;
  }
}

Outcome RunRestore(const Arguments& arguments, const Progress& progress) {
  const QString file = QFileInfo(arguments.file).absoluteFilePath();
  const RestoreReport report = RestoreBackup(file, progress);
  Outcome outcome = OutcomeOf(file, report.manifest, Texts::tr("Ripristinati da %1: %2 file, %3"));
  const QString former = QDir::toNativeSeparators(report.former);
  outcome.json[u"former"_qs] = former;
  if (!former.isEmpty())
    outcome.text +=
        u'\n' + Texts::tr("Quel che c'era prima resta in %1 fino al prossimo ripristino.").arg(former);
  return outcome;
}

}  // namespace vorlina
