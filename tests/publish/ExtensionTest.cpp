#include "publish/ExtensionManager.h"

#include "base/Dialogs.h"
#include "base/Helpers.h"
#include "publish/EscapedNames.h"
#include "publish/PluginConnection.h"
#include "store/Query.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class ExtensionTest : public StoreFixture {
 protected:
  int Rows(const QString& table) { return Get(u"COUNT(*)"_qs, table).toInt(); }
};

}  // namespace

TEST(EscapedNames, AreWrittenAndReadBack) {
  struct Case {
    QVariant plain;
    QString escaped;
  };
  const Case cases[] = {
      {u"Prezzo €"_qs, u"Prezzo €"_qs},
      {u"Cod. art."_qs, u"Cod\\046 art\\046"_qs},
      {u"a\\b"_qs, u"a\\\\b"_qs},
      {u"a-b/c"_qs, u"a\\045b\\047c"_qs},
      {u"./*:#&-%$"_qs, u"\\046\\047\\042\\058\\035\\038\\045\\037\\036"_qs},
      {u"."_qs, u"\\046"_qs},
      {NullValue(), u""_qs},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(EscapeName(c.plain), c.escaped);
    EXPECT_EQ(UnescapeName(c.escaped), NullToEmpty(c.plain));
  }
  EXPECT_EQ(UnescapeName(NullValue()), QString());
  EXPECT_EQ(UnescapeName(u"\\128 l\\046"_qs), u"€ l."_qs);
  EXPECT_EQ(PadLeft(u"46"_qs, 3, u'0'), u"046"_qs);
  EXPECT_EQ(PadLeft(u"1046"_qs, 3, u'0'), u"1046"_qs);
}

TEST(EscapedNames, ABackslashBeforeACodeEndsTheSearch) {
  EXPECT_EQ(UnescapeName(EscapeName(u"a\\046"_qs)), u"a\\046"_qs);
  EXPECT_EQ(UnescapeName(u"a\\\\046 b\\045"_qs), u"a\\046 b-"_qs);
}

TEST_F(ExtensionTest, TheFirstCallSettlesTheLevelAndTheLastValueStands) {
  AddProduct(u"L'arte"_qs);
  const QString name = u"PLUG\"IN's %"_qs;
  SetExtension(name, u"a"_qs, 1, u"L'arte"_qs, connection);
  SetExtension(name, u"b"_qs, 1, u"l'ARTE"_qs, connection);
  EXPECT_EQ(Rows(u"PExtension"_qs), 1);
  EXPECT_EQ(Get(u"Valore"_qs, u"PExtension"_qs), QVariant(u"b"_qs));
  EXPECT_EQ(Get(u"C"_qs, u"Extensions"_qs), QVariant(false));
  // A catalog value under a product's name goes to the product "", which does not exist.
  EXPECT_EQ(FaultOf([&] { SetExtension(name, u"c"_qs, 1, {}, connection); }), StoreFault::Constraint);

  SetExtension(u"target"_qs, u"/tmp/a"_qs, 1, {}, connection);
  SetExtension(u"target"_qs, NullValue(), 1, {}, connection);
  EXPECT_EQ(Rows(u"CExtension"_qs), 1);
  EXPECT_TRUE(Get(u"Valore"_qs, u"CExtension"_qs).isNull());
}

TEST_F(ExtensionTest, AFailureLeavesNoNameBehind) {
  EXPECT_EQ(FaultOf([&] { SetExtension(u"new"_qs, u"1"_qs, 1, u"missing"_qs, connection); }),
            StoreFault::Constraint);
  EXPECT_EQ(FaultOf([&] { MarkProductChanged(1, u"missing"_qs, connection); }), StoreFault::Constraint);
  EXPECT_EQ(Rows(u"Extensions"_qs), 0);
  EXPECT_FALSE(connection.InTransaction());
}

TEST_F(ExtensionTest, AChangedProductGetsBothMarksAndTheyGoWithIt) {
  AddProduct(u"A"_qs);
  MarkProductChanged(1, u"A"_qs, connection);
  MarkProductChanged(1, u"A"_qs, connection);
  EXPECT_EQ(Get(u"group_concat(ExtensionName || Valore, ',')"_qs,
                u"PExtension JOIN Extensions USING (IDExtension)"_qs),
            QVariant(u"ImmagineModificata1,SchedaModificata1"_qs));
  connection.Execute(u"DELETE FROM Prodotti"_qs);
  EXPECT_EQ(Rows(u"PExtension"_qs), 0);
}

TEST_F(ExtensionTest, AFaultyRowIsToldAndNothingStored) {
  AddProduct(u"A"_qs);
  connection.Execute(u"INSERT INTO Extensions (ExtensionName, C, P) VALUES ('broken', FALSE, FALSE)"_qs);
  try {
    SetExtension(u"broken"_qs, u"1"_qs, 1, u"A"_qs, connection);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Description(), u"Error in Extensions table. Please contact technical support"_qs);
  }
  EXPECT_EQ(Rows(u"PExtension"_qs) + Rows(u"CExtension"_qs), 0);
}

TEST_F(ExtensionTest, PluginsReadAndWriteThroughTheirInterface) {
  AddProduct(u"A"_qs, NullValue());
  PluginConnection plugin(connection);
  EXPECT_EQ(plugin.DataSource(), QDir::toNativeSeparators(QFileInfo(Path()).absoluteFilePath()));
  plugin.BeginTrans();
  plugin.Execute(u"UPDATE Prodotti SET Valore1=?"_qs, {u"12"_qs});
  plugin.RollbackTrans();
  const auto rows =
      plugin.Open(u"SELECT CodiceProdotto, Valore1, Pubblica FROM Prodotti WHERE IDCatalogo=?"_qs, {1});
  ASSERT_TRUE(rows->Next());
  EXPECT_EQ(rows->ColumnCount(), 3);
  EXPECT_EQ(rows->Value(u"CODICEPRODOTTO"_qs), QVariant(u"A"_qs));
  EXPECT_TRUE(rows->Value(1).isNull());
  EXPECT_EQ(rows->Value(2), QVariant(true));
  EXPECT_THROW(rows->Value(u"nothing"_qs), Error);
  EXPECT_FALSE(rows->Next());
  EXPECT_FALSE(rows->Next());
  EXPECT_THROW(rows->Value(0), Error);
}
