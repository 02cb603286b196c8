// The words that a publication itself says, in the language of its readers: one flat JSON file a language.
#pragma once

#include <QLocale>
#include <QString>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "Fields.h"

namespace publishing {

class Words {
 public:
  // What a "{name}" in a text stands for.
  using Values = std::initializer_list<std::pair<std::string_view, std::string>>;

  // The file LANGUAGE.json ("it.json") of the folder that was delivered. A skin's own words/LANGUAGE.json
  // replaces words and adds to them; what it adds in no language but English is said in English. Throws
  // std::runtime_error that names the file and what is wrong with it. italian is the language of the errors.
  Words(const QString& language, const QString& delivered, const QString& skin, bool italian);

  // A word. Throws std::logic_error for one that does not exist.
  const std::string& Text(std::string_view key) const;
  std::string Text(std::string_view key, Values values) const;
  // The text KEY + "One" or "Many", as the language has it for this number, which it has as {n}.
  std::string Counted(const std::string& key, int n, Values values = {}) const;
  // "3,000", as the language writes it.
  std::string Number(int n) const;
  const std::string& Language() const { return language_; }

  // Every word under its key; in a group "L" the templates see {{L.key}}.
  void Tell(Fields& fields) const;

 private:
  std::string language_;
  QLocale locale_;
  std::map<std::string, std::string, std::less<>> words_;
};

}  // namespace publishing
