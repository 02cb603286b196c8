#include "publish/EscapedNames.h"

#include <array>

#include "base/Helpers.h"

namespace vorlina {
namespace {

const QString EscapedCharacters = QStringLiteral("./*:#&-%$");

struct Code {
  QString text;
  QChar character;
};

// The codes of the nine characters and one that older files may hold: number 128 of the code page
// Windows-1252.
const std::array<Code, 10>& Codes() {
  static const std::array<Code, 10> codes = [] {
    std::array<Code, 10> table;
    for (qsizetype i = 0; i < EscapedCharacters.size(); ++i) {
      const QChar character = EscapedCharacters[i];
      table[std::size_t(i)] = {u'\\' + PadLeft(QString::number(character.unicode()), 3, u'0'), character};
    }
    table[9] = {u"\\128"_qs, u'€'};
    return table;
  }();
  return codes;
}

}  // namespace

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

QString UnescapeName(const QVariant& stored) {
  QString text = NullToEmpty(stored);
  for (const Code& code : Codes()) {
    for (;;) {
      const qsizetype at = text.indexOf(code.text);
      // Behind a backslash the code is a literal text. The search would find it for ever, so it ends here.
      if (at < 0 || (at > 0 && text[at - 1] == u'\\')) break;
      text.replace(at, code.text.size(), code.character);
    }
  }
  return text.replace(u"\\\\"_qs, u"\\"_qs);
}

}  // namespace vorlina
