// A disk that fails: while it is armed, SQLite's writing calls, or its reading ones, are counted and one of
// them, or all from one on, fail.
#pragma once

namespace vorlina {

class FaultVfs {
 public:
  // Stands in for the system's own layer as long as it lives.
  FaultVfs();
  ~FaultVfs();
  FaultVfs(const FaultVfs&) = delete;
  FaultVfs& operator=(const FaultVfs&) = delete;

  // Lets call number n fail, and with lasting every one behind it too, as on a full disk.
  enum class Calls { Writes, Reads };
  static void Arm(Calls calls, int n, bool lasting);
  static void Disarm();
  // Lets the next deletion of a file be done and reported as failed, as when the last sync of a commit fails.
  static void FailBehindDeletion();
  // Whether a call has failed since it was armed.
  static bool HasFailed();
};

}  // namespace vorlina
