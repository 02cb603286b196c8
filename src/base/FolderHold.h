// A hold on an application folder, kept by every program that works with its database, so that a restore
// never takes the files away from under another one. It goes with the process that has it and leaves no file
// behind.
#pragma once

#include <QString>

namespace vorlina {

class FolderHold {
 public:
  FolderHold() = default;
  ~FolderHold() { Release(); }
  FolderHold(const FolderHold&) = delete;
  FolderHold& operator=(const FolderHold&) = delete;

  // Joins those that work with the folder, or takes it alone. False when that did not succeed within the
  // time, in which the call waits. True where the system has no such hold: there a file in use cannot be
  // renamed.
  bool Share(const QString& folder, int milliseconds);
  bool TakeAlone(const QString& folder, int milliseconds);
  void Release() noexcept;
  // Whether the system really holds it: what belongs to somebody else who has no hold may then be taken for
  // left behind.
  bool IsHeld() const { return held_; }

 private:
  bool Take(const QString& folder, int operation, int milliseconds);

  int descriptor_ = -1;
  bool held_ = false;
};

}  // namespace vorlina
