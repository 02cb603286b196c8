#include "store/Recordset.h"

#include <QLocale>

#include "base/Helpers.h"
#include "store/Quoting.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class RecordsetTest : public StoreFixture {
 protected:
  void OpenProducts(Recordset& rows, CursorType cursor = CursorType::Keyset) {
    rows.Open(
        u"SELECT CodiceProdotto As [Codice], Descrizione, Pubblica, Prodotti.[OrdineTemp] as [Ordine],"
        u" Prodotti.IDCatalogo as _IDCatalogo FROM Prodotti WHERE Prodotti.IDCATALOGO=? ORDER BY Codice"_qs,
        connection, cursor, LockType::Optimistic, {1});
  }

  QStringList Codes(Recordset& rows) {
    QStringList codes;
    for (rows.MoveFirst(); !rows.IsEOF(); rows.MoveNext()) codes += rows.Value(u"CODICE"_qs).toString();
    return codes;
  }
};

}  // namespace

TEST_F(RecordsetTest, EveryCursorWalksTheRowsWithTypesAndNull) {
  AddProduct(u"B'1"_qs, NullValue());
  AddProduct(u"a%"_qs);
  AddProduct(u"😀"_qs, u""_qs);
  for (const CursorType cursor : {CursorType::Forward, CursorType::Keyset, CursorType::Static}) {
    Recordset rows;
    OpenProducts(rows, cursor);
    EXPECT_EQ(Codes(rows), QStringList({u"a%"_qs, u"B'1"_qs, u"😀"_qs}));
    EXPECT_TRUE(rows.IsEOF());
    EXPECT_FALSE(rows.IsBOF());
    rows.Requery();
    rows.MoveNext();
    EXPECT_TRUE(rows.Value(u"descrizione"_qs).isNull());
    EXPECT_TRUE(rows.Value(u"Descrizione"_qs).isValid());
    EXPECT_EQ(rows.Value(u"pubblica"_qs).typeId(), int(QMetaType::Bool));
    EXPECT_EQ(rows.BaseColumn(u"Ordine"_qs), u"OrdineTemp"_qs);
  }
}

TEST_F(RecordsetTest, AnEmptyRecordsetIsAtBothEnds) {
  Recordset rows;
  rows.Open(u"SELECT * FROM IMMAGINI WHERE 1=2"_qs, connection, CursorType::Keyset, LockType::Optimistic);
  EXPECT_TRUE(rows.IsBOF() && rows.IsEOF());
  EXPECT_EQ(FaultOf([&] { rows.Value(u"Immagine"_qs); }), StoreFault::NoCurrentRow);
  EXPECT_EQ(FaultOf([&] { rows.MoveNext(); }), StoreFault::NoCurrentRow);
  EXPECT_EQ(FaultOf([&] { rows.Delete(); }), StoreFault::NoCurrentRow);
}

TEST_F(RecordsetTest, AliasesWithEveryCharacterReachTheirColumns) {
  AddProduct(u"A"_qs);
  const QString names[] = {u"Cod\\046 art\\046"_qs, u"a\"b"_qs, u"a]b[c"_qs, u"l'arte"_qs,  u"Select"_qs,
                           u"a, b FROM c"_qs,       u"?"_qs,    u"`x`"_qs,   u"Größe 😀"_qs, u"-- x"_qs};
  for (const QString& name : names) {
    Recordset rows;
    rows.Open(
        u"SELECT Prodotti.CodiceProdotto As [Codice], Prodotti.Valore1 As %1 FROM Prodotti"
        u" WHERE Prodotti.IDCATALOGO=1"_qs.arg(QuotedName(name)),
        connection, CursorType::Keyset, LockType::Optimistic);
    EXPECT_EQ(rows.FieldNames(), QStringList({u"Codice"_qs, name}));
    EXPECT_EQ(rows.BaseColumn(name), u"Valore1"_qs);
    rows.SetValue(name, name);
    rows.Update();
    EXPECT_EQ(Get(u"Valore1"_qs, u"Prodotti"_qs), QVariant(name));
    EXPECT_TRUE(rows.Find(name, name)) << name;
  }
  Recordset rows;
  rows.Open(u"SELECT Valore1 As [Cod\\046 \"x\"] FROM Prodotti"_qs, connection, CursorType::Keyset);
  EXPECT_EQ(rows.BaseColumn(u"COD\\046 \"X\""_qs), u"Valore1"_qs);
}

