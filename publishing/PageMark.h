// The last line of every page: whose page it is, what it looked like, and which files were published with it.
// From these lines the list of a site is made anew when it was lost.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <string>

namespace publishing {

// No page is larger; a larger file is none of ours.
constexpr qint64 LargestPage = 16 << 20;

struct PageMark {
  QByteArray site;     // the site that the page belongs to
  QByteArray profile;  // the beginning of the digest of the profile that it shows; "" where it tells none
  QStringList files;   // pictures and style sheets that came with it

  // The line for a page that ends here.
  std::string ToText(const std::string& page) const;
  // The mark of a page; nothing where it has none, or where the page was changed since.
  static std::optional<PageMark> Read(const QByteArray& page);
};

}  // namespace publishing
