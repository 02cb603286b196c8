#include "JpegHead.h"

#include <QFile>
#include <QFileInfo>

namespace publishing {
namespace {

const QByteArray Start = "\xff\xd8\xff";

// Enough for the pieces of any real file; a file of nothing but bytes is given up.
constexpr int MostPieces = 100'000;

int At(const QByteArray& bytes, int at) { return static_cast<unsigned char>(bytes[at]); }
int Number(const QByteArray& bytes, int at) { return At(bytes, at) * 256 + At(bytes, at + 1); }

bool HasSize(int marker) {
  return marker >= 0xc0 && marker <= 0xcf && marker != 0xc4 && marker != 0xc8 && marker != 0xcc;
}
bool StandsAlone(int marker) { return marker <= 0x01 || (marker >= 0xd0 && marker <= 0xd8); }

}  // namespace

JpegFile LookAtJpeg(const QString& path) {
  const QFileInfo info(path);
  if (!info.exists()) return JpegFile::Missing;
  QFile file(path);
  if (!info.isFile()) return JpegFile::OtherKind;
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return JpegFile::Unreadable;
  const QByteArray begin = file.read(Start.size());
  if (begin.isEmpty() && file.error() != QFileDevice::NoError) return JpegFile::Unreadable;
  return begin == Start ? JpegFile::Good : JpegFile::OtherKind;
}

QSize JpegSize(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
  qint64 at = 2;
  for (int pieces = 0; pieces < MostPieces; ++pieces) {
    const QByteArray head = file.seek(at) ? file.read(9) : QByteArray();
    if (head.size() < 9) return {};
    const int marker = At(head, 1);
    if (At(head, 0) != 0xff || marker == 0xff)
      ++at;  // stray bytes, and those that fill
    else if (StandsAlone(marker))
      at += 2;
    else if (HasSize(marker))
      return {Number(head, 7), Number(head, 5)};
    else if (marker == 0xd9 || marker == 0xda)
      return {};
    else
      at += 2 + Number(head, 2);
  }
  return {};
}

}  // namespace publishing
