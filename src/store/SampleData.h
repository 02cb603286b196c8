// The delivered sample rows: their stored paths begin with a fixed folder and are made to point into the
// application folder at first start.
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

// Puts the folder in the place of SampleDataRoot in the paths of one column. Throws Error.
void RebaseSampleData(Connection& connection, const SamplePath& path, const QString& folder);

// The same for all columns, in one transaction.
void RebaseAllSampleData(Connection& connection, const QString& folder);

// Whether the catalogs still have paths as they were delivered. It looks at the catalogs alone, which are
// few.
bool HasSampleRoot(Connection& connection);

}  // namespace vorlina
