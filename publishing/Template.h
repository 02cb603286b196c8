// The text of a page's template with its parts put in, checked tag by tag.
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

namespace publishing {

struct Tag {
  char kind = 0;  // "#", "^", "/", ">", "!", or 0 for a value
  std::string name;
  std::size_t begin = 0, end = 0;
  QString file;
  int line = 1;
};

struct Template {
  QString file;
  std::string text;
  std::vector<Tag> tags;  // as they stand in the text
};

// Puts a template together from files; read gives the text of one by its name. "{{> name}}" takes in the part
// of that name, which may have parts itself. Throws std::runtime_error that names file and line: a tag that
// writes unescaped text ("{{{", "{{&") or changes the delimiters, one without an end, a section that is not
// closed, a part that does not exist, and more of anything than a page can need.
Template LoadTemplate(const QString& file, const std::function<std::string(const QString&)>& read,
                      bool italian);

// What is wrong with a file of a skin, thrown as std::runtime_error. A line of 0 is not told.
[[noreturn]] void RefuseSkin(bool italian, const QString& file, int line, const QString& inItalian,
                             const QString& inEnglish);

}  // namespace publishing
