#include "publish/WebPictures.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QLoggingCategory>
#include <algorithm>
#include <optional>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Texts.h"
#include "publish/WebPictureMaking.h"

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(publish, "vorlina.publish", QtInfoMsg)

// To be changed with whatever makes other pictures of the same files.
constexpr int HowPicturesAreMade = 2;

// A file whose time is this near may be changed once more without getting another time.
constexpr qint64 Second = 1'000'000'000;
constexpr qint64 Unsettled = 2 * Second;

constexpr std::size_t LooksBetweenReports = 500;

// The size of a file and its times, in nanoseconds. By the system's own call where there is one: a
// publication with little to do does little else.
struct FileLook {
  qint64 size = 0, written = 0, changed = 0;
};

std::optional<FileLook> LookAt(const QString& path) {
#ifdef Q_OS_UNIX
  struct stat file {};
  if (::stat(QFile::encodeName(path).constData(), &file) != 0 || S_ISDIR(file.st_mode)) return {};
  const auto nanoseconds = [](const timespec& time) { return time.tv_sec * Second + time.tv_nsec; };
  return FileLook{file.st_size, nanoseconds(file.st_mtim), nanoseconds(file.st_ctim)};
#else
  const QFileInfo file(path);
  if (!file.isFile()) return {};
  const auto nanoseconds = [](const QDateTime& time) { return time.toMSecsSinceEpoch() * 1'000'000; };
  return FileLook{file.size(), nanoseconds(file.lastModified()), nanoseconds(file.metadataChangeTime())};
#endif
}

// The time of change tells of a program that writes a file and sets the former time.
void LookAt(WebPictureTask& task) {
  const std::optional<FileLook> file = LookAt(task.source);
  if (!file) return;
  const qint64 age = QDateTime::currentMSecsSinceEpoch() * 1'000'000 - file->written;
  task.settled = age > Unsettled || age < -Unsettled;
  task.mark = QByteArray::number(HowPicturesAreMade) + '|' + QByteArray::number(file->size) + '|' +
              QByteArray::number(file->written) + '|' + QByteArray::number(file->changed);
}

// The cache knows a file by its place in the application folder, which may lie elsewhere tomorrow.
QString NameOf(const QString& source) {
  const QString folder = QDir::fromNativeSeparators(AppPath()) + u'/';
  const QString path = QDir::fromNativeSeparators(source);
  return path.startsWith(folder) ? path.mid(folder.size()) : path;
}

bool IsThere(const QString& name) {
  return QFileInfo::exists(QDir(QDir::fromNativeSeparators(AppPath())).filePath(name));
}

// The sizes that are wanted of what was made before, where all of them are there.
std::optional<CachedPicture> MadeBefore(const WebPictureCache& cache, const WebPictureTask& task,
                                        const QList<int>& limits) {
  const CachedPicture* known = cache.Find(task.name);
  if (known == nullptr || known->mark != task.mark) return {};
  CachedPicture made{known->mark, known->size, {}, known->isBare, {}};
  for (const QSize size : ReaderSizes(known->size, limits)) {
    const CachedSize* found = known->Find(size);
    if (found == nullptr || !cache.Has(*found)) return {};
    made.sizes.push_back(*found);
  }
  if (!known->isBare && IsFullWanted(known->size, limits)) {
    if (known->full.name.isEmpty() || !cache.Has(known->full)) return {};
    made.full = known->full;
  }
  return made;
}

VorlinaWebPictures ResultOf(const WebPictureTask& task, const QList<int>& limits) {
  VorlinaWebPictures result{task.fault, task.made.size, task.name.toUtf8() + '|' + task.made.mark, {}};
  if (!task.fault.isEmpty()) return result;
  const QString folder = task.folder + u'/';
  for (const CachedSize& size : task.made.sizes)
    result.pictures.append(
        {size.size, folder + size.JpegFile(), size.webp == 0 ? QString() : folder + size.WebpFile()});
  if (task.made.isBare && IsFullWanted(task.made.size, limits))
    result.full = {task.made.size, task.source, {}};
  else if (!task.made.full.name.isEmpty())
    result.full = {task.made.size, folder + task.made.full.JpegFile(), {}};
  return result;
}

