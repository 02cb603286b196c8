#include "catalogs/BackupReport.h"

#include <algorithm>

#include "base/Texts.h"

namespace vorlina {
namespace {

constexpr qsizetype MostPaths = 20;

}  // namespace

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
