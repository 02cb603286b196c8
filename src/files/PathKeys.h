// Whether two paths name the same file, however they are written.
#pragma once

#include <QHash>
#include <QString>

namespace files {

// Gives each path a key that is equal for every way of writing it: with either separator, through links of
// folders, and with the file's name in any letter case, as there are file systems that do not tell them
// apart. A folder is asked for once.
class PathKeys {
 public:
  QString Of(const QString& path);
  // Where the file lies, links and ".." resolved; with "/" everywhere and none at its end.
  QString FolderOf(const QString& path);

 private:
  QHash<QString, QString> folders_;
};

}  // namespace files
