// Packages of plug-ins: what is refused, and that there is the former plug-in or the new one, wherever an
// installation is cut short.
#include <sys/wait.h>

#include <QScopeGuard>

#include "publish/PluginChange.h"
#include "publish/PluginInstallation.h"
#include "publish/PluginPackage.h"
#include "publish/plugin/IVorlinaPlugin.h"
#include "support/BackupFiles.h"
#include "support/FolderCalls.h"
#include "support/FullDisk.h"

using namespace vorlina;

namespace {

const QString Library = QStringLiteral(TEST_PLUGINS "/Test.Good.so");

class PackageTest : public CatalogFixture {
 protected:
  // A package of this version, which brings these files along: each holds its name and the version.
  QString Pack(const QString& version, const QStringList& files) const {
    const QString folder = Outside(u"files"_qs);
    QDir(folder).removeRecursively();
    for (const QString& file : files) Write(folder + u'/' + file, (file + version).toUtf8());
    QDir().mkpath(folder);
    return WritePackage(Library, version, folder, Outside(u"package"_qs));
  }
  static void Write(const QString& path, const QByteArray& content) {
    QDir().mkpath(QFileInfo(path).path());
    WriteFileSafely(path, content);
  }
  QString PubWiz() const { return AppFile(u"PubWiz"_qs); }
  std::map<QString, QByteArray> Installed() const { return FilesIn(PubWiz()); }
  QString Names() const {
    QStringList names;
    for (const auto& [name, content] : Installed()) names += name;
    return names.join(u'|');
  }
  // Whether all of one version is there, but for what its user has changed.
  bool IsWhole(const QString& changed) const {
    const std::optional<PackageManifest> manifest = InstalledPackage(PubWiz(), u"Test.Good"_qs);
    return manifest && std::all_of(manifest->files.begin(), manifest->files.end(), [&](const auto& file) {
             return file.name == changed || HashOf(PubWiz() + u'/' + file.name) == file.hash;
           });
  }
  QString Failure(const QString& package) const {
    return FailureOf([&] { AggiornaPluginMsi(package, PubWiz()); });
  }
};

// The text with its first occurrence of a part replaced.
QByteArray With(QByteArray text, const QByteArray& part, const QByteArray& other) {
  const qsizetype at = text.indexOf(part);
  EXPECT_GE(at, 0) << part.constData();
  return text.replace(at, part.size(), other);
}

}  // namespace

