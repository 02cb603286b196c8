// What is delivered: the database that the build made, and the pictures that it copied.
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QImage>
#include <QSet>

#include "base/Helpers.h"
#include "store/SampleData.h"
#include "store/Sqlite.h"
#include "support/AppFolder.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

class Delivered : public testing::Test {
 protected:
  Delivered() { RegisterSqlExtensions(database_); }

  std::vector<QStringList> Rows(const QString& sql) {
    SQLite::Statement query(database_, sql.toStdString());
    std::vector<QStringList> rows;
    while (query.executeStep()) {
      QStringList row;
      for (int i = 0; i < query.getColumnCount(); ++i)
        row << QString::fromStdString(query.getColumn(i).getString());
      rows.push_back(row);
    }
    return rows;
  }
  int Count(const QString& from) { return Rows(u"SELECT count(*) FROM "_qs + from).at(0).at(0).toInt(); }

  // A copy: reading must not leave anything beside the delivered file.
  AppFolder folder_;
  SQLite::Database database_{folder_.File(u"Catalog.db"_qs).toStdString(), SQLite::OPEN_READWRITE};
};

}  // namespace

TEST_F(Delivered, CatalogsUseWhatACatalogOffers) {
  for (const QString& id : {u"109"_qs, u"110"_qs}) {
    const QString own = u" WHERE IDCatalogo = "_qs + id;
    const int products = Count(u"Prodotti"_qs + own);
    EXPECT_GE(products, 36);
    for (int n = 1; n <= 5; ++n) {
      const QString column = u"IDFiltro%1"_qs.arg(n);
      const QString filter = u"Filtri"_qs + own + u" AND IDNomeFiltro = %1"_qs.arg(n);
      EXPECT_GE(Count(filter), 3) << id << column;
      const int with = Count(u"Prodotti"_qs + own + u" AND " + column + u" > 0");
      EXPECT_GE(with, 12) << id << column;
      EXPECT_EQ(
          Count(u"Prodotti"_qs + own + u" AND " + column + u" IN (SELECT IDValore FROM " + filter + u")"),
          with)
          << "a value of another filter or catalog: " << id << column;
    }
    EXPECT_GT(Count(u"Prodotti"_qs + own + u" AND (IDFiltro3 = 0 OR IDFiltro5 IS NULL)"), 0);
    EXPECT_EQ(Count(u"Filtri"_qs + own + u" AND NOT Pubblica"), 1);
    const int hidden = Count(u"Prodotti"_qs + own + u" AND NOT Pubblica");
    EXPECT_TRUE(hidden == 2 || hidden == 3) << hidden;
    EXPECT_GT(Count(u"Prodotti"_qs + own + u" AND (Descrizione IS NULL OR Valore3 IS NULL)"), 1);
    EXPECT_GE(Count(u"Immagini"_qs + own + u" AND Descrizione <> ''"), 20);
    EXPECT_EQ(Count(u"Immagini"_qs + own + u" AND Width > 2 * Height"), 1) << "the head of a home page";
    EXPECT_EQ(Count(u"Prodotti P"_qs + own +
                    u" AND SchedaTecnica <> EXISTS (SELECT 1 FROM SchedeTecniche S WHERE "
                    u"S.IDCatalogo = P.IDCatalogo AND S.CodiceProdotto = P.CodiceProdotto)"),
              0);
    const auto order = Rows(u"SELECT OrdineTemp FROM Prodotti"_qs + own + u" ORDER BY OrdineTemp");
    for (size_t i = 0; i < order.size(); ++i) EXPECT_EQ(order[i][0].toInt(), int(i) + 1);
    EXPECT_NE(Rows(u"SELECT CodiceProdotto FROM Prodotti"_qs + own + u" ORDER BY OrdineTemp"),
              Rows(u"SELECT CodiceProdotto FROM Prodotti"_qs + own + u" ORDER BY CodiceProdotto"));
    const auto company = Rows(
        u"SELECT Titolo, Sottotitolo, Spalla, Azienda, Indirizzo, Citta, Provincia, Stato, CAP, Tel, Fax, "
        u"Email, URL,"
        u" Extras FROM Cataloghi"_qs +
        own);
    EXPECT_FALSE(company.at(0).contains(QString()));
  }
}

