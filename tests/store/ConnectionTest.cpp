#include "store/Connection.h"

#include "base/Helpers.h"
#include "store/GetValue.h"
#include "store/Query.h"
#include "store/Quoting.h"
#include "store/TextCompare.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class ConnectionTest : public StoreFixture {
 protected:
  QString Scalar(const QString& sql, const QVariantList& values = {}) {
    Query query(connection, sql, values);
    return query.Next() ? query.Text(0) : u"no row"_qs;
  }
  int Products() { return Get(u"COUNT(*)"_qs, u"Prodotti"_qs).toInt(); }
};

}  // namespace

TEST_F(ConnectionTest, EverySettingThatKeepsDataSafeIsOn) {
  connection.Open(connection.ConnectionText());
  const std::pair<const char16_t*, const char16_t*> settings[] = {
      {u"journal_mode", u"delete"}, {u"synchronous", u"3"},    {u"foreign_keys", u"1"},
      {u"busy_timeout", u"5000"},   {u"trusted_schema", u"0"}, {u"mmap_size", u"0"},
      {u"cell_size_check", u"1"},
  };
  for (const auto& [name, value] : settings)
    EXPECT_EQ(Scalar(u"PRAGMA "_qs + QString::fromUtf16(name)), QString::fromUtf16(value));
  EXPECT_THROW(connection.Execute(u"SELECT \"text in double quotes\""_qs), StoreError);
  connection.Execute(u"PRAGMA writable_schema=ON"_qs);
  EXPECT_THROW(connection.Execute(u"UPDATE sqlite_schema SET sql=''"_qs), StoreError);
}

TEST_F(ConnectionTest, NeverMakesAFileAndTellsWhatItCannotOpen) {
  Connection other;
  const QString missing = Path(u"missing.db"_qs);
  EXPECT_EQ(FaultOf([&] { other.Open(ConnectionTextFor(missing)); }), StoreFault::Missing);
  EXPECT_FALSE(QFile::exists(missing));
  EXPECT_THROW(other.Open(u"Provider=x;Data Source=y"_qs), StoreError);
  EXPECT_THROW(other.Open(ConnectionTextFor(folder.path())), StoreError);
  EXPECT_THROW(other.Execute(u"SELECT 1"_qs), Error);
  EXPECT_FALSE(other.IsOpen());
  other.Open(connection.ConnectionText());
  EXPECT_EQ(other.DataSource(), connection.DataSource());
}

TEST_F(ConnectionTest, GetValueTellsNullFromEmpty) {
  AddProduct(u"A"_qs, NullValue());
  EXPECT_EQ(Get(u"Count(*)"_qs, u"Prodotti"_qs, u"IDCATALOGO=?"_qs, {1}), QVariant(1LL));
  EXPECT_EQ(Get(u"Pubblica"_qs, u"PRODOTTI"_qs), QVariant(true));
  for (const QVariant& null : {Get(u"Descrizione"_qs, u"Prodotti"_qs), Get(u"Valore"_qs, u"Filtri"_qs)}) {
    EXPECT_TRUE(null.isValid());
    EXPECT_TRUE(null.isNull());
  }
  EXPECT_FALSE(Get(u"x"_qs, u"Nowhere"_qs).isValid());
  EXPECT_FALSE(Get(u"Count(*)"_qs, u"Prodotti"_qs, u"IDCATALOGO=?"_qs).isValid());
  connection.Close();
  EXPECT_FALSE(Get(u"1"_qs, u"Prodotti"_qs).isValid());
}

