// The program as a user or a script meets it: exit codes, texts and JSON.
#include <QColor>
#include <QImage>
#include <QJsonArray>
#include <QRegularExpression>
#include <csignal>

#include "batch/BatchFixture.h"
#include "catalogs/CloneCatalog.h"
#include "publish/ProfileStore.h"
#include "publish/PublishMemory.h"
#include "publish/WebPictures.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class CommandsTest : public BatchFixture {
 protected:
  CommandsTest() { QDir(outside_.path()).mkdir(u"photos"_qs); }
  // A command on the application folder of this test, its words separated by blanks.
  Ran Run(const QString& line) const { return Batch(Here(line.split(u' '))); }
  // What a command answers in JSON, on one line, with the test's folders as "APP" and "OUT".
  QString Answer(const QString& line, int exitCode = 0) const {
    const Ran run = Run(line + u" --json");
    EXPECT_EQ(run.exitCode, exitCode) << run.out << run.err;
    return QString::fromUtf8(QJsonDocument(run.Json()).toJson(QJsonDocument::Compact))
        .replace(QRegularExpression(u"Catalog [-0-9. ]{23}"_qs), u"Catalog"_qs)
        .replace(AppPath(), u"APP"_qs)
        .replace(outside_.path(), u"OUT"_qs);
  }
};

}  // namespace

TEST_F(CommandsTest, EachCommandHasItsJsonAndItsText) {
  Fill("Catalogo", 3);
  connection_.Execute(u"UPDATE Prodotti SET Pubblica=0 WHERE CodiceProdotto='È 1'"_qs);
  connection_.Execute(u"UPDATE Cataloghi SET NomeCatalogo=?"_qs, {u"Luci\n\x1b[31m\"è\""_qs});
  EXPECT_EQ(
      Answer(u"catalogs"_qs),
      uR"({"catalogs":[{"description":"","id":109,"name":"Luci\n\u001b[31m\"è\"","products":3,)"
      uR"("profiles":[{"identifier":"standard","language":"en","name":"Standard"}],"published":2}],"command":"catalogs","folder":"APP","ok":true})");
  QStringList found;
  for (const QJsonValue plugin : Run(u"plugins --json"_qs).Json()[u"plugins"].toArray())
    if (plugin[u"installed"].toBool())
      found += plugin[u"identifier"].toString() + (plugin[u"publishesToFolder"].toBool() ? u'+' : u'-') +
               plugin[u"suffix"].toString();
  EXPECT_EQ(found.join(u' '),
            u"Test.Endless+ Test.Failing+ Test.Painting+ Test.Reporting-txt Test.Windows- VLHTML.HTML+");
  const Ran publish = Run(u"publish --catalog=109 --plugin=VLHTML.HTML --to=site --json"_qs);
  EXPECT_EQ(publish.exitCode, 0) << publish.out;
  EXPECT_TRUE(QFileInfo::exists(Outside(u"site/index.html"_qs)));
  EXPECT_EQ(publish.err, QString()) << "no progress where there is no terminal";
  WriteFileSafely(Outside(u"photos/b.JPG"_qs), MakeJpeg(MakePhoto({900, 600}, 1)));
  EXPECT_EQ(
      Answer(u"import photos --catalog 109"_qs),
      uR"({"catalog":109,"command":"import","copy":"APP/Backups/Catalog before import.db","imported":1,)"
      uR"("last":"b.JPG","ok":true,"passedOver":[],"pictures":1,"source":"OUT/photos"})");
  EXPECT_EQ(Answer(u"clone --catalog 109"_qs),
            uR"({"catalog":109,"clone":110,"command":"clone","ok":true,"warnings":[]})");
  EXPECT_EQ(
      Answer(u"delete --catalog 110 --yes"_qs),
      uR"({"catalog":110,"command":"delete","copy":"APP/Backups/Catalog before deletion.db","ok":true})");
  EXPECT_EQ(Run(u"delete --catalog 110 --yes"_qs).exitCode, 1);
  connection_.Close();
  for (const QString& line : {u"backup b.zip --json"_qs, u"restore b.zip --yes --json"_qs})
    EXPECT_EQ(Run(line).Json()[u"files"].toInt(), 11) << line;
}

