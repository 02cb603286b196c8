// Restores: what is refused, and that there is the old state or the new one afterwards, wherever one is cut
// short.
#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "catalogs/Backup.h"
#include "catalogs/CatalogCheck.h"
#include "catalogs/RestoreSwap.h"
#include "store/CatalogDatabase.h"
#include "support/BackupFiles.h"
#include "support/FullDisk.h"
#include "support/Print.h"
#include "support/WritingConnection.h"

using namespace vorlina;

namespace {

// The calls that change a folder end the process at this one, counted from 1; 0 never.
int dieAtCall = 0;
int folderCalls = 0;

void CountFolderCall() {
  if (dieAtCall > 0 && ++folderCalls == dieAtCall) _exit(9);
}

}  // namespace

// In the place of the system's own, for this program and the libraries that it uses.
#define VORLINA_EXPORT extern "C" __attribute__((visibility("default")))
VORLINA_EXPORT int rename(const char* from, const char* to) noexcept {
  CountFolderCall();
  return renameat(AT_FDCWD, from, AT_FDCWD, to);
}
VORLINA_EXPORT int unlink(const char* path) noexcept {
  CountFolderCall();
  return unlinkat(AT_FDCWD, path, 0);
}
VORLINA_EXPORT int rmdir(const char* path) noexcept {
  CountFolderCall();
  return unlinkat(AT_FDCWD, path, AT_REMOVEDIR);
}
VORLINA_EXPORT int mkdir(const char* path, mode_t mode) noexcept {
  CountFolderCall();
  return mkdirat(AT_FDCWD, path, mode);
}

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
    auto files = FilesIn(folder_.path());
    std::erase_if(files, [](const auto& file) { return file.first.startsWith(u"Before restore/"); });
    QString name;
    {
      WritingConnection connection;
      if (QString refused = FailureOf([&] { OpenCatalogDatabase(connection, Path()); }); !refused.isEmpty())
        return refused;
      if (const auto findings = CheckCatalogs(connection); !findings.empty())
        return NameOf(findings[0].kind) + u' ' + findings[0].subject;
      name = GetValue(u"NomeCatalogo"_qs, u"Cataloghi"_qs, connection, {}).toString();
    }
    const bool isOld = name == u"old";
    for (const auto& [file, content] : files)
      if (file.startsWith(u"Images/") && !content.startsWith(name.toUtf8())) return u"picture "_qs + file;
    const std::size_t meant = isOld ? 6 * 2 + 2 + 1 + 1 : 4 * 2 + 2 + 1;
    return files.size() == meant ? name : u"%1, %2 files"_qs.arg(name).arg(files.size());
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
    before = FilesIn(folder_.path());
    std::erase_if(before, [](const auto& file) { return file.first.startsWith(u"Before restore/"); });
  }
}

TEST_F(RestoreTest, NamesComeBackByteForByte) {
  // The same letters, put together and apart; and names that are at the end of what a file system takes.
  const QStringList names{u"Images/\u00E9.jpg"_qs, u"Images/e\u0301.jpg"_qs, u"Layouts/u\u0308.lyt"_qs,
                          u"Images/"_qs + QString(251, u'n') + u".jpg"_qs};
  for (const QString& name : names) WriteFileSafely(AppFile(name), name.toUtf8());
  connection_.Open(ConnectionTextFor(Path()));
  WriteBackup(connection_, file_);
  connection_.Close();
  SetAppPath(Outside(u"fresh"_qs));
  ASSERT_EQ(Restore(), QString());
  for (const QString& name : names) EXPECT_EQ(ContentOf(AppFile(name)), name.toUtf8()) << name;
  EXPECT_EQ(FilesIn(AppPath()).size(), FilesIn(folder_.path()).size());
}

TEST_F(RestoreTest, PathsPointToWhereItIsRestored) {
  struct Case {
    QString from;
    QString stored;
    QString expected;  // below the application folder, or as it was
  };
  const std::vector<Case> cases{
      {u"/other/place"_qs, u"/other/place/Images/109-A.jpg"_qs, u"Images/109-A.jpg"_qs},
      {u"C:\\Ditta\\L'app"_qs, u"C:\\Ditta\\L'app\\Images\\109-A.jpg"_qs, u"Images/109-A.jpg"_qs},
      {u"/other"_qs, u"/otherwise/Images/109-A.jpg"_qs, QString()},
      {u"/other"_qs, u"/Other/Images/109-A.jpg"_qs, QString()}};
  const BackupFiles whole = ReadBackupFiles(file_);
  for (const Case& c : cases) {
    BackupFiles files = whole;
    WriteFileSafely(Outside(u"Catalog.db"_qs), files[DatabaseName]);
    connection_.Open(ConnectionTextFor(Outside(u"Catalog.db"_qs)));
    connection_.Execute(u"UPDATE Prodotti SET Immagine=? WHERE CodiceProdotto='È 1'"_qs, {c.stored});
    connection_.Close();
    files[DatabaseName] = ContentOf(Outside(u"Catalog.db"_qs));
    FitManifest(files, [&](BackupManifest& manifest) { manifest.applicationPath = c.from; });
    WriteBackupFiles(file_, files);
    SetAppPath(Outside(u"fresh"_qs));
    ASSERT_EQ(Restore(), QString()) << c.from;
    connection_.Open(ConnectionTextFor(AppFile(DatabaseName)));
    EXPECT_EQ(One(u"Immagine"_qs, u"Prodotti"_qs, u"CodiceProdotto='È 1'"_qs).toString(),
              c.expected.isEmpty() ? c.stored : AppFile(c.expected))
        << c.from;
    connection_.Close();
  }
}

