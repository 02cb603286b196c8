// The database as a file: what is refused, what is migrated, what a full disk or another program does to it;
// and what its schema promises.

#include <QFileInfo>
#include <QRegularExpression>

#include "base/Helpers.h"
#include "store/CatalogDatabase.h"
#include "store/CatalogSchema.h"
#include "store/RowErrors.h"
#include "support/CatalogFixture.h"
#include "support/FullDisk.h"

using namespace vorlina;

namespace {

class DatabaseTest : public CatalogFixture {
 protected:
  // What opening the file tells; empty when it opens.
  QString Refusal(const QString& path) {
    return FailureOf([&] {
      WritingConnection connection;
      OpenCatalogDatabase(connection, path);
    });
  }
  // Each row of each table, the counters among them, as one line.
  QStringList ContentLines() {
    QStringList lines;
    Rows tables(connection_,
                u"SELECT t.name,group_concat('quote('||c.name||')','||''|''||') FROM pragma_table_list t, "
                "pragma_table_info(t.name) c WHERE t.schema='main' AND t.name<>'sqlite_schema' AND "
                "c.name<>'IDProdotto' GROUP BY t.name"_qs);
    while (tables.Next()) {
      const QString table = tables.Value(0).toString();
      const QString key = table == u"Prodotti" ? u"rowid"_qs : u"''"_qs;
      Rows rows(connection_, u"SELECT %1||'|'||%2 FROM %3"_qs.arg(key, tables.Value(1).toString(), table));
      while (rows.Next()) lines += table + rows.Value(0).toString();
    }
    lines.removeIf([](const QString& line) { return line.startsWith(u"sqlite_sequence|'Prodotti'"); });
    lines.sort();
    return lines;
  }
};

}  // namespace

TEST_F(DatabaseTest, WhatCannotBeUsedIsToldAndStaysUntouched) {
  for (int i = 0; i < 500; ++i) AddCatalog(u"name %1"_qs.arg(i).repeated(20));
  connection_.Close();
  const QByteArray good = ContentOf(Path());
  QByteArray newer = good;
  newer[63] = 9;
  QByteArray foreign = good;
  foreign[68] = 'X';
  QByteArray broken = good;
  for (int at = 4096 * 3; at < broken.size(); at += 4096) broken.replace(at, 64, QByteArray(64, '\x5a'));
  const std::tuple<QString, QByteArray, QString> cases[] = {
      {u"missing.db"_qs, {}, u"does not exist"_qs},
      {u"empty.db"_qs, "", u"it is empty"_qs},
      {u"text.db"_qs, QByteArray("a text that is long enough\n").repeated(200), u"damaged"_qs},
      {u"foreign.db"_qs, foreign, u"no database of Vorlina"_qs},
      {u"newer.db"_qs, newer, u"newer version"_qs},
      {u"broken.db"_qs, broken, u"damaged"_qs},
      {u"short.db"_qs, good.left(good.size() / 2), u"damaged"_qs}};
  for (const auto& [name, content, tells] : cases) {
    const QString path = AppFile(name);
    if (!content.isNull()) WriteFileSafely(path, content);
    const QString told = Refusal(path);
    EXPECT_TRUE(told.contains(tells)) << name << ": " << told;
    EXPECT_TRUE(told.contains(QDir::toNativeSeparators(path))) << told;
    EXPECT_EQ(ContentOf(path), content.isNull() ? "(missing)" : content) << name;
  }
  EXPECT_EQ(QDir(folder_.path()).entryList({u"*-journal"_qs, u"*backup*"_qs}).size(), 0);
  EXPECT_EQ(Refusal(Path()), QString());
}

