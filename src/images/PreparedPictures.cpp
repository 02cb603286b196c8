#include "images/PreparedPictures.h"

#include <algorithm>
#include <chrono>
#include <system_error>

#include "base/Error.h"
#include "images/ImagePipeline.h"

namespace vorlina {
namespace {

// Between two turns at what is done while a picture is waited for: short enough for a window to follow the
// hand.
constexpr std::chrono::milliseconds Turn{10};

}  // namespace

PreparedPictures::PreparedPictures(QStringList files, double limit, const PictureSettings& settings,
                                   int threads)
    : files_(std::move(files)),
      limit_(limit),
      settings_(settings),
      ahead_(std::size_t(std::clamp(threads, 1, MostDecodingThreads)) * 2) {
  const int useful = std::clamp(std::min(threads, MostDecodingThreads), 1, std::max(1, int(files_.size())));
  workers_.reserve(std::size_t(useful));
  for (int i = 0; i < useful; ++i) {
    try {
      workers_.emplace_back([this] { Work(); });
    } catch (const std::system_error&) {
      if (workers_.empty()) throw;
      return;  // fewer than were wanted
    }
  }
}

PreparedPictures::~PreparedPictures() {
  {
    const std::lock_guard lock(mutex_);
    stopping_ = true;
  }
  changed_.notify_all();
  for (std::thread& worker : workers_) worker.join();
}

void PreparedPictures::GiveUp(const Meanwhile& meanwhile) {
  std::unique_lock lock(mutex_);
  stopping_ = true;
  changed_.notify_all();
  WaitFor(
      lock, [this] { return working_ == 0; }, meanwhile);
}

void PreparedPictures::WaitFor(std::unique_lock<std::mutex>& lock, const std::function<bool()>& done,
                               const Meanwhile& meanwhile) {
  if (!meanwhile) return changed_.wait(lock, done);
  while (!changed_.wait_for(lock, Turn, done)) {
    lock.unlock();
    meanwhile();
    lock.lock();
  }
}

PreparedPicture PreparedPictures::Next(const Meanwhile& meanwhile) {
  std::unique_lock lock(mutex_);
  WaitFor(
      lock, [this] { return ready_.count(taken_) > 0; }, meanwhile);
  Outcome outcome = std::move(ready_.extract(taken_).mapped());
  ++taken_;
  lock.unlock();
  changed_.notify_all();
  if (outcome.failure) std::rethrow_exception(outcome.failure);
  return std::move(outcome.picture);
}

void PreparedPictures::Work() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return stopping_ || begun_ < taken_ + ahead_; });
    if (stopping_ || begun_ == std::size_t(files_.size())) return;
    const std::size_t number = begun_++;
    ++working_;
    lock.unlock();
    Outcome outcome = Prepare(files_[qsizetype(number)]);
    lock.lock();
    --working_;
    ready_.emplace(number, std::move(outcome));
    changed_.notify_all();
  }
}

PreparedPictures::Outcome PreparedPictures::Prepare(const QString& file) {
  Outcome outcome;
  try {
    const QByteArray jpeg = ReadPictureFile(file);
    outcome.picture = WithinBudget(file, jpeg);
  } catch (...) {
    outcome.failure = std::current_exception();
  }
  return outcome;
}

PreparedPicture PreparedPictures::WithinBudget(const QString& file, const QByteArray& jpeg) {
  try {
    const DecodingBudget::Share share(budget_,
                                      RenderingMemory(ReadJpegHead(jpeg), limit_, settings_) + jpeg.size());
    return PrepareMain(jpeg, limit_, settings_);
  } catch (const Error& error) {
    RefuseFile(file, error.Description());
  }
}

}  // namespace vorlina
