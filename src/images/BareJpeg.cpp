#include "images/BareJpeg.h"

#include <QStringBuilder>
#include <algorithm>
#include <cstdint>

namespace vorlina {
namespace {

constexpr int App0 = 0xE0;
constexpr int App15 = 0xEF;
constexpr int Comment = 0xFE;
constexpr int StartOfScan = 0xDA;
constexpr int EndOfImage = 0xD9;

const QByteArray Jfif("JFIF\0", 5);
constexpr qsizetype JfifBody = 14;
constexpr qsizetype AdobeBody = 12;
const QByteArray Profile("ICC_PROFILE\0", 12);
const QByteArray Adobe("Adobe");  // tells how the colours are stored

int At(const QByteArray& bytes, qsizetype at) { return static_cast<std::uint8_t>(bytes[at]); }

bool StandsAlone(int marker) { return marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD8); }

QByteArray Segment(int marker, const QByteArray& body) {
  const qsizetype length = body.size() + 2;
  return QByteArray("\xFF") + char(marker) + char(length >> 8) + char(length & 0xFF) + body;
}

// What a reader has to know of the camera, in the shortest form.
QByteArray Turning(int orientation) {
  QByteArray exif("Exif\0\0MM\0\x2A\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\0\0\0\0\0\0\0", 32);
  exif[25] = char(orientation);
  return Segment(App0 + 1, exif);
}

QByteArray Kept(int marker, const QByteArray& body) {
  if (marker == App0 && body.startsWith(Jfif) && body.size() > JfifBody)
    return Segment(marker, body.left(JfifBody - 2) + QByteArray(2, '\0'));  // without its thumbnail
  const bool shows = marker < App0 || (marker > App15 && marker != Comment) ||
                     (marker == App0 && body.startsWith(Jfif)) ||
                     (marker == App0 + 2 && body.startsWith(Profile));
  if (marker == App0 + 14 && body.startsWith(Adobe)) return Segment(marker, body.left(AdobeBody));
  return shows ? Segment(marker, body) : QByteArray();
}

// The next byte 0xFF that begins a marker, or the end. In a scan the byte itself has 0 behind it.
qsizetype NextMarker(const QByteArray& jpeg, qsizetype at, bool inScan) {
  while ((at = jpeg.indexOf('\xFF', at)) >= 0) {
    qsizetype code = at + 1;
    while (code < jpeg.size() && At(jpeg, code) == 0xFF) ++code;
    if (code >= jpeg.size()) break;
    if (!inScan || !(At(jpeg, code) == 0 || (At(jpeg, code) >= 0xD0 && At(jpeg, code) <= 0xD7)))
      return code - 1;
    at = code + 1;
  }
  return jpeg.size();
}

}  // namespace

QByteArray BareJpeg(const QByteArray& jpeg, int orientation) {
  QByteArray bare = jpeg.left(2);
  bare.reserve(jpeg.size());
  if (orientation != 1) bare += Turning(orientation);
  qsizetype at = NextMarker(jpeg, 2, false);
  while (at + 4 <= jpeg.size() && At(jpeg, at + 1) != EndOfImage) {
    const int marker = At(jpeg, at + 1);
    const bool alone = StandsAlone(marker);
    const qsizetype length = alone ? 0 : std::max(2, At(jpeg, at + 2) * 256 + At(jpeg, at + 3));
    if (!alone) bare += Kept(marker, jpeg.mid(at + 4, length - 2));
    at += 2 + length;
    const qsizetype next = NextMarker(jpeg, at, marker == StartOfScan);
    if (marker == StartOfScan) bare += jpeg.mid(at, next - at);
    at = next;
  }
  return bare + "\xFF\xD9";
}

}  // namespace vorlina
