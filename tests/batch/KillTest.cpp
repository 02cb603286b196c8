// Real kills at random moments: afterwards there is the old state or the new one, and never neither.
#include <QElapsedTimer>
#include <QImage>
#include <QRandomGenerator>
#include <limits>

#include "batch/BatchFixture.h"
#include "catalogs/Backup.h"
#include "support/TestJpeg.h"
#include "support/WritingConnection.h"

using namespace vorlina;

namespace {

constexpr int Kills = 40;

void CopyTree(const QString& from, const QString& to) {
  QDir(to).removeRecursively();
  for (const auto& file : FilesIn(from)) {
    const QString path = to + u'/' + file.first;
    QDir().mkpath(QFileInfo(path).path());
    WriteStagedFile(path, [&](QIODevice& device) { return device.write(file.second) == file.second.size(); });
  }
}

class KillTest : public BatchFixture {
 protected:
  // The shortest of three runs to the end, each begun from the same state.
  int Duration(const QStringList& arguments, const std::function<void()>& prepare) {
    int shortest = std::numeric_limits<int>::max();
    for (int i = 0; i < 3; ++i) {
      prepare();
      QElapsedTimer timer;
      timer.start();
      const Ran run = Batch(arguments);
      EXPECT_EQ(run.exitCode, 0) << run.err;
      shortest = std::min(shortest, int(timer.elapsed()));
    }
    return shortest;
  }
  // Kills the run at a random moment of this many milliseconds, every second time just after a file has come
  // to be there, where old and new change places, which takes but a moment. Whether it hit; where it came too
  // late, the machine has become faster.
  bool Kill(int i, const QStringList& arguments, int& duration, const QString& file) {
    if (i % 2 == 1) return KilledAfter(arguments, file, random_.bounded(500));
    const bool hit = KilledWithin(arguments, random_.bounded(1, std::max(duration * 2 / 3, 2)));
    if (!hit) duration = duration * 2 / 3;
    return hit;
  }

 private:
  QRandomGenerator random_{20260711};
};

}  // namespace

TEST_F(KillTest, ARestoreLeavesTheOldStateOrTheNewOne) {
  constexpr int Products = 800;
  Fill("new", Products);
  WriteBackup(connection_, Outside(u"new.zip"_qs));
  connection_.Execute(u"DELETE FROM Cataloghi"_qs);
  Fill("old", Products);
  WriteBackup(connection_, Outside(u"old.zip"_qs));
  connection_.Close();
  const QStringList restoreNew = Here({u"restore"_qs, u"--yes"_qs, u"new.zip"_qs});
  const QStringList restoreOld = Here({u"restore"_qs, u"--yes"_qs, u"old.zip"_qs});
  const auto prepare = [&] { ASSERT_EQ(Batch(restoreOld).exitCode, 0); };
  int duration = Duration(restoreNew, prepare);
  int hits = 0;
  int old = 0;
  for (int i = 0; i < Kills; ++i) {
    prepare();
    hits += Kill(i, restoreNew, duration, AppFile(u".restore-journal"_qs)) ? 1 : 0;
    const Ran check = Batch(Here({u"check"_qs, u"--json"_qs}));
    ASSERT_EQ(check.exitCode, 0) << check.out;
    EXPECT_TRUE(check.Json()[u"findings"].toArray().isEmpty()) << check.out;
    WritingConnection connection;
    OpenCatalogDatabase(connection, Path());
    const QByteArray state =
        GetValue(u"NomeCatalogo"_qs, u"Cataloghi"_qs, connection, {}).toString().toUtf8();
    old += state == "old" ? 1 : 0;
    auto files = FilesIn(folder_.path());
    std::erase_if(files, [](const auto& file) { return file.first.startsWith(u"Before restore/"); });
    for (const auto& [name, content] : files)
      ASSERT_TRUE(name == u"Catalog.db" || content.startsWith(state))
          << name << " is not of the state " << state.constData();
    ASSERT_EQ(files.size(), std::size_t(2 * Products + 3)) << "something was left behind";
  }
  EXPECT_GE(hits, Kills * 9 / 10);
  EXPECT_GT(old, 0);
  EXPECT_LT(old, Kills);
  std::printf(
      "%d of %d kills hit the restore running (%d ms); %d times the old state, %d times the new one\n", hits,
      Kills, duration, old, Kills - old);
}

