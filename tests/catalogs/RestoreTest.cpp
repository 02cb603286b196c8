// Restores: what is refused, and that there is the old state or the new one afterwards, wherever one is cut
// short.
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QRandomGenerator>

#include "catalogs/AutomaticBackup.h"
#include "catalogs/Backup.h"
#include "catalogs/BackupSources.h"
#include "catalogs/CatalogCheck.h"
#include "catalogs/RestoreSwap.h"
#include "publish/ProfileStore.h"
#include "store/CatalogDatabase.h"
#include "support/BackupFiles.h"
#include "support/FolderCalls.h"
#include "support/FullDisk.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class RestoreTest : public CatalogFixture {
 protected:
  // A backup of catalog "new" in a folder that holds catalog "old", with other pictures and a layout.
  RestoreTest() {
    Fill("new", 4);
    WriteBackup(connection_, file_);
    connection_.Execute(u"DELETE FROM Cataloghi"_qs);
    QDir(AppFile(u"Images"_qs)).removeRecursively();
    QDir().mkpath(AppFile(u"Images"_qs));
    Fill("old", 6);
    QDir().mkpath(AppFile(u"Layouts"_qs));
    WriteFileSafely(AppFile(u"Layouts/109.lyt"_qs), "layout");
    connection_.Close();
  }

  QString Restore() {
    return FailureOf([&] { RestoreBackup(file_); });
  }

  // "old" or "new", where database, pictures and layouts all belong to it and nothing else is there but what
  // was there before.
  QString State() {
    Connection connection;
    if (QString refused = FailureOf([&] { OpenCatalogDatabase(connection, Path()); }); !refused.isEmpty())
      return refused;
    for (const Finding& finding : CheckCatalogs(connection)) return NameOf(finding.kind) + finding.subject;
    const QString name = GetValue(u"NomeCatalogo"_qs, u"Cataloghi"_qs, connection, {}).toString();
    connection.Close();
    const auto files = Files();
    for (const auto& [file, content] : files)
      if (file.startsWith(u"Images/") && !content.startsWith(name.toUtf8())) return u"picture "_qs + file;
    const std::size_t meant = name == u"old" ? 6 * 2 + 2 + 1 + 1 : 4 * 2 + 2 + 1;
    return files.size() == meant ? name : u"%1, %2 files"_qs.arg(name).arg(files.size());
  }
  std::map<QString, QByteArray> Files() const {
    auto files = FilesIn(folder_.path());
    std::erase_if(files, [](const auto& file) {
      return file.first.startsWith(u"Before restore/") || file.first.startsWith(u"Backups/");
    });
    return files;
  }
  // A backup whose database was changed by statements that no connection of ours would run.
  BackupFiles Changed(BackupFiles files, const QString& sql) const {
    const QString path = Outside(u"Catalog.db"_qs);
    WriteFileSafely(path, files[DatabaseName]);
    {
      SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE);
      RegisterSqlExtensions(database);
      database.exec(sql.toStdString());
    }
    files[DatabaseName] = ContentOf(path);
    FitManifest(files);
    return files;
  }

  const QString file_ = Outside(u"backup.zip"_qs);
};

}  // namespace

TEST_F(RestoreTest, ReplacesEverythingAndKeepsWhatWasThereUntilTheNextOne) {
  // The journal of a former change must not be played into the restored database.
  WriteFileSafely(AppFile(u"Catalog.db-journal"_qs), QByteArray(4096, 'j'));
  auto before = FilesIn(folder_.path());
  before.erase(u"Catalog.db-journal"_qs);  // whoever asks for a lock sees that it is none
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Restore(), QString());
    EXPECT_EQ(State(), u"new"_qs);
    EXPECT_EQ(Differences(FilesIn(FormerFolder(folder_.path())), before), QStringList()) << i;
    before = Files();
  }
}

