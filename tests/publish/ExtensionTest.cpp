#include "base/Dialogs.h"
#include "base/Error.h"
#include "base/Helpers.h"
#include "publish/EscapedNames.h"
#include "publish/ExtensionManager.h"
#include "publish/PluginConnection.h"
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
        Case{u"..."_qs, u"\\046\\046\\046"_qs}, Case{u"L'\"età\" []"_qs, u"L'\"età\" []"_qs}}) {
    EXPECT_EQ(EscapeName(c.plain), c.stored);
    EXPECT_EQ(UnescapeName(c.stored), c.plain);
  }
  EXPECT_EQ(EscapeName(NullValue()) + UnescapeName(NullValue()), QString());
  EXPECT_EQ(UnescapeName(u"5 \\128"_qs), u"5 €"_qs);
  // A typed code is doubled; decoding it ends, and what stands behind it is left as it is.
  EXPECT_EQ(EscapeName(u"a\\046"_qs), u"a\\\\046"_qs);
  EXPECT_EQ(UnescapeName(u"a\\\\046"_qs), u"a\\046"_qs);
}

namespace {

class ExtensionTest : public StoreFixture {
 protected:
  ExtensionTest() : catalog_(AddCatalog(u"c"_qs)) { AddProduct(catalog_, code_); }

  void Set(const QString& name, const QVariant& value, const QString& code) {
    SetExtension(name, value, catalog_, code, connection_);
  }

  const QString code_ = u"D'A \"1\""_qs;
  int catalog_;
  ScriptedDialogs dialogs_;
};

}  // namespace

TEST_F(ExtensionTest, ANameGetsItsLevelOnceAndOneRowPerOwner) {
  Set(u"o'clock \"x\""_qs, u"1"_qs, code_);
  Set(u"o'clock \"x\""_qs, u"2"_qs, code_);
  EXPECT_EQ(Count(u"PExtension"_qs), 1);
  EXPECT_EQ(One(u"Valore"_qs, u"PExtension"_qs), u"2"_qs);
  EXPECT_EQ(One(u"C"_qs, u"Extensions"_qs), false);
  EXPECT_EQ(One(u"P"_qs, u"Extensions"_qs), true);
  // The level stays a product's: without a product there is nothing that could hold the value.
  EXPECT_THROW(Set(u"o'clock \"x\""_qs, u"3"_qs, u""_qs), Error);
  EXPECT_EQ(Count(u"CExtension"_qs), 0);
  EXPECT_FALSE(connection_.InTransaction());

  Set(u"folder"_qs, u"/srv"_qs, u""_qs);
  Set(u"folder"_qs, NullValue(), code_);
  EXPECT_EQ(Count(u"CExtension"_qs), 1);
  EXPECT_TRUE(One(u"Valore"_qs, u"CExtension"_qs).isNull());
}

TEST_F(ExtensionTest, ANameWithoutALevelIsToldAndWithBothIsTheCatalogs) {
  connection_.Execute(
      u"INSERT INTO Extensions (ExtensionName,C,P) VALUES ('none',FALSE,FALSE),('both',TRUE,TRUE)"_qs);
  dialogs_.ExpectMessage(u"Error in Extensions table. Please contact technical support"_qs,
                         BoxStyle::Information);
  Set(u"none"_qs, u"1"_qs, code_);
  Set(u"both"_qs, u"1"_qs, code_);
  EXPECT_EQ(Count(u"PExtension"_qs), 0);
  EXPECT_EQ(Count(u"CExtension"_qs), 1);
}

TEST_F(ExtensionTest, AChangedProductGetsBothMarksOrNone) {
  MarkProductChanged(catalog_, code_, connection_);
  EXPECT_EQ(One(u"group_concat(ExtensionName)"_qs, u"Extensions"_qs),
            u"ImmagineModificata,SchedaModificata"_qs);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"PExtension"_qs, u"Valore='1' AND CodiceProdotto=?"_qs, {code_}), 2);
  connection_.Execute(u"DELETE FROM Extensions"_qs);
  connection_.Execute(u"INSERT INTO Extensions (ExtensionName,P) VALUES ('ImmagineModificata',TRUE)"_qs);
  EXPECT_THROW(MarkProductChanged(catalog_, u"gone"_qs, connection_), Error);
  EXPECT_EQ(Count(u"PExtension"_qs), 0);
}

TEST_F(ExtensionTest, APluginReadsAndWritesThroughItsConnection) {
  PluginConnection connection(connection_);
  connection.BeginTrans();
  connection.Execute(u"UPDATE Prodotti SET Descrizione=?"_qs, {u"it's"_qs});
  connection.CommitTrans();
  const std::unique_ptr<IVorlinaRows> rows =
      connection.Open(u"SELECT Descrizione, Immagine, Pubblica FROM Prodotti"_qs, {});
  ASSERT_TRUE(rows->Next());
  EXPECT_EQ(rows->Value(u"descrizione"_qs), u"it's"_qs);
  EXPECT_TRUE(rows->Value(1).isNull());
  EXPECT_EQ(rows->Value(2), true);
  EXPECT_THROW(rows->Value(u"nowhere"_qs), std::exception);
  EXPECT_FALSE(rows->Next());
  EXPECT_EQ(QDir::toNativeSeparators(connection.DataSource()), Path());
}
