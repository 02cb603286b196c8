#include "catalogs/BackupSources.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <algorithm>

#include "base/AppPath.h"
#include "base/Texts.h"
#include "catalogs/BackupReport.h"
#include "images/PictureStore.h"
#include "store/CatalogDatabase.h"
#include "store/Connection.h"

namespace vorlina {
namespace {

// What pictures are worked on in; it holds nothing that lasts.
const QString ScratchName = QStringLiteral("temp.bmp");

void CollectFile(SourceFiles& sources, const QString& name, const QFileInfo& file) {
  if (file.isFile()) sources.files.push_back({name, file.filePath(), file.size(), file.lastModified()});
}

void CollectFolder(SourceFiles& sources, const QString& root, const QString& name) {
  const QFileInfo folder(QDir(root).filePath(name));
  if (folder.isDir() && !(folder.isReadable() && folder.isExecutable()))
    sources.unreadable += QDir::toNativeSeparators(folder.filePath());
  QDirIterator files(folder.filePath(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    files.next();
    if (files.fileName().compare(ScratchName, Qt::CaseInsensitive) != 0)
      CollectFile(sources, QDir(root).relativeFilePath(files.filePath()), files.fileInfo());
  }
}

}  // namespace

SourceFiles SourcesIn(const QString& root) {
  SourceFiles sources;
  CollectFolder(sources, root, u"Images"_qs);
  CollectFolder(sources, root, u"Layouts"_qs);
  CollectFile(sources, u"CardLayout.lyt"_qs, QFileInfo(QDir(root).filePath(u"CardLayout.lyt"_qs)));
  std::sort(sources.files.begin(), sources.files.end(),
            [](const SourceFile& a, const SourceFile& b) { return a.name < b.name; });
  return sources;
}

PictureGaps PictureRows::Compare(Connection& connection, const QSet<QString>& present) {
  const QString inside = KeyOf(root_ + u"/Images/"_qs);
  PictureGaps gaps;
  QSet<QString> seen;
  const auto compare = [&](const NamedPicture& picture) {
    const QString key = KeyOf(picture.path);
    if (present.contains(key) || seen.contains(key)) return;
    seen.insert(key);
    // A path that leads elsewhere and to nothing is that of a folder that was moved without its pictures.
    const bool elsewhere = !key.startsWith(inside) && QFileInfo(picture.path).isFile();
    (elsewhere ? gaps.outside : gaps.missing) += picture.path;
  };
  ForEachNamedPicture(connection, compare, root_);
  return gaps;
}

QStringList MissingPicturesIn(Connection& connection) {
  const QString root = QFileInfo(connection.DataSource()).absolutePath();
  PictureRows rows(root);
  QSet<QString> present;
  for (const SourceFile& file : SourcesIn(root).files) present.insert(rows.KeyOf(file.path));
  return rows.Compare(connection, present).missing;
}

QString MissingPicturesText() {
  try {
    Connection connection;
    connection.Open(ConnectionTextFor(AppFile(DatabaseName)));
    const QStringList missing = MissingPicturesIn(connection);
    if (missing.isEmpty()) return {};
    return Texts::tr("Immagini che mancano (%1):").arg(missing.size()) + u'\n' + ListOfPaths(missing);
  } catch (const Error& error) {
    return error.Description();
  }
}

}  // namespace vorlina
