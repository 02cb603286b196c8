// Texts of unknown hands in files of other formats. All of it is UTF-8. Left out are the characters that
// neither HTML nor XML may hold: control characters but for line ends and tabs, and the two that are none at
// all.
#pragma once

#include <string>
#include <string_view>

namespace files {

// Puts a text behind another one, as it is, or as it stands in an element or in a quoted attribute of HTML or
// XML.
void AppendClean(std::string_view text, std::string& to);
void AppendEscaped(std::string_view text, std::string& to);
std::string Escaped(std::string_view text);

}  // namespace files
