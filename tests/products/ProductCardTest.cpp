// The product card without its window: completing, searching, saving and what others do meanwhile.
#include "base/Helpers.h"
#include "images/PictureFolder.h"
#include "products/Completion.h"
#include "products/ProductCard.h"
#include "products/SearchCondition.h"
#include "support/CatalogFixture.h"
#include "support/Print.h"
#include "support/TestJpeg.h"

using namespace vorlina;

TEST(Completion, GivesTheFirstTextThatBeginsSo) {
  const Completion texts(
      {{1, u"Rosso"_qs}, {2, u"rosa 50%"_qs}, {3, u"Écru_1"_qs}, {4, u"ROSSO"_qs}, {5, u"O'Neil"_qs}});
  const std::pair<QString, qint64> cases[] = {{u"r"_qs, 2}, {u"ROSS"_qs, 1}, {u"rosso"_qs, 1},
                                              {u"é"_qs, 3}, {u"o'"_qs, 5},   {u"rosso "_qs, 0},
                                              {u"_"_qs, 0}, {u"%"_qs, 0},    {QString(), 0}};
  for (const auto& [typed, value] : cases) {
    const LookupItem* found = texts.First(typed);
    EXPECT_EQ(found != nullptr ? found->value : 0, value) << typed;
  }
  EXPECT_EQ(texts.Exactly(u"écru_1"_qs)->value, 3);
  EXPECT_EQ(texts.Exactly(u"écru"_qs), nullptr);
}

namespace {

class ProductCardTest : public CatalogFixture {
 protected:
  ProductCardTest() {
    connection_.Execute(
        u"UPDATE Cataloghi SET NomeValore1='Prezzo',NomeFiltro2='Colore' WHERE IDCatalogo=?"_qs, {catalog_});
    for (const QString& code : {u"a_1"_qs, u"A%b"_qs, u"O'Neil \"x\""_qs}) AddProduct(catalog_, code);
    connection_.Execute(
        u"INSERT INTO Filtri (IDValore,IDCatalogo,IDNomeFiltro,Valore) VALUES (7,?1,2,'Rosso'),(8,?1,2,'Blu')"_qs,
        {catalog_});
    card_.ReadNames();
  }
  // Opens a product and gives what its boxes hold.
  ProductValues Read(const QString& code) {
    ProductValues values = card_.Read(card_.Products().Find(code));
    for (const QString& column : {u"Valore2"_qs, u"Valore3"_qs}) values.remove(column);
    for (QVariant& value : values) value = NullToEmpty(value);
    card_.Shown(values);
    return values;
  }
  QString Stored(const QString& code) {
    return One(u"json_array(Descrizione,Valore1,IDFiltro2,OrdineTemp,SchedaTecnica)"_qs, u"Prodotti"_qs,
               u"CodiceProdotto=?"_qs, {code})
        .toString();
  }
  void Elsewhere(const QString& settings) {
    connection_.Execute(u"UPDATE Prodotti SET "_qs + settings + u" WHERE CodiceProdotto='a_1'"_qs);
  }
  QStringList Found(const ProductValues& mask) {
    QStringList codes;
    Rows rows(connection_,
              u"SELECT CodiceProdotto FROM Prodotti WHERE IDCatalogo=?"_qs + SearchCondition(mask) +
                  u" ORDER BY 1"_qs,
              {catalog_});
    while (rows.Next()) codes += rows.Value(0).toString();
    return codes;
  }

  int catalog_ = AddCatalog(u"Catalog"_qs);
  ProductCard card_{catalog_, connection_};
};

}  // namespace

TEST_F(ProductCardTest, SearchesByTheMask) {
  EXPECT_EQ(SearchCondition({{u"CodiceProdotto"_qs, u"12"_qs},
                             {u"Valore1"_qs, QString()},
                             {u"IDFiltro1"_qs, 0},
                             {u"IDFiltro2"_qs, 7}}),
            u" And CodiceProdotto Like '12%' And IDFiltro2=7"_qs);
  const std::pair<QString, QString> cases[] = {{u"a"_qs, u"A%b,a_1"_qs},
                                               {u"a_"_qs, u"a_1"_qs},
                                               {u"%b"_qs, u"A%b"_qs},
                                               {u"o'n"_qs, u"O'Neil \"x\""_qs},
                                               {u"a_\\"_qs, QString()},
                                               {u"%\""_qs, u"O'Neil \"x\""_qs},
                                               {QString(), u"A%b,a_1,O'Neil \"x\""_qs}};
  for (const auto& [typed, codes] : cases)
    EXPECT_EQ(Found({{u"CodiceProdotto"_qs, typed}}).join(u','), codes) << typed;
}

