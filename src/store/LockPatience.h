// How long the program waits for a database that another program holds.
#pragma once

#include <functional>

struct sqlite3;

namespace vorlina {

// While one lives, all statements of its thread together wait no longer than this. Statements outside of any
// wait the usual time each. One inside of another takes from what the outer one has left. No event loop, and
// so no box, may run while one lives: what it lets through would wait by another procedure's measure.
class LockPatience {
 public:
  static constexpr int UsualMilliseconds = 5000;

  explicit LockPatience(int milliseconds = UsualMilliseconds);
  ~LockPatience();
  LockPatience(const LockPatience&) = delete;
  LockPatience& operator=(const LockPatience&) = delete;

  // Has a connection of SQLite wait by these rules.
  static void Rule(sqlite3* connection);

  // Called with true again and again while a statement waits, from about a twentieth of a second on, and with
  // false when that is over. A statement is at work then: nothing that it calls may ask the database.
  static std::function<void(bool waits)> WhileWaiting;

 private:
  static int OnBusy(void*, int tries);
  bool Wait(int tries);

  LockPatience* outer_;
  int left_;
  int waited_ = 0;
  bool shown_ = false;
};

}  // namespace vorlina