QList<int> Ascending(QList<int> limits) {
  std::sort(limits.begin(), limits.end());
  limits.erase(std::unique(limits.begin(), limits.end()), limits.end());
  return limits;
}

// One call of Prepare: each file once, however often it is wanted.
class Preparation {
 public:
  Preparation(const QStringList& sources, const QList<int>& limits) : limits_(Ascending(limits)) {
    tasks_.reserve(std::size_t(sources.size()));
    for (const QString& source : sources) {
      const auto known = numbers_.constFind(source);
      order_.push_back(known == numbers_.constEnd() ? tasks_.size() : *known);
      if (known != numbers_.constEnd()) continue;
      numbers_.insert(source, tasks_.size());
      tasks_.push_back({source, NameOf(source), {}, false, {}, {}, {}});
    }
  }

  // False where the report asked to stop.
  bool Run(const std::function<bool(int)>& report, const std::function<QString()>& scratch) {
    WebPictureCache cache(QDir::fromNativeSeparators(AppFile(WebPicturesFolder)));
    std::vector<WebPictureTask*> missing;
    for (std::size_t i = 0; i < tasks_.size(); ++i) {
      if (i % LooksBetweenReports == 0 && !report(0)) return false;
      if (!TakeFrom(cache, tasks_[i])) missing.push_back(&tasks_[i]);
    }
    if (!missing.empty()) {
      const int before = int(tasks_.size() - missing.size());
      WebPictureMaking making(std::move(missing), limits_, cache, scratch);
      if (!making.Finish([&](int done) { return report(before + done); })) return false;
    }
    Tidy(cache);
    return true;
  }

  int Count() const { return int(tasks_.size()); }

  QList<VorlinaWebPictures> Results() const {
    QList<VorlinaWebPictures> results;
    results.reserve(qsizetype(order_.size()));
    for (const std::size_t number : order_) results.append(ResultOf(tasks_[number], limits_));
    return results;
  }

 private:
  // False where it is to be made.
  bool TakeFrom(const WebPictureCache& cache, WebPictureTask& task) const {
    LookAt(task);
    std::optional<CachedPicture> made = MadeBefore(cache, task, limits_);
    if (!made) return false;
    task.made = std::move(*made);
    task.folder = cache.Folder();
    return true;
  }

  static void Tidy(WebPictureCache& cache) {
    try {
      cache.Tidy(IsThere);
    } catch (const Error& error) {
      qCWarning(publish).noquote() << error.Description();
    }
  }

  const QList<int> limits_;
  std::vector<WebPictureTask> tasks_;
  std::vector<std::size_t> order_;  // the task of each source
  QHash<QString, std::size_t> numbers_;
};

}  // namespace

QList<VorlinaWebPictures> WebPictures::Prepare(const QStringList& sources, const QList<int>& sizes,
                                               IVorlinaProgress& progress) {
  Preparation preparation(sources, sizes);
  const QString step = Texts::tr("Preparazione delle immagini");
  const auto scratch = [this] {
    scratchUsed_ = true;
    if (scratch_ == nullptr) scratch_ = std::make_unique<QTemporaryDir>();
    if (!scratch_->isValid()) throw Error(scratch_->errorString());
    return scratch_->path();
  };
  const auto report = [&](int done) { return progress.Report(done, preparation.Count(), step); };
  return preparation.Run(report, scratch) ? preparation.Results() : QList<VorlinaWebPictures>();
}

namespace {
WebPictures& ThePictures() {
  static WebPictures pictures;
  return pictures;
}
}  // namespace

IVorlinaPictures& PicturesForReaders() { return ThePictures(); }

bool TakeScratchUse() { return ThePictures().TakeScratchUse(); }

}  // namespace vorlina
