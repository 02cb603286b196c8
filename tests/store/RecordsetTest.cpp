#include "store/Recordset.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "support/Print.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class RecordsetTest : public StoreFixture {
 protected:
  RecordsetTest() : catalog_(AddCatalog(u"Uno"_qs)) {
    for (const QString& code : {u"C"_qs, u"A"_qs, u"B"_qs}) AddProduct(catalog_, code, 1);
    AddProduct(AddCatalog(u"Due"_qs), u"A"_qs, 7);
  }

  Recordset OpenProducts(const QString& order = u"CodiceProdotto"_qs) {
    Recordset products;
    products.Open({u"CodiceProdotto As [Codice], Descrizione, Pubblica, OrdineTemp As [Ordine]"_qs,
                   u"Prodotti"_qs,
                   u"IDCATALOGO=?"_qs,
                   order,
                   {catalog_}},
                  connection_);
    return products;
  }
  static QString CodesOf(Recordset& products) {
    QStringList codes;
    for (products.MoveFirst(); !products.IsEOF(); products.MoveNext())
      codes += products.Value(u"Codice"_qs).toString();
    return codes.join(u' ');
  }

  int catalog_;
};

}  // namespace

// The names of values and filters are aliases: whatever a user can type there must read and write its column.
TEST_F(RecordsetTest, AliasesWithAnyCharacterLeadToTheirColumn) {
  for (const QString& alias : {u"Cod\\046 art\\046"_qs, u"d'uso"_qs, u"a \"b\" c"_qs,
                               u"Largh (cm) WHERE 1"_qs, u"FROM"_qs, u"È €"_qs, u"a;b--c"_qs, u"\\\\"_qs}) {
    Recordset products;
    products.Open(
        {u"CodiceProdotto, Valore1 As "_qs + QuoteName(alias), u"Prodotti"_qs, u"IDCatalogo=1"_qs, {}, {}},
        connection_);
    products.SetValue(alias, alias);
    products.Update();
    EXPECT_EQ(
        One(u"Valore1"_qs, u"Prodotti"_qs, u"CodiceProdotto=? AND IDCatalogo=1"_qs, {products.Value(0)}),
        alias);
  }
}

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
  products.SetValue(u"Codice"_qs, u"A2"_qs);
  other.Execute(u"UPDATE Prodotti SET CodiceProdotto='a' WHERE IDCatalogo=? AND CodiceProdotto='A'"_qs,
                {catalog_});
  EXPECT_THROW(products.Update(), Error);
  products.CancelUpdate();

  products.SetValue(u"Descrizione"_qs, u"mine"_qs);
  other.Execute(u"DELETE FROM Prodotti WHERE IDCatalogo=? AND CodiceProdotto='a'"_qs, {catalog_});
  EXPECT_THROW(products.Update(), Error);
  products.CancelUpdate();
  EXPECT_FALSE(products.RowExists());
  EXPECT_THROW(products.Value(u"Codice"_qs), Error);
  products.MoveNext();
  EXPECT_EQ(products.Value(u"Codice"_qs), u"B"_qs);
}

TEST_F(RecordsetTest, CountersAreKnownAtOnceAndNeverGivenTwice) {
  const auto open = [](Connection& connection) {
    Recordset pictures;
    pictures.Open({.table = u"Immagini"_qs}, connection);
    return pictures;
  };
  Recordset pictures = open(connection_);
  QList<qint64> given;
  const auto add = [&](Recordset& rows) {
    rows.AddNew();
    rows.SetValue(u"IDCatalogo"_qs, catalog_);
    rows.SetValue(u"CodiceProdotto"_qs, u"A"_qs);
    given += rows.Value(u"IDImmagine"_qs).toLongLong();
  };
  add(pictures);
  pictures.Update();
  EXPECT_THROW(pictures.SetValue(u"IDImmagine"_qs, 99), Error);
  add(pictures);
  pictures.CancelUpdate();
  connection_.BeginTrans();
  add(pictures);
  pictures.Update();
  connection_.RollbackTrans();
  Connection other;
  other.Open(connection_.ConnectionText());
  Recordset theirs = open(other);
  add(theirs);
  add(pictures);
  theirs.Update();
  pictures.Update();
  connection_.Execute(u"DELETE FROM Immagini"_qs);
  add(pictures);
  EXPECT_EQ(QSet<qint64>(given.begin(), given.end()).size(), given.size());
  EXPECT_TRUE(std::is_sorted(given.begin(), given.end()));
}

