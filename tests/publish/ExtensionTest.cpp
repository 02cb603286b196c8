#include <sqlite3.h>

#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "publish/EscapedNames.h"
#include "publish/ExtensionManager.h"
#include "publish/PluginConnection.h"
#include "publish/PluginHost.h"
#include "support/Print.h"
#include "support/ScriptedDialogs.h"
#include "support/StoreFixture.h"

using namespace vorlina;

TEST(EscapedNames, AreStoredAndShownAsToldForEveryCharacter) {
  struct Case {
    QString plain, stored;
  };
  for (const Case& c :
       {Case{u"Prezzo €"_qs, u"Prezzo €"_qs}, Case{u"Cod. art."_qs, u"Cod\\046 art\\046"_qs},
        Case{u"a\\b"_qs, u"a\\\\b"_qs}, Case{u"a-b/c"_qs, u"a\\045b\\047c"_qs},
        Case{u"./*:#&-%$"_qs, u"\\046\\047\\042\\058\\035\\038\\045\\037\\036"_qs}, Case{u""_qs, u""_qs},
        Case{u"..."_qs, u"\\046\\046\\046"_qs}, Case{u"L'\"età\" []"_qs, u"L'\"età\" []"_qs},
        // A typed code, and backslashes before what is escaped.
        Case{u"a\\046b.c"_qs, u"a\\\\046b\\046c"_qs}, Case{u"Kg\\."_qs, u"Kg\\\\\\046"_qs},
        Case{u"N\\-1 di.x"_qs, u"N\\\\\\0451 di\\046x"_qs}, Case{u"\\\\"_qs, u"\\\\\\\\"_qs}}) {
    EXPECT_EQ(EscapeName(c.plain), c.stored);
    EXPECT_EQ(UnescapeName(c.stored), c.plain);
  }
  EXPECT_EQ(EscapeName(NullValue()) + UnescapeName(NullValue()), QString());
  for (const Case& c : {Case{u"5 €"_qs, u"5 \\128"_qs}, Case{u"a\\b\\065\\"_qs, u"a\\b\\065\\"_qs}})
    EXPECT_EQ(UnescapeName(c.stored), c.plain) << "as no name of ours is stored";
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
  ScriptedDialogs dialogs_;
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
  const auto tells = [](const auto& step, const char16_t* text) {
    try {
      step();
    } catch (const Error& error) {
      return error.Description().contains(QString::fromUtf16(text));
    }
    return false;
  };
  EXPECT_TRUE(tells([&] { rows->Value(0); }, u"where there is no row"));
  ASSERT_TRUE(rows->Next());
  EXPECT_EQ(rows->Value(u"descrizione"_qs), u"it's"_qs);
  EXPECT_TRUE(rows->Value(1).isNull());
  EXPECT_EQ(rows->Value(2), true);
  EXPECT_EQ(QDir::toNativeSeparators(connection.DataSource()), Path());
  EXPECT_TRUE(tells([&] { rows->Value(u"nowhere"_qs); }, u"column \"nowhere\""));
  EXPECT_TRUE(tells([&] { rows->Value(99); }, u"column \"99\""));
  EXPECT_TRUE(tells([&] { rows->ColumnName(-1); }, u"column \"-1\""));
  EXPECT_TRUE(tells([&] { connection.Execute(u"SELECT * FROM Nowhere"_qs, {}); }, u"cannot run"));
  EXPECT_TRUE(tells([&] { connection.Open(u"-- nothing"_qs, {}); }, u"comments alone"));
  EXPECT_FALSE(rows->Next());
  EXPECT_FALSE(rows->Next());
  EXPECT_TRUE(tells([&] { rows->Value(0); }, u"where there is no row"));
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
