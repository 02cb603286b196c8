// The text of a page's template with its partials put in, checked tag by tag before the template library sees
// it.
#pragma once

#include <QString>
#include <functional>
#include <set>
#include <string>

namespace publishing {

struct Template {
  std::string text;
  std::set<std::string, std::less<>> names;  // all that its tags ask for; "L.home" gives "L" and "home"
};

// Puts a template together from files; read gives the text of one by its name. "{{> name}}" takes in the part
// of that name, which has no parts itself. Throws std::runtime_error that names file and line: a tag that
// writes unescaped text ("{{{", "{{&") or changes the delimiters, one without an end, a section that is not
// closed, a part that does not exist.
Template LoadTemplate(const QString& file, const std::function<std::string(const QString&)>& read,
                      bool italian);

// What is wrong with a file of a skin, thrown as std::runtime_error. A line of 0 is not told.
[[noreturn]] void RefuseSkin(bool italian, const QString& file, int line, const QString& inItalian,
                             const QString& inEnglish);

}  // namespace publishing
