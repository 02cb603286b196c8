#include "store/CatalogDatabase.h"

#include <QProcess>

#include "store/Query.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class CatalogDatabaseTest : public StoreFixture {
 protected:
  CatalogDatabaseTest() { other.SetBusyTimeout(50); }

  // What the file is refused for; it must stay as it was, with nothing beside it.
  std::optional<StoreFault> Refusal(const QString& name) {
    const QByteArray before = BytesOf(Path(name));
    const QStringList files = QDir(folder.path()).entryList(QDir::Files);
    const auto fault = FaultOf([&] { OpenCatalogDatabase(other, Path(name)); });
    EXPECT_EQ(BytesOf(Path(name)), before) << name;
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), files);
    EXPECT_FALSE(other.IsOpen());
    return fault;
  }

  void Write(const QString& name, const QByteArray& bytes) {
    QFile file(Path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }

  Connection other;
};

QByteArray With(QByteArray bytes, qsizetype at, const QByteArray& patch) {
  return bytes.replace(at, patch.size(), patch);
}

}  // namespace

TEST_F(CatalogDatabaseTest, RefusesAFileThatIsNotItsOwnUntouched) {
  connection.Close();
  const QByteArray good = BytesOf(Path());
  MakeDatabase(Path(u"foreign.db"_qs), "CREATE TABLE t (a); INSERT INTO t VALUES (1);");
  MakeDatabase(Path(u"foreign-wal.db"_qs), "PRAGMA journal_mode=WAL; CREATE TABLE t (a);");
  MakeDatabase(Path(u"newer.db"_qs), SchemaScript() + "PRAGMA user_version=2;");
  MakeDatabase(Path(u"tables.db"_qs), SchemaScript() + "DROP TABLE SchedeTecniche;");
  Write(u"empty.db"_qs, {});
  Write(u"text.db"_qs, QByteArray(5000, 'x'));
  Write(u"cut.db"_qs, good.left(good.size() - 6000));
  Write(u"page.db"_qs, With(good, 4096, QByteArray(4096, '\x7f')));
  struct Case {
    QString name;
    StoreFault fault;
  };
  const Case cases[] = {
      {u"missing.db"_qs, StoreFault::Missing}, {u"empty.db"_qs, StoreFault::Empty},
      {u"text.db"_qs, StoreFault::Corrupt},    {u"cut.db"_qs, StoreFault::Corrupt},
      {u"page.db"_qs, StoreFault::Corrupt},    {u"foreign.db"_qs, StoreFault::Foreign},
      {u"newer.db"_qs, StoreFault::Newer},     {u"foreign-wal.db"_qs, StoreFault::Foreign},
      {u"tables.db"_qs, StoreFault::Corrupt},
  };
  for (const Case& c : cases) EXPECT_EQ(Refusal(c.name), c.fault) << c.name;
  OpenCatalogDatabase(other, Path());
  EXPECT_TRUE(other.IsOpen());
}

TEST_F(CatalogDatabaseTest, RefusesALockedFile) {
  connection.Execute(u"BEGIN EXCLUSIVE"_qs);
  EXPECT_EQ(Refusal(u"Catalog.db"_qs), StoreFault::Locked);
  connection.Execute(u"COMMIT"_qs);
  OpenCatalogDatabase(other, Path());
  EXPECT_TRUE(other.IsOpen());
}

TEST_F(CatalogDatabaseTest, RecoversWhatAnotherRunLeftUnfinished) {
  AddProduct(u"A"_qs);
  connection.Execute(u"PRAGMA cache_size=1"_qs);
  connection.BeginTrans();
  for (int i = 0; i < 300; ++i) AddProduct(u"B%1"_qs.arg(i), QString(300, u'x'));
  // The files as they lie in the middle of the transaction, as after a kill.
  const QByteArray half = BytesOf(Path());
  const QByteArray journal = BytesOf(Path(u"Catalog.db-journal"_qs));
  connection.RollbackTrans();
  ASSERT_FALSE(journal.isEmpty());
  Write(u"killed.db"_qs, half);
  Write(u"killed.db-journal"_qs, journal);
  OpenCatalogDatabase(other, Path(u"killed.db"_qs));
  Query count(other, u"SELECT count(*) FROM Prodotti"_qs);
  ASSERT_TRUE(count.Next());
  EXPECT_EQ(count.Integer(0), 1);
}

