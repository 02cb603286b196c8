#include "images/ImagePipeline.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <algorithm>
#include <cmath>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/SafeFile.h"
#include "base/Settings.h"
#include "images/ColourConversion.h"
#include "images/JpegCodec.h"
#include "images/Resample.h"
#include "store/Connection.h"
#include "store/GetValue.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images")

// A file of more than this is no photograph, and is not taken into memory.
constexpr qint64 LargestFile = 512LL * 1024 * 1024;

[[noreturn]] void RefuseFile(const QString& path, const QString& reason) {
  throw Error(EitherLanguage(u"Impossibile leggere il file %1: %2"_qs, u"The file %1 cannot be read: %2"_qs)
                  .arg(QDir::toNativeSeparators(path), reason));
}

double Reserved(const QString& key, double fallback) {
  return NullToZero(GetSetting(ApplicationTitle(), u"Riservati"_qs, key, QString::number(fallback)));
}

// Whole per cents, halves to the even number. A picture three hundred times the limit is left at one per
// cent.
int WholePerCents(double scale) { return int(std::nearbyint(std::clamp(scale, 1.0, 32767.0))); }

QSize Scaled(QSize size, int perCents) {
  const auto side = [=](int length) { return std::max(1, int(std::lround(length * perCents / 100.0))); };
  return {side(size.width()), side(size.height())};
}

double LongerSide(QSizeF size) { return std::max(size.width(), size.height()); }

// A decoded picture on its way to a size: both as stored, before it is turned.
struct Loaded {
  JpegHead head;
  PlanarImage image;
};

Loaded Load(const QByteArray& jpeg, QSize covering) {
  return {ReadJpegHead(jpeg), DecodeJpeg(jpeg, covering)};
}

QByteArray Render(Loaded loaded, QSize size, int quality) {
  if (LongerSide(size) > LargestSide)
    throw Error(EitherLanguage(u"L'immagine diventerebbe troppo grande"_qs,
                               u"The picture would become too large"_qs));
  PlanarImage image = Resample(std::move(loaded.image), size);
  ConvertToSrgb(image, loaded.head.iccProfile);
  return EncodeJpeg(Upright(std::move(image), loaded.head.orientation), quality);
}

// A step whose failure is passed over, with a line in the log.
template <class Step>
void Skipping(const QString& what, Step&& step) {
  try {
    step();
  } catch (const std::exception& error) {
    qCDebug(images) << what << DescriptionOf(error);
  }
}

void RemoveFile(const QString& path) {
  if (!QFile::remove(path)) qCDebug(images) << "not removed" << path;
}

}  // namespace

PictureSettings PictureSettings::Read() {
  return {Reserved(u"ResizeJPG"_qs, 1) == 1, Reserved(u"ReRenderJPG"_qs, 1) == 1,
          int(std::clamp(Reserved(u"ReRenderQuality"_qs, 100), 1.0, 100.0))};
}

double PictureLimit() { return Reserved(u"ResizeTo"_qs, 800); }

QByteArray ReadPictureFile(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) RefuseFile(path, file.errorString());
  if (file.size() > LargestFile)
    RefuseFile(path, EitherLanguage(u"supera i 512 MB"_qs, u"it is larger than 512 MB"_qs));
  if (!IsJpeg(file.peek(3)))
    RefuseFile(path, EitherLanguage(u"non è un'immagine JPEG"_qs, u"it is no JPEG picture"_qs));
  const QByteArray jpeg = file.readAll();
  if (file.error() != QFileDevice::NoError) RefuseFile(path, file.errorString());
  return jpeg;
}

QSize UprightSize(const JpegHead& head) {
  return SwapsSides(head.orientation) ? head.size.transposed() : head.size;
}

QSize MeasureImage(const QString& path) { return UprightSize(ReadJpegHead(ReadPictureFile(path))); }

QString MainImagePath(int IDCatalogo, const QString& CodiceProdotto) {
  return AppFile(u"Images/"_qs + QString::number(IDCatalogo) + u'-' + CodiceProdotto + u".jpg"_qs);
}

QString ThumbnailPath(const QString& mainImage) {
  return AppFile(u"Images/t"_qs + FileNameOf(mainImage, true));
}

FittedJpeg FitToLimit(const QByteArray& jpeg, double limit, const PictureSettings& settings) {
  const JpegHead head = ReadJpegHead(jpeg);
  const QSizeF size = UprightSize(head);
  FittedJpeg fitted{{size, size}, {}};
  const bool shrinks = settings.shrink && LongerSide(size) > std::nearbyint(limit);
  const double scale = shrinks ? 100 * limit / LongerSide(size) : 100;
  if (shrinks) fitted.sizes.target = size * scale / 100;
  const bool renders = shrinks || settings.reRender;
  const QSize target = Scaled(head.size, WholePerCents(scale));
  // Also a picture that stays is decoded, at the least cost: a damaged one is not to enter a catalog.
  Loaded loaded = Load(jpeg, renders ? target : QSize(1, 1));
  if (renders)
    Skipping(u"FitToLimit"_qs, [&] { fitted.jpeg = Render(std::move(loaded), target, settings.quality); });
  return fitted;
}

QByteArray RenderThumbnail(const QByteArray& jpeg, double limit) {
  const JpegHead head = ReadJpegHead(jpeg);
  const QSize size = Scaled(head.size, WholePerCents(100 * limit / LongerSide(head.size)));
  return Render(Load(jpeg, size), size, ThumbnailQuality);
}

ResizeResult ResizeImage(const QString& path, double limit) {
  const FittedJpeg fitted = FitToLimit(ReadPictureFile(path), limit, PictureSettings::Read());
  if (!fitted.jpeg.isEmpty()) Skipping(path, [&] { WriteFileSafely(path, fitted.jpeg); });
  return fitted.sizes;
}

void CreateThumbnail(const QString& path, double limit) {
  Skipping(path,
           [&] { WriteFileSafely(ThumbnailPath(path), RenderThumbnail(ReadPictureFile(path), limit)); });
}

void ReRenderImage(const QString& path) {
  Skipping(path, [&] {
    const QByteArray jpeg = ReadPictureFile(path);
    Loaded loaded = Load(jpeg, {});
    const QSize size = loaded.head.size;
    WriteFileSafely(path, Render(std::move(loaded), size, PictureSettings::Read().quality));
  });
}

void DeleteProductImages(const QString& CodiceProdotto, int IDCatalogo, Connection& connection) {
  const QString where = u"IDCatalogo=? AND CodiceProdotto=?"_qs;
  Skipping(u"DeleteProductImages"_qs, [&] {
    const QString image = NullToEmpty(
        GetValue(u"Immagine"_qs, u"Prodotti"_qs, connection, where, {IDCatalogo, CodiceProdotto}));
    if (image.isEmpty()) return;
    RemoveFile(image);
    RemoveFile(ThumbnailPath(image));
  });
  Skipping(u"DeleteProductImages"_qs, [&] {
    Rows rows(connection, u"SELECT Immagine FROM Immagini WHERE "_qs + where, {IDCatalogo, CodiceProdotto});
    while (rows.Next()) RemoveFile(NullToEmpty(rows.Value(0)));
  });
}

}  // namespace vorlina
