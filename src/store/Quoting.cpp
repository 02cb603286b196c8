#include "store/Quoting.h"

namespace vorlina {
namespace {

// SQLite reads a statement up to its first NUL, so a NUL would cut the text open.
QString Quoted(QString text, QChar quote) {
  text.remove(QChar(u'\0'));
  return quote + text.replace(quote, QString(2, quote)) + quote;
}

}  // namespace

QString QuotedName(const QString& name) { return Quoted(name, u'"'); }

QString QuotedText(const QString& text) { return Quoted(text, u'\''); }

QString LikeText(const QString& text) {
  QString escaped = text;
  for (const QChar special : QStringView(u"\\%_")) escaped.replace(special, QString(u'\\') + special);
  return escaped;
}

}  // namespace vorlina