// They are names alone, and the copy of the database that is compared with the files lies elsewhere.
TEST_F(RestoreTest, AProfilesPicturesComeBack) {
  connection_.Open(ConnectionTextFor(Path()));
  VorlinaProfile profile = ReadProfiles(connection_, 109).first();
  WriteFileSafely(Outside(u"logo.jpg"_qs), MakeJpeg(MakePhoto({300, 200}, 1)));
  profile.logo = Outside(u"logo.jpg"_qs);
  StoreProfile(connection_, 109, profile);
  const QString logo = ReadProfiles(connection_, 109).first().logo;
  const QByteArray content = ContentOf(logo);
  EXPECT_EQ(FailureOf([&] { WriteBackup(connection_, file_); }), QString());
  connection_.Close();
  SetAppPath(Outside(u"fresh"_qs));
  ASSERT_EQ(Restore(), QString());
  connection_.Open(ConnectionTextFor(AppFile(DatabaseName)));
  EXPECT_EQ(MissingPicturesIn(connection_), QStringList());
  EXPECT_EQ(ContentOf(ReadProfiles(connection_, 109).first().logo), content);
}

TEST_F(RestoreTest, PathsPointToWhereItIsRestored) {
  // From where the backup was made, what its row names, and whether that lay there.
  const std::vector<std::tuple<QString, QString, bool>> cases{
      {u"C:\\Ditta\\L'app"_qs, u"C:\\Ditta\\L'app\\Images\\109-A.jpg"_qs, true},
      {u"/other"_qs, u"/otherwise/Images/109-A.jpg"_qs, false},
      {u"/other"_qs, u"/Other/Images/109-A.jpg"_qs, false}};
  const BackupFiles whole = ReadBackupFiles(file_);
  for (const auto& [from, stored, fits] : cases) {
    BackupFiles files = Changed(whole, u"UPDATE Prodotti SET Immagine='%1' WHERE CodiceProdotto='È 1'"_qs.arg(
                                           QString(stored).replace(u"'"_qs, u"''"_qs)));
    FitManifest(files, [&, from = from](BackupManifest& manifest) { manifest.applicationPath = from; });
    WriteBackupFiles(file_, files);
    SetAppPath(Outside(u"fresh"_qs));
    ASSERT_EQ(Restore(), QString()) << from;
    connection_.Open(ConnectionTextFor(AppFile(DatabaseName)));
    EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto='È 1'"_qs),
              fits ? AppFile(u"Images/109-A.jpg"_qs) : stored)
        << from;
    connection_.Close();
  }
}

