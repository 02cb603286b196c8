#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include "base/AppPath.h"
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

}  // namespace

Outcome RunBackup(Connection& connection, const Arguments& arguments, const Progress& progress) {
  const QString file = QFileInfo(arguments.file).absoluteFilePath();
  const BackupManifest manifest = WriteBackup(connection, file, progress);
  return OutcomeOf(file, manifest,
                   EitherLanguage(u"Salvati in %1 e verificati: %2 file, %3"_qs,
                                  u"Saved in %1 and verified: %2 files, %3"_qs));
}

Outcome RunRestore(const Arguments& arguments, const Progress& progress) {
  const QString file = QFileInfo(arguments.file).absoluteFilePath();
  const BackupManifest manifest = RestoreBackup(file, progress);
  return OutcomeOf(
      file, manifest,
      EitherLanguage(u"Ripristinati da %1: %2 file, %3"_qs, u"Restored from %1: %2 files, %3"_qs));
}

}  // namespace vorlina
