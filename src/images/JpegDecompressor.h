// libjpeg's decompressor with its errors, released in any case.
#pragma once

#include <QByteArray>
#include <QSize>
#include <functional>

#include "images/ColourProfile.h"
#include "images/JpegErrors.h"
#include "images/JpegHead.h"

namespace vorlina {

// A picture being decoded. Every call throws Error for what is damaged, truncated, too large or no JPEG:
// warnings of the library that mean lost picture data are failures here.
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

  // Decodes the whole as lines of RGB; take gets each line and its number from 0. CMYK and grey go by their
  // profile where they have one, while RGB stays in the colours of its own.
  void ReadRgb(const std::function<void(const std::uint8_t* line, int y)>& take);

 private:
  // Each step that calls the library has its own setjmp and no object that a jump would pass by.
  bool TryHead(const QByteArray& jpeg);
  bool TryScale(unsigned eighths);
  bool TryStart();
  bool TryReadPlanes(JSAMPIMAGE rows, unsigned lines);
  bool TryReadLine(JSAMPROW line);
  bool TryFinish();
  bool TryProfile(JOCTET** data, unsigned* size);
  ColourProfile::Samples Stored() const;
  void Check(bool done) const;
  void ReadMarkers();

  jpeg_decompress_struct info_{};
  JpegErrors errors_;
  JpegHead head_;
};

}  // namespace vorlina
