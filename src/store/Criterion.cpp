#include "store/Criterion.h"

#include "base/Helpers.h"
#include "base/Language.h"
#include "store/Quoting.h"
#include "store/SqlTokens.h"
#include "store/StoreError.h"

namespace vorlina {
namespace {

const char16_t* const Operators[] = {u"=", u"<>", u"<", u">", u"<=", u">=", u"LIKE"};

[[noreturn]] void Refuse(const QString& text) {
  throw StoreError(StoreFault::Other, EitherLanguage(u"Criterio di ricerca non valido: %1"_qs,
                                                     u"The search criterion is not valid: %1"_qs)
                                          .arg(text));
}

QVariant ValueOf(const std::vector<SqlToken>& tokens, const QString& text) {
  const SqlToken& last = tokens.back();
  const bool isSigned = tokens.size() == 4 && tokens[2].Is(u"-");
  if (tokens.size() != 3 && !isSigned) Refuse(text);
  if (last.kind == SqlToken::Kind::Text && !isSigned) return last.text;
  if (last.Is(u"NULL") && !isSigned) return NullValue();
  if (last.Is(u"TRUE") || last.Is(u"FALSE")) return last.Is(u"TRUE");
  bool isNumber = false;
  const QString digits = (isSigned ? u"-"_qs : QString()) + last.text;
  const qlonglong integer = digits.toLongLong(&isNumber);
  if (isNumber) return integer;
  const double number = digits.toDouble(&isNumber);
  if (!isNumber) Refuse(text);
  return number;
}

}  // namespace

Criterion ParseCriterion(const QString& text) {
  const std::vector<SqlToken> tokens = SqlTokens(text);
  if (tokens.size() < 3 || !tokens[0].IsName()) Refuse(text);
  for (const char16_t* known : Operators) {
    if (!tokens[1].Is(known)) continue;
    const QVariant value = ValueOf(tokens, text);
    if (value.isNull() && tokens[1].Is(u"=")) return EqualTo(tokens[0].text, value);
    if (value.isNull() && tokens[1].Is(u"<>")) return {QuotedName(tokens[0].text) + u" IS NOT NULL"_qs, {}};
    return {QuotedName(tokens[0].text) + u' ' + tokens[1].text + u" ?"_qs, {value}};
  }
  Refuse(text);
}

Criterion EqualTo(const QString& column, const QVariant& value) {
  if (value.isNull()) return {QuotedName(column) + u" IS NULL"_qs, {}};
  return {QuotedName(column) + u" = ?"_qs, {value}};
}

}  // namespace vorlina