TEST_F(RecordsetTest, ChangesAreSeenWhenARowIsLookedAt) {
  for (int i = 0; i < 200; ++i) AddProduct(u"P%1"_qs.arg(i, 3, 10, QChar(u'0')));
  Recordset rows;
  OpenProducts(rows);
  EXPECT_EQ(rows.RecordCount(), 200);
  EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"x"_qs));
  connection.Execute(
      u"UPDATE Prodotti SET Descrizione='y'; DELETE FROM Prodotti WHERE CodiceProdotto='P001'"_qs);
  EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"y"_qs));
  rows.MoveNext();
  EXPECT_EQ(rows.Status(), RowStatus::Deleted);
  EXPECT_EQ(FaultOf([&] { rows.Value(u"Codice"_qs); }), StoreFault::RowDeleted);
  EXPECT_EQ(FaultOf([&] { rows.SetValue(u"Descrizione"_qs, u"z"_qs); }), StoreFault::RowDeleted);
  rows.MoveNext();
  EXPECT_EQ(rows.Value(u"Codice"_qs), QVariant(u"P002"_qs));
  rows.Requery();
  EXPECT_EQ(rows.RecordCount(), 199);
}

TEST_F(RecordsetTest, NobodysChangeIsOverwrittenUnseen) {
  AddProduct(u"A"_qs, NullValue());
  Recordset rows;
  OpenProducts(rows);
  Connection other;
  other.Open(connection.ConnectionText());
  rows.SetValue(u"Descrizione"_qs, u"mine"_qs);
  // Another column of the same row is nobody's conflict.
  other.Execute(u"UPDATE Prodotti SET Valore1='theirs'"_qs);
  rows.Update();
  rows.SetValue(u"Descrizione"_qs, u"mine again"_qs);
  other.Execute(u"UPDATE Prodotti SET Descrizione='MINE'"_qs);
  EXPECT_EQ(FaultOf([&] { rows.Update(); }), StoreFault::Conflict);
  EXPECT_EQ(rows.Mode(), EditMode::InProgress);
  EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"mine again"_qs));
  EXPECT_EQ(rows.OriginalValue(u"Descrizione"_qs), QVariant(u"mine"_qs));
  rows.Refresh();
  EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"MINE"_qs));
  rows.SetValue(u"Descrizione"_qs, u"now"_qs);
  rows.Update();
  // Another product under the same internal key, with an equal value, is not written to.
  rows.SetValue(u"Descrizione"_qs, u"lost"_qs);
  other.Execute(u"DELETE FROM Prodotti"_qs);
  other.Execute(u"INSERT INTO Prodotti (IDCatalogo, CodiceProdotto, Descrizione) VALUES (1, 'B', 'now')"_qs);
  EXPECT_EQ(FaultOf([&] { rows.Update(); }), StoreFault::Conflict);
  EXPECT_EQ(Get(u"Descrizione"_qs, u"Prodotti"_qs), QVariant(u"now"_qs));
}

