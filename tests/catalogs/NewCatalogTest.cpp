// What a new catalog may be called, and how its row and logo are stored.
#include "catalogs/NewCatalog.h"
#include "publish/EscapedNames.h"
#include "support/CatalogFixture.h"
#include "support/FullDisk.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class NewCatalogTest : public CatalogFixture {
 protected:
  NewCatalogTest() {
    catalog_.NomeCatalogo = u"a"_qs;
    catalog_.filterNames = QStringList{u"f"_qs, {}, {}, {}, {}};
  }
  // Columns of the one row, separated by blanks, "-" for Null.
  QString Row(const QString& columns) {
    EXPECT_EQ(Count(u"Cataloghi"_qs), 1);
    QStringList texts;
    for (const QString& column : columns.split(u' '))
      texts += One(u"ifnull(%1,'-')"_qs.arg(column), u"Cataloghi"_qs).toString();
    return texts.join(u' ');
  }

  NewCatalog catalog_;
};

}  // namespace

// Language, name, names of values and names of filters.
TEST(CatalogNames, AreRefusedInTheirOrder) {
  const std::vector<std::pair<QString, QString>> cases{
      {u"English||È,è|f"_qs, u"Catalog name required|You can't insert value fields with the same name"_qs},
      {u"English|a|CODE,code|f"_qs,
       u"You can't insert value fields with the same name"
       "|The name 'CODE' is not allowed for a value field."_qs},
      {u"English|a|codice,Descrizione,|f,,,,g"_qs, {}},
      {u"Italian||x,,Codice|f"_qs,
       u"Inserire almeno un nome di catalogo"
       "|Il nome 'Codice' non è consentito per  un campo valore."_qs},
      {u"Italian|a||Colore,,,colore"_qs, u"Non è possibile inserire filtri con nome uguale"_qs},
      {u"English|a||,description"_qs,
       u"Insert at least a filter name"
       "|The name 'description' is not allowed for a filter field."_qs}};
  for (const auto& [typed, told] : cases) {
    const QStringList parts = typed.split(u'|');
    SetLanguage(parts[0]);
    NewCatalog catalog;
    catalog.NomeCatalogo = parts[1];
    catalog.valueNames = parts[2].split(u',');
    catalog.filterNames = parts[3].split(u',');
    const QStringList messages =
        CheckGeneral(catalog) + CheckFilters(catalog) + CheckValueFilterNames(catalog);
    EXPECT_EQ(messages.join(u'|'), told) << typed;
  }
}

TEST(CatalogNames, InTheirStoredFormHaveFiftyCharacters) {
  const QString emoji = u"\U0001F600"_qs;
  const QString dots(12, u'.');
  for (const auto& [typed, kept] : {std::pair{QString(dots + u"abc"), QString(dots + u"ab")},
                                    {QString(26, u'\\'), QString(25, u'\\')},
                                    {QString(49, u'x') + emoji, QString(49, u'x')}})
    EXPECT_EQ(FitEscapedName(typed), kept) << typed;
}

TEST_F(NewCatalogTest, TheSamplesNeverOfferTheirCompany) {
  connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,Azienda) VALUES (109,'sample'),(110,'sample')"_qs);
  EXPECT_TRUE(OfferedCompany(connection_, {u"Azienda"_qs}).isEmpty());
  connection_.Execute(
      u"INSERT INTO Cataloghi (IDCatalogo,Azienda,CAP) VALUES (7,'older','1'),(8,'O''Neill','2')"_qs);
  const QMap<QString, QString> expected{{u"Azienda"_qs, u"O'Neill"_qs}, {u"Fax"_qs, u""_qs}};
  EXPECT_EQ(OfferedCompany(connection_, expected.keys()), expected);
}

TEST_F(NewCatalogTest, NamesAreStoredEscapedWithTheirGapsAndTextsAsTheyAre) {
  // A row that somebody gave the number of none.
  connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) VALUES (0,'zero')"_qs);
  catalog_.NomeCatalogo = u"L'anno\"nuovo\"[100%]\\./*:#&-%$"_qs;
  catalog_.valueNames = QStringList{{}, u"a.b]'"_qs, {}};
  catalog_.filterNames = QStringList{u"x\\y"_qs, {}, {}, u"/*:#&-%$"_qs, {}};
  catalog_.company = {{u"Citta"_qs, u"L'Aquila"_qs}, {u"url"_qs, {}}, {u"Logo"_qs, {}}};
  StoreCatalog(connection_, catalog_);
  connection_.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=0 AND NomeCatalogo='zero'"_qs);
  EXPECT_EQ(Row(u"NomeCatalogo Descrizione NomeValore1 NomeValore2"_qs),
            QString(catalog_.NomeCatalogo + u" - - a\\046b]'"_qs));
  EXPECT_EQ(Row(u"NomeFiltro1 NomeFiltro2 NomeFiltro4 NomeFiltro5"_qs),
            u"x\\\\y - \\047\\042\\058\\035\\038\\045\\037\\036 -"_qs);
  EXPECT_EQ(Row(u"IDCatalogo Citta URL Logo Width"_qs), u"%1 L'Aquila - - -"_qs.arg(catalog_.IDCatalogo));
}

TEST_F(NewCatalogTest, AFullDiskLeavesTheRowAndNoHalfLogoAndAnotherAttemptGoesOnWithIt) {
  catalog_.LogoPath = Outside(u"l'ogo.jpg"_qs);
  catalog_.company[u"Logo"_qs] = catalog_.LogoPath;
  const QByteArray large = MakeJpeg(MakePhoto({900, 700}, 2));
  WriteFileSafely(catalog_.LogoPath, large);
  ASSERT_GT(large.size(), 100'000);
  {
    const FullDisk full(100'000);
    EXPECT_NE(FailureOf([&] { StoreCatalog(connection_, catalog_); }), QString());
  }
  EXPECT_EQ(Row(u"Logo Width Height"_qs), QString(catalog_.LogoPath + u" - -"_qs));
  EXPECT_TRUE(FilesIn(AppFile(u"Images"_qs)).empty());
  EXPECT_FALSE(connection_.InTransaction());

  const int first = catalog_.IDCatalogo;
  catalog_.filterNames = QStringList{{}, u"g"_qs, {}, {}, {}};
  StoreCatalog(connection_, catalog_);
  EXPECT_EQ(catalog_.IDCatalogo, first);
  EXPECT_EQ(Row(u"NomeFiltro1 NomeFiltro2 Logo"_qs),
            u"- g "_qs + AppFile(u"Images/%1-Logo.jpg"_qs.arg(first)));

  // Somebody deletes the row before the next attempt: it is made anew.
  connection_.Execute(u"DELETE FROM Cataloghi"_qs);
  StoreCatalog(connection_, catalog_);
  EXPECT_EQ(Row(u"IDCatalogo"_qs), QString::number(catalog_.IDCatalogo));
  EXPECT_NE(catalog_.IDCatalogo, first);
}
