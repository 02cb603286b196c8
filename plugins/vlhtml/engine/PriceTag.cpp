#include "PriceTag.h"

#include <QString>
#include <QStringList>
#include <algorithm>
#include <iterator>

namespace vlhtml {
namespace {

// A sign or word for a currency. One that several countries share has no code.
struct Sign {
  QString text;
  const char* code;
  bool isWord;
};

const Sign* SignIn(const QString& text) {
  static const Sign signs[] = {{QStringLiteral("€"), "EUR", false},  {QStringLiteral("£"), "GBP", false},
                               {QStringLiteral("$"), "", false},     {QStringLiteral("EUR"), "EUR", true},
                               {QStringLiteral("GBP"), "GBP", true}, {QStringLiteral("USD"), "USD", true},
                               {QStringLiteral("CHF"), "CHF", true}};
  const Sign* found = std::find_if(std::begin(signs), std::end(signs), [&](const Sign& sign) {
    const qsizetype at = text.indexOf(sign.text);
    const auto isLetter = [&](qsizetype i) { return i >= 0 && i < text.size() && text[i].isLetter(); };
    return at >= 0 && !(sign.isWord && (isLetter(at - 1) || isLetter(at + sign.text.size())));
  });
  return found == std::end(signs) ? nullptr : found;
}

QString Without(QString text, const Sign* sign) {
  if (sign != nullptr) text.remove(text.indexOf(sign->text), sign->text.size());
  return text.simplified();
}

// Whether digits stand in threes behind the first group, which the mark parts.
bool InThrees(const QString& digits, QChar mark) {
  const QStringList groups = digits.split(mark);
  return groups.size() == 1 || (!groups.first().isEmpty() && groups.first().size() <= 3 &&
                                std::all_of(groups.begin() + 1, groups.end(),
                                            [](const QString& group) { return group.size() == 3; }));
}

bool IsDigits(const QString& text) {
  return !text.isEmpty() &&
         std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

// A number in figures, of which the last mark may be that of the decimals.
QString Figures(const QString& text, bool decimalComma) {
  const qsizetype last = std::max(text.lastIndexOf(u'.'), text.lastIndexOf(u','));
  QString whole = text, decimals;
  QChar grouping = QLatin1Char(decimalComma ? '.' : ',');
  if (last >= 0 && (text.size() - last <= 3 || text.count(text[last]) == 1)) {
    const bool isDecimal = text.size() - last <= 3;
    // "1,250" where commas have decimals behind them is one number to some and another to others.
    if (!isDecimal && text[last] != grouping) return {};
    if (isDecimal) {
      whole = text.left(last);
      decimals = text.mid(last + 1);
      grouping = text[last] == u',' ? u'.' : u',';
      if (!IsDigits(decimals)) return {};
    }
  }
  for (const QChar mark : {grouping, QChar(u' '), QChar(u'\''), QChar(u'’')})
    if (InThrees(whole, mark)) whole.remove(mark);
  if (!IsDigits(whole)) return {};
  return decimals.isEmpty() ? whole : whole + u'.' + decimals;
}

}  // namespace

PriceTag::PriceTag(const std::string& name, bool decimalComma)
    : name_(name), bareName_(name), decimalComma_(decimalComma) {
  const QString text = QString::fromStdString(name);
  const Sign* sign = SignIn(text);
  if (sign == nullptr) return;
  sign_ = sign->text.toStdString();
  QString bare = Without(text, sign);
  for (const QString& rest : {QStringLiteral("()"), QStringLiteral("[]"), QStringLiteral(" in")})
    if (bare.endsWith(rest)) bare.chop(rest.size());
  bareName_ = bare.trimmed().toStdString();
}

std::string PriceTag::Text(const std::string& value) const {
  if (sign_.empty() || value.empty() || SignIn(QString::fromStdString(value)) != nullptr ||
      Amount(value).empty())
    return value;
  const bool isWord = sign_.size() == 3 && sign_[0] >= 'A' && sign_[0] <= 'Z';
  if (decimalComma_) return value + "\u00A0" + sign_;
  return isWord ? sign_ + "\u00A0" + value : sign_ + value;
}

const std::string& PriceTag::Label(const std::string& value, const std::string& shown) const {
  return shown == value ? name_ : bareName_;
}

std::string PriceTag::Amount(const std::string& value) const {
  const QString text = QString::fromStdString(value);
  return Figures(Without(text, SignIn(text)), decimalComma_).toStdString();
}

std::string PriceTag::Currency(const std::string& value) const {
  const Sign* sign = SignIn(QString::fromStdString(value));
  if (sign == nullptr) sign = SignIn(QString::fromStdString(name_));
  return sign == nullptr ? std::string() : std::string(sign->code);
}

}  // namespace vlhtml
