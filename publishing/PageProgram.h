// A page's template as a row of steps, which write straight into the page.
#pragma once

#include <QString>
#include <cstdint>
#include <exception>
#include <map>
#include <string>
#include <vector>

#include "Fields.h"
#include "Template.h"

namespace publishing {

// A page that cannot be written: a section in a file of the skin is a list within itself, or what it writes
// is far more than a page.
struct PageFault : std::exception {
  QString file;
  int line = 0;  // 0 where it is no section
  bool isListInItself = false;
};

// Mustache's rules: "{{name}}" is looked for from the innermost section outwards, "{{a.b}}" likewise as a
// whole, "{{.}}" is what the section is about. A section stands for a list once for each item, for a text or
// a group once, for something false or not there never; "{{^name}}" stands in its place then. A line with
// nothing but tags of sections and comments is none, and neither is one that such sections leave empty.
class PageProgram {
 public:
  PageProgram() = default;
  // The names that the template asks for become those of its kind.
  PageProgram(const Template& source, FieldNames& names, std::size_t kind);

  // Writes a page with what all pages have and its own, which is looked at first. Throws PageFault.
  void Write(const FieldTree& site, const FieldTree& page, std::string& out) const;

 private:
  friend class PageCompiler;
  friend class PageWriter;

  enum class Kind : std::uint8_t { Text, Value, Section, Inverted, End, LineStart, LineEnd };
  struct Step {
    Kind kind = Kind::Text;
    std::uint32_t at = 0;    // of the text, or the number of the name's path
    std::uint32_t size = 0;  // of the text; of a section, the step of its end
  };

  struct Origin {
    QString file;
    int line = 0;
  };

  Origin origin_;
  std::map<std::uint32_t, Origin> sections_;  // by their steps
  std::vector<Step> steps_;
  std::string texts_;
  std::vector<std::vector<int>> paths_;  // "L.home" has two names; "." none
};

}  // namespace publishing
