// The help as it is written: "help.json" with the sections, and a page of each name in each language.
#pragma once

#include <map>
#include <vector>

#include "HelpPage.h"

namespace vorlina {

inline const QStringList HelpLanguages{QStringLiteral("it"), QStringLiteral("en")};

struct HelpEntry {
  QString name;         // of its file, without ".html"
  int topic = 0;        // 0: none
  QStringList windows;  // those that F1 opens it from
};

struct HelpSection {
  std::map<QString, QString> titles;  // by language
  std::vector<HelpEntry> entries;
};

class HelpSource {
 public:
  // Reads what is there; what is missing or wrong is in Problems.
  explicit HelpSource(const QString& folder);

  const std::vector<HelpSection>& Sections() const { return sections_; }
  const HelpPage& Page(const QString& language, const QString& name) const {
    return pages_.at({language, name});
  }
  std::vector<HelpEntry> Entries() const;
  // The names of the pictures of a language, without folder and ending.
  QStringList Pictures(const QString& language) const;

  // All that is wrong, a line each. Every one of these windows has to have a page.
  QStringList Problems(const QStringList& windows) const;

 private:
  void ReadContents();
  void ReadPages();
  void CheckNames(const QStringList& windows, QStringList& problems) const;
  void CheckPage(const QString& language, const QString& name, QStringList& problems) const;
  QString LinkFault(const QString& language, const QString& page, const QString& link) const;
  void CheckStrays(QStringList& problems) const;
  void CheckStyle(QStringList& problems) const;

  QString folder_;
  std::vector<HelpSection> sections_;
  std::map<std::pair<QString, QString>, HelpPage> pages_;
  QStringList faults_;
};

// The names of all windows whose forms lie below a folder.
QStringList WindowsBelow(const QString& folder);

}  // namespace vorlina
