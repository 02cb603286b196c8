// Makes pictures for readers by several threads, into the cache or beside it.
#pragma once

#include <QList>
#include <QString>
#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

#include "images/DecodingBudget.h"
#include "images/PictureRendering.h"
#include "publish/WebPictureCache.h"

namespace vorlina {

// What was made of a source, in memory.
struct MadePictures {
  std::vector<ReaderPicture> sizes;
  QByteArray full;  // see CachedPicture::full; empty where nobody wants it
};

// Whether a picture is larger than the last of its sizes.
bool IsFullWanted(QSize picture, const QList<int>& limits);

// A source, and what was made of it.
struct WebPictureTask {
  QString source;        // full path
  QString name;          // by which the cache knows it
  QByteArray mark;       // of the source as it is; empty where it is not there
  bool settled = false;  // false: it may change once more without another mark
  QString fault;         // why nothing was made
  QString folder;        // in which the files lie
  CachedPicture made;    // of the sizes only those that are wanted
};

// The threads begin at once and end with it.
class WebPictureMaking {
 public:
  // The tasks must outlive it. `scratch` makes a folder for what the cache's own does not take.
  WebPictureMaking(std::vector<WebPictureTask*> tasks, const QList<int>& limits, WebPictureCache& cache,
                   std::function<QString()> scratch);
  ~WebPictureMaking() { Stop(); }
  WebPictureMaking(const WebPictureMaking&) = delete;
  WebPictureMaking& operator=(const WebPictureMaking&) = delete;

  // Waits for all, and enters them into the cache. False where a report of how many are done asked to stop.
  // Throws Error where files can be written nowhere.
  bool Finish(const std::function<bool(int)>& report);

 private:
  void Stop();
  void Work();
  void Enter(const WebPictureTask& task, const std::exception_ptr& failure);
  void Make(WebPictureTask& task);
  MadePictures Render(WebPictureTask& task);
  bool TryWrite(WebPictureTask& task, const MadePictures& pictures);
  QString Scratch();
  void Store();

  const std::vector<WebPictureTask*> tasks_;
  const QList<int> limits_;
  WebPictureCache& cache_;
  const std::function<QString()> scratch_;
  DecodingBudget budget_;

  std::mutex mutex_;
  std::condition_variable changed_;
  std::size_t begun_ = 0;
  std::size_t done_ = 0;
  std::atomic<bool> scratchInUse_ = false;
  std::exception_ptr failure_;
  std::vector<std::thread> workers_;
};

}  // namespace vorlina
