// A folder that one publisher works in at a time. The lock goes with the process that has it and leaves no
// file behind.
#pragma once

#include <QString>

namespace publishing {

class FolderLock {
 public:
  FolderLock() = default;
  ~FolderLock() { Release(); }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  // False when somebody else has it. True where the system, or the file system, has no such lock.
  bool Take(const QString& folder);
  void Release() noexcept;

 private:
  int descriptor_ = -1;
};

}  // namespace publishing
