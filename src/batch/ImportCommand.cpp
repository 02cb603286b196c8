#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonObject>

#include "base/Texts.h"
#include "batch/Commands.h"
#include "products/PictureImport.h"

namespace vorlina {
namespace {

QStringList PassedOverLines(const std::vector<LeftOutFile>& files) {
  QStringList lines;
  for (const auto& [name, reason] : files) lines += Texts::tr("Non importato: %1 (%2)").arg(name, reason);
  return lines;
}

QJsonArray PassedOverList(const std::vector<LeftOutFile>& files) {
  QJsonArray list;
  for (const auto& [name, reason] : files) list += QJsonObject{{u"name"_qs, name}, {u"reason"_qs, reason}};
  return list;
}

}  // namespace

Outcome RunImport(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const QString folder = QFileInfo(arguments.file).absoluteFilePath();
  PictureImport import(folder, arguments.catalog, connection);
  Outcome outcome;
  const QString copy = import.Count() == 0 ? QString() : KeepCopy(BackupReason::Import, arguments);
  if (import.Count() == 0) {
    outcome.error = Texts::tr("Nessuna immagine 'jpg' nella cartella selezionata");
  } else {
    try {
      if (!import.Run(progress)) outcome.error = Stopped().Description();
    } catch (const std::exception& error) {
      outcome.error = DescriptionOf(error);
    }
  }
  outcome.ok = outcome.error.isEmpty();
  outcome.text = (PassedOverLines(import.PassedOver()) << ImportedText(import)).join(u'\n');
  outcome.json = {{u"catalog"_qs, arguments.catalog},
                  {u"source"_qs, QDir::toNativeSeparators(folder)},
                  {u"pictures"_qs, import.Count()},
                  {u"imported"_qs, import.Imported()},
                  {u"last"_qs, import.LastFile()},
                  {u"passedOver"_qs, PassedOverList(import.PassedOver())},
                  {u"copy"_qs, copy}};
  return outcome;
}

}  // namespace vorlina
