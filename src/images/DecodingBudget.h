// The memory that all threads together take for decoding pictures.
#pragma once

#include <QtGlobal>
#include <algorithm>
#include <condition_variable>
#include <mutex>

namespace vorlina {

// More threads would wait for the disk, and each takes memory.
inline constexpr int MostDecodingThreads = 4;

class DecodingBudget {
 public:
  // Waits until so many bytes are free, and has them as long as it lives. A picture that needs more than the
  // budget is decoded alone.
  class Share {
   public:
    Share(DecodingBudget& budget, qint64 bytes) : budget_(budget), bytes_(bytes) {
      std::unique_lock lock(budget_.mutex_);
      budget_.changed_.wait(lock, [this] { return budget_.used_ == 0 || budget_.used_ + bytes_ <= Bytes; });
      budget_.used_ += bytes_;
    }
    ~Share() {
      {
        const std::lock_guard lock(budget_.mutex_);
        budget_.used_ -= bytes_;
      }
      budget_.changed_.notify_all();
    }
    Share(const Share&) = delete;
    Share& operator=(const Share&) = delete;

   private:
    DecodingBudget& budget_;
    qint64 bytes_;
  };

 private:
  // A progressive picture of 24 megapixels takes 72 MB.
  static constexpr qint64 Bytes = 96LL * 1024 * 1024;

  std::mutex mutex_;
  std::condition_variable changed_;
  qint64 used_ = 0;
};

}  // namespace vorlina
