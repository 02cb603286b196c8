#include "Description.h"

#include <QSet>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace publishing {
namespace {

constexpr qsizetype LongLine = 60;  // up to here a line is a name as it is
constexpr qsizetype LongestName = 100;
constexpr qsizetype ShortestCall = 12;  // "New!" is no name

bool IsLineBreak(QChar c) {
  return c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == QChar::LineSeparator ||
         c == QChar::ParagraphSeparator;
}

bool IsBlank(QChar c) { return c.isSpace() && c != QChar::Nbsp; }

// Takes the next line off a text, without the blanks around it.
QStringView TakeLine(QStringView& rest) {
  const auto* const end = std::find_if(rest.begin(), rest.end(), IsLineBreak);
  const QStringView line(rest.begin(), end);
  const bool two = end + 1 < rest.end() && *end == u'\r' && end[1] == u'\n';
  rest = rest.sliced(std::min(rest.size(), line.size() + (two ? 2 : 1)));
  return line.trimmed();
}

// Words whose point never ends a sentence, as something follows that belongs to them.
bool IsAbbreviation(QStringView word) {
  static const QSet<QString> known = [] {
    const QStringList words =
        QStringLiteral(
            "alt approx aprox art artt bzw ca cap cell cod dim diam dott dr ecc env escl etc "
            "evtl es excl exkl fax fig ggf incl ing inkl largh lungh max min mod mr "
            "mrs ms no nr num núm pag pagg pp prof ref réf rif sig spess st tel vol "
            "vs zzgl")
            .split(u' ');
    return QSet<QString>(words.begin(), words.end());
  }();
  return known.contains(word.toString().toCaseFolded());
}

// Whether the point at this place ends a sentence, before which stands a word and after which the character
// does: "art. 5", "1.5", "G. Verdi", "S.p.A. di" and "3. Auflage" have points of another kind.
bool IsFullStop(QStringView line, qsizetype at, QChar next) {
  qsizetype begin = at;
  while (begin > 0 && !IsBlank(line[begin - 1])) --begin;
  QStringView word = line.sliced(begin, at - begin);
  while (!word.isEmpty() && !word.front().isLetterOrNumber()) word = word.sliced(1);
  if (word.size() < 2 || word.contains(u'.') || IsAbbreviation(word)) return false;
  if (std::all_of(word.begin(), word.end(), [](QChar c) { return c.isDigit(); })) return word.size() > 2;
  return word.size() > 4 || !next.isDigit();
}

// Behind the first sentence, if that makes a name; 0 else.
qsizetype SentenceEnd(QStringView line) {
  const qsizetype most = std::min(line.size(), LongestName);
  for (qsizetype i = 0; i < most; ++i) {
    const QChar c = line[i];
    if (QStringView(u"。！？").contains(c)) return i + 1;
    if (!QStringView(u".!?…؟").contains(c)) continue;
    qsizetype end = i + 1;
    while (end < most && QStringView(u".!?…\"'”’»)]").contains(line[end])) ++end;
    if (end == line.size()) return end;
    if (!IsBlank(line[end])) continue;
    qsizetype next = end;
    while (next < line.size() && IsBlank(line[next])) ++next;
    const QChar follows = line[next];
    const bool ends = c == u'.' ? IsFullStop(line, i, follows) : end >= ShortestCall;
    if (ends && !follows.isLower()) return end;
  }
  return 0;
}

// A name is no sentence. The point of an abbreviation stays.
QStringView WithoutFullStop(QStringView name) {
  return name.endsWith(u'.') && IsFullStop(name, name.size() - 1, {}) ? name.chopped(1) : name;
}

// The end of a line's beginning that makes a name: behind a word, or else between two characters.
qsizetype WordEnd(QStringView line) {
  for (qsizetype i = LongestName; i > LongestName / 3; --i)
    if (IsBlank(line[i]) && !IsBlank(line[i - 1]) && !QStringView(u",;:-–—(").contains(line[i - 1])) return i;
  QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, line.data(),
                                 std::min(line.size(), 2 * LongestName));
  characters.setPosition(LongestName);
  if (!characters.isAtBoundary()) characters.toPreviousBoundary();
  if (characters.position() > 0) return characters.position();
  return line[LongestName].isLowSurrogate() ? LongestName - 1 : LongestName;
}

void Append(QStringView text, std::string& to) {
  const QByteArray bytes = text.toUtf8();
  to.append(bytes.constData(), std::size_t(bytes.size()));
}

}  // namespace

Description DescriptionOf(const QString& text) {
  Description description;
  QStringView rest = QStringView(text).trimmed();
  const QStringView line = TakeLine(rest);
  qsizetype end = line.size() > LongLine ? SentenceEnd(line) : line.size();
  const bool cut = end == 0 && line.size() > LongestName;
  if (end == 0) end = cut ? WordEnd(line) : line.size();
  description.name = WithoutFullStop(line.left(end)).toString().simplified().toStdString() + (cut ? "…" : "");

  std::string paragraph;
  const auto flush = [&] {
    if (!paragraph.empty()) description.paragraphs.push_back(std::move(paragraph));
    paragraph.clear();
  };
  if (const QStringView more = line.sliced(end).trimmed(); !more.isEmpty()) {
    if (cut) paragraph = "…";
    Append(more, paragraph);
  }
  while (!rest.isEmpty()) {
    const QStringView next = TakeLine(rest);
    if (next.isEmpty()) {
      flush();
      continue;
    }
    if (!paragraph.empty()) paragraph += '\n';
    Append(next, paragraph);
  }
  flush();
  return description;
}

}  // namespace publishing
