#include <QDir>
#include <QFileInfo>
#include <QJsonArray>

#include "batch/Commands.h"
#include "products/PictureImport.h"

namespace vorlina {
namespace {

QString ImportedText(int imported) {
  return imported == 1
             ? EitherLanguage(u"Importato 1 prodotto"_qs, u"Imported 1 product"_qs)
             : EitherLanguage(u"Importati %1 prodotti"_qs, u"Imported %1 products"_qs).arg(imported);
}

QStringList PassedOverLines(const QStringList& names) {
  QStringList lines;
  for (const QString& name : names)
    lines += EitherLanguage(u"Non importato: %1 (non è un file, o il nome non è leggibile)"_qs,
                            u"Not imported: %1 (it is no file, or its name cannot be read)"_qs)
                 .arg(name);
  return lines;
}

}  // namespace

Outcome RunImport(Connection& connection, const Arguments& arguments, const Progress& progress) {
  RequireCatalog(connection, arguments.catalog);
  const QString folder = QFileInfo(arguments.file).absoluteFilePath();
  PictureImport import(folder, arguments.catalog, connection);
  Outcome outcome;
  if (import.Count() == 0) {
    outcome.error = EitherLanguage(u"Nessuna immagine 'jpg' nella cartella selezionata"_qs,
                                   u"No'jpg' images in the selected folder"_qs);
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
