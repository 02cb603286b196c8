#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include "base/Texts.h"
#include "batch/Commands.h"
#include "products/PictureImport.h"

namespace vorlina {
namespace {

QString ImportedText(int imported) {
  return imported == 1 ? Texts::tr("Importato 1 prodotto") : Texts::tr("Importati %1 prodotti").arg(imported);
}

QStringList PassedOverLines(const QStringList& names) {
  QStringList lines;
  for (const QString& name : names)
    lines += Texts::tr("Non importato: %1 (non è un file, o il nome non è leggibile)").arg(name);
  return lines;
}

}  // namespace

Outcome RunImport(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const QString folder = QFileInfo(arguments.file).absoluteFilePath();
  PictureImport import(folder, arguments.catalog, connection);
  Outcome outcome;
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
  outcome.text = (PassedOverLines(import.PassedOver()) << ImportedText(import.Imported())).join(u'\n');
  outcome.json = {{u"catalog"_qs, arguments.catalog},
                  {u"source"_qs, QDir::toNativeSeparators(folder)},
                  {u"pictures"_qs, import.Count()},
                  {u"imported"_qs, import.Imported()},
                  {u"passedOver"_qs, QJsonArray::fromStringList(import.PassedOver())}};
  return outcome;
}

}  // namespace vorlina
