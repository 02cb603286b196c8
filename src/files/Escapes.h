// Texts of unknown hands in files of other formats. All of it is UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace files {

// A text without the characters that neither HTML nor XML may hold: control characters but for line ends and
// tabs, and the two that are none at all.
std::string WithoutControls(std::string_view text);

// A text as it stands in an element or in a quoted attribute of HTML or XML.
std::string Escaped(std::string_view text);
// The same, put behind another text. Control characters are let through.
void AppendEscaped(std::string_view text, std::string& to);

}  // namespace files
