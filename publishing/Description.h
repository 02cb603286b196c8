// A product's description as readers see it: a name, and paragraphs.
#pragma once

#include <QString>
#include <string>
#include <vector>

namespace publishing {

struct Description {
  // The first sentence of the first line, or as much of it as makes a name of about a hundred characters,
  // with "…" behind it: up to the end of a phrase where there is one in time. Without a full stop at its end.
  // Empty where the text has nothing but blanks.
  std::string name;
  // All that the name has not. Blank lines divide paragraphs; the line breaks in one are "\n".
  std::vector<std::string> paragraphs;
};

Description DescriptionOf(const QString& text);

}  // namespace publishing