TEST_F(RestoreTest, WhatIsNotWholeOrNotBuiltLikeOursIsRefused) {
  const BackupFiles whole = ReadBackupFiles(file_);
  const QString picture = u"Images/7.jpg"_qs;
  using Change = std::function<BackupFiles(BackupFiles)>;
  const auto put = [](const QString& name, const QByteArray& content) -> Change {
    return [=](BackupFiles files) { return files[name] = content, files; };
  };
  const auto without = [](const QString& name) -> Change {
    return [=](BackupFiles files) { return files.erase(name), files; };
  };
  const auto list = [](const QByteArray& before, const QByteArray& after) -> Change {
    return [=](BackupFiles files) { return files[ManifestName].replace(before, after), files; };
  };
  const auto fit = [](const Change& change) -> Change {
    return [=](BackupFiles files) { return files = change(files), FitManifest(files), files; };
  };
  const auto sql = [this](const QString& statements) -> Change {
    return [=, this](const BackupFiles& files) { return Changed(files, statements); };
  };
  // The list says how much is unpacked: more than fits is refused beforehand, more than it says not unpacked.
  const auto bomb = [](qint64 size) -> Change {
    return [=](BackupFiles files) {
      files[u"Images/bomb.jpg"_qs] = QByteArray(5'000'000, 'x');
      FitManifest(files,
                  [=](BackupManifest& manifest) { manifest.files[u"Images/bomb.jpg"_qs].size = size; });
      return files;
    };
  };
  QByteArray damaged = whole.at(DatabaseName);
  damaged.replace(4096, 500, QByteArray(500, 'z'));
  const std::vector<std::pair<QString, Change>> cases{
      {u"not whole"_qs, put(picture, "changed")},
      {u"not whole"_qs, without(picture)},
      {u"not whole"_qs, put(u"Images/8.jpg"_qs, "x")},
      {u"not whole"_qs, fit(without(DatabaseName))},
      {u"no backup of Vorlina"_qs, put(ManifestName, "{}")},
      {u"newer version"_qs, list(R"("version":1)", R"("version":2)")},
      {u"does not belong"_qs,
       list(R"("name":"Images/7.jpg")", R"("stored":"Images/7.jpg","name":"../../x")")},
      {u"does not belong"_qs, fit(put(u"PubWiz/Evil.so"_qs, "a program"))},
      {u"no room"_qs, bomb(qint64(1) << 50)},
      {u"not whole"_qs, bomb(4'000'000)},
      {file_ + u" cannot be restored. Choose another backup. (The file "_qs + file_ +
           u" cannot be used: it is damaged. ("_qs,
       fit(put(DatabaseName, damaged))},
      {file_ + u" cannot be restored. The file "_qs + file_ + u" cannot be used: it was made by a newer"_qs,
       sql(u"PRAGMA user_version=99"_qs)},
      {u"(Immagini)"_qs, sql(u"PRAGMA foreign_keys=OFF; DROP TABLE Immagini"_qs)},
      {u"(OnlyOne)"_qs, sql(u"CREATE UNIQUE INDEX OnlyOne ON Prodotti (CodiceProdotto, Pubblica)"_qs)},
      {u"(Extensions)"_qs, sql(u"ALTER TABLE Extensions RENAME COLUMN C TO D"_qs)},
      {u"(SchedePerProdotto)"_qs, sql(u"DROP INDEX SchedePerProdotto; CREATE INDEX SchedePerProdotto ON "
                                      "SchedeTecniche (IDCatalogo)"_qs)},
      {u"(PExtension)"_qs, sql(u"PRAGMA writable_schema=ON; UPDATE sqlite_schema SET "
                               "sql=replace(sql,'ON DELETE CASCADE','') WHERE name='PExtension'"_qs)},
      {u"(trigger t)"_qs,
       sql(u"CREATE TRIGGER t AFTER UPDATE ON Prodotti BEGIN DELETE FROM Cataloghi; END"_qs)},
      {u"(view v)"_qs, sql(u"CREATE VIEW v AS SELECT 1"_qs)},
      {u"(shadow f_content)"_qs, sql(u"CREATE VIRTUAL TABLE f USING fts5(a)"_qs)},
      {{}, sql(u"CREATE TABLE More (a UNIQUE); CREATE INDEX OfMore ON More (a)"_qs)}};
  for (const auto& [tells, change] : cases) {
    WriteBackupFiles(file_, change(whole));
    const QString told = Restore();
    EXPECT_TRUE(tells.isEmpty() ? told.isEmpty() : told.contains(tells)) << tells << ": " << told;
    EXPECT_EQ(State(), tells.isEmpty() ? u"new"_qs : u"old"_qs) << tells;
  }
}

TEST_F(RestoreTest, NobodyLosesTheDatabaseThatHeHasOpen) {
  {
    Connection idle;
    OpenCatalogDatabase(idle, Path());
    EXPECT_TRUE(Restore().contains(u"open in another program"));
  }
  {
    SQLite::Database foreign(Path().toStdString(), SQLite::OPEN_READWRITE);
    RegisterSqlExtensions(foreign);
    foreign.exec("BEGIN IMMEDIATE; UPDATE Cataloghi SET Extras='x'");
    EXPECT_TRUE(Restore().contains(u"open in another program"));
  }
  EXPECT_EQ(State(), u"old"_qs);
}

TEST_F(RestoreTest, AFullDiskOrAStopLeavesTheOldState) {
  for (const unsigned long room : {50UL, 3'000UL, 20'000UL}) {
    const FullDisk full(room);
    EXPECT_FALSE(Restore().isEmpty()) << room;
  }
  EXPECT_EQ(State(), u"old"_qs);
  for (int stopAt = 0;; ++stopAt) {
    int steps = 0;
    try {
      RestoreBackup(file_, [&](qint64, qint64, const QString&) { return steps++ < stopAt; });
      break;
    } catch (const Stopped&) {
      ASSERT_EQ(State(), u"old"_qs) << stopAt;
    }
  }
  EXPECT_EQ(State(), u"new"_qs);
}

