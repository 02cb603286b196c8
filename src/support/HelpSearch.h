// Finds words in the pages of the help, without regard to letter case and accents. The help is small enough
// to be looked through as its reader types.
#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>
#include <vector>

#include "base/TextFolding.h"

namespace vorlina {

// A page in which all words are.
struct HelpHit {
  QUrl url;
  QString title;
  QString extract;  // what stands around the first word, in one line
};

class HelpSearch {
 public:
  // Adds a page. Its words are those of its text, its title and its keywords.
  void Add(const QUrl& url, const QString& html);

  // The pages in which every word is, or begins, or is a part of one; those first in which they say most.
  // None without a word.
  std::vector<HelpHit> Find(const QString& words) const;

 private:
  struct Page {
    QUrl url;
    QString title;
    QString keywords;
    QString text;
  };

  static int Weight(const Page& page, const TextNeedle& word);
  static QString Extract(const Page& page, const std::vector<TextNeedle>& words);

  std::vector<Page> pages_;
};

// The words of a search.
std::vector<TextNeedle> WordsOf(const QString& text);

}  // namespace vorlina
