#include "catalogs/BackupReport.h"

#include <QDir>
#include <QLocale>
#include <algorithm>

#include "base/Texts.h"

namespace vorlina {
namespace {

constexpr qsizetype MostPaths = 20;

QString Lacking(const QStringList& paths, const QString& heading) {
  return paths.isEmpty() ? QString() : u'\n' + heading.arg(paths.size()) + u'\n' + ListOfPaths(paths);
}

}  // namespace

QString SavedText(const QString& file, const BackupReport& report) {
  const BackupManifest& manifest = report.manifest;
  return Texts::tr("Salvati in %1 e verificati: %2 file, %3")
             .arg(QDir::toNativeSeparators(file), QString::number(manifest.files.size()),
                  QLocale().formattedDataSize(manifest.TotalSize())) +
         Lacking(report.missing, Texts::tr("Mancano nella copia di sicurezza (%1):")) +
         Lacking(report.outside,
                 Texts::tr("Fuori dalla cartella \"Images\", e quindi non nella copia di sicurezza (%1):"));
}

QString ListOfPaths(const QStringList& paths) {
  QString list = u"  "_qs + paths.first(std::min(paths.size(), MostPaths)).join(u"\n  ");
  if (paths.size() > MostPaths) list += u"\n"_qs + Texts::tr("  e altri %1").arg(paths.size() - MostPaths);
  return list;
}

MissingPicturesError::MissingPicturesError(const QStringList& missing)
    : Error(Texts::tr("La copia di sicurezza non è stata fatta, e quella di prima è rimasta com'era: "
                      "mancano immagini, o non possono essere lette (%1).")
                .arg(missing.size()) +
            u'\n' + ListOfPaths(missing)),
      missing_(missing) {}

}  // namespace vorlina
