// How quickly readers' pictures are made, against what an import does with the same files, and what it takes
// to find that all are made already, against a walk that stats the same files. The two of each pair in turn,
// in one run. usage: reader_pictures PHOTOGRAPHS [ROUNDS]
#include <sys/resource.h>

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <cstdio>
#include <filesystem>

#include "../Compare.h"
#include "base/AppPath.h"
#include "base/SafeFile.h"
#include "images/ImagePipeline.h"
#include "images/PreparedPictures.h"
#include "publish/WebPictures.h"

using namespace vorlina;

namespace {

class NoProgress : public IVorlinaProgress {
 public:
  bool Report(int, int, const QString&) override { return true; }
};

double ProcessorTime() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
         double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000;
}

struct Times {
  std::vector<double> clock, processor;
  void Measure(const std::function<void()>& step) {
    const double before = ProcessorTime();
    clock.push_back(Milliseconds(step));
    processor.push_back(ProcessorTime() - before);
  }
};

// An import but for its rows: main picture and thumbnail, each brought to the disk.
void Import(const QStringList& files, const QString& folder) {
  PreparedPictures prepared(files, 800, {});
  for (int i = 0; i < int(files.size()); ++i) {
    const PreparedPicture picture = prepared.Next();
    WriteFileSafely(folder + u"/%1.jpg"_qs.arg(i), picture.jpeg);
    WriteFileSafely(folder + u"/t%1.jpg"_qs.arg(i), picture.thumbnail);
  }
}

void MakeAll(const QStringList& files) {
  WebPictures pictures;
  NoProgress progress;
  for (const VorlinaWebPictures& made : pictures.Prepare(files, {400, 800}, progress))
    if (!made.fault.isEmpty()) qFatal("%s", qPrintable(made.fault));
}

// The application folder with its pictures anew.
void Fresh(const QString& folder) {
  QDir(folder + u"/Images"_qs).removeRecursively();
  QDir(folder + u'/' + WebPicturesFolder).removeRecursively();
  QDir().mkpath(folder + u"/Images"_qs);
  SyncVolume(folder);
}

qint64 Walk(const QString& folder) {
  qint64 bytes = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.toStdString()))
    if (entry.is_regular_file())
      bytes += qint64(entry.file_size()) + qint64(entry.last_write_time().time_since_epoch().count() & 1);
  return bytes;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc < 2) return 2;
  const QDir photographs(QString::fromLocal8Bit(argv[1]));
  const int rounds = argc > 2 ? std::atoi(argv[2]) : 5;
  QStringList files;
  for (const QString& name : photographs.entryList({u"*.jpg"_qs}, QDir::Files))
    files += photographs.absoluteFilePath(name);
  QTemporaryDir place(photographs.absoluteFilePath(u"bench-XXXXXX"_qs));
  SetAppPath(place.path());

  // What the import makes of the photographs is what a catalog has, unless its user has pictures stay large.
  QStringList mains;
  for (int i = 0; i < int(files.size()); ++i) mains += place.filePath(u"Images/%1.jpg"_qs.arg(i));
  Times imported, ofMains, ofPhotographs;
  for (int i = 0; i < rounds; ++i) {
    Fresh(place.path());
    imported.Measure([&] { Import(files, place.filePath(u"Images"_qs)); });
    SyncVolume(place.path());
    ofMains.Measure([&] { MakeAll(mains); });
    Fresh(place.path());
    ofPhotographs.Measure([&] { MakeAll(files); });
  }
  const double count = double(files.size());
  const auto print = [&](const char* what, const Times& made) {
    std::printf(
        "readers' pictures of %-22s %6.1f ms of a processor each (%.1f by the clock): %.2f times the "
        "import's "
        "rate (%.2f)\n",
        what, Median(made.processor) / count, Median(made.clock) / count,
        Median(imported.processor) / Median(made.processor), Median(imported.clock) / Median(made.clock));
  };
  std::printf("%d photographs: the import takes %.1f ms of a processor for each (%.1f by the clock)\n",
              int(files.size()), Median(imported.processor) / count, Median(imported.clock) / count);
  print("what it makes (at least 1)", ofMains);
  print("the photographs themselves", ofPhotographs);

  // As many pictures as a large catalog has, all made.
  Fresh(place.path());
  const QByteArray small = PrepareMain(ReadPictureFile(files.front()), 200, {}).jpeg;
  QStringList many;
  for (int i = 0; i < 10'000; ++i) {
    many += place.filePath(u"Images/1-P%1.jpg"_qs.arg(i));
    WriteStagedFile(many.back(), [&](QIODevice& file) { return file.write(small) == small.size(); });
    QFile file(many.back());
    if (file.open(QIODevice::ReadWrite))
      file.setFileTime(QDateTime::fromSecsSinceEpoch(1'600'000'000 + i), QFileDevice::FileModificationTime);
  }
  MakeAll(many);
  Compare(
      "10,000 pictures, all made already", rounds * 3, 3, [&] { Walk(place.path()); },
      [&] { MakeAll(many); });
  return 0;
}
