// Where a backup comes to lie, and where it is got ready.
#pragma once

#include <QString>

#include "files/FolderLock.h"

namespace vorlina {

// Throws Error unless the name is free or that of a former backup: a slip of the fingers must not cost a file
// of another kind. Neither are links, pipes and devices replaced, nor is anything put where the program with
// the application folder root keeps its own.
void RequireReplaceable(const QString& file, const QString& root);

// A folder of its own beside the target, which goes with the object. Those that killed runs left there are
// removed first, not that of a run which goes on.
class BackupStaging {
 public:
  // Throws Error where the target's folder cannot be written.
  explicit BackupStaging(const QString& target);
  ~BackupStaging();
  BackupStaging(const BackupStaging&) = delete;
  BackupStaging& operator=(const BackupStaging&) = delete;

  QString Archive() const;
  QString Database() const;

 private:
  QString folder_;
  files::FolderLock hold_;
};

}  // namespace vorlina
