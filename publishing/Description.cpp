#include "Description.h"

#include <QSet>
#include <QTextBoundaryFinder>
#include <algorithm>

namespace publishing {
namespace {

constexpr qsizetype LongestName = 100;
constexpr qsizetype ShortestCall = 24;  // "New collection!" is no name

bool IsLineBreak(QChar c) {
  return c == u'\n' || c == u'\r' || c == u'\v' || c == u'\f' || c == QChar::LineSeparator ||
         c == QChar::ParagraphSeparator;
}

bool IsBlank(QChar c) { return c.isSpace() && c != QChar::Nbsp; }

bool IsDash(QChar c) { return c.category() == QChar::Punctuation_Dash; }

// What may end a sentence that another one follows behind a blank.
bool IsEndMark(QChar c) { return c == u'.' || c == u'!' || c == u'?' || c == u'…' || c == u'؟'; }

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
            "abb alt approx aprox art artt ausf bros bzw ca cap cell cie cl co cod col coll conf "
            "confez corp des diam dim dis dott dr ecc ed env escl etc ets evtl es excl exkl fax fig ggf gr "
            "haut hnos incl ing inkl jr kat largh lim ltd lungh max mis min mme mod mr mrs ms no nr "
            "num núm orig pag pagg pcs pp prof pz ref réf rif sig spess st sta stk sto tav tel tg ud uds "
            "vers vol vs zzgl")
            .split(u' ');
    return QSet<QString>(words.begin(), words.end());
  }();
  return known.contains(word.toString().toCaseFolded());
}

// Whether the point at this place ends a sentence, before which stands a word and after which the character
// does: "art. 5", "No. A105.", "1.5", "G. Verdi", "S.p.A. di" and "3. Auflage" have points of another kind.
bool IsFullStop(QStringView line, qsizetype at, QChar next) {
  qsizetype begin = at;
  while (begin > 0 && !IsBlank(line[begin - 1])) --begin;
  QStringView word = line.sliced(begin, at - begin);
  while (!word.isEmpty() && !word.front().isLetterOrNumber()) word = word.sliced(1);
  if (word.size() < 2 || word.contains(u'.') || IsAbbreviation(word)) return false;
  const auto digits = std::count_if(word.begin(), word.end(), [](QChar c) { return c.isDigit(); });
  if (digits > 0 && line.left(begin).trimmed().endsWith(u'.')) return false;
  if (digits == word.size()) return digits > 2;
  return word.size() > 4 || !next.isDigit();
}

// Whether what stands behind a sentence's mark is another one. A word alone belongs to the name: "art. Deco",
// "30 cm. Blu".
bool IsSentence(QStringView text) {
  const QChar first = text.front();
  if (first.isLower() || IsDash(first) || QStringView(u"/&+").contains(first)) return false;
  return IsEndMark(text.back()) || std::any_of(text.begin(), text.end(), IsBlank);
}

// Behind the first sentence, if that makes a name; 0 else. What stands in brackets ends none.
qsizetype SentenceEnd(QStringView line) {
  const qsizetype most = std::min(line.size(), LongestName);
  int brackets = 0;
  for (qsizetype i = 0; i < most; ++i) {
    const QChar c = line[i];
    if (c == u'。' || c == u'！' || c == u'？') return i + 1;
    if (c == u'(') ++brackets;
    if (c == u')' && brackets > 0) --brackets;
    if (!IsEndMark(c) || brackets > 0) continue;
    qsizetype end = i + 1;
    while (end < most && QStringView(u".!?…\"'”’»]").contains(line[end])) ++end;
    if (end == line.size()) return end;
    if (!IsBlank(line[end])) continue;
    const QStringView next = line.sliced(end).trimmed();
    const bool ends = c == u'.' ? IsFullStop(line, i, next.front()) : end >= ShortestCall;
    if (ends && IsSentence(next)) return end;
  }
  return 0;
}

// A name is no sentence. The point of an abbreviation stays.
QStringView WithoutFullStop(QStringView name) {
  return name.endsWith(u'.') && IsFullStop(name, name.size() - 1, {}) ? name.chopped(1) : name;
}

// Whether a mark between phrases stands at this place of a line, with a blank behind it; a dash has two.
bool DividesPhrases(QStringView line, qsizetype at) {
  if (at + 1 >= line.size() || !IsBlank(line[at + 1])) return false;
  return QStringView(u",;:").contains(line[at]) || (IsDash(line[at]) && at > 0 && IsBlank(line[at - 1]));
}

// The end of a line's beginning that makes a name: behind a phrase, a word, or else between two characters.
qsizetype NameEnd(QStringView line) {
  for (qsizetype i = LongestName; i > LongestName / 2; --i)
    if (DividesPhrases(line, i)) return i;
  for (qsizetype i = LongestName; i > LongestName / 3; --i)
    if (IsBlank(line[i]) && !IsBlank(line[i - 1]) && !QStringView(u",;:-–—(").contains(line[i - 1])) return i;
  QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, line.data(),
                                 std::min(line.size(), 2 * LongestName));
  characters.setPosition(LongestName);
  if (!characters.isAtBoundary()) characters.toPreviousBoundary();
  if (characters.position() > 0) return characters.position();
  return line[LongestName].isLowSurrogate() ? LongestName - 1 : LongestName;
}

// What a line has behind the end of its name. The mark at which a name was cut belongs to neither.
QStringView Behind(QStringView line, qsizetype end) {
  return line.sliced(DividesPhrases(line, end) ? end + 1 : end).trimmed();
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
  qsizetype end = SentenceEnd(line);
  const bool cut = end == 0 && line.size() > LongestName;
  if (end == 0) end = cut ? NameEnd(line) : line.size();
  description.name = WithoutFullStop(line.left(end)).toString().simplified().toStdString() + (cut ? "…" : "");

  std::string paragraph;
  const auto flush = [&] {
    if (!paragraph.empty()) description.paragraphs.push_back(std::move(paragraph));
    paragraph.clear();
  };
  if (const QStringView more = Behind(line, end); !more.isEmpty()) {
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
