#include "Fingerprint.h"

#include <QFile>
#include <cstring>
#include <string>

namespace publishing {
namespace {

constexpr std::uint64_t Factor = 0x9e3779b97f4a7c15;

// Up to this size all of a file is read; pages are smaller, pictures often larger.
constexpr qint64 ReadWhole = 64 * 1024;
constexpr qint64 Sample = 4 * 1024;

constexpr qint64 Samples(qint64 size, int number) { return (size - Sample) / 2 * number; }

}  // namespace

std::uint64_t Fingerprint(std::string_view bytes) {
  std::uint64_t sum = bytes.size() * Factor + 1;
  const auto take = [&](std::size_t at, std::size_t length) {
    std::uint64_t piece = 0;
    std::memcpy(&piece, bytes.data() + at, length);
    sum = (sum ^ piece) * Factor;
    sum ^= sum >> 29;
  };
  std::size_t at = 0;
  for (; at + sizeof sum <= bytes.size(); at += sizeof sum) take(at, sizeof sum);
  take(at, bytes.size() - at);
  return sum;
}

void FingerprintOfMany::Add(std::uint64_t number) {
  value_ = (value_ ^ number) * Factor;
  value_ ^= value_ >> 29;
}

// As it lies in memory, which takes no time.
void FingerprintOfMany::Add(const QString& text) {
  Add(std::string_view(reinterpret_cast<const char*>(text.utf16()), std::size_t(text.size()) * 2));
}

FileFingerprint FingerprintOf(std::string_view content) {
  const auto size = qint64(content.size());
  if (size <= ReadWhole) return {size, Fingerprint(content)};
  std::string samples;
  for (int i = 0; i < 3; ++i) samples += content.substr(std::size_t(Samples(size, i)), std::size_t(Sample));
  return {size, Fingerprint(samples)};
}

std::optional<FileFingerprint> FingerprintOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return {};
  const qint64 size = file.size();
  QByteArray bytes;
  if (size <= ReadWhole) {
    bytes = file.read(size);
    if (bytes.size() != size) return {};
  } else {
    for (int i = 0; i < 3; ++i) {
      if (!file.seek(Samples(size, i))) return {};
      bytes += file.read(Sample);
    }
    if (bytes.size() != 3 * Sample) return {};
  }
  return FileFingerprint{size, Fingerprint({bytes.constData(), std::size_t(bytes.size())})};
}

}  // namespace publishing
