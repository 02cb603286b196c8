#include "catalogs/BackupReport.h"

#include <algorithm>

#include "base/Language.h"

namespace vorlina {
namespace {

constexpr qsizetype MostPaths = 20;

}  // namespace

QString ListOfPaths(const QStringList& paths) {
  QString list = u"  "_qs + paths.first(std::min(paths.size(), MostPaths)).join(u"\n  ");
  if (paths.size() > MostPaths)
    list += u"\n"_qs + EitherLanguage(u"  e altri %1"_qs, u"  and %1 more"_qs).arg(paths.size() - MostPaths);
  return list;
}

MissingPicturesError::MissingPicturesError(const QStringList& missing)
    : Error(EitherLanguage(u"La copia di sicurezza non è stata fatta, e quella di prima è rimasta com'era: "
                           u"mancano immagini, o non possono essere lette (%1)."_qs,
                           u"No backup was made, and a former one is as it was: pictures are missing, or "
                           u"cannot be read (%1)."_qs)
                .arg(missing.size()) +
            u'\n' + ListOfPaths(missing)),
      missing_(missing) {}

}  // namespace vorlina
