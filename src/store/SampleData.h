// The columns that hold full paths, and the delivered sample rows: their stored paths begin with a fixed
// folder and are made to point into the application folder when it is opened.
#pragma once

#include <QString>
#include <array>

namespace vorlina {

class Connection;

// Where the paths of the delivered rows begin.
inline const QString SampleDataRoot = QStringLiteral("/vorlina-sample-data");

// A column that holds full paths.
struct SamplePath {
  const char16_t* table;
  const char16_t* column;
};

// In the order in which they are rebased.
inline constexpr std::array<SamplePath, 3> SamplePaths{
    {{u"CATALOGHI", u"LOGO"}, {u"PRODOTTI", u"IMMAGINE"}, {u"IMMAGINI", u"IMMAGINE"}}};

// Puts the folder in the place of SampleDataRoot in the paths of all columns, in one transaction. Throws
// Error.
void RebaseAllSampleData(Connection& connection, const QString& folder);

}  // namespace vorlina
