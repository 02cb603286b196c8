#include "PriceValue.h"

#include <QSet>
#include <algorithm>

namespace publishing {
namespace {

// The words of a name, with symbols of currencies as words of their own.
QStringList WordsOf(const QString& name) {
  QStringList words(1);
  for (const QChar c : name.toCaseFolded()) {
    if (c.isLetter() || c.isMark())
      words.last() += c;
    else
      words << (c.category() == QChar::Symbol_Currency ? QStringList{c, QString()} : QStringList{QString()});
  }
  return words;
}

// German puts words together: "Listenpreis".
bool SaysPrice(const QString& word) {
  static const QSet<QString> words = {
      QStringLiteral("prezzo"), QStringLiteral("prezzi"), QStringLiteral("price"),  QStringLiteral("prices"),
      QStringLiteral("prix"),   QStringLiteral("precio"), QStringLiteral("precios")};
  return words.contains(word) || word.endsWith(u"preis") || word.endsWith(u"preise");
}

bool HintsAtPrice(const QString& word) {
  static const QSet<QString> words = {QStringLiteral("listino"), QStringLiteral("euro"),
                                      QStringLiteral("eur"),     QStringLiteral("chf"),
                                      QStringLiteral("usd"),     QStringLiteral("gbp")};
  return words.contains(word) || (word.size() == 1 && word[0].category() == QChar::Symbol_Currency);
}

}  // namespace

int PriceValue(const std::array<QString, 3>& names, const VorlinaProfile& profile) {
  const auto number = [](std::size_t i) { return int(i) + 1; };
  if (profile.price >= 1 && profile.price <= 3)
    return names[std::size_t(profile.price) - 1].isEmpty() ? 0 : profile.price;
  if (profile.price != VorlinaProfile::PriceByName) return 0;
  for (const auto& says : {SaysPrice, HintsAtPrice})
    for (std::size_t i = 0; i < names.size(); ++i)
      if (const QStringList words = WordsOf(names[i]); std::any_of(words.begin(), words.end(), says))
        return number(i);
  return 0;
}

}  // namespace publishing
