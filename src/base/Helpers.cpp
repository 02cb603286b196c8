#include "base/Helpers.h"

#include <QDir>
#include <QTextDocument>
#include <algorithm>

#include "base/Error.h"
#include "base/Texts.h"

namespace vorlina {
namespace {

// A tool tip longer than this is broken into lines.
constexpr qsizetype LongToolTip = 100;

bool IsSeparator(QChar c) { return c == u'\\' || c == u'/'; }

QString WithSingleSeparators(const QString& path) {
  QString single = path;
  return single.replace(u"\\\\"_qs, u"\\"_qs).replace(u"//"_qs, u"/"_qs);
}

qsizetype LastSeparator(const QString& path) {
  qsizetype i = path.size() - 1;
  while (i >= 0 && !IsSeparator(path[i])) --i;
  return i;
}

}  // namespace

bool IsValidFileName(const QString& text) {
  bool valid = true;
  for (const QChar forbidden : QStringView(u"/\\:*?\"<>|"))
    if (text.contains(forbidden)) valid = false;
  return valid;
}

double NullToZero(const QVariant& value) {
  if (value.isNull()) return 0;
  bool ok = false;
  const double number = value.toDouble(&ok);
  if (!ok) throw Error(Texts::tr("\"%1\" non è un numero").arg(value.toString()));
  return number;
}

QString NullToEmpty(const QVariant& value) { return value.isNull() ? QString() : value.toString(); }

QString OneLine(QString text) {
  const auto isBreak = [](QChar c) {
    return c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
  };
  text.replace(u"\r\n"_qs, u"\n"_qs);
  while (!text.isEmpty() && isBreak(text.back())) text.chop(1);
  for (QChar& c : text)
    if (isBreak(c)) c = u' ';
  return text;
}

QString FirstLines(const QStringList& lines) {
  constexpr qsizetype Most = 10;
  QStringList first = lines.first(std::min(lines.size(), Most));
  if (lines.size() > Most) first += Texts::tr("... e altri %1").arg(lines.size() - Most);
  return first.join(u"\r\n"_qs);
}

QString PlainToolTip(const QString& text) {
  if (!Qt::mightBeRichText(text) && text.size() <= LongToolTip) return text;
  return u"<qt>"_qs + text.toHtmlEscaped().replace(u'\n', u"<br>"_qs) + u"</qt>"_qs;
}

QString PlainTitle(QString text) { return text.replace(u"[*]"_qs, u"[*][*]"_qs); }

QString FileNameOf(const QString& path, bool keepExtension) {
  const QString single = WithSingleSeparators(path);
  QString segment = single.mid(LastSeparator(single) + 1);
  if (keepExtension) return segment;
  if (segment.size() < 4) throw Error(Texts::tr("Il nome di file \"%1\" è troppo corto").arg(segment));
  return segment.chopped(4);
}

QString FolderOf(const QString& path) {
  const QString single = WithSingleSeparators(path);
  const qsizetype last = LastSeparator(single);
  QString folder = last < 0 ? single + QDir::separator() : single.left(last + 1);
  if (single.startsWith(u'\\')) folder.prepend(u'\\');
  return folder;
}

}  // namespace vorlina
