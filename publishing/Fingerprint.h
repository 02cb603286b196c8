// A number by which a file that was damaged or changed is told from what was published. It is quick rather
// than proof against forgery.
#pragma once

#include <QString>
#include <cstdint>
#include <optional>
#include <string_view>

namespace publishing {

std::uint64_t Fingerprint(std::string_view bytes);

// Of many things, one after the other: where one ends counts too.
class FingerprintOfMany {
 public:
  void Add(std::uint64_t number);
  void Add(std::string_view bytes) { Add(Fingerprint(bytes)); }
  void Add(const QString& text);
  std::uint64_t Value() const { return value_; }

 private:
  std::uint64_t value_ = 0;
};

// Of a file as it lies on the disk. A large one is looked at in three places: at its start, in its middle and
// at its end. Nothing where it cannot be read.
struct FileFingerprint {
  qint64 size = 0;
  std::uint64_t content = 0;
  bool operator==(const FileFingerprint&) const = default;
};
std::optional<FileFingerprint> FingerprintOf(const QString& path);
FileFingerprint FingerprintOf(std::string_view content);

}  // namespace publishing