TEST_F(RestoreTest, ABackupThatIsNotWholeIsRefused) {
  const BackupFiles whole = ReadBackupFiles(file_);
  const auto damageDatabase = [](BackupFiles& files, int at, char byte) { files[DatabaseName][at] = byte; };
  struct Case {
    const char* name;
    std::function<void(BackupFiles&)> change;
    bool fitManifest;
    QString tells;
  };
  const std::vector<Case> cases{
      {"a changed picture", [](BackupFiles& f) { f[u"Images/7.jpg"_qs][3] = '!'; }, false, u"not whole"_qs},
      {"a missing picture", [](BackupFiles& f) { f.erase(u"Images/7.jpg"_qs); }, false, u"not whole"_qs},
      {"a file too many", [](BackupFiles& f) { f[u"Images/8.jpg"_qs] = "x"; }, false, u"not whole"_qs},
      {"no manifest", [](BackupFiles& f) { f.erase(ManifestName); }, false, u"no backup of Vorlina"_qs},
      {"another manifest", [](BackupFiles& f) { f[ManifestName] = "{}"; }, false, u"no backup of Vorlina"_qs},
      {"a later form", [](BackupFiles& f) { f[ManifestName].replace("\"version\":1", "\"version\":2"); },
       false, u"newer version"_qs},
      {"a name of its own making",
       [](BackupFiles& f) {
         f[ManifestName].replace("\"name\":\"Images/7.jpg\"",
                                 R"("stored": "Images/7.jpg", "name": "Images/../../x")");
       },
       false, u"does not belong"_qs},
      {"a program", [](BackupFiles& f) { f[u"PubWiz/Evil.so"_qs] = "x"; }, true, u"does not belong"_qs},
      {"no database", [](BackupFiles& f) { f.erase(DatabaseName); }, true, u"not whole"_qs},
      {"an empty database", [](BackupFiles& f) { f[DatabaseName].clear(); }, true, u"empty"_qs},
      {"a newer schema", [&](BackupFiles& f) { damageDatabase(f, 63, 9); }, true, u"newer version"_qs},
      {"a foreign database", [&](BackupFiles& f) { damageDatabase(f, 68, 'X'); }, true,
       u"no database of Vorlina"_qs},
      {"a damaged database",
       [&](BackupFiles& f) { f[DatabaseName].replace(4096, 500, QByteArray(500, 'z')); }, true,
       u"damaged"_qs},
  };
  for (const Case& c : cases) {
    BackupFiles files = whole;
    c.change(files);
    if (c.fitManifest) FitManifest(files);
    WriteBackupFiles(file_, files);
    const QString told = Restore();
    EXPECT_TRUE(told.contains(c.tells)) << c.name << ": " << told;
    EXPECT_EQ(State(), u"old"_qs) << c.name;
  }
  WriteBackupFiles(file_, whole);
  EXPECT_EQ(Restore(), QString()) << "and the unchanged one is taken";
  EXPECT_EQ(State(), u"new"_qs);
}

