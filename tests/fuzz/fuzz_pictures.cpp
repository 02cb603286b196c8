// Whatever bytes come in as a picture: they are refused, or they become a picture within the limits.
#include <QByteArray>
#include <cstdint>
#include <cstdlib>

#include "base/Error.h"
#include "images/BareJpeg.h"
#include "images/PictureRendering.h"

using namespace vorlina;

namespace {

// A decoded picture of more than this would only make the run slow.
constexpr qint64 MostPixels = 4'000'000;

void Require(bool holds) {
  if (!holds) std::abort();
}

void TakeIn(const QByteArray& bytes) {
  if (const QSize size = ReadJpegHead(bytes).size; qint64(size.width()) * size.height() > MostPixels) return;
  const FittedJpeg fitted = FitToLimit(bytes, 64, {});
  Require(!fitted.jpeg.isEmpty());
  Require(FitToLimit(BareJpeg(bytes, ReadJpegHead(bytes).orientation), 64, {}).jpeg == fitted.jpeg);
  const QSize stored = UprightSize(ReadJpegHead(fitted.jpeg));
  Require(!stored.isEmpty());
  Require(ReadJpegHead(RenderThumbnail(fitted.jpeg, 40)).orientation == 1);
  for (const ReaderPicture& picture : RenderForReaders(bytes, {16, 40}))
    Require(ReadJpegHead(picture.jpeg).size == picture.size);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    TakeIn(QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
  } catch (const Error&) {
    return 0;
  }
  return 0;
}
