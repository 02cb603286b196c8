#include "store/Recordset.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class RecordsetTest : public StoreFixture {
 protected:
  RecordsetTest() : catalog_(AddCatalog(u"Uno"_qs)) {
    for (const QString& code : {u"C"_qs, u"A"_qs, u"B"_qs}) AddProduct(catalog_, code, 1);
    AddProduct(AddCatalog(u"Due"_qs), u"A"_qs, 7);
  }

  Recordset OpenProducts() {
    Recordset products;
    products.Open({u"CodiceProdotto As [Codice], Descrizione, Pubblica, OrdineTemp As [Ordine]"_qs,
                   u"Prodotti"_qs,
                   u"IDCATALOGO=?"_qs,
                   u"CodiceProdotto"_qs,
                   {catalog_}},
                  connection_);
    return products;
  }

  int catalog_;
};

}  // namespace

TEST_F(RecordsetTest, NobodysChangeIsOverwrittenUnseen) {
  Recordset products = OpenProducts();
  products.SetValue(u"Descrizione"_qs, u"mine"_qs);
  WritingConnection other;
  other.Open(connection_.ConnectionText());
  other.Execute(u"UPDATE Prodotti SET Descrizione='theirs' WHERE IDCatalogo=? AND CodiceProdotto='A'"_qs,
                {catalog_});
  EXPECT_THROW(products.Update(), Error);
  EXPECT_EQ(products.Editing(), EditMode::InProgress) << "the row stays in edit";
  products.CancelUpdate();
  EXPECT_EQ(products.Value(u"Descrizione"_qs), u"theirs"_qs);

  // A change of letter case is a change, in a column that compares without regard to it as well.
  for (const QString& sql : {u"UPDATE Prodotti SET CodiceProdotto='a'"_qs, u"DELETE FROM Prodotti"_qs}) {
    products.SetValue(u"Codice"_qs, u"A2"_qs);
    other.Execute(sql + u" WHERE IDCatalogo=? AND CodiceProdotto='A'"_qs, {catalog_});
    EXPECT_THROW(products.Update(), Error) << sql;
    products.CancelUpdate();
  }
}

TEST_F(RecordsetTest, CountersAreKnownAtOnceAndNeverGivenTwice) {
  Connection other;
  other.Open(connection_.ConnectionText());
  Recordset ours;
  Recordset theirs;
  ours.Open({.table = u"Immagini"_qs}, connection_);
  theirs.Open({.table = u"Immagini"_qs}, other);
  QList<qint64> given;
  const auto add = [&](Recordset& rows) {
    rows.AddNew();
    rows.SetValue(u"IDCatalogo"_qs, catalog_);
    rows.SetValue(u"CodiceProdotto"_qs, u"A"_qs);
    given += rows.Value(u"IDImmagine"_qs).toLongLong();
  };
  add(ours);
  ours.CancelUpdate();
  connection_.BeginTrans();
  add(ours);
  ours.Update();
  connection_.RollbackTrans();
  add(theirs);
  add(ours);
  theirs.Update();
  ours.Update();
  EXPECT_THROW(ours.SetValue(u"IDImmagine"_qs, 99), Error);
  connection_.Execute(u"DELETE FROM Immagini"_qs);
  add(ours);
  EXPECT_EQ(QSet<qint64>(given.begin(), given.end()).size(), given.size());
  EXPECT_TRUE(std::is_sorted(given.begin(), given.end()));
}

TEST_F(RecordsetTest, AColumnOfNumbersTakesNumbersAlone) {
  Recordset products = OpenProducts();
  for (const QString& value : {u"first"_qs, u""_qs, u"-inf"_qs, u"nan"_qs, u"0x1p3"_qs, u"1e999"_qs})
    EXPECT_THROW(products.SetValue(u"Pubblica"_qs, value), Error) << value;
  EXPECT_THROW(products.SetValue(u"Ordine"_qs, u"1e999"_qs), Error);
  products.SetValue(u"Ordine"_qs, u" 12 "_qs);
  products.Update();
  EXPECT_EQ(One(u"SUM(typeof(OrdineTemp)='integer')"_qs, u"Prodotti"_qs), 4);
}

// What is in edit in one clone goes to its row or nowhere, whatever another one deletes meanwhile.
TEST_F(RecordsetTest, AnEditStaysWithItsRow) {
  Recordset products = OpenProducts();
  Recordset clone = products.Clone();
  const auto deleteFirst = [&] {
    const std::vector<qint64> first{clone.BookmarkAt(1)};
    clone.DeleteRows(first);
    clone.DropRows(first);
  };
  products.SetAbsolutePosition(2);
  products.SetValue(u"Descrizione"_qs, u"of B"_qs);
  deleteFirst();
  products.Update();
  EXPECT_EQ(One(u"Descrizione"_qs, u"Prodotti"_qs, u"CodiceProdotto='B'"_qs), u"of B"_qs);
  EXPECT_EQ(products.Value(u"Codice"_qs), u"B"_qs);
  products.SetValue(u"Descrizione"_qs, u"mine"_qs);
  deleteFirst();
  EXPECT_THROW(products.Update(), Error);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"Descrizione='mine'"_qs), 0);
}
