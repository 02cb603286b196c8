#include "store/LockPatience.h"

#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <thread>

namespace vorlina {
namespace {

// Milliseconds between two tries: locks of a moment are common, those of seconds are not.
constexpr int LongestPause = 50;
constexpr int PauseGrowth = 5;

// A wait that nobody notices is not shown.
constexpr int ShownFrom = 50;

thread_local LockPatience* current = nullptr;

}  // namespace

std::function<void(bool waits)> LockPatience::WhileWaiting;

LockPatience::LockPatience(int milliseconds)
    : outer_(current), left_(outer_ == nullptr ? milliseconds : std::min(milliseconds, outer_->left_)) {
  current = this;
}

LockPatience::~LockPatience() {
  current = outer_;
  if (shown_ && WhileWaiting) WhileWaiting(false);
}

void LockPatience::Rule(sqlite3* connection) { sqlite3_busy_handler(connection, OnBusy, nullptr); }

int LockPatience::OnBusy(void*, int tries) { return current != nullptr && current->Wait(tries) ? 1 : 0; }

bool LockPatience::Wait(int tries) {
  const int pause = std::min({1 + tries * PauseGrowth, LongestPause, left_});
  if (pause <= 0) return false;
  std::this_thread::sleep_for(std::chrono::milliseconds(pause));
  waited_ += pause;
  for (LockPatience* patience = this; patience != nullptr; patience = patience->outer_)
    patience->left_ -= pause;
  if (waited_ >= ShownFrom && WhileWaiting) {
    shown_ = true;
    WhileWaiting(true);
  }
  return true;
}

}  // namespace vorlina
