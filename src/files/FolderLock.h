// A folder that several programs work in together, or one alone. The lock goes with the process that has it
// and leaves no file behind.
#pragma once

#include <QString>

namespace files {

class FolderLock {
 public:
  FolderLock() = default;
  ~FolderLock() { Release(); }
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  // Joins those that work in the folder, or takes it alone. False when somebody else's lock did not let it
  // within the time, in which the call waits. True where the system, or the file system, has no such lock,
  // and where there is no folder.
  bool Share(const QString& folder, int milliseconds);
  bool TakeAlone(const QString& folder, int milliseconds);
  void Release() noexcept;
  // Whether the system really has the lock: what belongs to somebody else who has none may then be taken for
  // left behind.
  bool IsHeld() const { return held_; }

 private:
  bool Take(const QString& folder, int operation, int milliseconds);

  int descriptor_ = -1;
  bool held_ = false;
};

}  // namespace files