TEST_F(CommandsTest, PublishingFollowsTheProfileAndTellsTheWholeReport) {
  Fill("x", 1);
  const QString line = u"publish --catalog 109 --plugin Test.Reporting --to out.txt"_qs;
  EXPECT_EQ(Run(line + u" --language de").exitCode, 0);
  EXPECT_EQ(ContentOf(Outside(u"out.txt"_qs)), "Standard de true");
  VorlinaProfile dealers = ReadProfiles(connection_, 109).first();
  dealers.identifier.clear();
  dealers.name = u"Händler"_qs;
  dealers.language = u"fr"_qs;
  dealers.identifier = StoreProfile(connection_, 109, dealers);
  RememberPublication(connection_, 109, u"Test.Reporting"_qs,
                      {dealers.identifier, {}, {{u"cover"_qs, false}}});
  for (const auto& [more, tells] :
       {std::pair{u""_qs, u"--profile: Händler, Standard"_qs},
        {u" --profile x"_qs, u"no profile \"x\". There are: Händler, Standard"_qs}})
    EXPECT_TRUE(Run(line + more).err.contains(tells)) << Run(line + more).err;
  const Ran run = Run(line + u" --profile händler --json");
  EXPECT_EQ(ContentOf(Outside(u"out.txt"_qs)), "Händler fr false");
  QJsonObject told = run.Json();
  EXPECT_EQ(told.take(u"notes"_qs).toArray().first().toObject(),
            (QJsonObject{
                {u"kind"_qs, u"no-picture"_qs}, {u"product"_qs, u"0"_qs}, {u"text"_qs, u"no picture"_qs}}));
  EXPECT_EQ(told.take(u"warnings"_qs).toArray().last(), u"as for the rest"_qs);
  EXPECT_EQ(told, (QJsonObject{{u"catalog"_qs, 109},
                               {u"plugin"_qs, u"Test.Reporting"_qs},
                               {u"profile"_qs, u"Händler"_qs},
                               {u"language"_qs, u"fr"_qs},
                               {u"target"_qs, Outside(u"out.txt"_qs)},
                               {u"pages"_qs, 2},
                               {u"pictures"_qs, 3},
                               {u"bytes"_qs, 40},
                               {u"added"_qs, 5},
                               {u"changed"_qs, 6},
                               {u"removed"_qs, 7},
                               {u"command"_qs, u"publish"_qs},
                               {u"ok"_qs, true}}));
  const QString text = Run(line + u" --profile standard").out;
  EXPECT_TRUE(text.contains(u"(25)\n  0: no picture\n") && text.contains(u"  and 5 more")) << text;
  EXPECT_TRUE(Run(u"publish --catalog 109 --plugin Test.Reporting --profile Standard --to photos"_qs)
                  .err.contains(u"is a folder"));
}

TEST_F(CommandsTest, NothingIsPublishedOverAnotherCatalogOrProfile) {
  Fill("x", 1);
  VorlinaProfile dealers = ReadProfiles(connection_, 109).first();
  dealers.identifier.clear();
  dealers.name = u"Dealers"_qs;
  StoreProfile(connection_, 109, dealers);
  CatalogClone(109, connection_).DuplicaCatalogo({}, {});
  const QString line = u"publish --plugin VLHTML.HTML --to site "_qs;
  EXPECT_EQ(Run(line + u"--catalog 109 --profile standard").exitCode, 0);
  const auto site = FilesIn(Outside(u"site"_qs));
  for (const auto& [more, tells] : {std::pair{u"--catalog 110 --profile standard"_qs, u"another catalog"_qs},
                                    {u"--catalog 109 --profile dealers"_qs, u"another profile"_qs}}) {
    const Ran refused = Run(line + more);
    EXPECT_EQ(refused.exitCode, 1) << more;
    EXPECT_TRUE(refused.err.contains(tells) && refused.err.contains(u"Choose another folder")) << refused.err;
    EXPECT_EQ(Differences(FilesIn(Outside(u"site"_qs)), site), QStringList()) << more;
  }
}

// Nothing good is replaced by a site that lost all its pictures.
TEST_F(CommandsTest, PublishingTellsOfPicturesThatCannotBeKeptAndIsRefusedWithoutAny) {
  Fill("x", 1);
  WriteFileSafely(AppFile(u"Images/109-È 0.jpg"_qs),
                  MakeJpeg(MakePhoto({900, 600}, 1), {.exif = MakeExif(6)}));
  WriteFileSafely(AppFile(WebPicturesFolder), "in the way");
  const QString line = u"publish --plugin VLHTML.HTML --to site --catalog 109"_qs;
  EXPECT_EQ(Run(line).out.count(u"in a temporary folder"), 1);
  const auto site = FilesIn(Outside(u"site"_qs));
  EXPECT_EQ(site.count(u"images/p-e-0.jpg"_qs), 1U) << "the whole one";
  for (const auto& [name, content] : site)
    EXPECT_FALSE(content.contains("VorlinaCam")) << name << " tells of the camera";
  QDir().rename(AppFile(u"Images"_qs), AppFile(u"Away"_qs));
  for (const QString& why : {u"Images does not exist."_qs, u"every picture"_qs}) {
    const Ran refused = Run(line);
    EXPECT_TRUE(refused.exitCode == 1 && refused.err.contains(why)) << refused.err;
    EXPECT_EQ(Differences(FilesIn(Outside(u"site"_qs)), site), QStringList());
    QDir().mkdir(AppFile(u"Images"_qs));
  }
  connection_.Execute(u"UPDATE Prodotti SET Immagine=NULL"_qs);
  connection_.Execute(u"DELETE FROM Immagini"_qs);
  EXPECT_EQ(Run(line).exitCode, 0) << "no row names one";
}