TEST_F(CatalogDatabaseTest, MigratesAVerifiedCopyFirst) {
  AddProduct(u"A"_qs);
  connection.Close();
  Write(u"Catalog-v1-backup.db"_qs, "an older backup");
  const std::vector<Migration> scripts = {
      {2, u"ALTER TABLE Prodotti ADD COLUMN Peso REAL; UPDATE Prodotti SET Peso=1"_qs},
      {3, u"UPDATE Prodotti SET Peso=2"_qs}};
  OpenCatalogDatabase(other, Path(), 3, scripts);
  Query peso(other, u"SELECT Peso, (SELECT user_version FROM pragma_user_version) FROM Prodotti"_qs);
  ASSERT_TRUE(peso.Next());
  EXPECT_EQ(peso.Text(0), u"2.0"_qs);
  EXPECT_EQ(peso.Integer(1), 3);
  EXPECT_EQ(BytesOf(Path(u"Catalog-v1-backup.db"_qs)), "an older backup");
  Connection backup;
  OpenCatalogDatabase(backup, Path(u"Catalog-v1-backup-2.db"_qs));
  Query copied(backup, u"SELECT count(*) FROM Prodotti"_qs);
  EXPECT_TRUE(copied.Next() && copied.Integer(0) == 1);
}

TEST_F(CatalogDatabaseTest, AFailingMigrationLeavesTheTablesAsTheyWere) {
  AddProduct(u"A"_qs);
  connection.Close();
  const QByteArray before = BytesOf(Path());
  const Migration first{2, u"ALTER TABLE Prodotti ADD COLUMN Peso REAL"_qs};
  // A syntax error, a row without its catalog, and a script that is missing.
  EXPECT_THROW(OpenCatalogDatabase(other, Path(), 3, {first, {3, u"UPDATE Prodotti SET nothing=1"_qs}}),
               Error);
  EXPECT_EQ(FaultOf([&] {
              OpenCatalogDatabase(other, Path(), 3, {first, {3, u"DELETE FROM Cataloghi"_qs}});
            }),
            StoreFault::Constraint);
  EXPECT_THROW(OpenCatalogDatabase(other, Path(), 3, {first}), Error);
  EXPECT_FALSE(other.IsOpen());
  EXPECT_EQ(BytesOf(Path()), before);
}

TEST_F(CatalogDatabaseTest, BackupsAreCompleteOrNotThere) {
  AddProduct(u"A"_qs);
  const QString target = Path(u"backup.db"_qs);
  Write(u"backup.db"_qs, "former");
  // A database that the check refuses is not worth a backup: the former one stays.
  connection.Execute(u"PRAGMA foreign_keys=OFF; UPDATE Prodotti SET IDCatalogo=99"_qs);
  EXPECT_EQ(CheckDatabase(connection).size(), 1);
  EXPECT_EQ(FaultOf([&] { BackupDatabase(connection, target); }), StoreFault::Corrupt);
  EXPECT_EQ(BytesOf(target), "former");
  connection.Execute(u"UPDATE Prodotti SET IDCatalogo=1"_qs);
  BackupDatabase(connection, target);
  OpenCatalogDatabase(other, target);
  EXPECT_EQ(CheckDatabase(other), QStringList());
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files, QDir::Name),
            QStringList({u"Catalog.db"_qs, u"backup.db"_qs}));
  EXPECT_THROW(BackupDatabase(connection, Path(u"nowhere/backup.db"_qs)), Error);
}
