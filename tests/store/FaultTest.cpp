// Every write of a representative change, and of a migration, fails once: afterwards the database holds all
// of it or nothing. A read that fails is told as what it is.
#include <QLoggingCategory>

#include "store/CatalogDatabase.h"
#include "store/Recordset.h"
#include "support/CatalogFixture.h"
#include "support/FaultVfs.h"

using namespace vorlina;

namespace {

constexpr int MostCalls = 2000;

class FaultTest : public CatalogFixture {
 protected:
  FaultTest() {
    // A rollback on a failing disk is told to the log, here many times over.
    QLoggingCategory::setFilterRules(u"vorlina.store.warning=false"_qs);
    const int catalog = AddCatalog(u"Uno"_qs);
    for (int i = 0; i < 200; ++i) AddProduct(catalog, u"P%1"_qs.arg(i));
    connection_.Execute(u"UPDATE Prodotti SET Descrizione=?"_qs, {QString(200, u'x')});
    connection_.Execute(u"INSERT INTO Immagini (IDCatalogo, CodiceProdotto) VALUES (1, 'P7')"_qs);
    connection_.Close();
  }
  ~FaultTest() override { QLoggingCategory::setFilterRules({}); }

  // A sum over all tables that tells any change.
  QString Content() {
    WritingConnection reader;
    reader.Open(ConnectionTextFor(Path()));
    EXPECT_EQ(CheckDatabase(reader), QStringList());
    return GetValue(
               u"(SELECT group_concat(CodiceProdotto || coalesce(Descrizione,'')) FROM Prodotti) ||"
               u" (SELECT group_concat(IDImmagine || CodiceProdotto) FROM Immagini) ||"
               u" (SELECT group_concat(sql) FROM sqlite_schema)"_qs,
               u"Cataloghi"_qs, reader, {})
        .toString();
  }

  // Has each call of the step fail in turn, and then each with all behind it. The check is told what the
  // step told.
  static void FailEachCall(FaultVfs::Calls calls, const std::function<void()>& step,
                           const std::function<void(const QString& told)>& check) {
    const FaultVfs vfs;
    for (const bool lasting : {false, true}) {
      int n = 1;
      for (; n < MostCalls; ++n) {
        FaultVfs::Arm(calls, n, lasting);
        const QString told = FailureOf(step);
        FaultVfs::Disarm();
        SCOPED_TRACE(testing::Message() << "call " << n << " lasting " << lasting);
        check(told);
        if (!FaultVfs::HasFailed()) break;
      }
      EXPECT_GT(n, 5);
      EXPECT_LT(n, MostCalls);
    }
  }
  // On a fresh copy each time.
  void IsWholeOrNothing(const std::function<void()>& step) {
    const QByteArray original = ContentOf(Path());
    const QString before = Content();
    step();
    const QString after = Content();
    ASSERT_NE(before, after);
    Restore(original);
    FailEachCall(FaultVfs::Calls::Writes, step, [&](const QString& told) {
      const QString content = Content();
      EXPECT_TRUE(content == after || (!told.isEmpty() && content == before));
      Restore(original);
    });
  }

  void Restore(const QByteArray& original) {
    QDir files(folder_.path());
    for (const QString& name : files.entryList(QDir::Files)) files.remove(name);
    WriteFileSafely(Path(), original);
  }
};

}  // namespace

TEST_F(FaultTest, AChangeOfSeveralTablesIsWholeOrNothing) {
  IsWholeOrNothing([this] {
    WritingConnection writer;
    writer.Open(ConnectionTextFor(Path()));
    Transaction transaction(writer);
    Recordset images;
    images.Open({.table = u"Immagini"_qs, .where = u"FALSE"_qs}, writer);
    images.AddNew();
    images.SetValue(u"IDCatalogo"_qs, 1);
    images.SetValue(u"CodiceProdotto"_qs, u"P9"_qs);
    images.Update();
    writer.Execute(u"UPDATE Prodotti SET CodiceProdotto='Q' || CodiceProdotto, Descrizione='y'"_qs);
    transaction.Commit();
  });
}

TEST_F(FaultTest, AMigrationIsWholeOrNothing) {
  QFile::remove(Path());
  MakeDatabase(Path(), QStringLiteral(VORLINA_SOURCE_DIR "/tests/store/version1.sql"));
  IsWholeOrNothing([this] {
    Connection writer;
    OpenCatalogDatabase(writer, Path());
  });
}

// Who restores a backup because of a loose cable loses work.
TEST_F(FaultTest, AReadThatFailsIsNotToldAsDamage) {
  const auto read = [this] {
    Connection reader;
    OpenCatalogDatabase(reader, Path());
    CheckDatabase(reader);
  };
  FailEachCall(FaultVfs::Calls::Reads, read, [](const QString& told) {
    EXPECT_TRUE(told.isEmpty() || told.contains(u"cannot be read or written")) << told;
  });
}