TEST_F(ConnectionTest, TheDialectFoldsEveryScript) {
  struct Case {
    QString expression;
    QString result;
  };
  const Case cases[] = {
      {u"'CAFFÈ' LIKE 'caffè'"_qs, u"1"_qs},
      {u"'CAFFÈ LUNGO' LIKE '%ffè%o'"_qs, u"1"_qs},
      {u"'abc' LIKE 'a_c'"_qs, u"1"_qs},
      {u"'aèc' LIKE 'A_C'"_qs, u"1"_qs},
      {u"'abc' LIKE 'a_'"_qs, u"0"_qs},
      {u"'' LIKE '%'"_qs, u"1"_qs},
      {u"'50%' LIKE '50\\%' ESCAPE '\\'"_qs, u"1"_qs},
      {u"'505' LIKE '50\\%' ESCAPE '\\'"_qs, u"0"_qs},
      {u"NULL LIKE '%' IS NULL"_qs, u"1"_qs},
      {u"12 LIKE '1%'"_qs, u"1"_qs},
      {u"MID('perché',4)"_qs, u"ché"_qs},
      {u"MID('perché',2,3)"_qs, u"erc"_qs},
      {u"LEN('perché')"_qs, u"6"_qs},
      {u"LEN(NULL) IS NULL AND MID(NULL,1) IS NULL"_qs, u"1"_qs},
      {u"'È' COLLATE VORLINA_TEXT = 'è'"_qs, u"1"_qs},
      {u"'È' COLLATE VORLINA_TEXT = 'e'"_qs, u"0"_qs},
  };
  for (const Case& c : cases) EXPECT_EQ(Scalar(u"SELECT "_qs + c.expression), c.result) << c.expression;
  EXPECT_EQ(Scalar(u"SELECT ? LIKE ? ESCAPE '\\'"_qs, {u"10%_\\x"_qs, LikeText(u"10%_\\X"_qs)}), u"1"_qs);
  EXPECT_EQ(Scalar(u"SELECT "_qs + QuotedText(u"l'\"arte\" 😀"_qs)), u"l'\"arte\" 😀"_qs);
}

TEST(TextCompare, OrdersAllTextsTotally) {
  const std::string texts[] = {"",  "a",    "A",    "ab",    "Z", "È",  "è",  "e",
                               "😀", "\xff", "\xc3", "è\xff", "ß", "ss", "aÈ", "Aè"};
  for (const std::string& a : texts)
    for (const std::string& b : texts) {
      EXPECT_EQ(CompareFolded(a, b), -CompareFolded(b, a));
      for (const std::string& c : texts)
        if (CompareFolded(a, b) <= 0 && CompareFolded(b, c) <= 0) {
          EXPECT_LE(CompareFolded(a, c), 0);
        }
    }
  EXPECT_EQ(CompareFolded("aÈ", "Aè"), 0);
  EXPECT_NE(CompareFolded("\xff", "\xfe"), 0);
  // A pattern on which a naive search would take for ever.
  EXPECT_FALSE(MatchesLike(std::string(40, '%') + "a%a%a%a%a%b", std::string(3000, 'a')));
}

TEST_F(ConnectionTest, KeysIgnoreCaseAndBelongingsFollow) {
  AddProduct(u"È-1"_qs);
  EXPECT_EQ(FaultOf([&] { AddProduct(u"è-1"_qs); }), StoreFault::Duplicate);
  connection.Execute(u"INSERT INTO Cataloghi (IDCatalogo) VALUES (2)"_qs);
  AddProduct(u"è-1"_qs, u"x"_qs, 2);
  connection.Execute(u"INSERT INTO Immagini (IDCatalogo, CodiceProdotto) VALUES (1, 'è-1')"_qs);
  connection.Execute(
      u"INSERT INTO SchedeTecniche (IDCatalogo, CodiceProdotto) VALUES (1, 'è-1'), (2, 'è-1')"_qs);
  connection.Execute(u"UPDATE Prodotti SET CodiceProdotto='L''arte %' WHERE IDCatalogo=1"_qs);
  EXPECT_EQ(Get(u"CodiceProdotto"_qs, u"Immagini"_qs), QVariant(u"L'arte %"_qs));
  connection.Execute(u"DELETE FROM Cataloghi WHERE IDCatalogo=1"_qs);
  EXPECT_EQ(Products(), 1);
  EXPECT_TRUE(Get(u"1"_qs, u"Immagini"_qs).isNull());
  EXPECT_EQ(Get(u"COUNT(*)"_qs, u"SchedeTecniche"_qs), QVariant(1LL));
  EXPECT_EQ(FaultOf([&] { AddProduct(u"A"_qs, u"x"_qs, 77); }), StoreFault::Constraint);
}

