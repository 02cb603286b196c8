#include "store/SelectParts.h"

#include <algorithm>
#include <span>

#include "store/SqlTokens.h"

namespace vorlina {
namespace {

using Tokens = std::span<const SqlToken>;

const char16_t* const Refused[] = {u"GROUP", u"HAVING", u"UNION", u"EXCEPT",  u"INTERSECT",
                                   u"LIMIT", u"WINDOW", u"JOIN",  u"INDEXED", u"NOT INDEXED"};
const char16_t* const Aggregates[] = {u"COUNT", u"SUM", u"TOTAL",        u"AVG",
                                      u"MIN",   u"MAX", u"GROUP_CONCAT", u"OVER"};

bool IsAny(const SqlToken& token, std::span<const char16_t* const> words) {
  return std::any_of(words.begin(), words.end(), [&](const char16_t* word) { return token.Is(word); });
}

// Where the clause that begins with this word stands; the number of tokens when there is none.
std::size_t Clause(Tokens tokens, const char16_t* word) {
  const auto found = std::find_if(tokens.begin(), tokens.end(),
                                  [&](const SqlToken& token) { return token.depth == 0 && token.Is(word); });
  return std::size_t(found - tokens.begin());
}

QString TextOf(const QString& sql, Tokens tokens) {
  return tokens.empty() ? QString() : sql.mid(tokens.front().begin, tokens.back().end - tokens.front().begin);
}

bool AreColumnsPlain(Tokens columns) {
  if (columns.empty() || columns.front().Is(u"DISTINCT")) return false;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].Is(u"?") || columns[i].Is(u":") || columns[i].Is(u"@")) return false;
    if (i + 1 < columns.size() && columns[i + 1].Is(u"(") && IsAny(columns[i], Aggregates)) return false;
  }
  return true;
}

// "Table", "Table Alias" or "Table AS Alias".
bool TakeTable(Tokens from, SelectParts& parts) {
  const bool hasAs = from.size() == 3 && from[1].Is(u"AS");
  if (from.empty() || (from.size() > 2 && !hasAs) || !from.front().IsName() || !from.back().IsName())
    return false;
  parts.table = from.front().text;
  parts.alias = from.back().text;
  return true;
}

}  // namespace

std::optional<SelectParts> SplitSelect(const QString& sql) {
  const std::vector<SqlToken> all = SqlTokens(sql);
  Tokens tokens(all);
  while (!tokens.empty() && tokens.back().Is(u";")) tokens = tokens.first(tokens.size() - 1);
  if (tokens.empty() || !tokens.front().Is(u"SELECT")) return {};
  for (const SqlToken& token : tokens)
    if ((token.depth == 0 && IsAny(token, Refused)) || token.Is(u";")) return {};

  const std::size_t from = Clause(tokens, u"FROM");
  const std::size_t order = Clause(tokens, u"ORDER");
  const std::size_t where = std::min(Clause(tokens, u"WHERE"), order);
  if (from >= where || (order < tokens.size() && order + 2 > tokens.size())) return {};

  SelectParts parts;
  const Tokens columns = tokens.subspan(1, from - 1);
  if (!AreColumnsPlain(columns) || !TakeTable(tokens.subspan(from + 1, where - from - 1), parts)) return {};
  parts.columns = TextOf(sql, columns);
  parts.from = TextOf(sql, tokens.subspan(from + 1, where - from - 1));
  if (where < order) parts.where = TextOf(sql, tokens.subspan(where + 1, order - where - 1));
  if (order < tokens.size()) parts.orderBy = TextOf(sql, tokens.subspan(order + 2));
  return parts;
}

}  // namespace vorlina
