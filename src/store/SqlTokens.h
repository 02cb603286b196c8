// The words of an SQL text, as far as clauses, names and literals are to be told apart.
#pragma once

#include <QString>
#include <vector>

namespace vorlina {

struct SqlToken {
  enum class Kind { Word, Name, Text, Number, Sign };
  Kind kind;
  // A quoted name or text without its quotes.
  QString text;
  qsizetype begin;
  qsizetype end;
  // How many parentheses are open around it.
  int depth;

  bool Is(const char16_t* word) const {
    return (kind == Kind::Word || kind == Kind::Sign) &&
           text.compare(QStringView(word), Qt::CaseInsensitive) == 0;
  }
  bool IsName() const { return kind == Kind::Word || kind == Kind::Name; }
};

// Comments and blanks are passed over. An open quote runs to the end of the text.
std::vector<SqlToken> SqlTokens(const QString& sql);

}  // namespace vorlina