TEST_F(PackageTest, WhatIsWrongIsToldAndNothingIsLeft) {
  const QString package = Pack(u"1.0"_qs, {u"a.txt"_qs});
  const BackupFiles whole = ReadBackupFiles(package);
  const QString manifest = u"manifest.json"_qs;
  const auto edited = [&](const QByteArray& part, const QByteArray& other) {
    BackupFiles files = whole;
    files[manifest] = With(files[manifest], part, other);
    return files;
  };
  const auto with = [&](const QString& name, const QByteArray& content) {
    BackupFiles files = whole;
    files[name] = content;
    return files;
  };
  const auto without = [&](const QString& name) {
    BackupFiles files = whole;
    files.erase(name);
    return files;
  };
  const QByteArray own = QByteArray(VORLINA_PLUGIN_IID);
  QFile older(QStringLiteral(TEST_PLUGINS "/Test.Older.so"));
  ASSERT_TRUE(older.open(QIODevice::ReadOnly));
  BackupFiles swapped = with(u"Test.Good.so"_qs, older.readAll());
  swapped[manifest] = With(With(swapped[manifest], HashOf(Library), HashOf(older.fileName())),
                           "\"size\": " + QByteArray::number(QFileInfo(Library).size()),
                           "\"size\": " + QByteArray::number(older.size()));
  const std::tuple<QString, BackupFiles> cases[] = {
      {u"is not a package"_qs, without(manifest)},
      {u"newer version of Vorlina"_qs, edited("\"format\": 1", "\"format\": 2")},
      {u"is damaged or is not made"_qs, edited("\"format\": 1", "\"format\": \"1\"")},
      {u"is not the name of a plug-in"_qs, edited("\"Test.Good\"", "\"../Test.Good\"")},
      {u"is not the name of a plug-in"_qs, edited("\"Test.Good\"", "\"Test;Good\"")},
      {u"holds the plug-in Other.Good"_qs, ReadBackupFiles(package)},
      {u"version"_qs, edited("\"1.0\"", "\"1\\n0\"")},
      {u"another version of Vorlina"_qs, edited(own, "vorlina.IVorlinaPluginFactory/0")},
      {u"made with Qt 6.99"_qs, edited("\"qt\": \"6.", "\"qt\": \"6.99")},
      {u"another kind of computer"_qs, edited("x86_64", "arm64")},
      {u"Test.Good/../x"_qs, edited("Test.Good/a.txt", "Test.Good/../x")},
      {u"Catalog.db"_qs, edited("Test.Good/a.txt", "Catalog.db")},
      {u"x x x"_qs, edited("Test.Good/a.txt", QByteArray("x\\n").repeated(500))},
      {u"Test.Good.so"_qs, edited("Test.Good.so", "Test.Good/b.so")},
      {u"a.txt in the package is damaged"_qs, with(u"Test.Good/a.txt"_qs, "a.txt1.1")},
      {u"a.txt in the package is damaged"_qs, edited("\"size\": 8", "\"size\": 9")},
      {u"holds a file that must not be in it: b"_qs, with(u"b"_qs, "")},
      {u"Test.Good/a.txt is missing"_qs, without(u"Test.Good/a.txt"_qs)},
      {u"too large"_qs, with(u"Test.Good/a.txt"_qs, QByteArray(9'000'000, ' '))},
      {u"is not what the package says"_qs, swapped},
  };
  for (const auto& [tells, files] : cases) {
    BackupFiles written = files;
    if (tells.contains(u"Other"))
      for (int i = 0; i < 3; ++i) written[manifest].replace("Test.Good", "Other.Good");
    WriteBackupFiles(package, written);
    const QString told = Failure(package);
    EXPECT_TRUE(told.contains(tells) && told.size() < 300) << tells << ": " << told;
    EXPECT_EQ(Names(), QString());
  }
  for (const QString& name : {u"Test.Good (1).vpk"_qs, u"test.good.vpk"_qs, u"Test.Good.zip"_qs, u"vpk"_qs}) {
    WriteBackupFiles(Outside(name), whole);
    EXPECT_TRUE(Failure(Outside(name)).contains(u"Rename it to \"Test.Good.vpk\""_qs)) << name;
  }
  WriteBackupFiles(package, whole);
  {
    const FullDisk full(20000);
    EXPECT_TRUE(Failure(package).startsWith(PubWiz() + u" cannot"_qs));
  }
  WriteFileSafely(package, "no archive");
  EXPECT_TRUE(Failure(package).contains(u"zip"_qs));
  EXPECT_EQ(Names(), QString());
}

// An update takes away what the former package brought, keeps what its user made and what he changed, and
// the halves of it tell whether they found the plug-in.
TEST_F(PackageTest, TheHalvesAndBothOfThem) {
  const QString first =
      Pack(u"1.0"_qs, {u"Skins/Standard/a.css"_qs, u"Skins/Standard/b.css"_qs, u"old/c"_qs});
  const PackageManifest seen = VerifyPackage(first);
  EXPECT_FALSE(RimuoviPluginMsi(first));
  EXPECT_TRUE(InstallaPluginMsi(first, PubWiz()));
  const auto installed = Installed();
  EXPECT_EQ(Names(),
            u"Test.Good.manifest.json|Test.Good.so|Test.Good/Skins/Standard/a.css|"
            "Test.Good/Skins/Standard/b.css|Test.Good/old/c"_qs);
  const QString second = Pack(u"2.0"_qs, {u"Skins/Standard/a.css"_qs, u"Skins/Standard/b.css"_qs, u"d"_qs});
  EXPECT_FALSE(InstallaPluginMsi(second, PubWiz()));
  const QString ready = PubWiz() + u"/.Test.Good.vpk-ready"_qs;
  Write(ready + u"/manifest.json"_qs, "{\"format\":2}");
  FinishInterruptedInstallations(PubWiz());
  QDir(ready).removeRecursively();
  EXPECT_EQ(Installed(), installed);
  EXPECT_TRUE(FailureOf([&] { AggiornaPluginMsi(second, seen, PubWiz()); }).contains(u"changed"));
  EXPECT_TRUE(FailureOf([&] { Pack(u"3.0"_qs, {u".a"_qs}); }).contains(u"hidden"));

  Write(PubWiz() + u"/Test.Good/Skins/Mine/a.css"_qs, "mine");
  Write(PubWiz() + u"/Test.Good/Skins/Standard/b.css"_qs, "changed");
  EXPECT_EQ(FilesToKeep(PubWiz(), VerifyPackage(second)).join(u'|'), u"Test.Good/Skins/Standard/b.css"_qs);
  EXPECT_TRUE(AggiornaPluginMsi(second, PubWiz()));
  auto files = Installed();
  EXPECT_EQ(
      Names(),
      u"Test.Good.manifest.json|Test.Good.so|Test.Good/Before update/Skins/Standard/b.css|"
      "Test.Good/Skins/Mine/a.css|Test.Good/Skins/Standard/a.css|Test.Good/Skins/Standard/b.css|Test.Good/d"_qs);
  EXPECT_EQ(files[u"Test.Good/Before update/Skins/Standard/b.css"_qs], "changed");
  EXPECT_EQ(files[u"Test.Good/Skins/Standard/b.css"_qs], "Skins/Standard/b.css2.0");
  EXPECT_EQ(InstalledPackage(PubWiz(), u"Test.Good"_qs)->version, u"2.0"_qs);
  EXPECT_FALSE(QFileInfo::exists(PubWiz() + u"/Test.Good/old"_qs));

  EXPECT_TRUE(RimuoviPluginMsi(second));
  EXPECT_EQ(Names(), u"Test.Good/Before update/Skins/Standard/b.css|Test.Good/Skins/Mine/a.css"_qs);
  EXPECT_FALSE(RimuoviPluginMsi(second));
  const QString delivered = DeliveredPlugin(u"Test.Good/Skins/Standard/a.css"_qs);
  const auto end = qScopeGuard([] { QDir(DeliveredPlugin({})).removeRecursively(); });
  // What lies there without a package makes room too; what is not as the package has it is kept.
  Write(PubWiz() + u"/Test.Good.so"_qs, "another");
  Write(PubWiz() + u"/Test.Good/d"_qs, "mine");
  for (const QString& place : {QDir(PubWiz()).filePath(u"Test.Good/Skins/Standard/a.css"_qs), delivered})
    Write(place, "as delivered");
  Write(PubWiz() + u"/Test.Good.manifest.json"_qs, "cut sh");
  EXPECT_TRUE(AggiornaPluginMsi(second, PubWiz()));
  files = Installed();
  EXPECT_EQ(files[u"Test.Good.so"_qs], ContentOf(Library));
  EXPECT_EQ(files[u"Test.Good/Before update/d"_qs], "mine");
  EXPECT_EQ(files.count(u"Test.Good/Before update/Skins/Standard/a.css"_qs), 0U);
}

