// What stands in the head of a page, for browsers, search engines and whoever shows a link to it.
#pragma once

#include <QJsonArray>

#include "Fields.h"
#include "Fingerprint.h"
#include "Site.h"

namespace vlhtml {

struct Head {
  std::string title;
  std::string description;
  QString file;  // of the page; "" where it has no address of its own
  const char* type = "website";
  const PublishedPicture* picture = nullptr;
  std::string pictured;  // what it shows
  QJsonArray data;       // what the page is about, in the words of schema.org
  std::string shared;    // how a link to it is shown; "" as the title
};

void TellHead(Fields& fields, const Site& site, const Head& head);
// Adds what a head tells of a picture.
void AddPicture(const PublishedPicture& picture, FingerprintOfMany& to);

// A title of the text, which is cut where it is too long, and of parts that stand behind it whole: they tell
// one page from another.
std::string PageTitle(const std::string& text, const std::vector<std::string>& parts);
// What a company is called in a title: all before the first comma.
std::string CompanyInTitle(const std::string& company);
// The first names on a page of a list, for a description of it.
std::string FirstNames(const Site& site, const PlannedList& list, int page);
// The beginning of a text, cut at a word, for where a search engine shows a page.
std::string Excerpt(const std::string& text);

}  // namespace vlhtml
