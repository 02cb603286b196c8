#include "store/TextCompare.h"

#include <QChar>
#include <vector>

namespace vorlina {
namespace {

constexpr char32_t BeyondUnicode = 0x110000;

bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

char32_t FoldedAscii(char c) {
  return c >= 'A' && c <= 'Z' ? char32_t(c + 32) : char32_t(static_cast<unsigned char>(c));
}

// The character at the position, which moves behind it. A byte that begins no valid sequence gives a number
// of its own beyond Unicode.
char32_t TakeCharacter(std::string_view text, std::size_t& at) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char lead = byte(at);
  const std::size_t length = lead < 0x80       ? 1
                             : lead >> 5 == 6  ? 2
                             : lead >> 4 == 14 ? 3
                             : lead >> 3 == 30 ? 4
                                               : 0;
  if (length == 1) return byte(at++);
  char32_t character = length == 0 ? 0 : lead & (0x7fU >> length);
  bool valid = length != 0 && at + length <= text.size();
  for (std::size_t i = 1; valid && i < length; ++i) {
    valid = byte(at + i) >> 6 == 2;
    character = character << 6 | (byte(at + i) & 0x3fU);
  }
  if (!valid || character >= BeyondUnicode) return BeyondUnicode + byte(at++);
  at += length;
  return character;
}

char32_t TakeFolded(std::string_view text, std::size_t& at) {
  if (IsAscii(text[at])) return FoldedAscii(text[at++]);
  const char32_t character = TakeCharacter(text, at);
  return character < BeyondUnicode ? QChar::toCaseFolded(character) : character;
}

int Sign(char32_t first, char32_t second) { return first < second ? -1 : first > second ? 1 : 0; }

}  // namespace

int CompareFolded(std::string_view first, std::string_view second) {
  std::size_t i = 0;
  std::size_t j = 0;
  while (i < first.size() && j < second.size()) {
    const int sign = Sign(TakeFolded(first, i), TakeFolded(second, j));
    if (sign != 0) return sign;
  }
  return int(i < first.size()) - int(j < second.size());
}

bool MatchesLike(std::string_view pattern, std::string_view text, char32_t escape) {
  // Only the last "%" needs to be taken up again, so the work is bounded by the product of the two lengths.
  std::size_t p = 0;
  std::size_t t = 0;
  std::size_t resumePattern = std::string_view::npos;
  std::size_t resumeText = 0;
  const auto matchOne = [&] {
    if (p >= pattern.size()) return false;
    char32_t wanted = TakeFolded(pattern, p);
    const bool literal = escape != 0 && wanted == escape && p < pattern.size();
    if (literal) wanted = TakeFolded(pattern, p);
    const char32_t found = TakeFolded(text, t);
    return wanted == found || (!literal && wanted == U'_');
  };
  while (t < text.size()) {
    if (p < pattern.size() && pattern[p] == '%' && escape != U'%') {
      resumePattern = ++p;
      resumeText = t;
    } else if (!matchOne()) {
      if (resumePattern == std::string_view::npos) return false;
      p = resumePattern;
      t = resumeText;
      TakeCharacter(text, t);
      resumeText = t;
    }
  }
  while (p < pattern.size() && pattern[p] == '%') ++p;
  return p == pattern.size();
}

}  // namespace vorlina
