#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include "base/AppPath.h"
#include "base/Texts.h"
#include "batch/Commands.h"
#include "catalogs/Backup.h"
#include "catalogs/BackupSources.h"

namespace vorlina {
namespace {

Outcome OutcomeOf(const QString& file, const BackupManifest& manifest) {
  Outcome outcome;
  outcome.json = {{u"folder"_qs, AppPath()},
                  {u"file"_qs, QDir::toNativeSeparators(file)},
                  {u"files"_qs, qint64(manifest.files.size())},
                  {u"bytes"_qs, manifest.TotalSize()}};
  return outcome;
}

}  // namespace

Outcome RunBackup(Connection& connection, const Arguments& arguments, const Progress& progress) {
  const QString file = QFileInfo(arguments.file).absoluteFilePath();
  try {
    const BackupReport report =
        WriteBackup(connection, file, progress,
                    arguments.allowMissing ? MissingPictures::Allowed : MissingPictures::Refused);
    Outcome outcome = OutcomeOf(file, report.manifest);
    outcome.text = SavedText(file, report);
    outcome.json[u"missing"_qs] = QJsonArray::fromStringList(report.missing);
    outcome.json[u"outside"_qs] = QJsonArray::fromStringList(report.outside);
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
  QStringList warnings;
  const RestoreReport report = RestoreBackup(file, progress, [&](const QString& why) {
    // What there was stays whole beside, so that this is no reason to keep anybody from a restore.
    warnings += Texts::tr("Nessuna copia automatica del database: %1").arg(why);
    return true;
  });
  if (const QString missing = MissingPicturesText(); !missing.isEmpty()) warnings += missing;
  Outcome outcome = OutcomeOf(file, report.manifest);
  outcome.text = (warnings + QStringList(RestoredText(file, report))).join(u'\n');
  outcome.json[u"former"_qs] = QDir::toNativeSeparators(report.former);
  outcome.json[u"databaseAlone"_qs] = report.scope == RestoreScope::DatabaseAlone;
  outcome.json[u"warnings"_qs] = QJsonArray::fromStringList(warnings);
  return outcome;
}

}  // namespace vorlina
