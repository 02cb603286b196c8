// Publishes a catalog as a web site into a folder: no window, no question.
#pragma once

#include "Publishing.h"

#include <IVorlinaPlugin.h>

#include <QString>
#include <QStringList>
#include <functional>

#include "Labels.h"

namespace vlhtml {

struct PublishResult {
  bool complete = false;  // false: the progress asked to stop, and the target is as it was
  int pages = 0;          // of the site
  int written = 0;        // files that were made or copied anew
  QStringList warnings;   // what was left out, or could not be deleted
};

// Asks whether the site of another catalog, which has this title, may be replaced.
using MayReplace = std::function<bool(const QString&)>;

// skin is a skin folder. A folder with another catalog's site is refused where nobody can be asked; the
// question comes before the first report and before anything is written. Throws an exception derived from
// std::exception, with the target as it was.
PublishResult PublishSite(IVorlinaConnection& connection, int IDCatalogo, const QString& folder,
                          const QString& skin, const Languages& languages, IVorlinaProgress& progress,
                          const MayReplace& mayReplace = {});

}  // namespace vlhtml
