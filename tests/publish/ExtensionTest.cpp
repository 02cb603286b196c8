#include <sqlite3.h>

#include "base/Helpers.h"
#include "publish/EscapedNames.h"
#include "publish/ExtensionManager.h"
#include "publish/PluginConnection.h"
#include "publish/PluginHost.h"
#include "support/CatalogFixture.h"

using namespace vorlina;

TEST(EscapedNames, AreStoredAndShownAsToldForEveryCharacter) {
  const std::pair<QString, QString> cases[] = {
      {u"Prezzo €"_qs, u"Prezzo €"_qs},
      {u"Cod. art."_qs, u"Cod\\046 art\\046"_qs},
      {u"a\\b-c/d"_qs, u"a\\\\b\\045c\\047d"_qs},
      {u"./*:#&-%$"_qs, u"\\046\\047\\042\\058\\035\\038\\045\\037\\036"_qs},
      {u""_qs, u""_qs},
      {u"L'\"età\" []"_qs, u"L'\"età\" []"_qs},
      // A typed code, and backslashes before what is escaped.
      {u"a\\046b.c"_qs, u"a\\\\046b\\046c"_qs},
      {u"N\\-1 di.x"_qs, u"N\\\\\\0451 di\\046x"_qs}};
  for (const auto& [plain, stored] : cases) {
    EXPECT_EQ(EscapeName(plain), stored);
    EXPECT_EQ(UnescapeName(stored), plain);
  }
  EXPECT_EQ(EscapeName(NullValue()) + UnescapeName(NullValue()), QString());
  EXPECT_EQ(UnescapeName(u"5 \\128, a\\b\\065\\"_qs), u"5 €, a\\b\\065\\") << "as no name of ours is stored";
}

namespace {

class ExtensionTest : public StoreFixture {
 protected:
  ExtensionTest() : catalog_(AddCatalog(u"c"_qs)) { AddProduct(catalog_, code_); }

  bool Set(const QString& name, const QVariant& value, const QString& code) {
    return SetExtension(name, value, catalog_, code, connection_);
  }

  const QString code_ = u"D'A \"1\""_qs;
  int catalog_;
};

}  // namespace

TEST_F(ExtensionTest, ANameGetsItsLevelOnceAndOneRowPerOwner) {
  EXPECT_TRUE(Set(u"o'clock \"x\""_qs, u"1"_qs, code_));
  EXPECT_TRUE(Set(u"o'clock \"x\""_qs, u"2"_qs, code_));
  EXPECT_EQ(Count(u"PExtension"_qs), 1);
  EXPECT_EQ(One(u"Valore"_qs, u"PExtension"_qs), u"2"_qs);
  EXPECT_EQ(One(u"C"_qs, u"Extensions"_qs), false);
  EXPECT_EQ(One(u"P"_qs, u"Extensions"_qs), true);
  // The level stays a product's: without a product there is nothing that could hold the value.
  EXPECT_THROW(Set(u"o'clock \"x\""_qs, u"3"_qs, u""_qs), Error);
  EXPECT_EQ(Count(u"CExtension"_qs), 0);
  EXPECT_FALSE(connection_.InTransaction());

  EXPECT_TRUE(Set(u"folder"_qs, u"/srv"_qs, u""_qs));
  EXPECT_TRUE(Set(u"folder"_qs, NullValue(), code_));
  EXPECT_EQ(Count(u"CExtension"_qs), 1);
  EXPECT_TRUE(One(u"Valore"_qs, u"CExtension"_qs).isNull());
}

TEST_F(ExtensionTest, ANameWithoutALevelIsAnsweredAndWithBothIsTheCatalogs) {
  connection_.Execute(
      u"INSERT INTO Extensions (ExtensionName,C,P) VALUES ('none',FALSE,FALSE),('both',TRUE,TRUE)"_qs);
  EXPECT_FALSE(Set(u"none"_qs, u"1"_qs, code_)) << "a box would hold the transaction open";
  EXPECT_TRUE(Set(u"both"_qs, u"1"_qs, code_));
  EXPECT_EQ(Count(u"PExtension"_qs), 0);
  EXPECT_EQ(Count(u"CExtension"_qs), 1);
}

TEST_F(ExtensionTest, APluginReadsAndWritesThroughItsConnection) {
  PluginConnection connection(connection_);
  connection.BeginTrans();
  connection.Execute(u"UPDATE Prodotti SET Descrizione=?"_qs, {u"it's"_qs});
  connection.CommitTrans();
  const std::unique_ptr<IVorlinaRows> rows =
      connection.Open(u"SELECT Descrizione, Immagine, Pubblica FROM Prodotti"_qs, {});
  const auto tells = [](const std::function<void()>& step, const QString& text) {
    return FailureOf(step).contains(text);
  };
  EXPECT_TRUE(tells([&] { rows->Value(0); }, u"where there is no row"_qs));
  ASSERT_TRUE(rows->Next());
  EXPECT_EQ(rows->Value(u"descrizione"_qs), u"it's"_qs);
  EXPECT_TRUE(rows->Value(1).isNull());
  EXPECT_EQ(rows->Value(2), true);
  EXPECT_EQ(QDir::toNativeSeparators(connection.DataSource()), Path());
  EXPECT_TRUE(tells([&] { rows->Value(u"nowhere"_qs); }, u"column \"nowhere\""_qs));
  EXPECT_TRUE(tells([&] { rows->ColumnName(-1); }, u"column \"-1\""_qs));
  EXPECT_TRUE(tells([&] { connection.Execute(u"SELECT * FROM Nowhere"_qs, {}); }, u"cannot run"_qs));
  EXPECT_TRUE(tells([&] { connection.Open(u"-- nothing"_qs, {}); }, u"comments alone"_qs));
  EXPECT_FALSE(rows->Next() || rows->Next());
  EXPECT_TRUE(tells([&] { rows->Value(0); }, u"where there is no row"_qs));
}

// What a plug-in keeps neither holds a lock on the database nor refers to what is gone.
TEST_F(ExtensionTest, WhatAPluginKeepsEndsWithItsCall) {
  IVorlinaConnection* connection = nullptr;
  std::unique_ptr<IVorlinaRows> rows;
  EXPECT_THROW(CallPlugin(connection_,
                          [&](IVorlinaConnection& given) {
                            connection = &given;
                            rows = given.Open(u"SELECT 1 UNION SELECT 2"_qs);
                            EXPECT_TRUE(rows->Next());
                            given.BeginTrans();
                            given.Execute(u"DELETE FROM Prodotti"_qs);
                            throw 42;
                          }),
               Error);
  EXPECT_EQ(Count(u"Prodotti"_qs), 1);
  EXPECT_EQ(sqlite3_next_stmt(connection_.Database().getHandle(), nullptr), nullptr);
  EXPECT_THROW(rows->Next(), Error);
  EXPECT_THROW(rows->Value(0), Error);
  EXPECT_THROW(connection->Execute(u"DELETE FROM Prodotti"_qs), Error);
  connection_.Close();
  rows.reset();
}
