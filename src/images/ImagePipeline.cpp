#include "images/ImagePipeline.h"

#include <QDir>
#include <QFile>
#include <QLoggingCategory>
#include <algorithm>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Language.h"
#include "base/Settings.h"
#include "store/Connection.h"
#include "store/GetValue.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images", QtInfoMsg)

// A file of more than this is no photograph, and is not taken into memory.
constexpr qint64 LargestFile = 512LL * 1024 * 1024;

// A setting that was put into the file by hand. Throws Error with its name.
double Reserved(const QString& key, double fallback) {
  const QString text = GetSetting(ApplicationTitle(), u"Riservati"_qs, key, QString::number(fallback));
  try {
    return NullToZero(text);
  } catch (const Error& error) {
    throw Error(EitherLanguage(u"Impostazione %1 nella sezione [Riservati]: %2"_qs,
                               u"Setting %1 in the section [Riservati]: %2"_qs)
                    .arg(key, error.Description()));
  }
}

// Gives what a step with a picture's content gives; its failure becomes one of the file.
template <class Step>
auto OfFile(const QString& path, Step&& step) {
  const QByteArray jpeg = ReadPictureFile(path);
  try {
    return step(jpeg);
  } catch (const Error& error) {
    RefuseFile(path, error.Description());
  }
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

}  // namespace

PictureSettings ReadPictureSettings() {
  return {Reserved(u"ResizeJPG"_qs, 1) == 1, Reserved(u"ReRenderJPG"_qs, 1) == 1,
          int(std::clamp(Reserved(u"ReRenderQuality"_qs, 100), 1.0, 100.0))};
}

double PictureLimit() { return Reserved(u"ResizeTo"_qs, 800); }

void RefuseFile(const QString& path, const QString& reason) {
  throw Error(EitherLanguage(u"Impossibile leggere il file %1: %2"_qs, u"The file %1 cannot be read: %2"_qs)
                  .arg(QDir::toNativeSeparators(path), reason));
}

QByteArray ReadPictureFile(const QString& path) {
  QFile file(path);
  if (file.exists() && !IsPictureFile(path))
    RefuseFile(path, EitherLanguage(u"non è un file"_qs, u"it is no file"_qs));
  if (!file.open(QIODevice::ReadOnly)) RefuseFile(path, file.errorString());
  if (file.size() > LargestFile)
    RefuseFile(path, EitherLanguage(u"supera i 512 MB"_qs, u"it is larger than 512 MB"_qs));
  if (!IsJpeg(file.peek(3)))
    RefuseFile(path, EitherLanguage(u"non è un'immagine JPEG"_qs, u"it is no JPEG picture"_qs));
  QByteArray jpeg = file.readAll();
  if (file.error() != QFileDevice::NoError) RefuseFile(path, file.errorString());
  return jpeg;
}

QSize MeasureImage(const QString& path) {
  return OfFile(path, [](const QByteArray& jpeg) { return UprightSize(ReadJpegHead(jpeg)); });
}

QSize MeasureWholeImage(const QString& path) {
  return OfFile(path, [](const QByteArray& jpeg) {
    DecodeJpeg(jpeg, QSize(1, 1));
    return UprightSize(ReadJpegHead(jpeg));
  });
}

ResizeResult ResizeImage(const QString& path, double limit) {
  const FittedJpeg fitted =
      OfFile(path, [=](const QByteArray& jpeg) { return FitToLimit(jpeg, limit, ReadPictureSettings()); });
  if (!fitted.jpeg.isEmpty()) Skipping(path, [&] { WritePicture(path, fitted.jpeg); });
  return fitted.sizes;
}

void CreateThumbnail(const QString& path, double limit) {
  QByteArray thumbnail;
  Skipping(path, [&] { thumbnail = RenderThumbnail(ReadPictureFile(path), limit); });
  StoreThumbnail(path, thumbnail);
}

void StoreThumbnail(const QString& path, const QByteArray& thumbnail) {
  Skipping(path, [&] {
    try {
      if (thumbnail.isEmpty()) throw Error(u"no thumbnail"_qs);
      WritePicture(ThumbnailPath(path), thumbnail);
    } catch (const Error&) {
      QFile::remove(ThumbnailPath(path));
      throw;
    }
  });
}

void ReRenderImage(const QString& path) {
  Skipping(path,
           [&] { WritePicture(path, RenderAgain(ReadPictureFile(path), ReadPictureSettings().quality)); });
}

PictureFiles ProductImageFiles(const QString& CodiceProdotto, int IDCatalogo, Connection& connection) {
  const QString where = u"IDCatalogo=? AND CodiceProdotto=?"_qs;
  PictureFiles files;
  Skipping(u"ProductImageFiles"_qs, [&] {
    const QString image = NullToEmpty(
        GetValue(u"Immagine"_qs, u"Prodotti"_qs, connection, where, {IDCatalogo, CodiceProdotto}));
    if (!image.isEmpty()) files.main += image;
  });
  Skipping(u"ProductImageFiles"_qs, [&] {
    Rows rows(connection, u"SELECT Immagine FROM Immagini WHERE "_qs + where, {IDCatalogo, CodiceProdotto});
    while (rows.Next()) files.others += NullToEmpty(rows.Value(0));
  });
  return files;
}

void DeleteProductImages(const QString& CodiceProdotto, int IDCatalogo, Connection& connection) {
  RemoveUnnamedPictures(ProductImageFiles(CodiceProdotto, IDCatalogo, connection), connection,
                        {IDCatalogo, CodiceProdotto, true});
}

}  // namespace vorlina
