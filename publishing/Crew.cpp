#include "Crew.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace publishing {
namespace {

constexpr std::size_t MostThreads = 4;
constexpr std::chrono::milliseconds BetweenReports{15};

class Crew {
 public:
  Crew(std::size_t count, const std::function<Work()>& begin) : count_(count), begin_(begin) {
    const std::size_t wanted = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, MostThreads);
    for (std::size_t i = 0; i < std::min(wanted, count); ++i) {
      try {
        threads_.emplace_back([this] { Run(); });
      } catch (const std::system_error&) {
        break;  // fewer than were wanted
      }
    }
    if (threads_.empty() && count > 0) {
      threads_.emplace_back();  // this one works itself
      Run();
    }
  }
  ~Crew() {
    Stop();
    for (std::thread& thread : threads_)
      if (thread.joinable()) thread.join();
  }
  Crew(const Crew&) = delete;
  Crew& operator=(const Crew&) = delete;

  // Waits a moment; false when all have ended.
  bool IsWorking() {
    std::unique_lock lock(mutex_);
    return !finished_.wait_for(lock, BetweenReports, [this] { return ended_ == threads_.size(); });
  }
  int Done() const { return int(done_); }
  void Stop() { stop_ = true; }
  void ThrowFailure() const {
    if (failure_) std::rethrow_exception(failure_);
  }

 private:
  void Run() {
    std::exception_ptr failure;
    try {
      const Work work = begin_();
      for (std::size_t i = next_++; i < count_ && !stop_; i = next_++) {
        work(i);
        ++done_;
      }
    } catch (...) {
      failure = std::current_exception();
      stop_ = true;
    }
    const std::lock_guard lock(mutex_);
    if (!failure_) failure_ = failure;
    ++ended_;
    finished_.notify_all();
  }

  const std::size_t count_;
  const std::function<Work()>& begin_;
  std::atomic<std::size_t> next_{0}, done_{0};
  std::atomic<bool> stop_{false};
  std::mutex mutex_;
  std::condition_variable finished_;
  std::size_t ended_ = 0;
  std::exception_ptr failure_;
  std::vector<std::thread> threads_;
};

}  // namespace

bool DoTogether(std::size_t count, const std::function<Work()>& begin,
                const std::function<bool(int)>& report) {
  if (!report(0)) return false;
  Crew crew(count, begin);
  bool wanted = true;
  while (crew.IsWorking())
    if (wanted && !report(crew.Done())) {
      wanted = false;
      crew.Stop();
    }
  crew.ThrowFailure();
  return wanted;
}

}  // namespace publishing
