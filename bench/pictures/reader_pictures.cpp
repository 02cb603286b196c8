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

rusage Usage() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage;
}

double ProcessorTime() {
  const rusage usage = Usage();
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

void MakeAll(const QStringList& files) {
  WebPictures pictures;
  NoProgress progress;
  for (const VorlinaWebPictures& made : pictures.Prepare(files, {400, 800}, progress))
    if (!made.fault.isEmpty()) qFatal("%s", qPrintable(made.fault));
}

// An import but for its rows: main picture and thumbnail, each brought to the disk.
void Import(const QStringList& files, const PictureSettings& settings, const QString& folder) {
  PreparedPictures prepared(files, 800, settings);
  for (int i = 0; i < int(files.size()); ++i) {
    const PreparedPicture picture = prepared.Next();
    const QString main = folder + u"/%1.jpg"_qs.arg(i);
    if (picture.jpeg.isEmpty())
      CopyFileSafely(files[i], main);
    else
      WriteFileSafely(main, picture.jpeg);
    WriteFileSafely(folder + u"/t%1.jpg"_qs.arg(i), picture.thumbnail);
  }
}

// What a user's settings have the import make, and what it costs to make readers' pictures of that.
struct Way {
  const char* what;
  PictureSettings settings;
  Times imported, made;
};

void MeasureRound(Way& way, const QStringList& files, const QStringList& mains, const QString& folder) {
  way.imported.Measure([&] { Import(files, way.settings, folder + u"/Images"_qs); });
  SyncVolume(folder);
  way.made.Measure([&] { MakeAll(mains); });
}

void Print(const char* what, const Times& imported, const Times& made, double count) {
  std::printf(
      "%-42s the import takes %6.1f ms of a processor each (%.1f by the clock), readers' pictures %6.1f "
      "(%.1f): %.2f times its rate (%.2f)\n",
      what, Median(imported.processor) / count, Median(imported.clock) / count,
      Median(made.processor) / count, Median(made.clock) / count,
      Median(imported.processor) / Median(made.processor), Median(imported.clock) / Median(made.clock));
}

// The application folder with its pictures anew.
void Fresh(const QString& folder) {
  QDir(folder + u"/Images"_qs).removeRecursively();
  QDir(folder + u'/' + WebPicturesFolder).removeRecursively();
  QDir().mkpath(folder + u"/Images"_qs);
  SyncVolume(folder);
}

// As many pictures as a large catalog has.
QStringList WriteMany(const QByteArray& jpeg, const QString& folder) {
  QStringList many;
  for (int i = 0; i < 10'000; ++i) {
    many += folder + u"/1-P%1.jpg"_qs.arg(i);
    WriteStagedFile(many.back(), [&](QIODevice& file) { return file.write(jpeg) == jpeg.size(); });
    QFile file(many.back());
    if (file.open(QIODevice::ReadWrite))
      file.setFileTime(QDateTime::fromSecsSinceEpoch(1'600'000'000 + i), QFileDevice::FileModificationTime);
  }
  return many;
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

  Fresh(place.path());
  MakeAll(files);
  std::printf("readers' pictures of %d photographs: peak memory %ld MB\n", int(files.size()),
              Usage().ru_maxrss / 1024);
  std::fflush(stdout);

  QStringList mains;
  for (int i = 0; i < int(files.size()); ++i) mains += place.filePath(u"Images/%1.jpg"_qs.arg(i));
  Way ways[] = {{"shrunk to 800 pixels (at least 1)", {}, {}, {}},
                {"encoded again in their size (at least 1)", {.shrink = false}, {}, {}},
                {"as they are (at least 1)", {.shrink = false, .reRender = false}, {}, {}}};
  for (int i = 0; i < rounds; ++i)
    for (Way& way : ways) {
      Fresh(place.path());
      MeasureRound(way, files, mains, place.path());
    }
  const double count = double(files.size());
  for (const Way& way : ways) Print(way.what, way.imported, way.made, count);
  Print("as they are, against the shrinking import", ways[0].imported, ways[2].made, count);

  Fresh(place.path());
  const QStringList many =
      WriteMany(PrepareMain(ReadPictureFile(files.front()), 200, {}).jpeg, place.filePath(u"Images"_qs));
  MakeAll(many);
  Compare(
      "10,000 pictures, all made already", rounds * 3, 3, [&] { Walk(place.path()); },
      [&] { MakeAll(many); });
  return 0;
}
