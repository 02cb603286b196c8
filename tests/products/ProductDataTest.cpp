// The rules of filter values and of technical data.
#include "products/FilterData.h"
#include "products/TechData.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

class FilterDataTest : public CatalogFixture {
 protected:
  FilterDataTest() {
    for (const int catalog : {AddCatalog(u"Catalog"_qs), AddCatalog(u"Other"_qs)})
      for (const QString& code : {u"a"_qs, u"b"_qs, u"c"_qs}) AddProduct(catalog, code);
    connection_.Execute(
        u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (1,2,'rosso'),(1,2,'È blu')"_qs);
    connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=1,IDFiltro3=1"_qs);
    connection_.Execute(u"UPDATE Cataloghi SET NomeFiltro2='Colore'"_qs);
  }
  // What a row that gets this text is refused for.
  QString Refusal(const QString& text) {
    connection_.Execute(u"UPDATE Filtri SET Valore=? WHERE IDValore=1"_qs, {text});
    return FailureOf([&] { data_.Saved(1, u"rosso"_qs); });
  }

  FilterData data_{1, 2, connection_};
};

}  // namespace

TEST_F(FilterDataTest, AValueIsATextOfItsOwn) {
  EXPECT_EQ(Refusal(u"ROSSO"_qs), QString()) << "itself";
  EXPECT_NE(Refusal(u"è BLU"_qs), QString());
  EXPECT_EQ(Refusal(u"a|b"_qs), u"| is an invalid character"_qs);
  EXPECT_NE(Refusal(QString()), QString());
  connection_.Execute(u"UPDATE Cataloghi SET NomeFiltro2=''"_qs);
  EXPECT_EQ(Refusal(u"verde"_qs), u"The filter was deleted meanwhile by another window or program."_qs);
  for (const QString& text : {u"È blu"_qs, u""_qs}) {
    connection_.Execute(u"UPDATE Filtri SET Valore=?"_qs, {text});
    EXPECT_NO_THROW(data_.Saved(1, text)) << "what an older file holds can still be published or not";
    EXPECT_NE(FailureOf([&] { data_.Saved(1, {}); }), QString()) << "but is not added";
  }
}

TEST_F(FilterDataTest, ADeletedValueLeavesZeroInThisCatalogAlone) {
  EXPECT_EQ(data_.DeletionQuestion({2}), QString()) << "nobody has it";
  EXPECT_EQ(data_.DeletionQuestion({1}),
            u"Products that have the value \"rosso\": 3.\r\nIf it is deleted they will be left without one. "
            "Continue?"_qs);
  Refuse(u"UPDATE ON Prodotti"_qs);
  EXPECT_NE(FailureOf([&] { data_.Delete({1, 2}); }), QString());
  EXPECT_EQ(Count(u"Filtri"_qs), 2) << "all or nothing";
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  data_.Delete({1, 2});
  EXPECT_EQ(Count(u"Filtri"_qs), 0);
  EXPECT_EQ(One(u"group_concat(IDCatalogo||':'||IDFiltro2||IDFiltro3,' ')"_qs, u"Prodotti"_qs),
            u"1:01 1:01 1:01 2:11 2:11 2:11"_qs);
}

TEST_F(FilterDataTest, OnlyATextThatWillBeStoredIsAskedAbout) {
  EXPECT_NE(data_.ChangeQuestion(1, u"rosa"_qs), QString());
  for (const QString& text : {u"Rosso"_qs, u"è blu"_qs, u"a|b"_qs, QString()})
    EXPECT_EQ(data_.ChangeQuestion(1, text), QString()) << text;
  EXPECT_EQ(data_.ChangeQuestion(2, u"rosa"_qs), QString());
}

TEST_F(StoreFixture, AFeatureIsCompletedFromItsCatalog) {
  for (const int catalog : {AddCatalog(u"Catalog"_qs), AddCatalog(u"Other"_qs)}) AddProduct(catalog, u"a"_qs);
  connection_.Execute(
      u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica) VALUES (1,'a','Peso netto'),"
      "(1,'a','Peso lordo'),(1,'a','Potenza_W'),(1,'a','100% lana'),(1,'a','L''altezza'),(1,'a','Età'),"
      "(1,'a','È lungo'),(1,'a','\\x'),(1,'a','[z'),(2,'a','Zona')"_qs);
  const TechData data(1, u"a"_qs, connection_);
  for (const QString& expected :
       {u"pe>Peso lordo"_qs, u"Peso n>Peso netto"_qs, u"pO>Potenza_W"_qs, u"P_>"_qs, u"%>"_qs, u"z>"_qs,
        u"100%>100% lana"_qs, u"l'>L'altezza"_qs, u"ETÀ>Età"_qs, u"è>È lungo"_qs, u"\\>\\x"_qs, u"[>[z"_qs}) {
    const QString typed = expected.section(u'>', 0, 0);
    EXPECT_EQ(typed + u'>' + data.Completed(typed), expected);
  }
}
