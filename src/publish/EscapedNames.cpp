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

}  // namespace vorlina