TEST_F(CommandsTest, ADeletionKeepsACopyToGoBackToUnlessItIsWaived) {
  Fill("x", 1);
  WriteFileSafely(AppFile(u"Backups"_qs), "in the way");
  EXPECT_TRUE(Run(u"delete --catalog 109 --yes"_qs).err.contains(u"Add --without-copy"));
  EXPECT_EQ(Count(u"Cataloghi"_qs), 1);
  QFile::remove(AppFile(u"Backups"_qs));
  const QString copy = Run(u"delete --catalog 109 --yes --json"_qs).Json()[u"copy"].toString();
  connection_.Close();
  EXPECT_TRUE(
      Batch(Here({u"restore"_qs, copy, u"--yes"_qs, u"--json"_qs})).Json()[u"databaseAlone"].toBool());
  EXPECT_EQ(QDir(AppFile(u"Backups"_qs)).entryList(QDir::Files).size(), 2);
  EXPECT_EQ(Run(u"delete --catalog 109 --yes --without-copy"_qs).exitCode, 0);
  EXPECT_EQ(QDir(AppFile(u"Backups"_qs)).entryList(QDir::Files).size(), 2);
}

TEST_F(CommandsTest, BackupsAtATimeOntoOneFileEndAsOneGoodFile) {
  Fill("x", 100);
  connection_.Close();
  std::array<QProcess, 3> processes;
  for (QProcess& process : processes) Start(process, Here({u"backup"_qs, u"b.zip"_qs}));
  for (QProcess& process : processes) {
    const Ran run = Ended(process);
    EXPECT_EQ(run.exitCode, 0) << run.err;
  }
  EXPECT_EQ(QDir(outside_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
            (QStringList{u"b.zip"_qs, u"photos"_qs}));
  EXPECT_EQ(Run(u"restore --yes b.zip"_qs).exitCode, 0);
}

TEST_F(CommandsTest, FindingsDecideTheExitCode) {
  Fill("x", 30);
  WriteFileSafely(AppFile(u"Images/spare.jpg"_qs), "x");
  const Ran notes = Run(u"check"_qs);
  EXPECT_EQ(notes.exitCode, 0);
  EXPECT_EQ(notes.out, u"Note: Files in \"Images\" that no row uses (1)\n  spare.jpg\n"_qs);
  for (int i = 0; i < 25; ++i) QFile::remove(AppFile(u"Images/109-È %1.jpg"_qs.arg(i)));
  EXPECT_TRUE(Run(u"check"_qs).out.startsWith(u"DAMAGE: Pictures that are missing (25)\n"));
  const QString json = Answer(u"check"_qs, 1);
  EXPECT_TRUE(json.contains(u"\"damage\":25,") && json.contains(u"\"ok\":false")) << json;
  EXPECT_EQ(Run(u"backup b.zip"_qs).exitCode, 1);
  EXPECT_TRUE(Run(u"backup b.zip --allow-missing"_qs).out.contains(u"Missing from the backup (25):"_qs));
}

TEST_F(CommandsTest, WhatCannotBeDoneIsToldWithItsExitCode) {
  Fill("x", 1);
  WriteFileSafely(Outside(u"file"_qs), "a file");
  WriteFileSafely(Outside(u"photos/b.jpg"_qs), "no picture");
  WriteFileSafely(Outside(u"broken.zip"_qs), "PK\3\4 and no more");
  // The line's words are separated by blanks.
  const QString publish = u"publish --to out --catalog "_qs;
  using Cases = std::vector<std::pair<QString, QString>>;
  const Cases cases{
      {publish + u"7 --plugin VLHTML.HTML", u"There is no catalog 7"_qs},
      {publish + u"109 --plugin Test.Windows", u"does not publish without windows"_qs},
      {publish + u"109 --plugin Test.Failing", u"the paper is used up"_qs},
      {u"publish --catalog 109 --plugin VLHTML.HTML --to file/sub"_qs, u"file"_qs},
      {u"backup file"_qs, u"is no backup"_qs},
      {u"import photos --catalog 109"_qs, u"photos/b.jpg cannot be read: it is no JPEG picture"_qs},
      {u"import photos --catalog 7"_qs, u"catalog 7"_qs},
      {u"restore --yes broken.zip"_qs, u"in another program"_qs}};
  const Cases wrongUse{{u"backup"_qs, u"takes one file name"_qs},
                       {u"publish --catalog 1 --plugin A"_qs, u"needs the option --to"_qs},
                       {u"delete --catalog 1"_qs, u"needs the option --yes"_qs},
                       {u"catalogs --language de"_qs, u"Italian or English"_qs},
                       {u"catalogs more"_qs, u"Too much: more"_qs}};
  const auto before = FilesIn(folder_.path());
  for (const auto& [exitCode, lines] : {std::pair{1, cases}, {2, wrongUse}})
    for (const auto& [line, tells] : lines) {
      const Ran run = Run(line);
      EXPECT_EQ(run.exitCode, exitCode) << line;
      EXPECT_TRUE(run.err.contains(tells)) << line << ": " << run.err;
      EXPECT_EQ(run.out,
                line.endsWith(u"photos --catalog 109") ? u"Imported 0 products of 1\n"_qs : QString());
    }
  QDir(AppFile(u"Backups"_qs)).removeRecursively();
  EXPECT_EQ(Differences(FilesIn(folder_.path()), before), QStringList());
  EXPECT_EQ(FilesIn(outside_.path()).size(), 3U);
  // Nor does any command make a database.
  connection_.Close();
  QFile::remove(Path());
  for (const QString& line : {u"catalogs"_qs, u"check"_qs, u"backup b.zip"_qs})
    EXPECT_TRUE(Run(line).err.contains(u"does not exist")) << line;
  EXPECT_FALSE(QFile::exists(Path()));
}

TEST_F(CommandsTest, TwoImportsAtATimeKeepTheirPicturesApart) {
  AddCatalog(u"Catalog"_qs);
  std::map<QString, QProcess> processes;
  for (const QString& colour : {u"red"_qs, u"blue"_qs}) {
    QDir(outside_.path()).mkdir(colour);
    QImage image(900, 600, QImage::Format_RGB32);
    image.fill(QColor(colour));
    for (int i = 0; i < 20; ++i)
      WriteFileSafely(Outside(u"%1/%1 %2.jpg"_qs.arg(colour).arg(i)), MakeJpeg(image));
    Start(processes[colour], Here({u"import"_qs, colour, u"--catalog"_qs, u"1"_qs}));
  }
  for (auto& [colour, process] : processes) EXPECT_EQ(Ended(process).exitCode, 0) << colour;
  EXPECT_EQ(Count(u"Prodotti"_qs), 40);
  Rows rows(connection_, u"SELECT Descrizione,Immagine FROM Prodotti"_qs);
  while (rows.Next()) {
    const QColor colour = QImage(rows.Value(1).toString()).pixelColor(100, 100);
    EXPECT_EQ(colour.red() > 200 ? u"red"_qs : u"blue"_qs, rows.Value(0).toString().section(u' ', 0, 0));
  }
}

// A folder that was copied works on its own pictures alone.
TEST_F(CommandsTest, ACopiedFolderLeavesTheOriginalAlone) {
  Fill("x", 3);
  connection_.Close();
  const auto original = FilesIn(folder_.path());
  const QString copy = Outside(u"copy"_qs);
  QDir().mkpath(copy + u"/Images"_qs);
  for (const auto& [name, content] : original) WriteFileSafely(copy + u'/' + name, content);
  const Ran run = Batch({u"delete"_qs, u"--catalog=109"_qs, u"--yes"_qs, u"--app"_qs, copy});
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_TRUE(FilesIn(copy + u"/Images"_qs).empty());
  EXPECT_EQ(Differences(FilesIn(folder_.path()), original), QStringList());
}

TEST_F(CommandsTest, ASignalStopsPublishing) {
  Fill("x", 1);
  for (const int signal : {SIGINT, SIGTERM}) {
    QFile::remove(Outside(u"out.begun"_qs));
    QProcess process;
    Start(process, Here({u"publish"_qs, u"--catalog=109"_qs, u"--plugin=Test.Endless"_qs, u"--to=out"_qs}));
    while (!QFileInfo::exists(Outside(u"out.begun"_qs)) && !process.waitForFinished(5)) {
    }
    ::kill(pid_t(process.processId()), signal);
    const Ran run = Ended(process);
    EXPECT_FALSE(run.killed);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(u"stopped") && run.err.contains(u"as it was")) << run.err;
  }
}
