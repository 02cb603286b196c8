// libjpeg's decompressor with its errors, released in any case.
#pragma once

#include <QByteArray>
#include <QSize>

#include "images/JpegCodec.h"
#include "images/JpegErrors.h"

namespace vorlina {

// A picture being decoded. Every call throws Error for what is damaged, truncated, too large or no JPEG:
// warnings of the library are failures here.
class JpegDecompressor {
 public:
  // Reads the head.
  explicit JpegDecompressor(const QByteArray& jpeg);
  ~JpegDecompressor();
  JpegDecompressor(const JpegDecompressor&) = delete;
  JpegDecompressor& operator=(const JpegDecompressor&) = delete;

  const JpegHead& Head() const { return head_; }
  const jpeg_decompress_struct& Info() const { return info_; }
  bool IsCmyk() const { return info_.jpeg_color_space == JCS_CMYK || info_.jpeg_color_space == JCS_YCCK; }

  // Chooses the smallest of the scales 1/8, 1/4, 1/2 and 1 at which the stored picture covers the size with
  // something to spare; an empty size takes the full scale.
  void ScaleToCover(QSize atLeast);

  // Starts decoding into the planes as they are stored, or into lines of these colours.
  void StartPlanes();
  void StartLines(J_COLOR_SPACE colours);

  void ReadPlanes(JSAMPIMAGE rows, unsigned lines);
  void ReadLine(std::uint8_t* line);
  void Finish();

 private:
  // Each step that calls the library has its own setjmp and no object that a jump would pass by.
  bool TryHead(const QByteArray& jpeg);
  bool TryScale(unsigned eighths);
  bool TryStart();
  bool TryReadPlanes(JSAMPIMAGE rows, unsigned lines);
  bool TryReadLine(JSAMPROW line);
  bool TryFinish();
  bool TryProfile(JOCTET** data, unsigned* size);
  void Check(bool done) const;
  void ReadMarkers();

  jpeg_decompress_struct info_{};
  JpegErrors errors_;
  JpegHead head_;
};

}  // namespace vorlina