// Other programs may have been killed at work: nothing is settled for them.
TEST_F(DatabaseTest, AForeignDatabaseIsNotEvenTidiedUp) {
  connection_.Close();
  SQLite::Database killed(AppFile(u"killed.db"_qs).toStdString(),
                          SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
  killed.exec(
      "PRAGMA cache_size=1; CREATE TABLE t (a); WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n "
      "WHERE i<99) INSERT INTO t SELECT zeroblob(4000) FROM n; BEGIN; UPDATE t SET a=randomblob(4000)");
  for (const QString& end : {u".db"_qs, u".db-journal"_qs})
    ASSERT_TRUE(QFile::copy(AppFile(u"killed"_qs + end), AppFile(u"half"_qs + end)));
  const auto before = FilesIn(folder_.path());
  EXPECT_TRUE(Refusal(AppFile(u"half.db"_qs)).contains(u"no database of Vorlina"));
  EXPECT_EQ(Differences(FilesIn(folder_.path()), before), QStringList());
}

// As on a full disk: what a step that goes on writes next must not be saved alone.
TEST_F(DatabaseTest, AfterATransactionWasGivenUpNothingIsSavedAlone) {
  AddCatalog(u"kept"_qs);
  connection_.BeginTrans();
  EXPECT_THROW(connection_.Execute(u"INSERT OR ROLLBACK INTO Cataloghi (IDCatalogo) VALUES (1)"_qs), Error);
  EXPECT_THROW(AddCatalog(u"half"_qs), Error);
  EXPECT_THROW(connection_.CommitTrans(), Error);
  connection_.RollbackTrans();
  EXPECT_EQ(Count(u"Cataloghi"_qs), 1);
  AddCatalog(u"whole"_qs);
}

TEST_F(DatabaseTest, StatementsTogetherWaitOnceForAnotherProgram) {
  WritingConnection other;
  other.Open(ConnectionTextFor(Path()));
  other.Execute(u"BEGIN EXCLUSIVE"_qs);
  int shown = 0;
  LockPatience::WhileWaiting = [&](bool waits) { shown += waits ? 1 : 0; };
  {
    const LockPatience patience(120);
    EXPECT_THROW(AddCatalog(u"first"_qs), LockedError);
    EXPECT_GT(shown, 0);
    shown = 0;
    EXPECT_THROW(AddCatalog(u"second"_qs), LockedError);
    EXPECT_EQ(shown, 0) << "the time is used up";
  }
  LockPatience::WhileWaiting = [&](bool waits) {
    if (waits && other.InTransaction()) other.Execute(u"ROLLBACK"_qs);
  };
  AddCatalog(u"waited for"_qs);
  LockPatience::WhileWaiting = nullptr;
  EXPECT_EQ(Count(u"Cataloghi"_qs), 1);
}

// With all that is in it; what is made of it any SQLite tool can read, check and write.
TEST_F(DatabaseTest, TheFirstVersionBecomesTheDeliveredOne) {
  connection_.Close();
  QFile::remove(Path());
  MakeDatabase(Path(), QStringLiteral(VORLINA_SOURCE_DIR "/tests/store/version1.sql"));
  connection_.Open(ConnectionTextFor(Path()));
  QStringList before = ContentLines();
  EXPECT_EQ(before.replaceInStrings(QRegularExpression(u"(1\\||PExtension\\|)'[cC]affè"_qs), u"\\1'CAFFÈ"_qs)
                .size(),
            24);
  connection_.BeginTrans();
  WritingConnection second;
  EXPECT_THROW(
      {
        const LockPatience patience(0);
        OpenCatalogDatabase(second, Path());
      },
      LockedError);
  EXPECT_TRUE(QDir(AppPath()).entryList({u"*backup*"_qs}).isEmpty()) << "not before it may write";
  connection_.RollbackTrans();
  connection_.Close();
  const std::vector<Migration> broken{{2, u"DELETE FROM Prodotti; UPDATE nowhere SET x=1"_qs}};
  const auto open = [&] { OpenCatalogDatabase(connection_, Path(), broken, SchemaVersion); };
  EXPECT_TRUE(FailureOf(open).contains(u"is as it was"));
  EXPECT_FALSE(connection_.IsOpen());
  OpenCatalogDatabase(connection_, Path());
  EXPECT_NO_THROW(RequireOwnSchema(connection_));
  EXPECT_EQ(ContentLines(), before);
  for (const QString& name : {u"Catalog-v1-backup.db"_qs, u"Catalog-v1-backup-2.db"_qs})
    EXPECT_TRUE(QFile::exists(AppFile(name))) << "each attempt makes its copy first";

  connection_.Close();
  SQLite::Database plain(Path().toStdString(), SQLite::OPEN_READWRITE);
  EXPECT_STREQ(plain.execAndGet("PRAGMA integrity_check").getText(), "ok");
  plain.exec("PRAGMA foreign_keys=ON; UPDATE Prodotti SET CodiceProdotto='Z' WHERE CodiceProdotto='b'");
  EXPECT_EQ(plain.execAndGet("SELECT COUNT(*) FROM Immagini, Plugin WHERE CodiceProdotto='z' AND Codice='Z'")
                .getInt(),
            1);
  plain.exec("DELETE FROM Prodotti WHERE IDProdotto=9");
  plain.exec("INSERT INTO Prodotti (IDCatalogo, CodiceProdotto) VALUES (4, 'new')");
  EXPECT_EQ(plain.getLastInsertRowid(), 10) << "a key is never given twice";
}

TEST_F(DatabaseTest, AFullDiskIsToldAndLeavesAWholeDatabase) {
  const int catalog = AddCatalog(u"c"_qs);
  const QString told = FailureOf([&] {
    const FullDisk full(static_cast<unsigned long>(QFileInfo(Path()).size()));
    Transaction transaction(connection_);
    for (int i = 0; i < 50; ++i) AddProduct(catalog, u"n%1"_qs.arg(i).leftJustified(900, u'x'));
    transaction.Commit();
  });
  EXPECT_TRUE(told.startsWith(AppPath() + u" cannot be written: the disk is full")) << told;
  EXPECT_EQ(Count(u"Prodotti"_qs), 0);
  EXPECT_TRUE(CheckDatabase(connection_).isEmpty());
}

TEST_F(DatabaseTest, TextsMatchWithoutRegardToCaseInEveryScriptAndSortByLocale) {
  const int catalog = AddCatalog(u"c"_qs);
  for (const QString& code : {u"CAFFÈ-2"_qs, u"ΣΑΣ"_qs, u"z"_qs, u"caffe-2"_qs}) AddProduct(catalog, code);
  for (const QString& other : {u"caffè-2"_qs, u"σας"_qs, u"Z"_qs})
    for (const QString& condition : {u"LIKE ?"_qs, u"=? COLLATE VORLINA_TEXT"_qs})
      EXPECT_EQ(One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"CodiceProdotto "_qs + condition, {other}), 1) << other;
  QLocale::setDefault(QLocale(QLocale::Italian));
  connection_.Open(connection_.ConnectionText());
  QLocale::setDefault(QLocale::system());
  EXPECT_EQ(One(u"group_concat(t,' ')"_qs,
                u"(SELECT column1 AS t FROM (VALUES ('P-10'),('p-9'),('A 2')) ORDER BY column1 "
                "COLLATE VORLINA_LOCALE)"_qs),
            u"A 2 p-9 P-10"_qs);
}

TEST_F(DatabaseTest, NoConnectionWritesTheSchemaOrMakesAFile) {
  EXPECT_THROW(connection_.Execute(u"SELECT \"a text in double quotes\""_qs), Error);
  connection_.Execute(u"PRAGMA writable_schema=ON"_qs);
  EXPECT_THROW(connection_.Execute(u"UPDATE sqlite_schema SET sql=''"_qs), Error);
  EXPECT_THROW(connection_.Open(ConnectionTextFor(AppFile(u"missing.db"_qs))), Error);
  EXPECT_FALSE(QFileInfo::exists(AppFile(u"missing.db"_qs)));
}