TEST_F(Delivered, NamesOfFiltersAndValuesAreStoredEscaped) {
  EXPECT_EQ(
      Rows(u"SELECT NomeFiltro1, NomeValore1, NomeValore2 FROM Cataloghi WHERE IDCatalogo = 109"_qs).at(0),
      (QStringList{u"Linea"_qs, u"Prezzo €"_qs, u"Dim\\046 (cm)"_qs}));
  EXPECT_EQ(
      Rows(u"SELECT NomeFiltro5, NomeValore1, NomeValore2 FROM Cataloghi WHERE IDCatalogo = 110"_qs).at(0),
      (QStringList{u"Age \\038 level"_qs, u"Price £"_qs, u"Size H\\047Ø (cm)"_qs}));
}

TEST_F(Delivered, EveryRowHasItsPictureAndEveryPictureItsRow) {
  QSet<QString> files;
  QSet<QByteArray> seen;
  const auto rows = Rows(
      u"SELECT Immagine, Width, Height, 1 FROM Prodotti UNION ALL SELECT Immagine, Width, Height, 0 FROM "
      u"Immagini"
      u" UNION ALL SELECT Logo, Width, Height, 2 FROM Cataloghi"_qs);
  for (const QStringList& row : rows) {
    EXPECT_TRUE(row[0].startsWith(folder_.File(u"Images"_qs) + QDir::separator())) << row[0];
    const QString name = FileNameOf(row[0], true);
    const QImage image(DeliveredData() + u"/Images/" + name, "jpeg");
    EXPECT_EQ(image.size(), QSize(row[1].toInt(), row[2].toInt())) << name;
    EXPECT_FALSE(files.contains(name)) << name;
    files << name;
    const QByteArray content = QCryptographicHash::hash(
        QByteArrayView(image.constBits(), image.sizeInBytes()).toByteArray(), QCryptographicHash::Sha1);
    EXPECT_FALSE(seen.contains(content)) << "the picture of another row as well: " << name;
    seen << content;
    const int longer = std::max(image.width(), image.height());
    EXPECT_TRUE(row[3] == u"2" || (longer >= 1200 && longer <= 1920)) << name;
    if (row[3] != u"1") continue;
    const QImage thumbnail(DeliveredData() + u"/Images/t" + name, "jpeg");
    // As the program makes them: reduced by whole per cents.
    EXPECT_NEAR(std::max(thumbnail.width(), thumbnail.height()), 200, longer / 200 + 1) << name;
    EXPECT_NEAR(thumbnail.width() * image.height(), thumbnail.height() * image.width(), image.width() * 1.0)
        << name;
    files << u't' + name;
  }
  const QStringList present = QDir(DeliveredData() + u"/Images"_qs).entryList(QDir::Files);
  EXPECT_EQ(QSet<QString>(present.begin(), present.end()), files);
}

TEST_F(Delivered, DatabaseIsSoundAndItsCountersGoOn) {
  EXPECT_TRUE(Rows(u"PRAGMA foreign_key_check"_qs).empty());
  EXPECT_EQ(Rows(u"PRAGMA integrity_check"_qs).at(0).at(0), u"ok"_qs);
  EXPECT_EQ(Rows(u"SELECT IDCatalogo FROM Cataloghi ORDER BY 1"_qs),
            (std::vector<QStringList>{{u"109"_qs}, {u"110"_qs}}));
  database_.exec("INSERT INTO Cataloghi (NomeCatalogo) VALUES ('x')");
  EXPECT_EQ(database_.getLastInsertRowid(), 111);
}

TEST(AppFolder, HoldsThePicturesThatItsRowsName) {
  const AppFolder folder(2);
  SQLite::Database database(folder.File(u"Catalog.db"_qs).toStdString());
  RegisterSqlExtensions(database);
  SQLite::Statement query(
      database,
      "SELECT Immagine FROM Prodotti WHERE OrdineTemp <= 2 UNION ALL SELECT I.Immagine FROM"
      " Immagini I JOIN Prodotti USING (IDCatalogo, CodiceProdotto) WHERE OrdineTemp <= 2"
      " UNION ALL SELECT Logo FROM Cataloghi");
  int pictures = 0;
  for (; query.executeStep(); ++pictures) {
    const QString path = QString::fromStdString(query.getColumn(0).getString());
    EXPECT_TRUE(QFile::exists(path)) << path;
  }
  // Four main pictures with their thumbnails make up the rest.
  EXPECT_EQ(QDir(folder.File(u"Images"_qs)).entryList(QDir::Files).size(), pictures + 4);
}
