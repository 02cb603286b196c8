// Backups: what they hold, what they never replace, and that one counts only when it is whole.
#include "catalogs/Backup.h"

#include <sys/stat.h>

#include "store/CatalogDatabase.h"
#include "support/BackupFiles.h"
#include "support/FullDisk.h"
#include "support/Print.h"

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
  QString Backup() {
    return FailureOf([&] { WriteBackup(connection_, file_); });
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
  EXPECT_EQ(FilesIn(outside_.path()).size(), 1U) << "only the backup itself";
}

TEST_F(BackupTest, AFormerBackupIsReplacedAndNoOtherFile) {
  ASSERT_EQ(Backup(), QString());
  const QByteArray first = ContentOf(file_);
  connection_.Execute(u"UPDATE Cataloghi SET NomeCatalogo='second'"_qs);
  ASSERT_EQ(Backup(), QString());
  EXPECT_NE(ContentOf(file_), first);
  WriteFileSafely(file_, "a letter");
  EXPECT_TRUE(Backup().contains(u"is no backup"));
  EXPECT_EQ(ContentOf(file_), "a letter");
  const auto before = FilesIn(folder_.path());
  for (const QString& name : {u"Catalog.db"_qs, u"Images/b.zip"_qs, u"Images"_qs})
    EXPECT_FALSE(FailureOf([&] { WriteBackup(connection_, AppFile(name)); }).isEmpty()) << name;
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
    EXPECT_FALSE(Backup().isEmpty()) << room;
    unchanged("full disk");
  }
  QFile::remove(AppFile(u"Images/large.jpg"_qs));

  for (int stopAt = 0;; ++stopAt) {
    int steps = 0;
    try {
      WriteBackup(connection_, Outside(u"other.zip"_qs),
                  [&](qint64, qint64, const QString&) { return steps++ < stopAt; });
      break;
    } catch (const Stopped&) {
      unchanged("stopped");
    }
  }
  QFile::remove(Outside(u"other.zip"_qs));

  connection_.Execute(u"PRAGMA foreign_keys=OFF"_qs);
  connection_.Execute(u"INSERT INTO Prodotti (IDCatalogo,CodiceProdotto) VALUES (999,'A')"_qs);
  EXPECT_TRUE(Backup().contains(u"not whole"));
  unchanged("a database that is not whole");
}

TEST_F(BackupTest, ANameThatNoRestoreWouldTakeIsTold) {
  WriteFileSafely(AppFile(u"Images/a:b.jpg"_qs), "x");
  EXPECT_TRUE(Backup().contains(u"a:b.jpg"));
  EXPECT_TRUE(FilesIn(outside_.path()).empty());
}
