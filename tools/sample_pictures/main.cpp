// Takes the pictures of the sample catalogs that are missing or whose description has changed:
//   sample_pictures SAMPLES IMAGES STAMPS [PART]
// A stamp beside each picture's name tells the description it was taken from. PART limits the work to files
// whose name holds it.
#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QGuiApplication>
#include <QImageWriter>
#include <QJsonDocument>
#include <QTextStream>
#include <atomic>
#include <mutex>
#include <thread>

#include "Picture.h"
#include "base/Error.h"
#include "base/SafeFile.h"
#include "samples/SampleCatalog.h"

using namespace vorlina;
using namespace vorlina::studio;

namespace {

constexpr int PictureQuality = 88;
constexpr int ThumbnailSide = 200;
constexpr int ThumbnailQuality = 70;

struct Job {
  QString file;
  QJsonObject description;
  bool logo = false;
  bool thumbnail = false;
  QByteArray Stamp(const QByteArray& presets) const {
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(QByteArray::number(RendererVersion));
    hash.addData(presets);
    hash.addData(QJsonDocument(description).toJson(QJsonDocument::Compact));
    return hash.result().toHex();
  }
};

std::vector<Job> JobsOf(const std::vector<SampleCatalog>& catalogs) {
  std::vector<Job> jobs;
  for (const SampleCatalog& catalog : catalogs) {
    jobs.push_back({catalog.LogoName(), catalog.logo, true, false});
    for (const SampleProduct& product : catalog.products) {
      jobs.push_back({product.FileName(), product.composition, false, true});
      for (const SamplePicture& picture : product.pictures)
        jobs.push_back({picture.FileName(), picture.composition, false, false});
    }
  }
  return jobs;
}

void WriteJpeg(const QString& path, const QImage& image, int quality) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, "jpg");
  writer.setQuality(quality);
  if (!writer.write(image)) throw Error(path + u": " + writer.errorString());
  WriteFileSafely(path, bytes);
}

class Studios {
 public:
  Studios(const QString& samples, QString images, QString stamps, const QString& part)
      : presets_(ReadJsonFile(samples + u"/materials.json")),
        images_(std::move(images)),
        stamps_(std::move(stamps)) {
    QStringList wanted;
    const QByteArray presets = QJsonDocument(presets_).toJson(QJsonDocument::Compact);
    for (Job& job : JobsOf(ReadSampleCatalogs(samples))) {
      const QByteArray stamp = job.Stamp(presets);
      wanted << job.file << u't' + job.file;
      if (job.file.contains(part) && !Taken(job, stamp)) work_.push_back({std::move(job), stamp});
    }
    // What an earlier description called for would be delivered for nothing.
    for (const QString& file : QDir(images_).entryList({u"*.jpg"_qs}, QDir::Files))
      if (!wanted.contains(file)) QFile::remove(images_ + u'/' + file);
  }

  // Gives the number of pictures that could not be taken.
  int Run() {
    const unsigned workers = std::max(1U, std::thread::hardware_concurrency());
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < workers; ++i) threads.emplace_back([this] { Work(); });
    for (std::thread& thread : threads) thread.join();
    if (!work_.empty()) QTextStream(stdout) << "pictures taken: " << work_.size() - size_t(failed_) << '\n';
    return failed_;
  }

 private:
  QString StampFile(const Job& job) const { return stamps_ + u'/' + job.file + u".stamp"; }

  bool Taken(const Job& job, const QByteArray& stamp) const {
    QFile file(StampFile(job));
    return QFileInfo::exists(images_ + u'/' + job.file) &&
           (!job.thumbnail || QFileInfo::exists(images_ + u"/t" + job.file)) &&
           file.open(QIODevice::ReadOnly) && file.readAll() == stamp;
  }

  void Work() {
    for (size_t i = next_++; i < work_.size(); i = next_++) {
      const auto& [job, stamp] = work_[i];
      try {
        Take(job);
        WriteFileSafely(StampFile(job), stamp);
      } catch (const Error& error) {
        const std::lock_guard lock(output_);
        ++failed_;
        QTextStream(stderr) << job.file << ": " << error.Description() << '\n';
      }
    }
  }

  void Take(const Job& job) const {
    const QImage image = job.logo ? DrawLogo(job.description) : TakeSamplePicture(job.description, presets_);
    WriteJpeg(images_ + u'/' + job.file, image, PictureQuality);
    if (job.thumbnail)
      WriteJpeg(images_ + u"/t" + job.file,
                image.scaled(ThumbnailSide, ThumbnailSide, Qt::KeepAspectRatio, Qt::SmoothTransformation),
                ThumbnailQuality);
  }

  QJsonObject presets_;
  QString images_, stamps_;
  std::vector<std::pair<Job, QByteArray>> work_;
  std::atomic<size_t> next_ = 0;
  int failed_ = 0;
  std::mutex output_;
};

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  if (words.size() < 4) {
    QTextStream(stderr) << "usage: sample_pictures SAMPLES IMAGES STAMPS [PART]\n";
    return 2;
  }
  try {
    QDir().mkpath(words[2]);
    QDir().mkpath(words[3]);
    return Studios(words[1], words[2], words[3], words.value(4)).Run() == 0 ? 0 : 1;
  } catch (const Error& error) {
    QTextStream(stderr) << error.Description() << '\n';
    return 1;
  }
}