TEST_F(KillTest, PublishingLeavesWholeFilesAndCanAlwaysBeDoneAgain) {
  Fill("x", 300);
  QImage picture(320, 240, QImage::Format_RGB32);
  picture.fill(Qt::blue);
  for (const auto& [name, content] : FilesIn(AppFile(u"Images"_qs)))
    ASSERT_TRUE(picture.save(AppFile(u"Images/"_qs + name), "jpeg"));
  const auto publish = [&](const QString& to) {
    return Here(
        {u"publish"_qs, u"--catalog"_qs, u"109"_qs, u"--plugin"_qs, u"VLHTML.HTML"_qs, u"--to"_qs, to});
  };
  ASSERT_EQ(Batch(publish(u"before"_qs)).exitCode, 0);
  const auto before = FilesIn(Outside(u"before"_qs));
  connection_.Execute(u"UPDATE Prodotti SET Descrizione='changed'"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='È 3'"_qs);
  const auto prepare = [&] { CopyTree(Outside(u"before"_qs), Outside(u"site"_qs)); };
  int duration = Duration(publish(u"site"_qs), prepare);
  const auto after = FilesIn(Outside(u"site"_qs));
  ASSERT_GT(Differences(before, after).size(), 300);
  const auto contentIn = [](const auto& files, const QString& name) {
    const auto found = files.find(name);
    return found == files.end() ? QByteArray("(missing)") : found->second;
  };
  int hits = 0;
  for (int i = 0; i < Kills; ++i) {
    prepare();
    hits +=
        Kill(i, publish(u"site"_qs), duration, Outside(u".site.vorlina-new/vorlina-manifest.txt"_qs)) ? 1 : 0;
    const auto files = FilesIn(Outside(u"site"_qs));
    for (const auto& [name, content] : files)
      ASSERT_TRUE(content == contentIn(before, name) || content == contentIn(after, name)) << name;
    ASSERT_TRUE(files.count(u"index.html"_qs) == 1);
    EXPECT_EQ(Batch(Here({u"check"_qs})).exitCode, 0);
    ASSERT_EQ(Batch(publish(u"site"_qs)).exitCode, 0);
    ASSERT_EQ(Differences(FilesIn(Outside(u"site"_qs)), after), QStringList()) << i;
    ASSERT_EQ(QDir(outside_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              (QStringList{u"before"_qs, u"site"_qs}));
  }
  EXPECT_GE(hits, Kills * 9 / 10);
  std::printf("%d of %d kills hit publishing (%d ms)\n", hits, Kills, duration);
}

TEST_F(KillTest, AnImportLeavesNoRowWithoutItsPicture) {
  const int catalog = AddCatalog(u"Catalog"_qs);
  connection_.Close();
  QDir(outside_.path()).mkdir(u"photos"_qs);
  const QByteArray photo = MakeJpeg(MakePhoto({1600, 1200}, 1));
  for (int i = 0; i < 40; ++i) WriteFileSafely(Outside(u"photos/%1.jpg"_qs.arg(i)), photo);
  const QByteArray empty = ContentOf(Path());
  const auto prepare = [&] {
    QDir(AppFile(u"Images"_qs)).removeRecursively();
    QDir().mkpath(AppFile(u"Images"_qs));
    WriteFileSafely(Path(), empty);
    QFile::remove(Path() + u"-journal"_qs);
  };
  const QStringList import = Here({u"import"_qs, u"photos"_qs, u"--catalog"_qs, QString::number(catalog)});
  int duration = Duration(import, prepare);
  QByteArray whole;
  int hits = 0;
  for (int i = 0; i < Kills; ++i) {
    prepare();
    hits += Kill(i, import, duration, AppFile(u"Images/%1-%2.jpg"_qs.arg(catalog).arg(i % 30 + 1))) ? 1 : 0;
    const Ran check = Batch(Here({u"check"_qs, u"--json"_qs}));
    ASSERT_EQ(check.exitCode, 0) << check.out;
    int pictures = 0;
    for (const auto finding : check.Json()[u"findings"].toArray())
      pictures += finding.toObject()[u"subject"].toString().endsWith(u".jpg"_qs) &&
                  !finding.toObject()[u"subject"].toString().startsWith(u't');
    EXPECT_LE(pictures, 1) << check.out;
    WritingConnection connection;
    OpenCatalogDatabase(connection, Path());
    Rows rows(connection, u"SELECT Immagine FROM Prodotti"_qs);
    while (rows.Next()) {
      const QByteArray picture = ContentOf(rows.Value(0).toString());
      if (whole.isEmpty()) whole = picture;
      ASSERT_TRUE(picture == whole && !picture.isEmpty());
    }
  }
  EXPECT_GE(hits, Kills * 9 / 10);
  std::printf("%d of %d kills hit the import (%d ms)\n", hits, Kills, duration);
}

// Cloning leaves the copy whole or not at all, and deletion the catalog whole or not at all: what is left is
// at most files without a row.
TEST_F(KillTest, ACloneOrADeletionLeavesAWholeDatabase) {
  Fill("x", 1500);
  connection_.Execute(u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) VALUES (200,'other')"_qs);
  connection_.Close();
  const QByteArray database = ContentOf(Path());
  CopyTree(AppFile(u"Images"_qs), Outside(u"Images"_qs));
  const auto prepare = [&] {
    CopyTree(Outside(u"Images"_qs), AppFile(u"Images"_qs));
    WriteFileSafely(Path(), database);
    QFile::remove(Path() + u"-journal"_qs);
  };
  const QStringList of109{u"--catalog"_qs, u"109"_qs};
  for (const QStringList& command :
       {Here(QStringList{u"clone"_qs} + of109), Here(QStringList{u"delete"_qs, u"--yes"_qs} + of109)}) {
    const bool clones = command.first() == u"clone";
    int duration = Duration(command, prepare);
    int hits = 0;
    int done = 0;
    for (int i = 0; i < Kills; ++i) {
      prepare();
      const QString sign = clones ? AppFile(u"Images/201-È %1.jpg"_qs.arg(i * 35)) : Path() + u"-journal"_qs;
      hits += Kill(i, command, duration, sign) ? 1 : 0;
      const Ran check = Batch(Here({u"check"_qs, u"--json"_qs}));
      ASSERT_EQ(check.exitCode, 0) << check.out;
      for (const auto finding : check.Json()[u"findings"].toArray())
        ASSERT_TRUE(finding.toObject()[u"kind"].toString().endsWith(u"-file"_qs)) << check.out;
      WritingConnection connection;
      OpenCatalogDatabase(connection, Path());
      const int products = GetValue(u"COUNT(*)"_qs, u"Prodotti"_qs, connection, {}).toInt();
      const int after = clones ? 3000 : 0;
      ASSERT_TRUE(products == 1500 || products == after) << products;
      done += products == after ? 1 : 0;
    }
    EXPECT_GE(hits, Kills * 9 / 10);
    EXPECT_LT(done, Kills);
    std::printf("%d of %d kills hit %s (%d ms); %d times it was done\n", hits, Kills,
                qPrintable(command.first()), duration, done);
  }
}
