// Writes made-up photographs, 12 and 24 megapixels in turn.
// usage: make_photos FOLDER COUNT [progressive]
#include <QDir>
#include <QSize>
#include <cstdio>

#include "Photographs.h"
#include "base/SafeFile.h"
#include "support/TestJpeg.h"

using namespace vorlina;

int main(int argc, char** argv) {
  if (argc < 3 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
    std::fprintf(stderr, "usage: make_photos FOLDER COUNT [progressive]\n");
    return 2;
  }
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  JpegForm form;
  form.exif = MakeExif(1);
  form.progressive = argc > 3;
  // Two pictures serve for all: what they show does not matter, and their file names differ.
  const QByteArray photos[] = {MakeJpeg(MakePhotograph({4000, 3000}, 1), form),
                               MakeJpeg(MakePhotograph({6000, 4000}, 2), form)};
  for (int i = 0; i < std::atoi(argv[2]); ++i)
    WriteFileSafely(folder.filePath(QStringLiteral("IMG_%1.jpg").arg(i, 4, 10, QLatin1Char('0'))),
                    photos[i % 2]);
  return 0;
}
