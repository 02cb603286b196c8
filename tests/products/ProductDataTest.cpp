// The rules of filter values and of technical data.
#include "products/FilterData.h"
#include "products/TechData.h"
#include "store/RowErrors.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

class FilterDataTest : public CatalogFixture {
 protected:
  FilterDataTest() : catalog_(AddCatalog(u"Catalog"_qs)), data_(catalog_, 2, connection_) {
    connection_.Execute(u"UPDATE Cataloghi SET NomeFiltro2='Colo\\046re'"_qs);
    for (const QString& text : {u"rosso"_qs, u"È blu"_qs})
      connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (?,2,?)"_qs,
                          {catalog_, text});
    for (const int other : {catalog_, AddCatalog(u"Other"_qs)})
      for (const QString& code : {u"a"_qs, u"b"_qs, u"c"_qs}) AddProduct(other, code);
    connection_.Execute(u"UPDATE Prodotti SET IDFiltro2=1,IDFiltro3=1"_qs);
  }
  // What a row that gets this text is refused for.
  QString Refusal(const QString& text) {
    connection_.Execute(u"UPDATE Filtri SET Valore=? WHERE IDValore=1"_qs, {text});
    return FailureOf([&] { data_.Saved(1, u"rosso"_qs); });
  }

  const int catalog_;
  FilterData data_;
};

}  // namespace

TEST_F(FilterDataTest, AValueIsATextOfItsOwn) {
  EXPECT_EQ(Refusal(u"ROSSO"_qs), QString()) << "itself";
  EXPECT_NE(Refusal(u"è BLU"_qs), QString());
  EXPECT_EQ(Refusal(u"a|b"_qs), u"| is an invalid character"_qs);
  EXPECT_NE(Refusal(QString()), QString());
  connection_.Execute(u"UPDATE Filtri SET Valore='È blu'"_qs);
  EXPECT_NO_THROW(data_.Saved(1, u"È blu"_qs)) << "what an older file holds can still be published or not";
}

TEST_F(FilterDataTest, ADeletedValueLeavesZeroInThisCatalogAlone) {
  EXPECT_EQ(data_.DeletionQuestion({2}), QString()) << "nobody has it";
  EXPECT_EQ(data_.DeletionQuestion({1}),
            u"Products that have the value \"rosso\": 3.\r\nIf it is deleted they will be left without one. "
            "Continue?"_qs);
  connection_.Execute(
      u"CREATE TRIGGER Stop BEFORE UPDATE ON Prodotti BEGIN SELECT RAISE(ABORT,'no'); END"_qs);
  EXPECT_NE(FailureOf([&] { data_.Delete({1, 2}); }), QString());
  EXPECT_EQ(Count(u"Filtri"_qs), 2) << "all or nothing";
  connection_.Execute(u"DROP TRIGGER Stop"_qs);
  data_.Delete({1, 2});
  EXPECT_EQ(Count(u"Filtri"_qs), 0);
  EXPECT_EQ(One(u"group_concat(IDCatalogo||':'||IDFiltro2||IDFiltro3,' ')"_qs, u"Prodotti"_qs),
            u"1:01 1:01 1:01 2:11 2:11 2:11"_qs);
}

TEST_F(FilterDataTest, OnlyATextThatWillBeStoredIsAskedAbout) {
  EXPECT_EQ(data_.ChangeQuestion(1, u"rosa"_qs),
            u"Products that have the value \"rosso\": 3.\r\nThey will show \"rosa\". Continue?"_qs);
  for (const QString& text : {u"Rosso"_qs, u"è blu"_qs, u"a|b"_qs, QString()})
    EXPECT_EQ(data_.ChangeQuestion(1, text), QString()) << text;
  EXPECT_EQ(data_.ChangeQuestion(2, u"rosa"_qs), QString());
}

TEST_F(FilterDataTest, AFilterThatWasRenamedElsewhereIsNotRenamedOverIt) {
  EXPECT_THROW(data_.Rename(u"Colore"_qs, u"Tinta"_qs), ConflictError);
  data_.Rename(u"Colo.re"_qs, u"Tinta 50%"_qs);
  EXPECT_EQ(One(u"NomeFiltro2"_qs, u"Cataloghi"_qs, u"IDCatalogo=?"_qs, {catalog_}), u"Tinta 50\\037"_qs);
}

TEST_F(StoreFixture, AFeatureIsCompletedFromItsCatalog) {
  const int catalog = AddCatalog(u"Catalog"_qs);
  const int other = AddCatalog(u"Other"_qs);
  for (const int id : {catalog, other}) AddProduct(id, u"a"_qs);
  const auto add = [&](int id, const QString& feature) {
    connection_.Execute(
        u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica) VALUES (?,'a',?)"_qs,
        {id, feature});
  };
  for (const QString& feature : {u"Peso netto"_qs, u"Peso lordo"_qs, u"Potenza_W"_qs, u"100% lana"_qs,
                                 u"L'altezza"_qs, u"Età"_qs, u"È lungo"_qs, u"\\x"_qs, u"[z"_qs})
    add(catalog, feature);
  add(other, u"Zona"_qs);
  const TechData data(catalog, u"a"_qs, connection_);
  const std::pair<QString, QString> cases[] = {{u"pe"_qs, u"Peso lordo"_qs},
                                               {u"Peso n"_qs, u"Peso netto"_qs},
                                               {u"pO"_qs, u"Potenza_W"_qs},
                                               {u"P_"_qs, {}},
                                               {u"%"_qs, {}},
                                               {u"100%"_qs, u"100% lana"_qs},
                                               {u"l'"_qs, u"L'altezza"_qs},
                                               {u"ETÀ"_qs, u"Età"_qs},
                                               {u"è"_qs, u"È lungo"_qs},
                                               {u"\\"_qs, u"\\x"_qs},
                                               {u"["_qs, u"[z"_qs},
                                               {u"z"_qs, {}},
                                               {u"Peso lordo"_qs, u"Peso lordo"_qs}};
  for (const auto& [typed, found] : cases) EXPECT_EQ(data.Completed(typed), found) << typed;
}
