#include "base/PathKeys.h"

#include <QDir>
#include <QFileInfo>

namespace vorlina {

QString PathKeys::Of(const QString& path) {
  const QString clean = QDir::fromNativeSeparators(path);
  const qsizetype cut = clean.lastIndexOf(u'/') + 1;
  const QString folder = clean.left(cut);
  auto known = folders_.find(folder);
  if (known == folders_.end()) {
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    known = folders_.insert(folder, canonical.isEmpty() ? QDir::cleanPath(folder) : canonical);
  }
  QString key = known.value() + u'/' + clean.mid(cut);
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
  return key.toCaseFolded();
#else
  return key;
#endif
}

}  // namespace vorlina
