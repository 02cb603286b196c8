#include "images/PictureRendering.h"

#include <QLoggingCategory>
#include <algorithm>
#include <cmath>

#include "base/Error.h"
#include "base/Texts.h"
#include "images/ColourConversion.h"
#include "images/Resample.h"
#include "images/WebpEncoder.h"

namespace vorlina {
namespace {

Q_LOGGING_CATEGORY(images, "vorlina.images", QtInfoMsg)

constexpr int ThumbnailQuality = 70;

// For readers, such that a list of 24 pictures of 400 pixels stays below 300 kB whatever they show.
constexpr int JpegQuality = 74;
constexpr int WebpQuality = 78;

// Whole per cents, halves to the even number. A picture of more than two hundred times the limit is left at
// one per cent.
int WholePerCents(double scale) { return int(std::nearbyint(std::clamp(scale, 1.0, 32767.0))); }

QSize Scaled(QSize size, int perCents) {
  const auto side = [=](int length) { return std::max(1, int(std::lround(length * perCents / 100.0))); };
  return {side(size.width()), side(size.height())};
}

double LongerSide(QSizeF size) { return std::max(size.width(), size.height()); }

bool IsShrunk(const JpegHead& head, double limit, const PictureSettings& settings) {
  // A limit below one pixel is none.
  return settings.shrink && std::nearbyint(limit) >= 1 && LongerSide(head.size) > std::nearbyint(limit);
}

// Scales a decoded picture to a size (both as stored), brings it to sRGB and turns it upright.
PlanarImage Prepared(PlanarImage image, const JpegHead& head, QSize size) {
  if (LongerSide(size) > LargestSide) throw Error(Texts::tr("L'immagine diventerebbe troppo grande"));
  image = Resample(std::move(image), size);
  ConvertToSrgb(image, head.iccProfile);
  return Upright(std::move(image), head.orientation);
}

// Readers' eyes need no more, and WebP has no other.
void HalveChroma(PlanarImage& image) {
  const QSize size = image.Size();
  for (std::size_t i = 1; i < image.planes.size(); ++i)
    image.planes[i] = Resample(image.planes[i], (size.width() + 1) / 2, (size.height() + 1) / 2);
}

ReaderPicture Encoded(const PlanarImage& image) {
  ReaderPicture picture{image.Size(), EncodeJpeg(image, JpegQuality, JpegScans::Several),
                        EncodeWebp(image, WebpQuality)};
  if (picture.webp.size() * 4 > picture.jpeg.size() * 3) picture.webp.clear();
  return picture;
}

QSize ThumbnailSize(QSize size, double limit) {
  return Scaled(size, WholePerCents(100 * limit / LongerSide(size)));
}

}  // namespace

QSize UprightSize(const JpegHead& head) {
  return SwapsSides(head.orientation) ? head.size.transposed() : head.size;
}

FittedJpeg FitToLimit(const QByteArray& jpeg, double limit, const PictureSettings& settings) {
  const JpegHead head = ReadJpegHead(jpeg);
  const QSizeF size = UprightSize(head);
  const bool shrinks = IsShrunk(head, limit, settings);
  const double scale = shrinks ? 100 * limit / LongerSide(size) : 100;
  FittedJpeg fitted{{size, shrinks ? size * scale / 100 : size}, {}, {}};
  const bool renders = shrinks || settings.reRender;
  const QSize target = Scaled(head.size, WholePerCents(scale));
  // Also a picture that stays is decoded, at the least cost: a damaged one is not to enter a catalog.
  PlanarImage image = DecodeJpeg(jpeg, renders ? target : QSize(1, 1));
  if (!renders) return fitted;
  try {
    fitted.image = Prepared(std::move(image), head, target);
    fitted.jpeg = EncodeJpeg(fitted.image, settings.quality);
  } catch (const std::exception& error) {
    qCDebug(images) << "not encoded:" << DescriptionOf(error);
  }
  return fitted;
}

QByteArray RenderThumbnail(const QByteArray& jpeg, double limit) {
  const JpegHead head = ReadJpegHead(jpeg);
  const QSize size = ThumbnailSize(head.size, limit);
  return EncodeJpeg(Prepared(DecodeJpeg(jpeg, size), head, size), ThumbnailQuality);
}

QByteArray RenderThumbnail(PlanarImage image, double limit) {
  const QSize size = ThumbnailSize(image.Size(), limit);
  return EncodeJpeg(Resample(std::move(image), size), ThumbnailQuality);
}

QByteArray RenderAgain(const QByteArray& jpeg, int quality) {
  const JpegHead head = ReadJpegHead(jpeg);
  return EncodeJpeg(Prepared(DecodeJpeg(jpeg, {}), head, head.size), quality);
}

PreparedPicture PrepareMain(const QByteArray& jpeg, double limit, const PictureSettings& settings) {
  FittedJpeg fitted = FitToLimit(jpeg, limit, settings);
  const bool stays = fitted.jpeg.isEmpty();
  PreparedPicture picture{fitted.jpeg, {}, stays ? UprightSize(ReadJpegHead(jpeg)) : fitted.image.Size()};
  try {
    picture.thumbnail = stays ? RenderThumbnail(jpeg, ThumbnailLimit)
                              : RenderThumbnail(std::move(fitted.image), ThumbnailLimit);
  } catch (const std::exception& error) {
    // A missing thumbnail is not reported: the picture itself is shown in its place.
    qCDebug(images) << "no thumbnail:" << DescriptionOf(error);
  }
  return picture;
}

PreparedPicture PrepareAdditional(const QByteArray& jpeg, double limit, const PictureSettings& settings) {
  FittedJpeg fitted = FitToLimit(jpeg, limit, settings);
  PreparedPicture picture{fitted.jpeg, {}, {}};
  if (fitted.sizes.source == fitted.sizes.target && settings.reRender) {
    try {
      picture.jpeg = RenderAgain(fitted.jpeg.isEmpty() ? jpeg : fitted.jpeg, settings.quality);
    } catch (const std::exception& error) {
      qCDebug(images) << "not encoded again:" << DescriptionOf(error);
    }
  }
  picture.size = UprightSize(ReadJpegHead(picture.jpeg.isEmpty() ? jpeg : picture.jpeg));
  return picture;
}

std::vector<QSize> ReaderSizes(QSize size, const QList<int>& limits) {
  std::vector<QSize> sizes;
  for (const int limit : limits) {
    const double scale = std::min(1.0, std::max(limit, 1) / LongerSide(size));
    const auto side = [=](int length) { return std::max(1, int(std::lround(length * scale))); };
    sizes.emplace_back(side(size.width()), side(size.height()));
    if (scale == 1.0) break;
  }
  return sizes;
}

std::vector<ReaderPicture> RenderForReaders(const QByteArray& jpeg, const QList<int>& limits) {
  const JpegHead head = ReadJpegHead(jpeg);
  const std::vector<QSize> sizes = ReaderSizes(UprightSize(head), limits);
  if (sizes.empty()) return {};
  const QSize largest = SwapsSides(head.orientation) ? sizes.back().transposed() : sizes.back();
  PlanarImage image = Prepared(DecodeJpeg(jpeg, largest), head, largest);
  std::vector<ReaderPicture> pictures(sizes.size());
  for (std::size_t i = sizes.size(); i-- > 0;) {
    image = Resample(std::move(image), sizes[i]);
    HalveChroma(image);
    pictures[i] = Encoded(image);
  }
  return pictures;
}

qint64 RenderingMemory(const JpegHead& head, double limit, const PictureSettings& settings) {
  const qint64 pixels = qint64(head.size.width()) * head.size.height();
  const qint64 limitPixels = qint64(limit * limit);
  // The decoder's scale gives up to twice the sides of the target, in up to three planes that are held twice.
  const qint64 decoded = IsShrunk(head, limit, settings) ? std::min(pixels, limitPixels * 4) : pixels;
  return head.coefficientBytes + decoded * 6;
}

}  // namespace vorlina
