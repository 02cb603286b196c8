// Backups: what they hold, what they never replace, and that one counts only when it is whole.
#include "catalogs/Backup.h"

#include <sys/stat.h>

#include "catalogs/BackupPlace.h"
#include "store/CatalogDatabase.h"
#include "support/BackupFiles.h"
#include "support/FullDisk.h"

using namespace vorlina;

namespace {

class BackupTest : public CatalogFixture {
 protected:
  BackupTest() {
    Fill("first", 5);
    QDir(folder_.path()).mkdir(u"Layouts"_qs);
    WriteFileSafely(AppFile(u"Layouts/109.lyt"_qs), "layout");
    WriteFileSafely(AppFile(u"CardLayout.lyt"_qs), "card");
  }
  QString Backup(const QString& to = {}) {
    return FailureOf([&] { WriteBackup(connection_, to.isEmpty() ? file_ : to); });
  }

  const QString file_ = Outside(u"backup.zip"_qs);
};

}  // namespace

TEST_F(BackupTest, HoldsAllThatIsTheUsersAndNothingElse) {
  WriteFileSafely(AppFile(u"Images/temp.bmp"_qs), "scratch");
  WriteFileSafely(AppFile(u"Cataloghi.txt"_qs), "made anew at any time");
  ASSERT_EQ(Backup(), QString());
  auto expected = FilesIn(folder_.path());
  for (const QString& name : {u"Images/temp.bmp"_qs, u"Cataloghi.txt"_qs}) expected.erase(name);
  BackupFiles files = ReadBackupFiles(file_);
  EXPECT_EQ(files.erase(ManifestName), 1U);
  EXPECT_EQ(files.size(), expected.size());
  for (const auto& [name, content] : expected)
    EXPECT_TRUE(name == DatabaseName || files[name] == content) << name;
}

TEST_F(BackupTest, AFormerBackupIsReplacedAndNoOtherFile) {
  ASSERT_EQ(Backup(), QString());
  const QByteArray first = ContentOf(file_);
  connection_.Execute(u"UPDATE Cataloghi SET NomeCatalogo='second'"_qs);
  ASSERT_EQ(Backup(), QString());
  EXPECT_NE(ContentOf(file_), first);
  // Other archives too; what bears our names and no list of ours; links, pipes and devices.
  const auto archive = [this](const BackupFiles& files) {
    WriteBackupFiles(Outside(u"other.zip"_qs), files);
    return ContentOf(Outside(u"other.zip"_qs));
  };
  BackupFiles more = ReadBackupFiles(file_);
  more[u"mine.txt"_qs] = "x";
  for (const QByteArray& content :
       {QByteArray("a letter"), QByteArray(), archive({{u"word/document.xml"_qs, "x"}}), archive(more),
        archive({{DatabaseName, "x"}, {ManifestName, "{}"}})}) {
    WriteFileSafely(file_, content);
    EXPECT_TRUE(Backup().contains(u"is no backup"));
    EXPECT_EQ(ContentOf(file_), content);
  }
  QFile::remove(file_);
  QFile::remove(Outside(u"other.zip"_qs));
  ASSERT_EQ(Backup(Outside(u"other.zip"_qs)), QString());
  ASSERT_EQ(mkfifo(file_.toLocal8Bit().constData(), 0600), 0);
  ASSERT_TRUE(QFile::link(u"other.zip"_qs, Outside(u"link.zip"_qs)));
  for (const QString& name : {file_, Outside(u"link.zip"_qs), u"/dev/null"_qs})
    EXPECT_TRUE(Backup(name).contains(u"is no backup")) << name;
  const auto before = FilesIn(folder_.path());
  for (const QString& name : {u"Catalog.db"_qs, u"Images/b.zip"_qs, u"Images"_qs})
    EXPECT_FALSE(Backup(AppFile(name)).isEmpty()) << name;
  EXPECT_EQ(Differences(FilesIn(folder_.path()), before), QStringList());
}