TEST_F(RecordsetTest, ANewRowHasItsNumberAtOnceAndBecomesCurrent) {
  AddProduct(u"A"_qs);
  Recordset rows;
  rows.Open(u"SELECT * FROM IMMAGINI WHERE 1=2"_qs, connection, CursorType::Keyset, LockType::Optimistic);
  rows.AddNew();
  EXPECT_EQ(rows.Value(u"IDImmagine"_qs), QVariant(1LL));
  rows.CancelUpdate();
  EXPECT_TRUE(rows.IsEmpty());
  rows.AddNew();
  EXPECT_EQ(rows.Value(u"IDImmagine"_qs), QVariant(2LL));
  rows.SetValue(u"idcatalogo"_qs, u"1"_qs);
  EXPECT_EQ(FaultOf([&] { rows.Update(); }), StoreFault::Constraint);
  rows.SetValue(u"CodiceProdotto"_qs, u"a"_qs);
  rows.Update();
  EXPECT_EQ(rows.Mode(), EditMode::None);
  EXPECT_EQ(rows.RecordCount(), 1);
  EXPECT_EQ(rows.Value(u"IDImmagine"_qs), QVariant(2LL));
  rows.SetValue(u"Descrizione"_qs, u"later"_qs);
  rows.Update();
  EXPECT_EQ(Get(u"Descrizione"_qs, u"Immagini"_qs, u"IDImmagine=2"_qs), QVariant(u"later"_qs));
  // Not even the deleted last row gives its number back.
  rows.Delete();
  rows.AddNew();
  EXPECT_EQ(rows.Value(u"IDImmagine"_qs), QVariant(3LL));
}

TEST_F(RecordsetTest, ADuplicateCodeIsToldByName) {
  AddProduct(u"A'1"_qs);
  Recordset rows;
  OpenProducts(rows);
  rows.AddNew();
  rows.SetValue(u"Codice"_qs, u"a'1"_qs);
  rows.SetValue(u"_IDCatalogo"_qs, 1);
  try {
    rows.MoveFirst();
    FAIL() << "leaving a row saves it";
  } catch (const StoreError& error) {
    EXPECT_EQ(error.Description(),
              u"A product with the same code already exists in this catalog: \"a'1\""_qs);
  }
  EXPECT_EQ(rows.Mode(), EditMode::Add);
  rows.SetValue(u"Codice"_qs, u"A'2"_qs);
  rows.MoveFirst();
  EXPECT_EQ(Codes(rows), QStringList({u"A'1"_qs, u"A'2"_qs}));
  // Its defaults are those of the tables.
  rows.MoveLast();
  EXPECT_EQ(rows.Value(u"Pubblica"_qs), QVariant(true));
  EXPECT_TRUE(rows.Value(u"Ordine"_qs).isNull());
}

TEST_F(RecordsetTest, ValuesKeepTheirColumnsKind) {
  AddProduct(u"A"_qs);
  Recordset rows;
  OpenProducts(rows);
  rows.SetValue(u"Pubblica"_qs, false);
  rows.SetValue(u"Ordine"_qs, u" 12 "_qs);
  rows.SetValue(u"Descrizione"_qs, 7);
  rows.Update();
  EXPECT_EQ(Get(u"typeof(Pubblica) || typeof(OrdineTemp) || typeof(Descrizione)"_qs, u"Prodotti"_qs),
            QVariant(u"integerintegertext"_qs));
  EXPECT_EQ(FaultOf([&] { rows.SetValue(u"Ordine"_qs, u"first"_qs); }), StoreFault::Constraint);
  EXPECT_EQ(rows.Mode(), EditMode::None);
  rows.SetValue(u"Ordine"_qs, NullValue());
  rows.Update();
  EXPECT_TRUE(Get(u"OrdineTemp"_qs, u"Prodotti"_qs).isNull());
  rows.SetValue(u"Codice"_qs, u"B"_qs);
  rows.Update();
  EXPECT_EQ(rows.Value(u"Codice"_qs), QVariant(u"B"_qs));
}