TEST_F(RecordsetTest, AColumnOfNumbersTakesNumbersAlone) {
  Recordset products = OpenProducts();
  for (const auto& [field, value] :
       {std::pair(u"Ordine"_qs, u"first"_qs), std::pair(u"Pubblica"_qs, u""_qs),
        std::pair(u"Ordine"_qs, u"-inf"_qs), std::pair(u"Ordine"_qs, u"nan"_qs),
        std::pair(u"Ordine"_qs, u"0x1p3"_qs), std::pair(u"Ordine"_qs, u"1e999"_qs)})
    EXPECT_THROW(products.SetValue(field, value), Error) << value;
  EXPECT_EQ(products.Editing(), EditMode::None);
  products.SetValue(u"Ordine"_qs, u" 12 "_qs);
  products.Update();
  EXPECT_EQ(One(u"SUM(typeof(OrdineTemp)='integer' AND typeof(Pubblica)='integer')"_qs, u"Prodotti"_qs), 4);
}

TEST_F(RecordsetTest, ANewRowThatIsGivenUpWritesNothing) {
  Recordset products = OpenProducts();
  const qint64 mark = products.ChangeMark();
  products.AddNew();
  EXPECT_EQ(products.ChangeMark(), mark) << "nothing is written for a counter that is not shown";
  EXPECT_THROW(products.Update(), Error) << "a product needs its catalog";
}

TEST_F(RecordsetTest, AnOrderOfItsOwnComesBeforeTheQuerysOne) {
  connection_.Execute(u"UPDATE Prodotti SET Valore1=CASE CodiceProdotto WHEN 'B' THEN 'x' ELSE 'y' END"_qs);
  Recordset products = OpenProducts(u"CodiceProdotto DESC"_qs);
  products.SetOrder(u"Valore1"_qs);
  products.Requery();
  EXPECT_EQ(CodesOf(products), u"B C A"_qs);
  EXPECT_THROW(products.SetOrder(u"nothing"_qs), Error);
  EXPECT_EQ(CodesOf(products), u"B C A"_qs) << "as before";
  products.SetOrder(u"VORLINA_RANK(?,IDFiltro1)"_qs, {QByteArray("short")});
  EXPECT_EQ(CodesOf(products), u"C B A"_qs) << "ranks that are none";
}

TEST_F(RecordsetTest, FetchesRowsApartFromTheCurrentOne) {
  for (int i = 0; i < 200; ++i) AddProduct(catalog_, u"n%1"_qs.arg(i, 3, 10, QChar(u'0')));
  Recordset products = OpenProducts(u"CodiceProdotto DESC"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='n150'"_qs);
  const std::vector<FetchedRow> rows = products.FetchRows(2, 1000);
  ASSERT_EQ(rows.size(), 202u);
  EXPECT_EQ(rows[0].values.at(0), u"n198"_qs);
  EXPECT_EQ(rows[0].bookmark, products.BookmarkAt(2));
  EXPECT_FALSE(rows[48].exists);
  EXPECT_EQ(rows[201].values.at(0), u"A"_qs);
  EXPECT_EQ(products.PositionOf(rows[201].bookmark), 203);
  EXPECT_EQ(products.Value(0), u"n199"_qs);
  EXPECT_TRUE(products.FetchRows(500, 5).empty());
}

// What is in edit in one clone goes to its row or nowhere, whatever another one deletes meanwhile.
TEST_F(RecordsetTest, AnEditStaysWithItsRow) {
  Recordset products = OpenProducts();
  Recordset clone = products.Clone();
  const auto deleteFirst = [&] {
    const std::vector<qint64> first{clone.BookmarkAt(1)};
    clone.DeleteRows(first, {});
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
