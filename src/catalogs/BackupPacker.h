// Fills the archive of a backup so that its database and its pictures belong together, while other programs
// may go on changing both.
#pragma once

#include <QSet>
#include <QStringList>
#include <map>
#include <vector>

#include "base/Progress.h"
#include "catalogs/BackupReport.h"
#include "catalogs/BackupSources.h"

namespace vorlina {

class BackupStaging;
class ZipWriter;

// A picture that was packed is another one now: the archive must be begun anew.
class ChangingError : public Error {
 public:
  ChangingError();
};

class BackupPacker {
 public:
  // All of them outlive the object.
  BackupPacker(Connection& connection, const BackupStaging& staging, const Progress& progress,
               MissingPictures missing);

  // Writes the archive, once. Throws Error, ChangingError among them.
  BackupReport Pack();
  // Reports so many bytes more as worked through.
  void Advance(qint64 bytes, const QString& step);

 private:
  void PackPictures(ZipWriter& writer);
  void Expect(const std::vector<SourceFile>& files, qint64 mark);
  void CompareRows(const QSet<QString>& present);
  void RequireComplete() const;
  void RequireUnchanged(const std::vector<SourceFile>& files) const;
  bool PackNew(ZipWriter& writer, const std::vector<SourceFile>& files);
  bool PackFile(ZipWriter& writer, const SourceFile& source);

  Connection& connection_;
  const BackupStaging& staging_;
  const Progress& progress_;
  MissingPictures missing_;
  QString root_;
  PictureRows rows_;
  BackupReport report_;
  QStringList unreadable_;
  std::map<QString, SourceFile> packed_;  // by name, as they were then
  QSet<QString> packedKeys_;
  qint64 total_ = 1;
  qint64 done_ = 0;
};

}  // namespace vorlina
