#include "support/HelpSearch.h"

#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>
#include <tuple>

#include "base/Helpers.h"

namespace vorlina {
namespace {

constexpr int ForTitle = 100;
constexpr int ForItsBeginning = 200;
constexpr int ForKeyword = 50;
constexpr int MostForText = 20;
// A text of more words than these is one that was read somewhere, as a message.
constexpr std::size_t MostWords = 3;
// Characters of an extract, before its word and in all.
constexpr int Before = 40;
constexpr int Length = 160;

QString KeywordsOf(const QString& html) {
  static const QRegularExpression keywords(u"<meta name=\"keywords\" content=\"([^\"]*)\""_qs);
  return keywords.match(html).captured(1);
}

// A word as it is in a sentence, between quotation marks or before a comma. What is of signs alone stays.
QString WithoutSigns(const QString& word) {
  static const QRegularExpression signs(u"^[\\p{P}]+|[\\p{P}]+$"_qs);
  const QString bare = QString(word).remove(signs);
  return bare.isEmpty() ? word : bare;
}

std::u16string Joined(const std::vector<TextNeedle>& words, std::size_t first, std::size_t last) {
  std::u16string text = words[first].Folded();
  for (std::size_t i = first + 1; i <= last; ++i) text += u' ' + words[i].Folded();
  return text;
}

int CountIn(const std::u16string& text, const std::u16string& word) {
  int count = 0;
  for (std::size_t at = text.find(word); at != std::u16string::npos; at = text.find(word, at + word.size()))
    ++count;
  return count;
}

std::u16string Folded(const QString& text) { return TextNeedle(text).Folded(); }

// The words that stand one after the other in a text as well; of these the most.
TextNeedle LongestRun(const std::vector<TextNeedle>& words, const std::u16string& text) {
  std::u16string longest;
  for (std::size_t first = 0, last = 0; last < words.size(); ++last) {
    std::u16string run = Joined(words, first, last);
    while (first < last && CountIn(text, run) == 0) run = Joined(words, ++first, last);
    if (run.size() > longest.size() && CountIn(text, run) > 0) longest = run;
  }
  return TextNeedle(QString::fromStdU16String(longest));
}

}  // namespace

std::vector<TextNeedle> WordsOf(const QString& text) {
  std::vector<TextNeedle> words;
  for (const QString& word : text.simplified().split(u' ', Qt::SkipEmptyParts)) {
    TextNeedle needle(WithoutSigns(word));
    const bool known = std::any_of(words.begin(), words.end(), [&](const TextNeedle& other) {
      return other.Folded() == needle.Folded();
    });
    if (!known && !needle.IsEmpty()) words.push_back(std::move(needle));
  }
  return words;
}

std::vector<TextNeedle> MarksFor(const QString& text, const QString& page) {
  std::vector<TextNeedle> words = WordsOf(text);
  if (words.size() > MostWords) words = {LongestRun(words, Folded(page))};
  return words;
}

void HelpSearch::Add(const QUrl& url, const QString& html) {
  QTextDocument document;
  document.setHtml(html);
  const QString text = document.toPlainText().remove(QChar::ObjectReplacementCharacter);
  pages_.push_back(
      {url, document.metaInformation(QTextDocument::DocumentTitle), KeywordsOf(html), text, Folded(text)});
}

// 0 where the word is not in the page.
int HelpSearch::Weight(const Page& page, const TextNeedle& word) {
  const auto title = word.PiecesIn(page.title);
  const int named = title.empty() ? 0 : title.front().start == 0 ? ForItsBeginning : ForTitle;
  return named + (word.IsIn(page.keywords) ? ForKeyword : 0) +
         std::min(CountIn(page.folded, word.Folded()), MostForText);
}

HelpSearch::Rank HelpSearch::RankOf(const Page& page, const std::vector<TextNeedle>& words) {
  Rank rank;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const int weight = Weight(page, words[i]);
    rank.weight += weight;
    if (weight > 0) ++rank.words;
    if (i > 0 && CountIn(page.folded, Joined(words, i - 1, i)) > 0) ++rank.pairs;
  }
  return rank;
}

QString HelpSearch::Extract(const Page& page, const std::vector<TextNeedle>& words) {
  qsizetype start = 0;
  for (const TextNeedle& word : words)
    if (const auto pieces = word.PiecesIn(page.text); !pieces.empty()) {
      start = std::max<qsizetype>(0, pieces.front().start - Before);
      break;
    }
  while (start > 0 && !page.text[start - 1].isSpace()) --start;
  return (start > 0 ? u"… "_qs : QString()) + page.text.mid(start, Length).simplified() + u" …"_qs;
}

std::vector<HelpHit> HelpSearch::Find(const QString& text) const {
  const std::vector<TextNeedle> words = WordsOf(text);
  std::vector<std::pair<Rank, const Page*>> found;
  std::size_t most = 0;
  for (const Page& page : pages_) {
    const Rank rank = RankOf(page, words);
    most = std::max(most, rank.words);
    if (rank.words > 0) found.push_back({rank, &page});
  }
  // A message has names in it that no page knows.
  const bool whole = most == words.size() || words.size() <= MostWords;
  const std::size_t least = whole ? words.size() : (words.size() + 1) / 2;
  std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
    return std::tie(a.first.pairs, a.first.weight) > std::tie(b.first.pairs, b.first.weight);
  });
  std::vector<HelpHit> hits;
  for (const auto& [rank, page] : found)
    if (rank.words >= least)
      hits.push_back({page->url, page->title, Extract(*page, MarksFor(text, page->text))});
  return hits;
}

}  // namespace vorlina
