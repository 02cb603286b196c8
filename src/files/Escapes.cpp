#include "Escapes.h"

#include <algorithm>
#include <array>

namespace files {
namespace {

// How many bytes a control character, or one that is none at all, takes at this place; 0 for any other.
std::size_t ControlAt(std::string_view text) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
  const unsigned first = byte(0);
  if (first < 0x20) return first == '\n' || first == '\r' || first == '\t' ? 0 : 1;
  if (first == 0x7F) return 1;
  if (first == 0xC2 && byte(1) < 0xA0) return 2;
  return first == 0xEF && byte(1) == 0xBF && byte(2) >= 0xBE ? 3 : 0;
}

// Bytes that need a second look, since they are markup or begin a control character.
constexpr std::array<bool, 256> Special = [] {
  std::array<bool, 256> special{};
  for (std::size_t byte = 0; byte < special.size(); ++byte) special[byte] = byte < 0x20;
  for (const int byte : {0x09, 0x0A, 0x0D}) special[std::size_t(byte)] = false;
  for (const int byte : {0x26, 0x3C, 0x3E, 0x22, 0x27, 0x7F, 0xC2, 0xEF}) special[std::size_t(byte)] = true;
  return special;
}();

std::string_view EscapeOf(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&apos;";
    default:
      return {};
  }
}

void Append(std::string_view text, std::string& to, bool escapes) {
  while (!text.empty()) {
    const auto* const found =
        std::find_if(text.begin(), text.end(), [](char c) { return Special[static_cast<unsigned char>(c)]; });
    to.append(text.begin(), found);
    text.remove_prefix(std::size_t(found - text.begin()));
    if (text.empty()) return;
    const std::string_view escape = escapes ? EscapeOf(text[0]) : std::string_view();
    const std::size_t control = ControlAt(text);
    if (!escape.empty())
      to += escape;
    else if (control == 0)
      to += text[0];
    text.remove_prefix(std::max<std::size_t>(control, 1));
  }
}

}  // namespace

void AppendClean(std::string_view text, std::string& to) { Append(text, to, false); }

void AppendEscaped(std::string_view text, std::string& to) { Append(text, to, true); }

std::string Escaped(std::string_view text) {
  std::string escaped;
  AppendEscaped(text, escaped);
  return escaped;
}

}  // namespace files
