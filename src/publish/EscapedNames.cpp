#include "publish/EscapedNames.h"

#include "base/Helpers.h"

namespace vorlina {
namespace {

const QString Encoded = QStringLiteral("./*:#&-%$");
constexpr int EuroCode = 128;

QString EscapeOf(int code) { return u'\\' + PadLeft(QString::number(code), 3, u'0'); }

// Replaces an escape from the left on, as far as no backslash stands before its first occurrence.
void Unescape(QString& text, int code, QChar character) {
  const QString escape = EscapeOf(code);
  for (;;) {
    const qsizetype at = text.indexOf(escape);
    // Behind a backslash the occurrence is text; the search would find it for ever.
    if (at < 0 || (at > 0 && text[at - 1] == u'\\')) return;
    text.replace(at, escape.size(), character);
  }
}

}  // namespace

QString PadLeft(const QString& text, int length, QChar pad) { return text.rightJustified(length, pad); }

QString EscapeName(const QVariant& name) {
  QString text = NullToEmpty(name);
  text.replace(u'\\', u"\\\\"_qs);
  for (const QChar character : Encoded) text.replace(character, EscapeOf(character.unicode()));
  return text;
}

QString UnescapeName(const QVariant& name) {
  QString text = NullToEmpty(name);
  for (const QChar character : Encoded) Unescape(text, character.unicode(), character);
  Unescape(text, EuroCode, u'€');
  return text.replace(u"\\\\"_qs, u"\\"_qs);
}

}  // namespace vorlina