TEST_F(BackupTest, WhatFailsLeavesTheFormerBackupAlone) {
  ASSERT_EQ(Backup(), QString());
  const QByteArray former = ContentOf(file_);
  const auto unchanged = [&](const char* what) {
    EXPECT_EQ(FilesIn(outside_.path()).size(), 1U) << what;
    EXPECT_EQ(ContentOf(file_), former) << what;
  };
  // A disk that is full while the database is copied, or while the archive is written.
  for (const unsigned long room : {20'000UL, 100'000UL}) {
    QByteArray picture(150'000, 'x');
    WriteFileSafely(AppFile(u"Images/large.jpg"_qs), picture);
    const FullDisk full(room);
    const QString told = Backup();
    EXPECT_TRUE(told.startsWith(file_ + u" cannot be written: the disk is full")) << told;
    unchanged("full disk");
  }
  QFile::remove(AppFile(u"Images/large.jpg"_qs));

  for (int stopAt = 0; stopAt < 9; ++stopAt) {
    int steps = 0;
    EXPECT_THROW(
        WriteBackup(connection_, file_, [&](qint64, qint64, const QString&) { return steps++ < stopAt; }),
        Stopped);
    unchanged("stopped");
  }
  connection_.Execute(u"PRAGMA foreign_keys=OFF"_qs);
  connection_.Execute(u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto) VALUES (999,'A')"_qs);
  EXPECT_TRUE(Backup().contains(u"not whole"));
  unchanged("a database that is not whole");
}

TEST_F(BackupTest, WhatRowsNameIsInItOrNothingIsReplaced) {
  ASSERT_EQ(Backup(), QString());
  const QByteArray former = ContentOf(file_);
  connection_.Execute(
      u"UPDATE Prodotti SET Immagine='/old/place/Images/x.jpg' WHERE CodiceProdotto='È 4'"_qs);
  QFile::remove(AppFile(u"Images/109-È 1.jpg"_qs));
  QFile::remove(AppFile(u"Images/t109-È 2.jpg"_qs));
  const QStringList lost{AppFile(u"Images/109-È 1.jpg"_qs), u"/old/place/Images/x.jpg"_qs};
  QStringList told;
  try {
    WriteBackup(connection_, file_);
  } catch (const MissingPicturesError& error) {
    told = error.Missing();
  }
  EXPECT_EQ(told, lost);
  EXPECT_EQ(ContentOf(file_), former);
  WriteFileSafely(Outside(u"far.jpg"_qs), "x");
  SetImage(u"È 3"_qs, Outside(u"far.jpg"_qs));
  const BackupReport report = WriteBackup(connection_, file_, {}, MissingPictures::Allowed);
  EXPECT_EQ(report.missing, lost);
  EXPECT_EQ(report.outside, QStringList{Outside(u"far.jpg"_qs)});
  EXPECT_NE(ContentOf(file_), former);
}

// Products that another program deletes while the files are packed, rows first.
TEST_F(BackupTest, ItsRowsAndItsPicturesBelongTogether) {
  WritingConnection other;
  other.Open(ConnectionTextFor(Path()));
  int left = 5;
  const Progress deleting = [&](qint64, qint64, const QString& step) {
    if (!step.startsWith(u"Images/") || left == 1) return true;
    const QString code = u"È %1"_qs.arg(--left);
    other.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto=?"_qs, {code});
    for (const QString& name : {u"109-"_qs, u"t109-"_qs})
      QFile::remove(AppFile(u"Images/"_qs + name + code + u".jpg"));
    return true;
  };
  WriteBackup(connection_, file_, deleting);
  EXPECT_EQ(left, 1);
  const BackupFiles files = ReadBackupFiles(file_);
  WriteFileSafely(Outside(u"copy.db"_qs), files.at(DatabaseName));
  other.Open(ConnectionTextFor(Outside(u"copy.db"_qs)));
  Rows rows(other, u"SELECT Immagine FROM Prodotti"_qs);
  while (rows.Next())
    EXPECT_EQ(files.count(u"Images/"_qs + QFileInfo(rows.Value(0).toString()).fileName()), 1U)
        << rows.Value(0).toString();
}

TEST_F(BackupTest, WhatKilledRunsLeftGoesAndNothingElse) {
  for (const QString& name :
       {u".vorlina-backup-AbCdEf/archive.zip"_qs, u".vorlina-backup-AbCdEf/Catalog.db"_qs,
        u".vorlina-backup-user's/mine"_qs, u"backup.zip.partial"_qs}) {
    QDir().mkpath(QFileInfo(Outside(name)).path());
    WriteFileSafely(Outside(name), "cut short, or the user's own");
  }
  const BackupStaging running(file_);
  WriteFileSafely(running.Archive(), "going on");
  ASSERT_EQ(Backup(), QString());
  auto left = FilesIn(outside_.path());
  for (const QString& name : {QDir(outside_.path()).relativeFilePath(running.Archive()), u"backup.zip"_qs,
                              u".vorlina-backup-user's/mine"_qs, u"backup.zip.partial"_qs})
    EXPECT_EQ(left.erase(name), 1U) << name;
  EXPECT_TRUE(left.empty()) << left.begin()->first;
}
