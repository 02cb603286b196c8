// The stored form of the names of values and filters ("NomeValore1" to "NomeValore3", "NomeFiltro1" to
// "NomeFiltro5"). For plug-ins, and for the program itself; it uses Qt Core alone.
#pragma once

#include <QString>
#include <QVariant>

namespace vorlina {

// Each of these is stored as a backslash and its code in three decimal digits; a backslash as two.
inline constexpr QStringView EscapedCharacters = u"./*:#&-%$";

// The character that three digits stand for; null where they are no code. Older files may hold one code more,
// which is the number of the euro sign in the code page Windows-1252.
inline QChar CharacterOfCode(QStringView digits) {
  if (digits == u"128") return u'€';
  for (const QChar character : EscapedCharacters)
    if (digits == QString::number(character.unicode()).rightJustified(3, u'0')) return character;
  return {};
}

// A stored name as it is shown; "" for Null. It is read once from left to right, so that what a doubled
// backslash gives is never taken for the head of a code. A backslash before anything else stays.
inline QString UnescapeName(const QVariant& stored) {
  const QString text = stored.toString();
  QString shown;
  for (qsizetype i = 0; i < text.size(); ++i) {
    QChar next = text[i];
    if (next == u'\\') {
      const QChar coded = CharacterOfCode(QStringView(text).mid(i + 1, 3));
      if (!coded.isNull()) {
        next = coded;
        i += 3;
      } else if (QStringView(text).mid(i + 1, 1) == u"\\") {
        ++i;
      }
    }
    shown += next;
  }
  return shown;
}

}  // namespace vorlina