TEST_F(RecordsetTest, ADeletedRowStaysCurrentUntilTheNextMove) {
  for (const QString& code : {u"A"_qs, u"B"_qs, u"C"_qs, u"D"_qs}) AddProduct(code);
  for (const CursorType cursor : {CursorType::Keyset, CursorType::Static}) {
    connection.BeginTrans();
    Recordset rows;
    OpenProducts(rows, cursor);
    const auto clone = rows.Clone();
    rows.MoveNext();
    const qint64 bookmark = rows.Bookmark();
    rows.Delete();
    EXPECT_EQ(rows.Status(), RowStatus::Deleted);
    EXPECT_EQ(rows.RecordCount(), 3);
    rows.MoveNext();
    EXPECT_EQ(rows.Value(u"Codice"_qs), QVariant(u"C"_qs));
    EXPECT_EQ(FaultOf([&] { rows.SetBookmark(bookmark); }), StoreFault::NoCurrentRow);
    clone->MoveLast();
    clone->Delete();
    EXPECT_EQ(FaultOf([&] { clone->MoveNext(), clone->MoveNext(); }), StoreFault::NoCurrentRow);
    EXPECT_EQ(Codes(*clone), QStringList({u"A"_qs, u"C"_qs}));
    rows.ClearFilter();
    EXPECT_EQ(Codes(rows), QStringList({u"A"_qs, u"C"_qs}));
    connection.RollbackTrans();
  }
}

TEST_F(RecordsetTest, FindsInBothDirections) {
  const QStringList codes = {u"a%"_qs, u"B'1"_qs, u"b2"_qs, u"C"_qs, u"😀"_qs};
  for (const QString& code : codes) AddProduct(code, code == u"C" ? NullValue() : QVariant(u"x"_qs));
  connection.Execute(u"UPDATE Prodotti SET OrdineTemp=-5 WHERE CodiceProdotto='b2'"_qs);
  for (const CursorType cursor : {CursorType::Keyset, CursorType::Static}) {
    Recordset rows;
    OpenProducts(rows, cursor);
    const std::pair<QString, qint64> criteria[] = {
        {u"Codice='b''1'"_qs, 2},   {u"[codice] = 'A%'"_qs, 1},    {u"CODICE Like 'b%'"_qs, 2},
        {u"Ordine=-5"_qs, 3},       {u"Ordine < 0.5"_qs, 3},       {u"Descrizione = Null"_qs, 4},
        {u"\"Codice\">='d'"_qs, 5}, {u"Descrizione <> 'x'"_qs, 0}, {u"Pubblica=False"_qs, 0}};
    for (const auto& [criterion, position] : criteria) {
      rows.MoveFirst();
      EXPECT_EQ(rows.Find(criterion), position > 0) << criterion;
      EXPECT_EQ(rows.AbsolutePosition(), position) << criterion;
    }
    EXPECT_TRUE(rows.IsEOF());
    EXPECT_TRUE(rows.Find(u"Descrizione"_qs, u"x"_qs, 0, FindDirection::Backward));
    EXPECT_EQ(rows.Value(u"Codice"_qs), QVariant(u"😀"_qs));
    EXPECT_TRUE(rows.Find(u"Descrizione"_qs, u"x"_qs, 1, FindDirection::Backward));
    EXPECT_EQ(rows.Value(u"Codice"_qs), QVariant(u"b2"_qs));
    for (const QString& wrong : {u""_qs, u"Codice"_qs, u"Codice='a' OR 1=1"_qs, u"Codice=x"_qs, u"1=1"_qs})
      EXPECT_THROW(rows.Find(wrong), StoreError) << wrong;
    EXPECT_THROW(rows.Find(u"nothing"_qs, 1), StoreError);
  }
}

