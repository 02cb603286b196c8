#include "Escapes.h"

#include <algorithm>

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

// Whether a byte can be the first of a control character, as it is in few texts.
bool MayBeControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte < 0x20 || byte == 0x7F || byte == 0xC2 || byte == 0xEF;
}

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
    default:
      return "&#39;";
  }
}

}  // namespace

std::string WithoutControls(std::string_view text) {
  if (std::none_of(text.begin(), text.end(), MayBeControl)) return std::string(text);
  std::string clean;
  clean.reserve(text.size());
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t control = ControlAt(text.substr(i));
    if (control == 0) clean += text[i];
    i += std::max<std::size_t>(control, 1);
  }
  return clean;
}

void AppendEscaped(std::string_view text, std::string& to) {
  for (;;) {
    const std::size_t special = text.find_first_of("&<>\"'");
    to.append(text.substr(0, special));
    if (special == std::string_view::npos) return;
    to.append(EscapeOf(text[special]));
    text.remove_prefix(special + 1);
  }
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  AppendEscaped(WithoutControls(text), escaped);
  return escaped;
}

}  // namespace files
