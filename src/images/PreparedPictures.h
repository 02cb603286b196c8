// Pictures for a catalog, decoded and encoded ahead on worker threads and given in order.
#pragma once

#include <QByteArray>
#include <QStringList>
#include <condition_variable>
#include <exception>
#include <functional>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

#include "images/DecodingBudget.h"
#include "images/PictureRendering.h"

namespace vorlina {

// What Next gives is as if each file were prepared at that moment, one after the other. Memory is bounded: a
// few pictures wait to be taken, and the workers share a budget for decoding.
class PreparedPictures {
 public:
  // Begins at once. No more than four threads are used.
  PreparedPictures(QStringList files, double limit, const PictureSettings& settings,
                   int threads = int(std::thread::hardware_concurrency()));
  // Gives up what was not taken.
  ~PreparedPictures();
  PreparedPictures(const PreparedPictures&) = delete;
  PreparedPictures& operator=(const PreparedPictures&) = delete;

  // The next file's picture; waits for it. Throws what preparing it threw: Error for a file that cannot be
  // read or is no whole JPEG picture. To be called once per file.
  // What is given to do meanwhile is done again and again as long as it waits, every few milliseconds.
  using Meanwhile = std::function<void()>;
  PreparedPicture Next(const Meanwhile& meanwhile = {});
  // Ends before the last file: nothing more is begun, and what is being prepared is waited for.
  void GiveUp(const Meanwhile& meanwhile);

 private:
  struct Outcome {
    PreparedPicture picture;
    std::exception_ptr failure;
  };

  void WaitFor(std::unique_lock<std::mutex>& lock, const std::function<bool()>& done,
               const Meanwhile& meanwhile);
  void Work();
  Outcome Prepare(const QString& file);
  PreparedPicture WithinBudget(const QString& file, const QByteArray& jpeg);

  const QStringList files_;
  const double limit_;
  const PictureSettings settings_;
  std::size_t ahead_;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t begun_ = 0;  // files that a worker has taken up
  std::size_t taken_ = 0;  // files that Next has given
  std::map<std::size_t, Outcome> ready_;
  DecodingBudget budget_;
  std::size_t working_ = 0;  // files that are being prepared
  bool stopping_ = false;
  std::vector<std::thread> workers_;
};

}  // namespace vorlina
