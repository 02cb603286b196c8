#include <QDir>
#include <QFileInfo>

#include "batch/Commands.h"
#include "products/PictureImport.h"

namespace vorlina {
namespace {

QString ImportedText(int imported) {
  return imported == 1
             ? EitherLanguage(u"Importato 1 prodotto"_qs, u"Imported 1 product"_qs)
             : EitherLanguage(u"Importati %1 prodotti"_qs, u"Imported %1 products"_qs).arg(imported);
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
  outcome.text = ImportedText(import.Imported());
  outcome.json = {{u"catalog"_qs, arguments.catalog},
                  {u"source"_qs, QDir::toNativeSeparators(folder)},
                  {u"pictures"_qs, import.Count()},
                  {u"imported"_qs, import.Imported()}};
  return outcome;
}

}  // namespace vorlina
