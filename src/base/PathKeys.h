// Whether two paths name the same file, however they are written.
#pragma once

#include <QHash>
#include <QString>

namespace vorlina {

// Gives each path a key that is equal for every way of writing it: with either separator, through links of
// folders, and in any letter case where the system does not tell them apart. A folder is asked for once.
class PathKeys {
 public:
  QString Of(const QString& path);

 private:
  QHash<QString, QString> folders_;
};

}  // namespace vorlina
