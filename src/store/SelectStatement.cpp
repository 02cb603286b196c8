#include "store/SelectStatement.h"

#include <QStringList>
#include <algorithm>
#include <vector>

namespace vorlina {
namespace {

struct Word {
  QString text;  // upper case
  qsizetype start;
  qsizetype end;
};

// Past the quoted text that begins here: 'text', "name", `name` or [name].
qsizetype SkipQuoted(const QString& sql, qsizetype at) {
  const QChar close = sql[at] == u'[' ? u']' : sql[at];
  for (qsizetype i = at + 1; i < sql.size(); ++i) {
    if (sql[i] != close) continue;
    const bool doubled = close != u']' && i + 1 < sql.size() && sql[i + 1] == close;
    if (!doubled) return i + 1;
    ++i;
  }
  return sql.size();
}

bool IsNameCharacter(QChar c) { return c.isLetterOrNumber() || c == u'_' || c == u'$'; }

// The bare words outside quotes and parentheses.
std::vector<Word> TopLevelWords(const QString& sql) {
  std::vector<Word> words;
  int depth = 0;
  for (qsizetype i = 0; i < sql.size();) {
    const QChar c = sql[i];
    if (c == u'\'' || c == u'"' || c == u'`' || c == u'[') {
      i = SkipQuoted(sql, i);
    } else if (IsNameCharacter(c)) {
      const qsizetype start = i;
      while (i < sql.size() && IsNameCharacter(sql[i])) ++i;
      if (depth == 0) words.push_back({sql.mid(start, i - start).toUpper(), start, i});
    } else {
      depth += c == u'(' ? 1 : c == u')' ? -1 : 0;
      ++i;
    }
  }
  return words;
}

// The words that end one clause and begin the next.
constexpr const char16_t* TailWords[] = {u"ORDER", u"LIMIT"};
constexpr const char16_t* OtherShapes[] = {u"DISTINCT", u"GROUP",     u"HAVING", u"UNION",
                                           u"EXCEPT",   u"INTERSECT", u"WINDOW"};

bool IsOneOf(const QString& word, const auto& list) {
  return std::any_of(std::begin(list), std::end(list),
                     [&](const char16_t* other) { return word == QStringView(other); });
}

}  // namespace

QString QuoteName(const QString& name) {
  QString quoted = name;
  return u'"' + quoted.replace(u'"', u"\"\""_qs) + u'"';
}

QString SelectStatement::WhereAnd(const QString& condition) const {
  if (where.isEmpty()) return condition;
  return condition.isEmpty() ? where : u'(' + where + u") AND ("_qs + condition + u')';
}

std::optional<SelectStatement> SelectStatement::Parse(const QString& sql) {
  const std::vector<Word> words = TopLevelWords(sql);
  if (words.empty() || words.front().text != u"SELECT") return {};
  const Word* from = nullptr;
  const Word* where = nullptr;
  const Word* tail = nullptr;
  for (const Word& word : words) {
    if (IsOneOf(word.text, OtherShapes)) return {};
    if (from == nullptr && word.text == u"FROM") from = &word;
    if (from != nullptr && where == nullptr && tail == nullptr && word.text == u"WHERE") where = &word;
    if (from != nullptr && tail == nullptr && IsOneOf(word.text, TailWords)) tail = &word;
  }
  if (from == nullptr) return {};
  const qsizetype end = tail != nullptr ? tail->start : sql.size();
  const qsizetype fromEnd = where != nullptr ? where->start : end;
  SelectStatement parts;
  parts.list = sql.mid(words.front().end, from->start - words.front().end).trimmed();
  parts.from = sql.mid(from->end, fromEnd - from->end).trimmed();
  if (where != nullptr) parts.where = sql.mid(where->end, end - where->end).trimmed();
  if (tail != nullptr) parts.tail = sql.mid(tail->start).trimmed();
  return parts;
}

}  // namespace vorlina
