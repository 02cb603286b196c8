#include "PlainText.h"

namespace publishing {
namespace {

// Letters that no accent can be taken from. The skin's search.js knows the same.
QLatin1String PlainOf(QChar letter) {
  switch (letter.unicode()) {
    case u'œ':
      return QLatin1String("oe");
    case u'æ':
      return QLatin1String("ae");
    case u'ø':
      return QLatin1String("o");
    case u'ł':
      return QLatin1String("l");
    case u'đ':
    case u'ð':
      return QLatin1String("d");
    case u'þ':
      return QLatin1String("th");
    case u'ı':
      return QLatin1String("i");
    default:
      return {};
  }
}

bool TurnsDirection(QChar c) {
  const char16_t code = c.unicode();
  return (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069) || code == 0x200E ||
         code == 0x200F || code == 0x061C;
}

}  // namespace

QString PlainLetters(const QString& text) {
  QString plain;
  for (const QChar c : text.normalized(QString::NormalizationForm_KD).toCaseFolded()) {
    if (c.category() == QChar::Mark_NonSpacing) continue;
    if (const QLatin1String letters = PlainOf(c); !letters.isEmpty())
      plain += letters;
    else
      plain += c;
  }
  return plain;
}

QString OneLine(const QString& text) {
  QString line = text;
  line.removeIf(TurnsDirection);
  return line.simplified();
}

}  // namespace publishing