TEST_F(RestoreTest, WhereverItIsCutShortTheNextStartHasTheOldStateOrTheNewOne) {
  // A copy of the old state for each time.
  const auto old = FilesIn(folder_.path());
  std::map<QString, int> became;
  bool ended = false;
  for (int call = 1; !ended; ++call) {
    ASSERT_LT(call, 500);
    const pid_t child = fork();
    if (child == 0) {
      dieAtCall = call;
      _exit(Restore().isEmpty() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 1) << call;
    ended = WEXITSTATUS(status) == 0;
    ASSERT_EQ(FailureOf([] { FinishInterruptedRestore(); }), QString()) << call;
    const QString state = State();
    ASSERT_TRUE(state == u"old" || state == u"new") << call << ": " << state;
    ++became[state];
    if (state == u"old") continue;
    ASSERT_EQ(Differences(FilesIn(FormerFolder(folder_.path())), old), QStringList()) << call;
    for (const QString& entry : {u"Images"_qs, u"Layouts"_qs}) QDir(AppFile(entry)).removeRecursively();
    for (const auto& [name, content] : old) {
      QDir().mkpath(QFileInfo(AppFile(name)).path());
      WriteFileSafely(AppFile(name), content);
    }
  }
  // Else the calls were not counted.
  EXPECT_GT(became[u"old"_qs], 5);
  EXPECT_GT(became[u"new"_qs], 10);
}

TEST_F(RestoreTest, AJournalThatCannotBeFollowedChangesNothing) {
  const QByteArray bytes[] = {"", "{}", R"({"kept":"../x","former":[],"coming":["Images"]})",
                              R"({"kept":"k","former":["../x"],"coming":["../y"]})"};
  for (const QByteArray& content : bytes) {
    WriteFileSafely(AppFile(u".restore-journal"_qs), content);
    EXPECT_TRUE(FailureOf([] { FinishInterruptedRestore(); }).contains(u"cannot be read"))
        << content.constData();
  }
  // What is staged cannot take the place of a folder that is not empty and that the journal does not know:
  // what was done by then is taken back.
  QDir().mkpath(StagingFolder(folder_.path()) + u"/Images"_qs);
  WriteFileSafely(
      AppFile(u".restore-journal"_qs),
      R"({"kept":"Before restore","former":["Catalog.db"],"coming":["Images"],"completed":false})");
  EXPECT_TRUE(FailureOf([] { FinishInterruptedRestore(); }).contains(u"cannot be moved"));
  EXPECT_EQ(State(), u"old"_qs);
}

// The copy before a restore is the way back to its rows; "Before restore" brings the pictures back as well.
TEST_F(RestoreTest, ADatabaseAloneAndWhatWasThereBeforeComeBack) {
  const auto before = Files();
  EXPECT_EQ(Restore(), QString());
  const QString former = FormerFolder(folder_.path());
  const QString copy = AutomaticBackups().at(0).file;
  connection_.Open(ConnectionTextFor(Path()));
  EXPECT_EQ(AddCatalog(u"later"_qs), 110);
  connection_.Close();
  EXPECT_EQ(RestoreBackup(copy).former.section(u'-', 0, 0),
            NextFormerFolder(folder_.path(), true).section(u'-', 0, 0));
  connection_.Open(ConnectionTextFor(Path()));
  EXPECT_EQ(One(u"NomeCatalogo"_qs, u"Cataloghi"_qs), u"old"_qs);
  EXPECT_EQ(AddCatalog(u"another"_qs), 111) << "its pictures would be those of the one that may come back";
  EXPECT_EQ(MissingPicturesIn(connection_).size(), 2);
  connection_.Close();
  EXPECT_TRUE(PictureNames().contains(u"109-È 3.jpg"));
  // The pictures that were there before the first restore are those that the database names.
  EXPECT_EQ(Differences(FilesIn(former), before), QStringList());
  EXPECT_EQ(RestoreBackup(former).scope, RestoreScope::Everything);
  EXPECT_EQ(State(), u"old"_qs);
  EXPECT_EQ(FilesIn(former).count(u"Images/109-È 5.jpg"_qs), 0U);
}

TEST_F(RestoreTest, WithoutACopyOfTheFormerDatabaseTheUserDecides) {
  WriteFileSafely(AppFile(u"Backups"_qs), "in the way");
  EXPECT_TRUE(Restore().contains(u"Backups"));
  EXPECT_THROW(RestoreBackup(file_, {}, [](const QString&) { return false; }), Stopped);
  QFile::remove(AppFile(u"Backups"_qs));
  EXPECT_EQ(State(), u"old"_qs);
  // An empty one is not worth a copy, and one that cannot be read is what a restore is for.
  WriteFileSafely(Path(), "");
  EXPECT_EQ(Restore(), QString());
  EXPECT_TRUE(AutomaticBackups().empty());
  WriteFileSafely(Path(), QByteArray(5000, 'x'));
  RestoreBackup(file_, {}, [](const QString& why) { return why.contains(u"damaged"); });
  EXPECT_EQ(State(), u"new"_qs);
}

TEST_F(RestoreTest, TenAutomaticCopiesStayWhateverHappensMeanwhile) {
  const QDir folder(AppFile(u"Backups"_qs));
  const auto keep = [] { return FailureOf([] { KeepAutomaticBackup(BackupReason::Deletion); }); };
  // The clock was set back meanwhile, and somebody keeps more in the folder.
  ASSERT_EQ(keep(), QString());
  const QByteArray whole = ContentOf(AutomaticBackups().at(0).file);
  for (int i = 0; i < 12; ++i)
    WriteFileSafely(folder.filePath(u"Catalog 2099-01-01 00.00.%1.000 before import.db"_qs.arg(i + 10)),
                    whole);
  WriteFileSafely(folder.filePath(u"Catalog 2001-01-01 00.00.00.000.db"_qs), "kept");
  const auto isWhole = [&](std::size_t copies) {
    const std::vector<AutomaticBackup> there = AutomaticBackups();
    EXPECT_EQ(there.size(), copies);
    for (const AutomaticBackup& copy : there) EXPECT_EQ(ContentOf(copy.file), whole) << copy.file;
    EXPECT_EQ(folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
              qsizetype(copies) + 1);
  };
  ASSERT_EQ(keep(), QString());
  EXPECT_EQ(AutomaticBackups().back().reason, u"deletion of a catalog"_qs) << "the new one stays";
  isWhole(10);
  KeepAutomaticBackup(BackupReason::Restore, AutomaticBackups().back().file);
  isWhole(11);  // with the one that is being restored
  ASSERT_EQ(keep(), QString());
  isWhole(10);

  // What fails costs no older one.
  for (const unsigned long room : {50UL, 3'000UL, 20'000UL}) {
    const FullDisk full(room);
    EXPECT_TRUE(keep().contains(u"Backups")) << room;
  }
  const QByteArray rows = ContentOf(Path());
  QByteArray damaged = rows;
  damaged.replace(4096, 500, QByteArray(500, 'z'));
  WriteFileSafely(Path(), damaged);
  EXPECT_FALSE(keep().isEmpty());
  WriteFileSafely(Path(), rows);
  isWhole(10);

  // A kill leaves ten, of which one may be too many, and no rest for long.
  bool ended = false;
  for (int call = 1; !ended; ++call) {
    ASSERT_LT(call, 100);
    const pid_t child = fork();
    if (child == 0) {
      dieAtCall = call;
      _exit(keep().isEmpty() ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 1) << call;
    ended = WEXITSTATUS(status) == 0;
    ASSERT_GE(AutomaticBackups().size(), 10U) << call;
  }
  isWhole(10);

  // Programs at a time count and remove one after the other.
  std::vector<pid_t> children;
  for (int i = 0; i < 4; ++i)
    if (children.push_back(fork()); children.back() == 0) {
      // A child has its parent's random numbers, and two would make one name; programs do not.
      for (int drawn = 0; drawn < i * 1000; ++drawn) QRandomGenerator::global()->generate();
      _exit(keep().isEmpty() && keep().isEmpty() ? 0 : 1);
    }
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  isWhole(10);
}