TEST_F(ConnectionTest, TransactionsRollBackUnlessCommitted) {
  {
    Transaction outer(connection);
    AddProduct(u"A"_qs);
    {
      Transaction inner(connection);
      AddProduct(u"B"_qs);
    }
    EXPECT_EQ(Products(), 1);
    {
      Transaction inner(connection);
      AddProduct(u"C"_qs);
      inner.Commit();
    }
    outer.Commit();
  }
  EXPECT_EQ(Products(), 2);
  {
    Transaction dropped(connection);
    connection.Execute(u"DELETE FROM Prodotti"_qs);
  }
  EXPECT_EQ(Products(), 2);
  EXPECT_THROW(connection.CommitTrans(), StoreError);
  connection.BeginTrans();
  EXPECT_THROW(connection.BeginTrans(), StoreError);
  connection.RollbackTrans();
  connection.RollbackTrans();
}

TEST_F(ConnectionTest, AfterTheDatabaseGaveUpATransactionNothingIsSavedAlone) {
  connection.BeginTrans();
  EXPECT_THROW(connection.Execute(u"INSERT OR ROLLBACK INTO Cataloghi (IDCatalogo) VALUES (1)"_qs),
               StoreError);
  EXPECT_THROW(AddProduct(u"half"_qs), StoreError);
  EXPECT_THROW(connection.CommitTrans(), StoreError);
  connection.RollbackTrans();
  EXPECT_EQ(Products(), 0);
  AddProduct(u"whole"_qs);
}

TEST_F(ConnectionTest, ASecondWriterIsToldToWait) {
  Connection other;
  other.SetBusyTimeout(30);
  other.Open(connection.ConnectionText());
  connection.BeginTrans();
  EXPECT_EQ(FaultOf([&] { other.BeginTrans(); }), StoreFault::Locked);
  EXPECT_EQ(GetValue(u"COUNT(*)"_qs, u"Prodotti"_qs, other, {}), QVariant(0LL));
  connection.CommitTrans();
  other.BeginTrans();
}

TEST_F(ConnectionTest, CountersAreNeverGivenTwice) {
  Connection other;
  other.Open(connection.ConnectionText());
  EXPECT_EQ(connection.ReserveCounter(u"IMMAGINI"_qs), 1);
  EXPECT_EQ(other.ReserveCounter(u"Immagini"_qs), 2);
  connection.BeginTrans();
  EXPECT_EQ(connection.ReserveCounter(u"Immagini"_qs), 3);
  {
    Transaction inner(connection);
    EXPECT_EQ(connection.ReserveCounter(u"Immagini"_qs), 4);
  }
  EXPECT_EQ(connection.ReserveCounter(u"Immagini"_qs), 5);
  connection.RollbackTrans();
  EXPECT_EQ(other.ReserveCounter(u"Immagini"_qs), 6);
  EXPECT_EQ(connection.ReserveCounter(u"Cataloghi"_qs), 2);
  connection.Execute(u"DELETE FROM Cataloghi"_qs);
  EXPECT_EQ(connection.ReserveCounter(u"Cataloghi"_qs), 3);
  connection.Execute(u"INSERT INTO Cataloghi (NomeCatalogo) VALUES ('x')"_qs);
  EXPECT_EQ(Get(u"MAX(IDCATALOGO)"_qs, u"CATALOGHI"_qs), QVariant(4LL));
}

TEST_F(ConnectionTest, AQueryEndsWithItsLock) {
  AddProduct(u"A"_qs);
  AddProduct(u"B"_qs);
  auto query = std::make_unique<Query>(connection, u"SELECT * FROM Prodotti"_qs);
  ASSERT_TRUE(query->Next());
  Connection other;
  other.SetBusyTimeout(30);
  other.Open(connection.ConnectionText());
  EXPECT_EQ(FaultOf([&] { other.Execute(u"DELETE FROM Prodotti"_qs); }), StoreFault::Locked);
  while (query->Next()) continue;
  other.Execute(u"DELETE FROM Prodotti"_qs);
  // Closing under a query that lives is safe.
  connection.Close();
  query.reset();
}
