// Which of a catalog's values is the price. For plug-ins, and for the program itself; it uses Qt Core alone.
#pragma once

#include <QSet>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <array>

#include "VorlinaJob.h"

namespace vorlina {
namespace detail {

// The words of a name, with symbols of currencies as words of their own.
inline QStringList WordsOf(const QString& name) {
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
inline bool SaysPrice(const QString& word) {
  static const QSet<QString> words = {
      QStringLiteral("prezzo"), QStringLiteral("prezzi"), QStringLiteral("price"),  QStringLiteral("prices"),
      QStringLiteral("prix"),   QStringLiteral("precio"), QStringLiteral("precios")};
  return words.contains(word) || word.endsWith(u"preis") || word.endsWith(u"preise");
}

inline bool HintsAtPrice(const QString& word) {
  static const QSet<QString> words = {QStringLiteral("listino"), QStringLiteral("euro"),
                                      QStringLiteral("eur"),     QStringLiteral("chf"),
                                      QStringLiteral("usd"),     QStringLiteral("gbp")};
  return words.contains(word) || (word.size() == 1 && word[0].category() == QChar::Symbol_Currency);
}

}  // namespace detail

// 1 to 3, 0 for none: what the profile says, or the value whose name says so, such as "Prezzo" or "Price £".
// The names are those of the values that are shown, "" for the others, which are no price.
inline int PriceValue(const std::array<QString, 3>& names, const VorlinaProfile& profile) {
  const auto number = [](std::size_t i) { return int(i) + 1; };
  if (profile.price >= 1 && profile.price <= 3)
    return names[std::size_t(profile.price) - 1].isEmpty() ? 0 : profile.price;
  if (profile.price != VorlinaProfile::PriceByName) return 0;
  for (const auto& says : {detail::SaysPrice, detail::HintsAtPrice})
    for (std::size_t i = 0; i < names.size(); ++i)
      if (const QStringList words = detail::WordsOf(names[i]); std::any_of(words.begin(), words.end(), says))
        return number(i);
  return 0;
}

}  // namespace vorlina
