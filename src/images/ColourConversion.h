// Colours on the way in: whatever a JPEG file holds becomes YCbCr (or grey) in sRGB.
#pragma once

#include <QByteArray>

#include "images/PlanarImage.h"

namespace vorlina {

// Turns a line of CMYK samples without a profile into RGB, in place. Files written by the usual programs hold
// them inverted.
void CmykToRgb(std::uint8_t* line, int width, bool inverted);

// Writes a line of RGB samples into row y of three planes of full size.
void RgbToPlanes(const std::uint8_t* rgb, PlanarImage& image, int y);

// Converts a picture from the colours of its profile, where it has one of its own kind, to sRGB; the chroma
// planes then have the full size.
void ConvertToSrgb(PlanarImage& image, const QByteArray& iccProfile);

}  // namespace vorlina