TEST_F(RecordsetTest, FilterSortAndPages) {
  QLocale::setDefault(QLocale(QLocale::Italian));
  connection.Open(connection.ConnectionText());
  for (int i = 1; i <= 25; ++i)
    AddProduct(u"P%1"_qs.arg(i, 2, 10, QChar(u'0')), i % 2 ? u"zeta"_qs : u"Ève"_qs);
  for (const CursorType cursor : {CursorType::Keyset, CursorType::Static}) {
    Recordset rows;
    OpenProducts(rows, cursor);
    rows.SetPageSize(9);
    EXPECT_EQ(rows.PageCount(), 3);
    rows.SetAbsolutePage(3);
    EXPECT_EQ(rows.Value(u"Codice"_qs), QVariant(u"P19"_qs));
    EXPECT_EQ(rows.AbsolutePage(), 3);
    const qint64 bookmark = rows.Bookmark();
    rows.SetFilter(u"_IDCatalogo=1 AND Codice LIKE ?"_qs, {u"p1%"_qs});
    EXPECT_EQ(rows.RecordCount(), 10);
    rows.SetBookmark(bookmark);
    EXPECT_EQ(rows.AbsolutePosition(), 10);
    EXPECT_THROW(rows.SetFilter(u"nothing=1"_qs), StoreError);
    rows.SetSort(u"Descrizione"_qs, true);
    EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"zeta"_qs));
    rows.MoveLast();
    EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"Ève"_qs));
    rows.SetSort({});
    rows.SetFilterTo(u"Codice"_qs, u"p07"_qs);
    EXPECT_EQ(Codes(rows), QStringList(u"P07"_qs));
    // A row that is edited out of the filter or the statement's order stays reachable.
    rows.MoveFirst();
    rows.SetValue(u"Codice"_qs, u"Z"_qs);
    rows.Update();
    rows.ClearFilter();
    EXPECT_TRUE(rows.Find(u"Codice"_qs, u"z"_qs));
    EXPECT_EQ(rows.AbsolutePosition(), 7);
    rows.SetSort(u"Codice"_qs, true);
    EXPECT_EQ(rows.Value(u"Codice"_qs), QVariant(u"Z"_qs));
    rows.SetValue(u"Codice"_qs, u"P07"_qs);
    rows.Update();
  }
}

TEST_F(RecordsetTest, ACloneSharesTheRowsButNotThePosition) {
  for (const QString& code : {u"A"_qs, u"B"_qs, u"C"_qs}) AddProduct(code);
  Recordset rows;
  OpenProducts(rows);
  rows.MoveLast();
  const auto clone = rows.Clone();
  EXPECT_EQ(clone->Value(u"Codice"_qs), QVariant(u"A"_qs));
  clone->SetFilterTo(u"Codice"_qs, u"B"_qs);
  clone->SetValue(u"Descrizione"_qs, u"changed"_qs);
  clone->Update();
  rows.SetBookmark(clone->Bookmark());
  EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"changed"_qs));
  clone->AddNew();
  clone->SetValue(u"Codice"_qs, u"D"_qs);
  clone->SetValue(u"_IDCatalogo"_qs, 1);
  clone->Update();
  EXPECT_EQ(rows.RecordCount(), 4);
  EXPECT_EQ(clone->RecordCount(), 2);
  rows.Close();
  EXPECT_EQ(clone->Value(u"Codice"_qs), QVariant(u"D"_qs));
}

TEST_F(RecordsetTest, StatementsThatAreNotOneTablesRowsAreReadOnly) {
  AddProduct(u"A"_qs);
  connection.Execute(u"INSERT INTO Immagini (IDCatalogo, CodiceProdotto) VALUES (1,'A'), (1,'A')"_qs);
  const std::pair<QString, int> statements[] = {
      {u"SELECT * FROM Prodotti, Immagini"_qs, 2},
      {u"SELECT Prodotti.* FROM (Prodotti INNER JOIN Immagini ON Prodotti.IDCatalogo=Immagini.IDCatalogo)"_qs,
       2},
      {u"SELECT COUNT(*) As N, CodiceProdotto FROM Immagini"_qs, 1},
      {u"SELECT CodiceProdotto FROM Immagini GROUP BY CodiceProdotto"_qs, 1},
      {u"SELECT DISTINCT CodiceProdotto FROM Immagini"_qs, 1},
      {u"SELECT CodiceProdotto FROM Immagini UNION ALL SELECT CodiceProdotto FROM Prodotti"_qs, 3},
      {u"SELECT IDImmagine FROM Immagini LIMIT 1"_qs, 1},
      {u"WITH t AS (SELECT 1 a) SELECT * FROM t"_qs, 1},
  };
  for (const auto& [sql, count] : statements) {
    Recordset rows;
    rows.Open(sql, connection, CursorType::Keyset, LockType::Optimistic);
    EXPECT_EQ(rows.RecordCount(), count) << sql;
    EXPECT_THROW(rows.SetValue(rows.FieldNames().first(), 1), StoreError) << sql;
    EXPECT_THROW(rows.Delete(), StoreError) << sql;
    EXPECT_THROW(rows.AddNew(), StoreError) << sql;
  }
  EXPECT_EQ(Get(u"COUNT(*)"_qs, u"Immagini"_qs), QVariant(2LL));
}

