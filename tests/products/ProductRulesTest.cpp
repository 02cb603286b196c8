// What a cell accepts, and what belongs to a product that is added, changed or deleted.
#include <unistd.h>

#include <memory>

#include "base/Helpers.h"
#include "images/PictureFolder.h"
#include "products/CellRules.h"
#include "products/ProductStore.h"
#include "store/RowErrors.h"
#include "support/CatalogFixture.h"

using namespace vorlina;

TEST(CellRules, RefuseInTheirOrder) {
  const QString empty = u"Insert a value for the product code"_qs;
  const QString fileName = u"\\ / : * \" ? < > | are invalid character in product code"_qs;
  const QString bar = u"| is an invalid character"_qs;
  const std::tuple<QString, QVariant, QStringList, QVariant> cases[] = {
      {u"Codice"_qs, NullValue(), {empty}, NullValue()},
      {u"Codice"_qs, u" a b \n"_qs, {}, u"a b"_qs},
      {u"Codice"_qs, u"  "_qs, {empty}, QString()},
      {u"codice"_qs, u"a|b"_qs, {fileName, bar}, u"a|b"_qs},
      {u"Codice"_qs, u"O'Neil 50% 🚪"_qs, {}, u"O'Neil 50% 🚪"_qs},
      {u"Descrizione"_qs, u" a|b"_qs, {bar}, u" a|b"_qs},
      {u"Colore"_qs, NullValue(), {}, 0},
      {u"Colore"_qs, 7, {}, 7}};
  SetLanguage(u"English"_qs);
  for (const auto& [key, value, refusals, stored] : cases) {
    const CellVerdict verdict = CheckCell(key, value, key == u"Colore");
    EXPECT_EQ(verdict.refusals, refusals) << key << ' ' << value.toString();
    EXPECT_EQ(verdict.value, stored) << key << ' ' << value.toString();
  }
}

namespace {

class ProductStoreTest : public CatalogFixture {
 protected:
  ProductStoreTest() {
    Fill("x", 3);
    connection_.Execute(
        u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica) VALUES (109,'È 0','Peso')"_qs);
  }
  // Gives a product another code.
  void Change(const QString& code, const QString& former = u"È 0"_qs) {
    store_.Change(store_.Find(former), {{u"CodiceProdotto"_qs, code}}, ProductMarks::None);
  }

  int told_ = 0;
  ProductStore store_{109, connection_, [this] { ++told_; }};
};

}  // namespace

TEST_F(ProductStoreTest, WhatIsNotTheProductsOwnKeepsItsName) {
  const QString shared = MainImagePath(109, u"È 0"_qs);
  SetImage(u"È 1"_qs, shared);
  Change(u"shared"_qs);
  EXPECT_TRUE(QFile::exists(shared)) << "another product shows it";
  connection_.Execute(u"UPDATE Prodotti SET CodiceProdotto='È 0' WHERE CodiceProdotto='shared'"_qs);
  WriteFileSafely(Outside(u"own.jpg"_qs), "the user's own");
  SetImage(u"È 0"_qs, Outside(u"own.jpg"_qs));
  Change(u"outside"_qs);
  EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto='outside'"_qs), Outside(u"own.jpg"_qs));
  EXPECT_TRUE(QFile::exists(Outside(u"own.jpg"_qs)));
  const QByteArray logo = ContentOf(LogoPath(109));
  Change(u"Logo"_qs, u"È 2"_qs);
  EXPECT_EQ(ContentOf(LogoPath(109)), logo);
}

// As a file system that does not tell letter cases apart shows one file under two names.
TEST_F(ProductStoreTest, OneFileUnderTwoNamesIsNotDeleted) {
  const QString former = MainImagePath(109, u"È 0"_qs);
  ASSERT_EQ(::link(QFile::encodeName(former), QFile::encodeName(MainImagePath(109, u"è 0"_qs))), 0);
  Change(u"è 0"_qs);
  EXPECT_TRUE(QFile::exists(former));
  EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto='è 0'"_qs), former);
}

TEST_F(ProductStoreTest, TwoProductsChangePlaces) {
  const QByteArray first = ContentOf(MainImagePath(109, u"È 0"_qs));
  const QByteArray second = ContentOf(MainImagePath(109, u"È 1"_qs));
  WriteFileSafely(ThumbnailPath(MainImagePath(109, u"between"_qs)), "left by something else");
  QFile::remove(ThumbnailPath(MainImagePath(109, u"È 0"_qs)));
  Change(u"between"_qs);
  EXPECT_FALSE(QFile::exists(ThumbnailPath(MainImagePath(109, u"between"_qs))));
  Change(u"È 0"_qs, u"È 1"_qs);
  Change(u"È 1"_qs, u"between"_qs);
  EXPECT_EQ(ContentOf(MainImagePath(109, u"È 1"_qs)), first);
  EXPECT_EQ(ContentOf(MainImagePath(109, u"È 0"_qs)), second);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"SchedeTecniche"_qs, u"CodiceProdotto='È 1'"_qs), 1);
  EXPECT_EQ(Findings(), QStringList{u"missing-thumbnail Prodotti 109 È 1"_qs});
}

