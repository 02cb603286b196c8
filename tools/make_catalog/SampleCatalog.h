// The sample catalogs as they are written down in data/samples: what the shop would print.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <vector>

namespace vorlina {

struct SamplePicture {
  int id = 0;  // Immagini.IDImmagine
  QString caption;
  QString FileName() const { return QString::number(id) + u".jpg"; }
};

struct SampleProduct {
  int catalog = 0;
  int position = 0;  // in the publication order, from 1
  QString code;
  QString text;         // a null QString, here and below, is stored as Null
  QStringList filters;  // five; null for Null, empty for 0
  QStringList values;   // three
  bool publish = true;
  std::vector<std::pair<QString, QString>> tech;
  std::vector<SamplePicture> pictures;
  QString FileName() const { return QString::number(catalog) + u'-' + code + u".jpg"; }
};

struct SampleCatalog {
  int id = 0;
  QJsonObject columns;      // of Cataloghi, by column name
  QStringList filterNames;  // as shown to the user
  QStringList valueNames;
  std::vector<std::pair<int, QString>> unpublished;  // filter number and value
  std::vector<SampleProduct> products;               // in publication order
  QString LogoName() const { return QString::number(id) + u"-Logo.jpg"; }
};

// Reads every catalog of the folder, by file name. Throws Error naming the file and the place.
std::vector<SampleCatalog> ReadSampleCatalogs(const QString& folder);

}  // namespace vorlina
