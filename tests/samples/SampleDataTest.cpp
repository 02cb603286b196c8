// What is delivered: the database that the build made, and the pictures that it copied.
#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QImage>
#include <QSet>
#include <QTemporaryDir>

#include "base/Helpers.h"
#include "base/SafeFile.h"
#include "store/SampleData.h"
#include "store/Sqlite.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

const QString Folder = QStringLiteral(VORLINA_DELIVERED);

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
  QString One(const QString& sql) { return Rows(sql).at(0).at(0); }

  // A copy: reading must not leave anything beside the delivered file.
  const QTemporaryDir copy_;
  const QString path_ =
      (CopyFileSafely(Folder + u"/Catalog.db", copy_.filePath(u"c"_qs)), copy_.filePath(u"c"_qs));
  SQLite::Database database_{path_.toStdString(), SQLite::OPEN_READWRITE};
};

}  // namespace

TEST_F(Delivered, CatalogsUseWhatACatalogOffers) {
  // Rows of each catalog, where these are at least so many and at most so many.
  const std::tuple<QString, int, int> counts[] = {
      {u"Prodotti WHERE 1"_qs, 36, 1000},
      {u"Prodotti WHERE NOT Pubblica"_qs, 2, 3},
      {u"Prodotti WHERE IDFiltro3=0 OR IDFiltro5 IS NULL"_qs, 1, 1000},
      {u"Prodotti WHERE Descrizione IS NULL OR Valore3 IS NULL"_qs, 2, 1000},
      {u"Prodotti P WHERE SchedaTecnica <> EXISTS (SELECT 1 FROM SchedeTecniche S WHERE "
       "S.IDCatalogo=P.IDCatalogo AND S.CodiceProdotto=P.CodiceProdotto)"_qs,
       0, 0},
      {u"Filtri WHERE NOT Pubblica"_qs, 1, 1},
      {u"Immagini WHERE Descrizione<>''"_qs, 20, 1000},
      {u"Immagini WHERE Width>2*Height"_qs, 1, 1}};  // the head of a home page
  for (const QString& id : {u"109"_qs, u"110"_qs}) {
    const QString own = u" AND IDCatalogo="_qs + id;
    for (const auto& [from, least, most] : counts) {
      const int count = One(u"SELECT count(*) FROM "_qs + from + own).toInt();
      EXPECT_TRUE(count >= least && count <= most) << id << ' ' << from << ": " << count;
    }
    for (int n = 1; n <= 5; ++n) {
      const QString used = u"SELECT count(*) FROM Prodotti WHERE IDFiltro%1>0"_qs.arg(n) + own;
      const QString values = u"(SELECT IDValore FROM Filtri WHERE IDNomeFiltro=%1"_qs.arg(n) + own + u')';
      EXPECT_GE(One(used).toInt(), 12) << id << ' ' << n;
      EXPECT_GE(One(u"SELECT count(*) FROM "_qs + values).toInt(), 3) << id << ' ' << n;
      EXPECT_EQ(One(used + u" AND IDFiltro%1 IN "_qs.arg(n) + values), One(used))
          << "a value of another filter or catalog: " << id << ' ' << n;
    }
    const auto products =
        Rows(u"SELECT OrdineTemp,CodiceProdotto FROM Prodotti WHERE 1"_qs + own + u" ORDER BY 1");
    for (std::size_t i = 0; i < products.size(); ++i) EXPECT_EQ(products[i][0].toInt(), int(i) + 1);
    EXPECT_FALSE(std::is_sorted(products.begin(), products.end(),
                                [](const auto& a, const auto& b) { return a[1] < b[1]; }));
    EXPECT_FALSE(
        Rows(u"SELECT Titolo,Sottotitolo,Spalla,Azienda,Indirizzo,Citta,Provincia,Stato,CAP,Tel,Fax,Email,"
             "URL,Extras FROM Cataloghi WHERE 1"_qs +
             own)
            .at(0)
            .contains(QString()));
  }
  EXPECT_EQ(One(u"SELECT NomeFiltro5||NomeValore2 FROM Cataloghi WHERE IDCatalogo=110"_qs),
            u"Age \\038 levelSize H\\047Ø (cm)")
      << "names are stored escaped";
}

TEST_F(Delivered, EveryRowHasItsPictureAndEveryPictureItsRow) {
  QSet<QString> files;
  QSet<QByteArray> seen;
  const QString below = SampleDataRoot + u"/Images/";
  for (const QStringList& row : Rows(u"SELECT Immagine,Width,Height,1 FROM Prodotti UNION ALL SELECT "
                                     u"Immagine,Width,Height,0 FROM Immagini"
                                     " UNION ALL SELECT Logo,Width,Height,2 FROM Cataloghi"_qs)) {
    EXPECT_TRUE(row[0].startsWith(below)) << row[0];
    const QString name = row[0].mid(below.size());
    const QImage image(Folder + u"/Images/" + name, "jpeg");
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
    const QImage thumbnail(Folder + u"/Images/t" + name, "jpeg");
    // As the program makes them: reduced by whole per cents.
    EXPECT_NEAR(std::max(thumbnail.width(), thumbnail.height()), 200, longer / 200 + 1) << name;
    EXPECT_NEAR(thumbnail.width() * image.height(), thumbnail.height() * image.width(), image.width())
        << name;
    files << u't' + name;
  }
  const QStringList present = QDir(Folder + u"/Images"_qs).entryList(QDir::Files);
  EXPECT_EQ(QSet<QString>(present.begin(), present.end()), files);
}

TEST_F(Delivered, DatabaseIsSoundAndItsCountersGoOn) {
  EXPECT_TRUE(Rows(u"PRAGMA foreign_key_check"_qs).empty());
  EXPECT_EQ(One(u"PRAGMA integrity_check"_qs), u"ok"_qs);
  EXPECT_EQ(One(u"SELECT group_concat(IDCatalogo) FROM Cataloghi"_qs), u"109,110"_qs);
  database_.exec("INSERT INTO Cataloghi (NomeCatalogo) VALUES ('x')");
  EXPECT_EQ(database_.getLastInsertRowid(), 111);
}
