#include "PathKeys.h"

#include <QDir>
#include <QFileInfo>

namespace files {

QString PathKeys::FolderOf(const QString& path) {
  const QString clean = QDir::fromNativeSeparators(path);
  const QString folder = clean.left(clean.lastIndexOf(u'/') + 1);
  auto known = folders_.find(folder);
  if (known == folders_.end()) {
    const QString canonical = QFileInfo(folder).canonicalFilePath();
    known = folders_.insert(folder, canonical.isEmpty() ? QDir::cleanPath(folder) : canonical);
  }
  return known.value();
}

QString PathKeys::Of(const QString& path) {
  const QString clean = QDir::fromNativeSeparators(path);
  const QString name = clean.mid(clean.lastIndexOf(u'/') + 1).toCaseFolded();
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
  return FolderOf(path).toCaseFolded() + u'/' + name;
#else
  return FolderOf(path) + u'/' + name;
#endif
}

}  // namespace files
