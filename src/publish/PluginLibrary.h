// The libraries of plug-ins as files: how they are called, and what they tell of themselves without being
// loaded.
#pragma once

#include <QString>
#include <QVersionNumber>

namespace vorlina {

// ".so", with the point.
extern const QString LibrarySuffix;

// What stands in a library's metadata. None of its code runs for it.
struct LibraryFacts {
  QString interface;  // the identifier of the interface with its version; "" for what is no plug-in of Qt's
  QVersionNumber qt;  // major and minor
};
LibraryFacts FactsOf(const QString& library);

// Whether a library that was built with this Qt runs on that of the program.
bool FitsOwnQt(const QVersionNumber& qt);

}  // namespace vorlina
