// An ICC profile that came with a picture, as far as it is needed: lines of samples in its colours become
// lines in sRGB.
#pragma once

#include <QByteArray>
#include <cstdint>
#include <memory>

namespace vorlina {

class ColourProfile {
 public:
  // What the samples of a pixel are. Files written by the usual programs hold CMYK inverted.
  enum class Samples { Grey, Rgb, Cmyk, InvertedCmyk };

  // A profile of other samples than these, one that cannot be read, sRGB itself and an empty one convert
  // nothing, and cost no more than the look that tells so. Any thread may make and use one of its own.
  ColourProfile(const QByteArray& icc, Samples samples);

  bool Converts() const { return transform_ != nullptr; }
  // Turns a line of pixels into RGB. Only for one that converts; the lines must not overlap.
  void ToRgb(const std::uint8_t* samples, std::uint8_t* rgb, int pixels) const;

 private:
  std::shared_ptr<void> context_;
  std::shared_ptr<void> transform_;
};

}  // namespace vorlina