TEST_F(RecordsetTest, OrdersAndConditionsOfTheStatementHold) {
  for (const QString& code : {u"C"_qs, u"A"_qs, u"B"_qs}) AddProduct(code);
  const std::pair<QString, QString> statements[] = {
      {u"SELECT CodiceProdotto As Codice FROM Prodotti ORDER BY 1 DESC"_qs, u"CBA"_qs},
      {u"SELECT p.CodiceProdotto As Codice FROM Prodotti p WHERE p.CodiceProdotto<>'B' ORDER BY Codice;"_qs,
       u"AC"_qs},
      {u"SELECT CodiceProdotto Codice FROM [Prodotti] AS [a b] WHERE CodiceProdotto='A' OR CodiceProdotto='C'"_qs,
       u"AC"_qs},
      {u"SELECT CodiceProdotto As Codice /* FROM x */ FROM PRODOTTI WHERE IDCatalogo IN (SELECT IDCatalogo "
       u"FROM"
       u" Cataloghi WHERE 1) ORDER BY CodiceProdotto COLLATE VORLINA_LOCALE -- end"_qs,
       u"ABC"_qs},
  };
  for (const auto& [sql, codes] : statements)
    for (const CursorType cursor : {CursorType::Keyset, CursorType::Static, CursorType::Forward}) {
      Recordset rows;
      rows.Open(sql, connection, cursor);
      QString found;
      for (; !rows.IsEOF(); rows.MoveNext()) found += rows.Value(u"Codice"_qs).toString();
      EXPECT_EQ(found, codes) << sql;
      EXPECT_THROW(rows.SetValue(u"Codice"_qs, u"x"_qs), StoreError);
    }
}

TEST_F(RecordsetTest, WhatCannotBeWrittenCanStillBeRead) {
  AddProduct(u"A"_qs);
  connection.Close();
  // Permissions do not stop root, who may well run this: there the connection itself says no, with the same
  // code.
  const QFile::Permissions before = QFile::permissions(folder.path());
  QFile::setPermissions(Path(), QFile::ReadOwner);
  QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner);
  connection.Open(ConnectionTextFor(Path()));
  QFile::setPermissions(folder.path(), before);
  if (!connection.IsReadOnly()) connection.Execute(u"PRAGMA query_only=ON"_qs);
  Recordset rows;
  OpenProducts(rows);
  EXPECT_EQ(Codes(rows), QStringList(u"A"_qs));
  rows.MoveFirst();
  rows.SetValue(u"Descrizione"_qs, u"y"_qs);
  EXPECT_EQ(FaultOf([&] { rows.Update(); }), StoreFault::ReadOnly);
  rows.CancelUpdate();
  EXPECT_EQ(rows.Value(u"Descrizione"_qs), QVariant(u"x"_qs));
}

TEST_F(RecordsetTest, ATablesNameIsASource) {
  Recordset rows;
  rows.Open(u"CATALOGHI"_qs, connection, CursorType::Keyset, LockType::Optimistic);
  rows.SetFilter(u"IDCatalogo=1"_qs);
  rows.SetValue(u"nomecatalogo"_qs, u"L'anno \"nuovo\" 100%"_qs);
  rows.Update();
  EXPECT_EQ(rows.Value(u"NomeCatalogo"_qs), Get(u"NomeCatalogo"_qs, u"Cataloghi"_qs));
}