TEST_F(RestoreTest, OnlyADatabaseThatIsBuiltLikeOursIsTaken) {
  const BackupFiles whole = ReadBackupFiles(file_);
  const std::vector<std::pair<const char*, QString>> cases{
      {"PRAGMA foreign_keys=OFF; DROP TABLE Immagini", u"(Immagini)"_qs},
      {"CREATE UNIQUE INDEX OnlyOne ON Prodotti (CodiceProdotto, Pubblica)", u"(OnlyOne)"_qs},
      {"ALTER TABLE Extensions ADD COLUMN More TEXT", u"(Extensions)"_qs},
      {"ALTER TABLE Extensions RENAME COLUMN C TO D", u"(Extensions)"_qs},
      {"DROP INDEX SchedePerProdotto", u"(SchedePerProdotto)"_qs},
      {"DROP INDEX SchedePerProdotto; CREATE INDEX SchedePerProdotto ON SchedeTecniche (IDCatalogo)",
       u"(SchedePerProdotto)"_qs},
      {"DROP TABLE SchedeTecniche; CREATE TABLE SchedeTecniche (IDScheda INTEGER PRIMARY KEY AUTOINCREMENT,"
       " IDCatalogo INTEGER NOT NULL, CodiceProdotto TEXT NOT NULL COLLATE NOCASE, Caratteristica TEXT,"
       " Valore TEXT); CREATE INDEX SchedePerProdotto ON SchedeTecniche (IDCatalogo, CodiceProdotto)",
       u"(SchedeTecniche)"_qs},
      {"CREATE TRIGGER t AFTER UPDATE ON Prodotti BEGIN DELETE FROM Cataloghi; END", u"(trigger t)"_qs},
      {"CREATE VIEW v AS SELECT 1", u"(view v)"_qs},
      {"CREATE VIRTUAL TABLE f USING fts5(a)", u"(shadow f_content)"_qs},
      {"CREATE TABLE More (a UNIQUE); CREATE INDEX OfMore ON More (a)", QString()},
      {"PRAGMA user_version=0", QString()}};
  for (const auto& [sql, tells] : cases) {
    BackupFiles files = whole;
    const QString database = Outside(u"Catalog.db"_qs);
    WriteFileSafely(database, files[DatabaseName]);
    {
      SQLite::Database changed(database.toStdString(), SQLite::OPEN_READWRITE);
      RegisterSqlExtensions(changed);
      changed.exec(sql);
    }
    files[DatabaseName] = ContentOf(database);
    FitManifest(files);
    WriteBackupFiles(file_, files);
    const QString told = Restore();
    EXPECT_TRUE(tells.isEmpty() ? told.isEmpty() : told.contains(tells)) << sql << ": " << told;
    EXPECT_EQ(State(), tells.isEmpty() ? u"new"_qs : u"old"_qs) << sql;
  }
}

// The list says how much is unpacked: more than fits is refused beforehand, more than it says is not
// unpacked.
TEST_F(RestoreTest, ABackupThatWouldFillTheDiskIsRefused) {
  BackupFiles files = ReadBackupFiles(file_);
  files[u"Images/bomb.jpg"_qs] = QByteArray(5'000'000, 'x');
  for (const auto& [size, tells] :
       {std::pair(qint64(1) << 50, u"no room"_qs), {4'000'000, u"not whole"_qs}}) {
    FitManifest(files, [&, size = size](BackupManifest& manifest) {
      manifest.files[u"Images/bomb.jpg"_qs].size = size;
    });
    WriteBackupFiles(file_, files);
    EXPECT_TRUE(Restore().contains(tells)) << tells;
    EXPECT_EQ(State(), u"old"_qs);
  }
}

TEST_F(RestoreTest, NobodyLosesTheDatabaseThatHeHasOpen) {
  {
    WritingConnection idle;
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
  int became[2] = {0, 0};
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
    ++became[state == u"new" ? 1 : 0];
    if (state == u"old") continue;
    ASSERT_EQ(Differences(FilesIn(FormerFolder(folder_.path())), old), QStringList()) << call;
    for (const QString& entry : {u"Images"_qs, u"Layouts"_qs}) QDir(AppFile(entry)).removeRecursively();
    for (const auto& [name, content] : old) {
      QDir().mkpath(QFileInfo(AppFile(name)).path());
      WriteFileSafely(AppFile(name), content);
    }
  }
  // Else the calls were not counted.
  EXPECT_GT(became[0], 5);
  EXPECT_GT(became[1], 10);
}

TEST_F(RestoreTest, WhenTheChangeOfPlacesFailsItIsTakenBack) {
  // What is staged cannot take the place of a folder that is not empty and that the journal does not know.
  QDir().mkpath(StagingFolder(folder_.path()) + u"/Images"_qs);
  WriteFileSafely(
      AppFile(u".restore-journal"_qs),
      R"({"kept":"Before restore","former":["Catalog.db"],"coming":["Images"],"completed":false})");
  EXPECT_TRUE(FailureOf([] { FinishInterruptedRestore(); }).contains(u"cannot be moved"));
  EXPECT_EQ(State(), u"old"_qs);
}

TEST_F(RestoreTest, AJournalThatCannotBeReadTouchesNothing) {
  const QByteArray bytes[] = {"", "{}", R"({"kept":"../x","former":[],"coming":["Images"]})",
                              R"({"kept":"k","former":["../x"],"coming":["../y"]})"};
  for (const QByteArray& content : bytes) {
    WriteFileSafely(AppFile(u".restore-journal"_qs), content);
    EXPECT_TRUE(FailureOf([] { FinishInterruptedRestore(); }).contains(u"cannot be read"))
        << content.constData();
  }
  QFile::remove(AppFile(u".restore-journal"_qs));
  EXPECT_EQ(State(), u"old"_qs);
}
