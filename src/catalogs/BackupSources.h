// What belongs into a backup: the user's files beside the database, and whether the pictures that rows name
// are among them.
#pragma once

#include <QDateTime>
#include <QSet>
#include <QString>
#include <QStringList>
#include <vector>

#include "files/PathKeys.h"

namespace vorlina {

class Connection;

struct SourceFile {
  QString name;  // in the archive
  QString path;
  qint64 size = 0;
  QDateTime modified;
};

struct SourceFiles {
  std::vector<SourceFile> files;  // by name
  QStringList unreadable;         // folders that do not show what lies in them
};

// What lies in "Images" and "Layouts" of an application folder, and "CardLayout.lyt".
SourceFiles SourcesIn(const QString& root);

struct PictureGaps {
  QStringList missing;  // paths in rows for which there is nothing among the files
  QStringList outside;  // those that lie outside of "Images", so that no backup takes them
};

// Compares what the rows of a folder's database, or of a copy of it, name with the files that there are.
class PictureRows {
 public:
  explicit PictureRows(const QString& root) : root_(root) {}

  QString KeyOf(const QString& path) { return keys_.Of(path); }
  // present holds the keys of files. Throws Error.
  PictureGaps Compare(Connection& connection, const QSet<QString>& present);

 private:
  QString root_;
  files::PathKeys keys_;
};

// The paths in the rows of this folder's database for which there is no file. Throws Error.
QStringList MissingPicturesIn(Connection& connection);

// The pictures that rows of the application's database name and that are not there, as a message lists them,
// or why that cannot be told; "" where none is missing.
QString MissingPicturesText();

}  // namespace vorlina
