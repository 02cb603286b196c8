// Opening the images of a product with 30 pictures, until preview and list are painted, and until the
// pictures that the list shows are painted as well, against the decoding of the pictures that are seen.
#include <QApplication>
#include <QListWidget>
#include <QSet>
#include <cmath>
#include <memory>

#include "CardData.h"
#include "base/SafeFile.h"
#include "images/JpegCodec.h"
#include "images/PictureFolder.h"
#include "images/PictureRendering.h"
#include "images/ShownPicture.h"
#include "images/frmImage.h"
#include "products/frmImages.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

constexpr int Pictures = 30;
constexpr int Rounds = 101;
const QString Code = QStringLiteral("P0000000");

// A shaded picture with some structure, as large as the program stores them.
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
  return EncodeJpeg(image, 90);
}

QString FileOf(int image) { return PicturePath(u"%1.jpg"_qs.arg(image)); }

QString MakePictures(const Connection& bare) {
  QString main = MainImagePath(1, Code);
  QDir().mkpath(PicturePath({}));
  const QByteArray picture = MakePicture(0);
  WriteFileSafely(main, picture);
  WriteFileSafely(ThumbnailPath(main), RenderThumbnail(picture, ThumbnailLimit));
  Bare(bare, "UPDATE Prodotti SET Immagine='" + main.toStdString() + "' WHERE CodiceProdotto='P0000000'")
      .Run();
  for (int i = 1; i < Pictures; ++i) {
    const QString path = FileOf(i);
    WriteFileSafely(path, MakePicture(i));
    Bare(bare,
         "INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Immagine,Descrizione) VALUES (1,'P0000000','" +
             path.toStdString() + "','Picture')")
        .Run();
  }
  return main;
}

// Shows windows and waits until each has been painted for the first time. What timers do, as decoding the
// pictures of a list, comes behind that.
class FirstPaints : public QObject {
 public:
  explicit FirstPaints(const QList<QWidget*>& windows) : left_(windows.begin(), windows.end()) {
    qApp->installEventFilter(this);
    for (QWidget* window : windows) window->show();
    while (!left_.isEmpty()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Paint) left_.remove(watched);
    return event->type() == QEvent::Timer;
  }

 private:
  QSet<const QObject*> left_;
};

// Counts how often a widget is painted.
class Paints : public QObject {
 public:
  explicit Paints(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

// Each picture that comes is painted, and then the next one decoded. Gives how many entries are seen.
std::size_t WaitForPictures(QListWidget& list) {
  const Paints paints(*list.viewport());
  for (int before = -1, idle = 0; idle < 3; before = paints.count) {
    QApplication::processEvents();
    idle = paints.count == before && before > 0 ? idle + 1 : 0;
  }
  std::size_t seen = 0;
  for (int row = 0; row < list.count(); ++row)
    seen += list.visualItemRect(list.item(row)).intersects(list.viewport()->rect()) ? 1 : 0;
  if (std::size_t(paints.count) < seen) std::abort();
  return seen;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  SetLanguage(u"English"_qs);
  const CardData data(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath(), Others::None);
  Connection ours;
  Connection bare;
  data.OpenBoth(ours, bare);
  const QString main = MakePictures(bare);
  std::unique_ptr<frmImage> preview;
  std::unique_ptr<frmImages> list;
  const auto make = [&] {
    preview = std::make_unique<frmImage>();
    preview->Percorso = main;
    preview->LoadForm();
    list = std::make_unique<frmImages>();
    list->IDCatalogo = 1;
    list->CodiceProdotto = Code;
    list->Connessione = &ours;
    list->Anteprima = preview.get();
    list->LoadForm();
  };
  const auto close = [&] {
    list.reset();
    preview.reset();
    QApplication::processEvents();
  };
  QSize icon;
  std::size_t seen = 0;
  const auto openWhole = [&] {
    make();
    preview->show();
    list->show();
    auto* entries = list->findChild<QListWidget*>();
    seen = WaitForPictures(*entries);
    icon = entries->iconSize();
  };
  openWhole();
  close();
  const auto decode = [](const QString& path, QSize box) {
    if (ShowPicture(path, box).image.isNull()) std::abort();
  };
  const auto decodeSeen = [&] {
    decode(main, {800, 600});
    for (std::size_t i = 0; i < seen; ++i) decode(i == 0 ? ThumbnailPath(main) : FileOf(int(i)), icon);
  };
  std::printf("beside the main picture %zu are seen in the list\n", seen);
  Compare(
      "painted", Rounds, 1, decodeSeen,
      [&] {
        make();
        FirstPaints({preview.get(), list.get()});
      },
      close);
  Compare("painted with the pictures of the list", Rounds, 0, decodeSeen, openWhole, close);
  return 0;
}
