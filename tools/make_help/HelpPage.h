// A page of the help as it is written: what it says of itself, what it points to, and what is wrong with its
// markup.
#pragma once

#include <QString>
#include <QStringList>

namespace vorlina {

struct HelpPage {
  QString title;
  QStringList keywords;  // of the index
  QStringList anchors;   // in order
  QStringList links;     // as they are written
  QStringList pictures;  // as they are written
  int headings = 0;
  QStringList faults;  // in words
};

// Reads a page. It is HTML as far as the viewer shows it, with every element closed but those that hold
// nothing.
HelpPage ReadHelpPage(const QString& html);

}  // namespace vorlina
