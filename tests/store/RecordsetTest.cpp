#include "store/Recordset.h"

#include "base/Error.h"
#include "base/Helpers.h"
#include "support/Print.h"
#include "support/StoreFixture.h"
#include "support/WritingConnection.h"

using namespace vorlina;

namespace {

class RecordsetTest : public StoreFixture {
 protected:
  RecordsetTest() : catalog_(AddCatalog(u"Uno"_qs)) {
    for (const QString& code : {u"C"_qs, u"A"_qs, u"B"_qs}) AddProduct(catalog_, code, 1);
    AddProduct(AddCatalog(u"Due"_qs), u"A"_qs, 7);
  }

  Recordset OpenProducts(CursorType cursor = CursorType::Keyset,
                         const QString& tail = u"ORDER BY CodiceProdotto"_qs) {
    Recordset products;
    products.Open(
        u"SELECT Prodotti.CodiceProdotto As [Codice], Descrizione, Pubblica, OrdineTemp As [Ordine] "
        "FROM Prodotti WHERE Prodotti.IDCATALOGO=? "_qs +
            tail,
        connection_, cursor, LockType::Optimistic, {catalog_});
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

TEST_F(RecordsetTest, WalksItsRowsInOrderAndKnowsItsEnds) {
  for (const CursorType cursor : {CursorType::Keyset, CursorType::Static}) {
    Recordset products = OpenProducts(cursor);
    EXPECT_EQ(products.RecordCount(), 3);
    EXPECT_EQ(CodesOf(products), u"A B C"_qs);
    EXPECT_TRUE(products.IsEOF());
    EXPECT_FALSE(products.IsBOF());
    EXPECT_THROW(products.Value(u"Codice"_qs), Error);
    products.MovePrevious();
    EXPECT_EQ(products.Value(u"codice"_qs), u"C"_qs);
    EXPECT_EQ(products.Value(u"PUBBLICA"_qs).typeId(), QMetaType::Bool);
    EXPECT_TRUE(products.Value(u"Descrizione"_qs).isNull());
    products.MoveFirst();
    products.MovePrevious();
    EXPECT_TRUE(products.IsBOF());
    EXPECT_THROW(products.Value(u"nowhere"_qs), Error);
  }
  Recordset forward;
  forward.Open(u"SELECT COUNT(*) As n FROM Prodotti"_qs, connection_, CursorType::Forward,
               LockType::ReadOnly);
  EXPECT_EQ(forward.Value(u"n"_qs), 4);
  forward.MoveNext();
  EXPECT_TRUE(forward.IsEOF());
}

TEST_F(RecordsetTest, AnEmptyRecordsetIsAtBothEnds) {
  Recordset none;
  none.Open(u"SELECT * FROM CATALOGHI WHERE 1=2"_qs, connection_, CursorType::Keyset, LockType::Optimistic);
  EXPECT_TRUE(none.IsBOF() && none.IsEOF());
  EXPECT_THROW(none.Value(u"IDCatalogo"_qs), Error);
  none.MoveFirst();
  EXPECT_TRUE(none.IsEOF());
}

TEST_F(RecordsetTest, PagesBookmarksFindAndFilter) {
  Recordset products = OpenProducts();
  products.SetPageSize(2);
  EXPECT_EQ(products.PageCount(), 2);
  products.SetAbsolutePage(2);
  EXPECT_EQ(products.Value(u"Codice"_qs), u"C"_qs);
  EXPECT_EQ(products.AbsolutePage(), 2);
  EXPECT_EQ(products.AbsolutePosition(), 3);
  const qint64 atC = products.Bookmark();
  products.MoveFirst();
  products.Requery();
  products.SetBookmark(atC);
  EXPECT_EQ(products.Value(u"Codice"_qs), u"C"_qs);

  products.MoveFirst();
  EXPECT_TRUE(products.Find(u"Codice"_qs, u"b"_qs)) << "codes compare without regard to case";
  EXPECT_EQ(products.AbsolutePosition(), 2);
  EXPECT_FALSE(products.Find(u"Codice"_qs, u"B"_qs, 1));
  EXPECT_TRUE(products.IsEOF());
  products.MoveLast();
  EXPECT_TRUE(products.Find(u"Codice"_qs, u"A"_qs, 0, false));

  products.SetFilter(u"Codice"_qs, u"C"_qs);
  EXPECT_EQ(CodesOf(products), u"C"_qs);
  products.ClearFilter();
  EXPECT_EQ(products.RecordCount(), 3);
}

// The names of values and filters are aliases: whatever a user can type there must read and write its column.
TEST_F(RecordsetTest, AliasesWithAnyCharacterLeadToTheirColumn) {
  for (const QString& alias : {u"Cod\\046 art\\046"_qs, u"d'uso"_qs, u"a \"b\" c"_qs,
                               u"Largh (cm) WHERE 1"_qs, u"FROM"_qs, u"È €"_qs, u"a;b--c"_qs, u"\\\\"_qs}) {
    Recordset products;
    products.Open(
        u"SELECT CodiceProdotto, Valore1 As ["_qs + alias + u"] FROM Prodotti WHERE IDCatalogo=1"_qs,
        connection_, CursorType::Keyset, LockType::Optimistic);
    products.SetValue(alias, alias);
    products.Update();
    EXPECT_EQ(
        One(u"Valore1"_qs, u"Prodotti"_qs, u"CodiceProdotto=? AND IDCatalogo=1"_qs, {products.Value(0)}),
        alias);
  }
}

TEST_F(RecordsetTest, WritesValuesOfEveryKindAndKeepsTheOthers) {
  Recordset products = OpenProducts();
  const QString text = u"L'\"età\" 100% — 🙂"_qs;
  products.SetValue(u"Descrizione"_qs, text);
  products.SetValue(u"Pubblica"_qs, false);
  EXPECT_EQ(products.Value(u"Descrizione"_qs), text);
  products.MoveNext();  // leaving a row writes it
  products.SetValue(u"Descrizione"_qs, u"given up"_qs);
  products.CancelUpdate();
  EXPECT_TRUE(products.Value(u"Descrizione"_qs).isNull());
  products.MoveFirst();
  EXPECT_EQ(products.Value(u"Descrizione"_qs), text);
  EXPECT_EQ(products.Value(u"Pubblica"_qs), false);
  EXPECT_EQ(products.Value(u"Ordine"_qs), 1);
  products.SetValue(u"Ordine"_qs, NullValue());
  products.Update();
  EXPECT_TRUE(
      One(u"OrdineTemp"_qs, u"Prodotti"_qs, u"IDCatalogo=? AND CodiceProdotto='a'"_qs, {catalog_}).isNull());
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

TEST_F(RecordsetTest, ACodeInUseIsToldAndTheRowStaysInEdit) {
  Recordset products = OpenProducts();
  products.SetValue(u"Codice"_qs, u"b"_qs);
  try {
    products.Update();
    ADD_FAILURE() << "written";
  } catch (const Error& error) {
    EXPECT_TRUE(error.Description().contains(u"CodiceProdotto")) << error.Description();
  }
  EXPECT_EQ(products.Value(u"Codice"_qs), u"b"_qs);
  products.SetValue(u"Codice"_qs, u"Z"_qs);
  products.Update();
  EXPECT_EQ(products.Value(u"Codice"_qs), u"Z"_qs);
}

TEST_F(RecordsetTest, DeletingGoesOnWithTheRowBehind) {
  Recordset products = OpenProducts();
  Recordset clone = products.Clone();
  clone.MoveLast();
  products.MoveNext();
  products.Delete();
  EXPECT_THROW(products.Value(u"Codice"_qs), Error);
  products.MoveNext();
  EXPECT_EQ(products.Value(u"Codice"_qs), u"C"_qs);
  EXPECT_EQ(products.RecordCount(), 2);
  EXPECT_EQ(clone.Value(u"Codice"_qs), u"C"_qs) << "a clone keeps its row";
  EXPECT_EQ(clone.AbsolutePosition(), 2);
  products.Delete();
  products.MoveNext();
  EXPECT_TRUE(products.IsEOF());
  EXPECT_EQ(CodesOf(products), u"A"_qs);
}

TEST_F(RecordsetTest, CountersAreKnownAtOnceAndNeverGivenTwice) {
  Recordset pictures;
  pictures.Open(u"SELECT * FROM IMMAGINI WHERE 1=2"_qs, connection_, CursorType::Keyset,
                LockType::Optimistic);
  QList<qint64> given;
  const auto add = [&](Recordset& rows) {
    rows.AddNew();
    rows.SetValue(u"IDCatalogo"_qs, catalog_);
    rows.SetValue(u"CodiceProdotto"_qs, u"A"_qs);
    given += rows.Value(u"IDImmagine"_qs).toLongLong();
  };
  add(pictures);
  pictures.Update();
  EXPECT_EQ(pictures.Value(u"IDImmagine"_qs), given.last());
  EXPECT_THROW(pictures.SetValue(u"IDImmagine"_qs, 99), Error);

  add(pictures);
  pictures.CancelUpdate();
  connection_.BeginTrans();
  add(pictures);
  pictures.Update();
  connection_.RollbackTrans();
  WritingConnection other;
  other.Open(connection_.ConnectionText());
  Recordset theirs;
  theirs.Open(u"SELECT * FROM IMMAGINI"_qs, other, CursorType::Keyset, LockType::Optimistic);
  add(theirs);
  add(pictures);
  theirs.Update();
  pictures.Update();
  connection_.Execute(u"DELETE FROM Immagini"_qs);
  add(pictures);
  pictures.Update();
  connection_.Execute(u"INSERT INTO Immagini (IDCatalogo,CodiceProdotto) VALUES (?,'A')"_qs, {catalog_});
  given += connection_.LastInsertId();
  EXPECT_EQ(QSet<qint64>(given.begin(), given.end()).size(), given.size());
  EXPECT_TRUE(std::is_sorted(given.begin(), given.end()));
}

TEST_F(RecordsetTest, ANumberOfARolledBackRowIsNotGivenToAnotherProgram) {
  const auto next = [&] {
    WritingConnection other;
    other.Open(connection_.ConnectionText());
    return GetValue(u"seq"_qs, u"sqlite_sequence"_qs, other, u"name='Immagini'"_qs).toInt() + 1;
  };
  Recordset pictures;
  pictures.Open(u"SELECT * FROM IMMAGINI WHERE 1=2"_qs, connection_, CursorType::Keyset,
                LockType::Optimistic);
  connection_.BeginTrans();
  pictures.AddNew();
  const int given = pictures.Value(u"IDImmagine"_qs).toInt();
  connection_.RollbackTrans();
  EXPECT_GT(next(), given);
}

TEST_F(RecordsetTest, AColumnOfNumbersTakesNumbersAlone) {
  Recordset products = OpenProducts();
  for (const auto& [field, value] :
       {std::pair(u"Ordine"_qs, u"first"_qs), std::pair(u"Pubblica"_qs, u""_qs),
        std::pair(u"Ordine"_qs, u"-inf"_qs), std::pair(u"Ordine"_qs, u"nan"_qs),
        std::pair(u"Ordine"_qs, u"0x1p3"_qs), std::pair(u"Ordine"_qs, u"1e999"_qs)}) {
    EXPECT_THROW(
        {
          products.SetValue(field, value);
          products.Update();
        },
        Error)
        << value;
    products.CancelUpdate();
  }
  products.SetValue(u"Ordine"_qs, u" 12 "_qs);
  products.Update();
  EXPECT_EQ(One(u"SUM(typeof(OrdineTemp)='integer' AND typeof(Pubblica)='integer')"_qs, u"Prodotti"_qs), 4);
}

TEST_F(RecordsetTest, ANewRowTakesTheTablesDefaults) {
  Recordset products = OpenProducts();
  products.AddNew();
  EXPECT_TRUE(products.Value(u"Codice"_qs).isNull());
  EXPECT_THROW(products.Update(), Error) << "a product needs its catalog";
  products.CancelUpdate();
  Recordset all;
  all.Open(u"SELECT * FROM PRODOTTI"_qs, connection_, CursorType::Keyset, LockType::Optimistic);
  all.AddNew();
  all.SetValue(u"IDCatalogo"_qs, catalog_);
  all.SetValue(u"CodiceProdotto"_qs, u"N"_qs);
  all.Update();
  EXPECT_EQ(all.Value(u"Pubblica"_qs), true);
  EXPECT_EQ(all.Value(u"SchedaTecnica"_qs), false);
  EXPECT_TRUE(all.Value(u"OrdineTemp"_qs).isNull());
  EXPECT_EQ(all.AbsolutePosition(), all.RecordCount());
}

TEST_F(RecordsetTest, WhatHasNoRowsOfOneTableIsNotLive) {
  const QString joined = u"SELECT Prodotti.CodiceProdotto, NomeCatalogo FROM Prodotti, Cataloghi"_qs;
  for (const QString& sql : {joined, u"SELECT DISTINCT IDCatalogo FROM Prodotti"_qs,
                             u"SELECT IDCatalogo, COUNT(*) FROM Prodotti GROUP BY IDCatalogo"_qs}) {
    Recordset rows;
    EXPECT_THROW(rows.Open(sql, connection_, CursorType::Keyset, LockType::Optimistic), Error) << sql;
    EXPECT_FALSE(rows.IsOpen());
    rows.Open(sql, connection_, CursorType::Static, LockType::Optimistic);
    EXPECT_GT(rows.RecordCount(), 0);
    EXPECT_THROW(rows.SetValue(0, 1), Error);
  }
}

TEST_F(RecordsetTest, AnOrderOfItsOwnComesBeforeTheSourcesOne) {
  connection_.Execute(u"UPDATE Prodotti SET Valore1=CASE CodiceProdotto WHEN 'B' THEN 'x' ELSE 'y' END"_qs);
  struct {
    QString tail;
    QString codes;
  } const cases[] = {{u"ORDER BY CodiceProdotto DESC"_qs, u"B C A"_qs}, {u"LIMIT 2"_qs, u"B C"_qs}};
  for (const auto& test : cases) {
    Recordset products = OpenProducts(CursorType::Keyset, test.tail);
    products.SetOrder(u"Valore1"_qs);
    products.Requery();
    EXPECT_EQ(CodesOf(products), test.codes);
    EXPECT_THROW(products.SetOrder(u"nothing"_qs), Error);
    EXPECT_EQ(CodesOf(products), test.codes) << "as before";
    products.SetOrder({});
    EXPECT_NE(CodesOf(products), test.codes);
  }
  Recordset products = OpenProducts();
  products.SetOrder(u"VORLINA_RANK(?,IDFiltro1)"_qs, {QByteArray("short")});
  Recordset unsorted = OpenProducts();
  EXPECT_EQ(CodesOf(products), CodesOf(unsorted)) << "ranks that are none";
}

TEST_F(RecordsetTest, FetchesRowsApartFromTheCurrentOne) {
  for (int i = 0; i < 200; ++i) AddProduct(catalog_, u"n%1"_qs.arg(i, 3, 10, QChar(u'0')));
  Recordset products = OpenProducts(CursorType::Keyset, u"ORDER BY CodiceProdotto DESC"_qs);
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

// What is in edit in one clone goes to its row or nowhere, whatever another one adds or deletes meanwhile.
TEST_F(RecordsetTest, AnEditStaysWithItsRow) {
  Recordset products = OpenProducts();
  Recordset clone = products.Clone();
  products.SetAbsolutePosition(2);
  products.SetValue(u"Descrizione"_qs, u"of B"_qs);
  clone.Delete();
  products.Update();
  EXPECT_EQ(One(u"Descrizione"_qs, u"Prodotti"_qs, u"CodiceProdotto='B'"_qs), u"of B"_qs);
  products.SetValue(u"Descrizione"_qs, u"mine"_qs);
  clone.MoveFirst();
  clone.Delete();
  EXPECT_THROW(products.Update(), Error);
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"Descrizione='mine'"_qs), 0);
}
