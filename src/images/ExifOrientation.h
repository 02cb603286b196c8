// The one thing that is read from a picture's EXIF data: how it is to be turned.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace vorlina {

// The orientation, 1 to 8 as EXIF numbers them, in the body of an APP1 marker. Nothing where the body
// is no EXIF block; 1 (upright) where the block has none or is damaged. Nothing outside the body is read.
std::optional<int> ExifOrientation(const std::uint8_t* body, std::size_t size);

}  // namespace vorlina
