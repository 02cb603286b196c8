// What a backup says of pictures that it lacks.
#pragma once

#include <QString>
#include <QStringList>

#include "base/Error.h"
#include "catalogs/BackupManifest.h"

namespace vorlina {

struct BackupReport {
  BackupManifest manifest;
  QStringList missing;  // pictures that rows name, and files that could not be read
  QStringList outside;  // pictures that rows name and that lie outside of "Images"
};

// Pictures that rows name are not there, so that a backup would lack them.
class MissingPicturesError : public Error {
 public:
  explicit MissingPicturesError(const QStringList& missing);
  const QStringList& Missing() const { return missing_; }

 private:
  QStringList missing_;
};

enum class MissingPictures { Refused, Allowed };

// What a backup holds, as a sentence without its stop, and what it lacks: a heading with its paths below, for
// each that there is. Paths are in native separators.
QString SavedText(const QString& file, const BackupReport& report);

// Those of these paths that fit into a message, and how many there are besides.
QString ListOfPaths(const QStringList& paths);

}  // namespace vorlina
