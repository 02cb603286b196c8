// The pager's next page in a catalog of 100,000 products, from the press of the button to the painted window,
// against the reading and decoding of nine thumbnails alone.
#include <benchmark/benchmark.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <vector>

#include "../EmptyDatabase.h"
#include "base/AppPath.h"
#include "base/SafeFile.h"
#include "images/JpegCodec.h"
#include "images/PictureFolder.h"
#include "images/PicturePage.h"
#include "images/PictureRendering.h"
#include "images/ScreenPicture.h"
#include "images/frmImageViewer.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

constexpr int Products = 100'000;
// Products share so many picture files; those of a page are different ones.
constexpr int Files = 180;

// A shaded picture with some structure, as large in the file as a photograph's thumbnail.
QByteArray MakePicture(int number) {
  PlanarImage image;
  for (int plane = 0; plane < 3; ++plane) {
    image.planes.emplace_back(800, 600);
    Plane& samples = image.planes.back();
    for (int y = 0; y < samples.height; ++y)
      for (int x = 0; x < samples.width; ++x)
        samples.Row(y)[x] = std::uint8_t(128 + 60 * std::sin(x / 90.0 + number + plane) +
                                         40 * std::cos((x * y) / 9000.0 + plane));
  }
  return RenderThumbnail(EncodeJpeg(image, 90), ThumbnailLimit);
}

QString FileOf(qint64 product) { return AppFile(u"Images/%1.jpg"_qs.arg(product % Files)); }

class Data {
 public:
  Data() {
    SetAppPath(folder_.path());
    QDir(folder_.path()).mkdir(u"Images"_qs);
    for (int i = 0; i < Files; ++i) WriteFileSafely(ThumbnailPath(FileOf(i)), MakePicture(i));
    MakeDatabase();
    connection.Open(ConnectionTextFor(AppFile(u"Catalog.db"_qs)));
  }

  Connection connection;

 private:
  static void MakeDatabase() {
    SQLite::Database database = EmptyDatabase(AppFile(u"Catalog.db"_qs));
    database.exec("INSERT INTO Cataloghi (NomeCatalogo) VALUES ('a')");
    SQLite::Statement insert(
        database,
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<?-1) "
        "INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,Descrizione,Immagine,OrdineTemp) "
        "SELECT 1, printf('P%07d',i), 'Description of product '||i, ? || (i%?) || '.jpg', i FROM n");
    insert.bind(1, Products);
    insert.bind(2, AppFile(u"Images/"_qs).toStdString());
    insert.bind(3, Files);
    insert.exec();
  }

  QTemporaryDir folder_;
};

Data& TheData() {
  static Data data;
  return data;
}

void LoadThumbnails(qint64 page) {
  for (int i = 0; i < PictureTiles; ++i)
    benchmark::DoNotOptimize(LoadPicture(ThumbnailPath(FileOf((page - 1) * PictureTiles + i)), {}).bits());
}

void Thumbnails(benchmark::State& state) {
  qint64 page = 1;
  for ([[maybe_unused]] auto _ : state) LoadThumbnails(page++);
}

// The rows of a page without its pictures.
void Rows(benchmark::State& state) {
  Recordset products;
  OpenPicturePages(products, TheData().connection, 1, u"ORDER BY OrdineTemp"_qs, {});
  qint64 page = 1;
  for ([[maybe_unused]] auto _ : state)
    benchmark::DoNotOptimize(ReadPicturePage(products, page++ % PicturePageCount(products) + 1).data());
}

void Opening(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    Recordset products;
    OpenPicturePages(products, TheData().connection, 1, u"ORDER BY OrdineTemp"_qs, {});
    benchmark::DoNotOptimize(PicturePageCount(products));
  }
}

BENCHMARK(Opening)->Unit(benchmark::kMillisecond);
BENCHMARK(Rows)->Unit(benchmark::kMicrosecond);
BENCHMARK(Thumbnails)->Unit(benchmark::kMicrosecond);

double Milliseconds(const std::function<void()>& step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The two in turn, so that whatever else the computer does meets both; their medians are compared.
void PrintRatio(frmImageViewer& pager) {
  constexpr int Rounds = 201;
  auto* forward = pager.findChild<QAbstractButton*>(u"cmdForward"_qs);
  std::vector<double> thumbnails;
  std::vector<double> pages;
  for (int page = 2; page < Rounds + 2; ++page) {
    thumbnails.push_back(Milliseconds([page] { LoadThumbnails(page); }));
    pages.push_back(Milliseconds([forward] {
      forward->click();
      QApplication::processEvents();
    }));
  }
  std::sort(thumbnails.begin(), thumbnails.end());
  std::sort(pages.begin(), pages.end());
  std::printf("nine thumbnails %.2f ms, next page painted %.2f ms, ratio %.2f (at most 5)\n",
              thumbnails[Rounds / 2], pages[Rounds / 2], pages[Rounds / 2] / thumbnails[Rounds / 2]);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  SetLanguage(u"English"_qs);
  TheData();  // made before the clock runs
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();

  frmImageViewer pager;
  pager.IDCatalogo = 1;
  pager.Connection = &TheData().connection;
  QTimer::singleShot(0, &pager, [&] {
    PrintRatio(pager);
    pager.reject();
  });
  pager.ShowCatalog(u"ORDER BY OrdineTemp"_qs);
  return 0;
}
