#include "images/ImagePipeline.h"

#include <QDir>
#include <QFile>
#include <algorithm>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Settings.h"
#include "base/Texts.h"
#include "images/PictureFolder.h"

namespace vorlina {
namespace {

// A file of more than this is no photograph, and is not taken into memory.
constexpr qint64 LargestFile = 512LL * 1024 * 1024;

// A setting that was put into the file by hand. Throws Error with its name.
double Reserved(const QString& key, double fallback) {
  const QString text = GetSetting(ApplicationTitle(), u"Riservati"_qs, key, QString::number(fallback));
  try {
    return NullToZero(text);
  } catch (const Error& error) {
    throw Error(Texts::tr("Impostazione %1 nella sezione [Riservati]: %2").arg(key, error.Description()));
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

template <class Preparation>
PreparedPicture PrepareFile(const QString& path, Preparation&& prepare) {
  const double limit = PictureLimit();
  const PictureSettings settings = ReadPictureSettings();
  return OfFile(path, [&](const QByteArray& jpeg) { return prepare(jpeg, limit, settings); });
}

}  // namespace

PictureSettings ReadPictureSettings() {
  return {Reserved(u"ResizeJPG"_qs, 1) == 1, Reserved(u"ReRenderJPG"_qs, 1) == 1,
          int(std::clamp(Reserved(u"ReRenderQuality"_qs, 100), 1.0, 100.0))};
}

double PictureLimit() { return Reserved(u"ResizeTo"_qs, 800); }

void RefuseFile(const QString& path, const QString& reason) {
  throw Error(Texts::tr("Impossibile leggere il file %1: %2").arg(QDir::toNativeSeparators(path), reason));
}

QString FailureOfFile(const QString& file, const std::exception& error) {
  const QString name = QDir::toNativeSeparators(file);
  const QString text = DescriptionOf(error);
  return text.contains(name) ? text : name + u": "_qs + text;
}

QByteArray ReadPictureFile(const QString& path) {
  QFile file(path);
  if (file.exists() && !IsPictureFile(path)) RefuseFile(path, Texts::tr("non è un file"));
  if (!file.open(QIODevice::ReadOnly)) RefuseFile(path, file.errorString());
  if (file.size() > LargestFile) RefuseFile(path, Texts::tr("supera i 512 MB"));
  if (!IsJpeg(file.peek(3))) RefuseFile(path, Texts::tr("non è un'immagine JPEG"));
  QByteArray jpeg = file.readAll();
  if (file.error() != QFileDevice::NoError) RefuseFile(path, file.errorString());
  return jpeg;
}

QSize MeasureWholeImage(const QString& path) { return PrepareLogoFile(path).size; }

PreparedPicture PrepareLogoFile(const QString& path) {
  return OfFile(path, [](const QByteArray& jpeg) {
    DecodeJpeg(jpeg, QSize(1, 1));
    return PreparedPicture{jpeg, {}, UprightSize(ReadJpegHead(jpeg))};
  });
}

PreparedPicture PrepareMainFile(const QString& path) { return PrepareFile(path, PrepareMain); }

PreparedPicture PrepareAdditionalFile(const QString& path) { return PrepareFile(path, PrepareAdditional); }

}  // namespace vorlina