TEST_F(PackageTest, WhereverAnUpdateIsCutShortThereIsTheOldPluginOrTheNewOne) {
  AggiornaPluginMsi(Pack(u"1.0"_qs, {u"Skins/a"_qs, u"Skins/b"_qs, u"old/c"_qs}), PubWiz());
  Write(PubWiz() + u"/Test.Good/Skins/b"_qs, "changed");
  const auto old = Installed();
  const QString package = Pack(u"2.0"_qs, {u"Skins/a"_qs, u"Skins/b"_qs, u"new/d"_qs});
  const auto restore = [&] {
    QDir(PubWiz()).removeRecursively();
    for (const auto& [name, content] : old) Write(PubWiz() + u'/' + name, content);
  };
  AggiornaPluginMsi(package, PubWiz());
  const auto fresh = Installed();
  const QString ready = PubWiz() + u"/.Test.Good.vpk-ready"_qs;
  for (const auto& [killed, damaged] : {std::pair{true, false}, {true, true}, {false, false}}) {
    std::map<bool, int> became;
    bool ended = false;
    for (int call = 1; !ended; ++call) {
      ASSERT_LT(call, 300);
      restore();
      QString told;
      if (killed) {
        const pid_t child = fork();
        if (child == 0) {
          dieAtCall = call;
          _exit(Failure(package).isEmpty() ? 0 : 1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) != 1) << call;
        ended = WEXITSTATUS(status) == 0;
      } else {
        folderCalls = 0;
        failAtCall = call;
        told = Failure(package);
        failAtCall = 0;
        ended = folderCalls < call;
      }
      if (damaged && QFileInfo::exists(ready + u"/manifest.json"_qs)) {
        Write(ready + u"/manifest.json"_qs, "cut sh");
        FinishInterruptedInstallations(PubWiz());
        QDir(ready).removeRecursively();
      }
      FinishInterruptedInstallations(PubWiz());
      const auto now = Installed();
      const bool isOld = Differences(now, old).isEmpty();
      ASSERT_TRUE(damaged ? IsWhole(u"Test.Good/Skins/b"_qs) : isOld || Differences(now, fresh).isEmpty())
          << killed << call << ": " << Names() << Differences(now, fresh).join(u' ');
      EXPECT_TRUE(killed || isOld != told.isEmpty()) << call << told;
      ++became[isOld];
    }
    EXPECT_GT(became[true], 5) << killed;
    EXPECT_GT(became[false], 5) << killed;
  }
}