TEST_F(ProductStoreTest, AnAddedProductGetsTheMarksThatAreAskedFor) {
  int code = 3;
  for (const auto& [marks, stored] : {std::pair{ProductMarks::None, QString()},
                                      {ProductMarks::Picture, u"ImmagineModificata=1"_qs},
                                      {ProductMarks::Both, u"ImmagineModificata=1,SchedaModificata=1"_qs}}) {
    const qint64 product = store_.Add({{u"Descrizione"_qs, u"new"_qs}}, marks);
    EXPECT_EQ(store_.ValueOf(product, u"CodiceProdotto"_qs), QString::number(++code));
    EXPECT_EQ(One(u"group_concat(ExtensionName||'='||Valore)"_qs,
                  u"PExtension JOIN Extensions USING (IDExtension)"_qs, u"CodiceProdotto=?"_qs, {code})
                  .toString(),
              stored);
  }
  EXPECT_EQ(told_, 0);
  connection_.Execute(u"UPDATE Extensions SET P=FALSE"_qs);
  store_.Change(store_.Find(u"4"_qs), {{u"OrdineTemp"_qs, 7}}, ProductMarks::Both);
  EXPECT_EQ(told_, 1) << "once for both, when the row is stored";
}

// Rows, marks and files are as they were.
TEST_F(ProductStoreTest, WhatIsRefusedLeavesNothing) {
  SetLanguage(u"English"_qs);
  AddProduct(109, u"X-1"_qs);
  const auto files = FilesIn(AppFile(u"Images"_qs));
  const qint64 product = store_.Find(u"È 0"_qs);
  const auto change = [&](const QString& column, const QVariant& value) {
    return FailureOf([&] { store_.Change(product, {{column, value}}, ProductMarks::Both); });
  };
  EXPECT_TRUE(change(u"CodiceProdotto"_qs, u"È 1"_qs).contains(u"already a row"));
  for (const QString& taken : {u"È 1"_qs, u"è 1"_qs, u"x-1"_qs})
    EXPECT_THROW(store_.Add({{u"CodiceProdotto"_qs, taken}}, ProductMarks::Both), DuplicateError) << taken;
  EXPECT_TRUE(store_.IsCodeTaken(u"è 0"_qs) && store_.IsCodeTaken(u"x-1"_qs));
  EXPECT_FALSE(store_.IsCodeTaken(u"è 0"_qs, product) || store_.IsCodeTaken(u"e 0"_qs));
  EXPECT_TRUE(change(u"CodiceProdotto"_qs, u"a/b"_qs).contains(u"invalid character"));
  EXPECT_TRUE(change(u"OrdineTemp"_qs, u"abc"_qs).contains(u"no number"));
  Refuse(u"INSERT ON PExtension WHEN (SELECT COUNT(*) FROM PExtension)=1"_qs);
  EXPECT_EQ(change(u"CodiceProdotto"_qs, u"new"_qs), u"refused") << "at the second mark";
  connection_.Execute(u"DROP TRIGGER Refuse"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='È 2'"_qs);
  EXPECT_THROW(store_.Change(product + 2, {}, ProductMarks::Both), ConflictError);
  EXPECT_EQ(One(u"group_concat(CodiceProdotto)"_qs, u"Prodotti"_qs), u"X-1,È 0,È 1"_qs);
  EXPECT_EQ(Count(u"PExtension"_qs), 0);
  EXPECT_EQ(Differences(FilesIn(AppFile(u"Images"_qs)), files), QStringList());
}

TEST_F(ProductStoreTest, DeletedProductsTakeTheirFilesButNotThoseOfOthers) {
  SetImage(u"È 2"_qs, MainImagePath(109, u"È 1"_qs));
  QFile::remove(MainImagePath(109, u"È 2"_qs));
  QFile::remove(ThumbnailPath(MainImagePath(109, u"È 2"_qs)));
  const int other = AddCatalog(u"Other"_qs);
  AddProduct(other, u"other"_qs);
  const qint64 first = store_.Find(u"È 0"_qs);
  store_.Delete({first, first + 1, 999, ProductStore(other, connection_).Find(u"other"_qs)});
  EXPECT_EQ(One(u"group_concat(CodiceProdotto)"_qs, u"Prodotti"_qs), u"È 2,other"_qs);
  EXPECT_EQ(FilesIn(AppFile(u"Images"_qs)).size(), 3U) << "the logo, and the picture that È 2 names";
  EXPECT_EQ(Findings(), QStringList());
}

TEST_F(ProductStoreTest, AFiltersValueIsFoundOrAdded) {
  SetLanguage(u"English"_qs);
  connection_.Execute(u"UPDATE Cataloghi SET NomeFiltro1='a',NomeFiltro2='b'"_qs);
  const qint64 value = store_.FilterValue(1, u" dell'Èlba "_qs);
  EXPECT_EQ(store_.FilterValue(1, u"DELL'èLBA"_qs), value);
  EXPECT_NE(store_.FilterValue(2, u"dell'Èlba"_qs), value);
  EXPECT_EQ(FailureOf([&] { store_.FilterValue(1, u"a|b"_qs); }), u"| is an invalid character"_qs);
  EXPECT_NE(FailureOf([&] { store_.FilterValue(3, u"x"_qs); }), QString()) << "there is no such filter";
  EXPECT_EQ(One(u"group_concat(IDNomeFiltro||Valore)"_qs, u"Filtri"_qs), u"1dell'Èlba,2dell'Èlba"_qs);
}
