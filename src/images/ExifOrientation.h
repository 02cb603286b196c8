// The one thing that is read from a picture's EXIF data: how it is to be turned.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vorlina {

// The orientation, 1 to 8 as EXIF numbers them, in the body of an APP1 marker. 1 (upright) where there is
// none or the data is damaged; nothing outside the body is read.
int ExifOrientation(const std::uint8_t* body, std::size_t size);

}  // namespace vorlina
