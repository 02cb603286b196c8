// Real kills at random moments: afterwards there is the old state or the new one, and never neither. A
// restore is cut short at each of its steps beside its own code, and publishing beside its engine.
#include <QElapsedTimer>
#include <QRandomGenerator>
#include <filesystem>

#include "batch/BatchFixture.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

void CopyTree(const QString& from, const QString& to) {
  std::filesystem::remove_all(to.toStdString());
  std::filesystem::copy(from.toStdString(), to.toStdString(), std::filesystem::copy_options::recursive);
}

class KillTest : public BatchFixture {
 protected:
  // What is done between a run of the program and the next one.
  struct Round {
    QStringList command;
    std::function<void()> prepare;
    std::function<QString(int)> sign;  // a file that comes to be there where old and new change places
    std::function<void(int)> check;
  };
  // Kills runs at random moments, every second time just after the sign. At least nine of ten must be hit
  // running: one that was not has told that the machine became faster.
  void KillOften(int kills, const Round& round) {
    int duration = 1 << 20;
    for (int run = 0; run < 2; ++run) {
      round.prepare();
      QElapsedTimer timer;
      timer.start();
      EXPECT_EQ(Batch(round.command).exitCode, 0);
      duration = std::min(duration, int(timer.elapsed()));
    }
    int hits = 0;
    for (int i = 0; i < kills; ++i) {
      round.prepare();
      const int within = random_.bounded(1, std::max(duration * 2 / 3, 2));
      const bool hit =
          i % 2 == 1 ? Killed(round.command, std::chrono::microseconds(random_.bounded(500)), round.sign(i))
                     : Killed(round.command, std::chrono::milliseconds(within));
      if (hit)
        ++hits;
      else
        duration = duration * 2 / 3;
      OpenCatalogDatabase(connection_, Path());
      round.check(i);
      connection_.Close();
      if (HasFatalFailure()) return;
    }
    EXPECT_GE(hits, kills * 9 / 10);
  }
  // The database and the pictures as they are at this moment, to come back to.
  std::function<void()> Remembered() {
    connection_.Close();
    CopyTree(AppFile(u"Images"_qs), Outside(u"Images"_qs));
    return [this, database = ContentOf(Path())] {
      CopyTree(Outside(u"Images"_qs), AppFile(u"Images"_qs));
      WriteFileSafely(Path(), database);
      QFile::remove(Path() + u"-journal"_qs);
    };
  }

 private:
  QRandomGenerator random_{20260711};
};

}  // namespace

TEST_F(KillTest, AnImportLeavesNoRowWithoutItsPicture) {
  const int catalog = AddCatalog(u"Catalog"_qs);
  QDir(outside_.path()).mkdir(u"photos"_qs);
  const QByteArray photo = MakeJpeg(MakePhoto({1600, 1200}, 1));
  for (int i = 0; i < 12; ++i) WriteFileSafely(Outside(u"photos/%1.jpg"_qs.arg(i)), photo);
  QByteArray whole;
  KillOften(16, {Here({u"import"_qs, u"photos"_qs, u"--catalog"_qs, QString::number(catalog)}), Remembered(),
                 [&](int i) { return AppFile(u"Images/%1-%2.jpg"_qs.arg(catalog).arg(i / 2 + 1)); },
                 [&](int) {
                   // At most the picture that was about to get its row, with its thumbnail.
                   const QStringList files = Findings().filter(u".jpg"_qs);
                   EXPECT_LE(files.size() - files.filter(u" t"_qs).size(), 1) << files.join(u' ');
                   Rows rows(connection_, u"SELECT Immagine FROM Prodotti"_qs);
                   while (rows.Next()) {
                     const QByteArray picture = ContentOf(rows.Value(0).toString());
                     if (whole.isEmpty()) whole = picture;
                     ASSERT_TRUE(picture == whole && picture.startsWith("\xFF\xD8"));
                   }
                 }});
}

// Cloning leaves the copy whole or not at all, and deletion the catalog whole or not at all: what is left is
// at most files without a row.
TEST_F(KillTest, ACloneOrADeletionLeavesAWholeDatabase) {
  constexpr int Products = 720;
  Fill("x", Products);
  connection_.Execute(
      u"INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) WITH RECURSIVE n(i) AS "
      "(SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<8000) SELECT 109,'È 0','Peso',i FROM n"_qs);
  connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) VALUES (200,'other')"_qs);
  const auto prepare = Remembered();
  const QStringList of109 = Here({u"--catalog"_qs, u"109"_qs});
  const auto check = [&](int after) {
    return [&, after](int) {
      for (const QString& finding : Findings()) ASSERT_TRUE(finding.contains(u"-file ")) << finding;
      const int products = Count(u"Prodotti"_qs);
      ASSERT_TRUE(products == Products || products == after) << products;
    };
  };
  KillOften(16, {QStringList{u"clone"_qs} + of109, prepare,
                 [&](int i) { return AppFile(u"Images/201-È %1.jpg"_qs.arg(i * 45)); }, check(2 * Products)});
  KillOften(16, {QStringList{u"delete"_qs, u"--yes"_qs} + of109, prepare,
                 [&](int) { return QString(Path() + u"-journal"_qs); }, check(0)});
}
