// Finds words in the pages of the help, without regard to letter case and accents. The help is small enough
// to be looked through as its reader types.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <string>
#include <vector>

#include "base/TextFolding.h"

namespace vorlina {

// A page that was found.
struct HelpHit {
  QUrl url;
  QString title;
  QString extract;  // what stands around the first word, in one line
};

class HelpSearch {
 public:
  // Adds a page. Its words are those of its text, its title and its keywords.
  void Add(const QUrl& url, const QString& html);

  // The pages in which every word is, or begins, or is a part of one; of a longer text, as a message that was
  // read somewhere, at least half of its words where no page has all. Those first in which they say most.
  // None without a word.
  std::vector<HelpHit> Find(const QString& words) const;

 private:
  struct Page {
    QUrl url;
    QString title;
    QString keywords;
    QString text;
    std::u16string folded;
  };
  struct Rank {
    std::size_t words = 0;  // that are in it
    int pairs = 0;          // of them one after the other
    int weight = 0;
  };

  static int Weight(const Page& page, const TextNeedle& word);
  static Rank RankOf(const Page& page, const std::vector<TextNeedle>& words);
  static QString Extract(const Page& page, const std::vector<TextNeedle>& words);

  std::vector<Page> pages_;
};

// The words of a search, each once.
std::vector<TextNeedle> WordsOf(const QString& text);

// What of a search is to be marked in the text of a page: its words, or the part of a longer text that is
// there as it was typed.
std::vector<TextNeedle> MarksFor(const QString& text, const QString& page);

}  // namespace vorlina
