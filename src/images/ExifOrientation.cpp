#include "images/ExifOrientation.h"

#include <cstring>

namespace vorlina {
namespace {

// A TIFF structure as EXIF embeds it, in either byte order. Reading beyond the end gives 0.
class Tiff {
 public:
  Tiff(const std::uint8_t* data, std::size_t size)
      : data_(data), size_(size), big_(size > 0 && data[0] == 'M') {}

  std::uint32_t U16(std::size_t at) const {
    if (at + 2 > size_ || at + 2 < at) return 0;
    return big_ ? (std::uint32_t(data_[at]) << 8 | data_[at + 1])
                : (std::uint32_t(data_[at + 1]) << 8 | data_[at]);
  }
  std::uint32_t U32(std::size_t at) const {
    return big_ ? (U16(at) << 16 | U16(at + 2)) : (U16(at + 2) << 16 | U16(at));
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
  bool big_;
};

constexpr std::uint32_t OrientationTag = 0x0112;
constexpr std::uint32_t LongType = 4;  // some write it so; a short is meant
constexpr std::size_t EntrySize = 12;

}  // namespace

std::optional<int> ExifOrientation(const std::uint8_t* body, std::size_t size) {
  static const char marker[] = "Exif\0";
  if (size < 14 || std::memcmp(body, marker, 6) != 0) return std::nullopt;
  const Tiff tiff(body + 6, size - 6);
  if (tiff.U16(2) != 42) return 1;
  const std::size_t directory = tiff.U32(4);
  const std::uint32_t entries = tiff.U16(directory);
  for (std::uint32_t i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + i * EntrySize;
    if (tiff.U16(entry) != OrientationTag) continue;
    const std::uint32_t value = tiff.U16(entry + 2) == LongType ? tiff.U32(entry + 8) : tiff.U16(entry + 8);
    return value >= 1 && value <= 8 ? int(value) : 1;
  }
  return 1;
}

}  // namespace vorlina
