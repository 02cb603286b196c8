#include "publish/WebPictureMaking.h"

#include <QElapsedTimer>
#include <QLoggingCategory>
#include <algorithm>
#include <chrono>
#include <system_error>

#include "base/Error.h"
#include "base/SafeFile.h"
#include "images/BareJpeg.h"
#include "images/ImagePipeline.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(publish, "vorlina.publish", QtInfoMsg)

constexpr auto Turn = std::chrono::milliseconds(50);  // between two reports
constexpr qint64 StoringEvery = 10'000;               // milliseconds: so much is made again after a kill

void WriteBytes(const QString& path, const QByteArray& bytes) {
  WriteStagedFile(path, [&](QIODevice& file) { return file.write(bytes) == bytes.size(); });
}

CachedSize WriteOne(const QString& folder, const ReaderPicture& picture) {
  CachedSize size{picture.size, WebPictureCache::NewName(picture.size), picture.jpeg.size(),
                  picture.webp.size()};
  MakeFolder(folder + u'/' + size.name.section(u'/', 0, 0));
  WriteBytes(folder + u'/' + size.JpegFile(), picture.jpeg);
  if (size.webp != 0) WriteBytes(folder + u'/' + size.WebpFile(), picture.webp);
  return size;
}

void Write(WebPictureTask& task, const MadePictures& pictures) {
  task.made.sizes.clear();
  for (const ReaderPicture& picture : pictures.sizes)
    task.made.sizes.push_back(WriteOne(task.folder, picture));
  if (!pictures.full.isEmpty()) task.made.full = WriteOne(task.folder, {task.made.size, pictures.full, {}});
}

}  // namespace

bool IsFullWanted(QSize picture, const QList<int>& limits) {
  const std::vector<QSize> sizes = ReaderSizes(picture, limits);
  return !sizes.empty() && sizes.back() != picture;
}

WebPictureMaking::WebPictureMaking(std::vector<WebPictureTask*> tasks, const QList<int>& limits,
                                   WebPictureCache& cache, std::function<QString()> scratch)
    : tasks_(std::move(tasks)), limits_(limits), cache_(cache), scratch_(std::move(scratch)) {
  const int threads =
      std::min({int(std::thread::hardware_concurrency()), MostDecodingThreads, int(tasks_.size())});
  try {
    for (int i = 0; i < std::max(1, threads); ++i) workers_.emplace_back([this] { Work(); });
  } catch (const std::system_error&) {
    if (workers_.empty()) Work();  // fewer than were wanted
  }
}

bool WebPictureMaking::Finish(const std::function<bool(int)>& report) {
  QElapsedTimer sinceStored;
  sinceStored.start();
  std::unique_lock lock(mutex_);
  while (done_ < tasks_.size() && !failure_) {
    changed_.wait_for(lock, Turn);
    if (sinceStored.hasExpired(StoringEvery)) {
      Store();
      sinceStored.restart();
    }
    const int done = int(done_);
    lock.unlock();
    const bool goOn = report(done);
    lock.lock();
    if (!goOn) break;
  }
  const bool complete = done_ == tasks_.size();
  lock.unlock();
  Stop();
  Store();
  if (failure_) std::rethrow_exception(failure_);
  return complete;
}

void WebPictureMaking::Stop() {
  {
    const std::lock_guard lock(mutex_);
    begun_ = tasks_.size();
  }
  for (std::thread& worker : workers_)
    if (worker.joinable()) worker.join();
}

void WebPictureMaking::Work() {
  std::unique_lock lock(mutex_);
  while (begun_ < tasks_.size() && !failure_) {
    WebPictureTask& task = *tasks_[begun_++];
    lock.unlock();
    std::exception_ptr failure;
    try {
      Make(task);
    } catch (...) {
      failure = std::current_exception();
    }
    lock.lock();
    Enter(task, failure);
  }
}

void WebPictureMaking::Enter(const WebPictureTask& task, const std::exception_ptr& failure) {
  if (failure)
    failure_ = failure;
  else if (task.fault.isEmpty() && task.settled && task.folder == cache_.Folder())
    cache_.Add(task.name, task.made);
  ++done_;
  changed_.notify_all();
}

// A fault of the picture is told with it; what is thrown concerns all.
void WebPictureMaking::Make(WebPictureTask& task) {
  MadePictures pictures;
  try {
    pictures = Render(task);
  } catch (const std::exception& error) {
    task.fault = FailureOfFile(task.source, error);
    return;
  }
  task.made.mark = task.mark;
  task.folder = cache_.Folder();
  if (!scratchInUse_ && TryWrite(task, pictures)) return;
  task.folder = Scratch();
  Write(task, pictures);
}

MadePictures WebPictureMaking::Render(WebPictureTask& task) {
  const QByteArray jpeg = ReadPictureFile(task.source);
  try {
    const JpegHead head = ReadJpegHead(jpeg);
    const int largest = limits_.isEmpty() ? 1 : limits_.back();
    const DecodingBudget::Share share(budget_, RenderingMemory(head, largest, {}) + 2 * jpeg.size());
    task.made.size = UprightSize(head);
    MadePictures pictures{RenderForReaders(jpeg, limits_), BareJpeg(jpeg, head.orientation)};
    task.made.isBare = pictures.full == jpeg;
    if (task.made.isBare || !IsFullWanted(task.made.size, limits_)) pictures.full.clear();
    return pictures;
  } catch (const Error& error) {
    RefuseFile(task.source, error.Description());
  }
}

bool WebPictureMaking::TryWrite(WebPictureTask& task, const MadePictures& pictures) {
  try {
    Write(task, pictures);
    return true;
  } catch (const Error& error) {
    qCWarning(publish).noquote() << error.Description();
    return false;
  }
}

QString WebPictureMaking::Scratch() {
  const std::lock_guard lock(mutex_);
  scratchInUse_ = true;
  return scratch_();
}

// A list that cannot be written has its pictures made again some day.
void WebPictureMaking::Store() {
  try {
    cache_.Store();
  } catch (const Error& error) {
    qCWarning(publish).noquote() << error.Description();
  }
}

}  // namespace vorlina