TEST_F(ProductCardTest, RefusesInTheOrderOfTheBoxes) {
  const QString empty = u"Insert a value for the product code"_qs;
  const QString bar = u"| is an invalid character"_qs;
  const QString fileName = u"\\ / : * \" ? < > | are invalid character in product code"_qs;
  struct Case {
    QString code, description, value, refusal, inEdit;
  };
  const Case cases[] = {{u" \n"_qs, u"|"_qs, {}, empty, bar},    {u"a/|"_qs, {}, {}, bar, bar},
                        {u"a/b"_qs, {}, u"|"_qs, fileName, bar}, {u"a"_qs, {}, u"|"_qs, bar, bar},
                        {u"a/b"_qs, {}, {}, fileName, {}},       {u"a"_qs, u"\""_qs, u"'"_qs, {}, {}}};
  for (const Case& one : cases) {
    const ProductValues typed{
        {u"CodiceProdotto"_qs, one.code}, {u"Descrizione"_qs, one.description}, {u"Valore1"_qs, one.value}};
    card_.BeginNew();
    EXPECT_EQ(card_.Refusal(typed), one.refusal) << one.code;
    Read(u"a_1"_qs);
    EXPECT_EQ(card_.Refusal(typed), one.inEdit) << one.code;
  }
}

TEST_F(ProductCardTest, WritesNullInANewProductAndEmptyTextInAChangedOne) {
  ProductValues typed{{u"CodiceProdotto"_qs, u" new "_qs},
                      {u"Descrizione"_qs, QString()},
                      {u"Valore1"_qs, QString()},
                      {u"IDFiltro2"_qs, 0}};
  card_.Add(typed);
  EXPECT_EQ(Stored(u"new"_qs), u"[null,null,0,4,0]");
  EXPECT_EQ(Count(u"PExtension"_qs), 0);
  typed = Read(u"new"_qs);
  typed[u"Valore1"_qs] = u"1\n2"_qs;
  typed[u"IDFiltro2"_qs] = 7;
  EXPECT_EQ(card_.Change(typed), QStringList());
  EXPECT_EQ(Stored(u"new"_qs), u"[\"\",\"1 2\",7,4,0]");
  EXPECT_EQ(Count(u"PExtension"_qs), 2);
  // A proposed code that somebody has taken meanwhile.
  AddProduct(catalog_, card_.ProposeCode());
  card_.Add({{u"CodiceProdotto"_qs, u"5"_qs}});
  EXPECT_EQ(card_.Code(), u"6"_qs);
  // A copy of the database that may come back has the product.
  WriteFileSafely(MainImagePath(catalog_, u"7"_qs), "of then");
  EXPECT_EQ(card_.ProposeCode(), u"8"_qs);
}

TEST_F(ProductCardTest, WhatOthersHaveStoredIsNotWrittenOverUnseen) {
  ProductValues typed = Read(u"a_1"_qs);
  typed[u"Descrizione"_qs] = u"mine"_qs;
  Elsewhere(u"Descrizione='theirs',Valore1='9'||char(13,10),IDFiltro2=8"_qs);
  EXPECT_EQ(card_.Change(typed), QStringList{u"Description"_qs});
  EXPECT_EQ(card_.Change(typed), QStringList{u"Description"_qs}) << "after a No";
  EXPECT_EQ(Count(u"PExtension"_qs), 0);
  card_.WriteOver();
  Elsewhere(u"Descrizione='others'"_qs);
  EXPECT_EQ(card_.Change(typed), QStringList{u"Description"_qs}) << "that has not been seen";
  card_.WriteOver();
  EXPECT_EQ(card_.Change(typed), QStringList());
  EXPECT_EQ(Stored(u"a_1"_qs), u"[\"mine\",\"9\\r\\n\",8,null,0]") << "what was not typed is theirs";

  typed = Read(u"a_1"_qs);
  typed[u"IDFiltro2"_qs] = 7;
  connection_.Execute(u"DELETE FROM Filtri WHERE IDValore=7"_qs);
  EXPECT_TRUE(FailureOf([&] { card_.Change(typed); }).contains(u"\"Colore\" has been deleted"));
}

TEST_F(ProductCardTest, APictureThatFailsKeepsTheOldOne) {
  Read(u"a_1"_qs);
  const QString target = MainImagePath(catalog_, u"a_1"_qs);
  WriteFileSafely(Outside(u"a.jpg"_qs), MakeJpeg(MakePhoto({60, 40}, 1)));
  EXPECT_EQ(card_.MainImage(), QString());
  for (const QString& file : {Outside(u"a.jpg"_qs), target}) {
    card_.SetMainImage(file);
    EXPECT_EQ(card_.MainImage(), target);
  }
  EXPECT_EQ(Count(u"PExtension"_qs), 2);
  const auto files = FilesIn(AppFile(u"Images"_qs));
  WriteFileSafely(Outside(u"b.jpg"_qs), MakeJpeg(MakePhoto({60, 40}, 2)));
  Refuse(u"UPDATE ON Prodotti"_qs);
  EXPECT_EQ(FailureOf([&] { card_.SetMainImage(Outside(u"b.jpg"_qs)); }), u"refused");
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), files), QStringList());
}
