#include "support/HelpSearch.h"

#include <QRegularExpression>
#include <QTextDocument>
#include <algorithm>

#include "base/Helpers.h"

namespace vorlina {
namespace {

constexpr int ForTitle = 100;
constexpr int ForKeyword = 50;
constexpr int MostForText = 20;
// Characters of an extract, before its word and in all.
constexpr int Before = 40;
constexpr int Length = 160;

QString KeywordsOf(const QString& html) {
  static const QRegularExpression keywords(u"<meta name=\"keywords\" content=\"([^\"]*)\""_qs);
  return keywords.match(html).captured(1);
}

}  // namespace

std::vector<TextNeedle> WordsOf(const QString& text) {
  std::vector<TextNeedle> words;
  for (const QString& word : text.simplified().split(u' ', Qt::SkipEmptyParts))
    if (TextNeedle needle(word); !needle.IsEmpty()) words.push_back(std::move(needle));
  return words;
}

void HelpSearch::Add(const QUrl& url, const QString& html) {
  QTextDocument document;
  document.setHtml(html);
  pages_.push_back({url, document.metaInformation(QTextDocument::DocumentTitle), KeywordsOf(html),
                    document.toPlainText().remove(QChar::ObjectReplacementCharacter)});
}

// 0 where the word is not in the page.
int HelpSearch::Weight(const Page& page, const TextNeedle& word) {
  return (word.IsIn(page.title) ? ForTitle : 0) + (word.IsIn(page.keywords) ? ForKeyword : 0) +
         std::min(int(word.PiecesIn(page.text).size()), MostForText);
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
  std::vector<std::pair<int, HelpHit>> found;
  for (const Page& page : pages_) {
    int weight = 0;
    const bool all = std::all_of(words.begin(), words.end(), [&](const TextNeedle& word) {
      const int each = Weight(page, word);
      weight += each;
      return each > 0;
    });
    if (all && weight > 0) found.push_back({weight, {page.url, page.title, Extract(page, words)}});
  }
  std::stable_sort(found.begin(), found.end(),
                   [](const auto& a, const auto& b) { return a.first > b.first; });
  std::vector<HelpHit> hits;
  hits.reserve(found.size());
  for (auto& [weight, hit] : found) hits.push_back(std::move(hit));
  return hits;
}

}  // namespace vorlina
