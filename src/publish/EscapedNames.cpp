#include "publish/EscapedNames.h"

#include "base/Helpers.h"

namespace vorlina {

QString PadLeft(const QString& text, int length, QChar pad) { return text.rightJustified(length, pad); }

QString EscapeName(const QVariant& name) {
  const QString plain = NullToEmpty(name);
  QString escaped = plain;
  escaped.replace(u'\\', u"\\\\"_qs);
  for (const QChar character : EscapedCharacters)
    if (plain.contains(character))
      escaped.replace(character, u'\\' + PadLeft(QString::number(character.unicode()), 3, u'0'));
  return escaped;
}

QString FitEscapedName(QString name) {
  while (EscapeName(name).size() > LongestEscapedName) name.chop(1);
  // A box, or the line above, may have cut a character of two units in half.
  if (!name.isEmpty() && name.back().isHighSurrogate()) name.chop(1);
  return name;
}

}  // namespace vorlina
