// Fills a new catalog database with the sample catalogs.
#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <QHash>
#include <QString>

#include "SampleCatalog.h"

namespace vorlina {

class CatalogWriter {
 public:
  // The pictures lie in that folder; their sizes are read from it.
  CatalogWriter(SQLite::Database& database, QString images);

  // Throws Error where the sample contradicts itself or a picture is missing.
  void Write(const SampleCatalog& catalog);

 private:
  void WriteCatalogRow(const SampleCatalog& catalog);
  void WriteFilters(const SampleCatalog& catalog);
  void WriteProduct(const SampleProduct& product);
  void WritePictures(const SampleProduct& product);
  void WriteTechData(const SampleProduct& product);
  void BindPicture(SQLite::Statement& statement, int column, const QString& file) const;

  SQLite::Database& database_;
  QString images_;
  QHash<std::pair<int, QString>, qint64> valueIds_;  // of the catalog being written
};

// The form in which the names of filters and values are stored: they serve as column names in queries.
QString StoredName(const QString& name);

}  // namespace vorlina
