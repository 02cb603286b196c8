// The program as a user or a script meets it: exit codes, texts and JSON.
#include <QColor>
#include <QImage>
#include <QJsonArray>
#include <csignal>

#include "batch/BatchFixture.h"
#include "support/TestJpeg.h"

using namespace vorlina;

namespace {

class CommandsTest : public BatchFixture {
 protected:
  CommandsTest() { QDir(outside_.path()).mkdir(u"photos"_qs); }
};

QStringList Keys(const QJsonObject& object) { return object.keys(); }

}  // namespace

TEST_F(CommandsTest, HelpVersionAndUsage) {
  EXPECT_TRUE(Batch({u"--help"_qs}).out.contains(u"publish --catalog ID --plugin IDENT --to DIR"));
  EXPECT_TRUE(Batch({u"--version"_qs}).out.startsWith(u"vorlina-batch 1."));
  for (const QStringList& line : {QStringList{}, {u"foo"_qs}, {u"check"_qs, u"--json"_qs, u"--now"_qs}}) {
    const Ran run = Batch(line);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.out, QString());
    EXPECT_TRUE(run.err.contains(u"Usage: vorlina-batch COMMAND")) << run.err;
  }
}

TEST_F(CommandsTest, EachCommandHasItsJsonAndItsText) {
  Fill("Catalogo", 3);
  connection_.Execute(u"UPDATE Prodotti SET Pubblica=0 WHERE CodiceProdotto='È 1'"_qs);
  connection_.Execute(u"UPDATE Cataloghi SET NomeCatalogo=?"_qs, {u"Luci\n\x1b[31m\"è\""_qs});

  const Ran catalogs = Batch(Here({u"catalogs"_qs, u"--json"_qs}));
  EXPECT_EQ(catalogs.exitCode, 0) << catalogs.err;
  EXPECT_EQ(Keys(catalogs.Json()), (QStringList{u"catalogs"_qs, u"command"_qs, u"folder"_qs, u"ok"_qs}));
  const QJsonObject expected{{u"id"_qs, 109},
                             {u"name"_qs, u"Luci\n\x1b[31m\"è\""_qs},
                             {u"description"_qs, QString()},
                             {u"products"_qs, 3},
                             {u"published"_qs, 2}};
  EXPECT_EQ(catalogs.Json()[u"catalogs"].toArray(), QJsonArray{expected});
  EXPECT_EQ(Batch(Here({u"catalogs"_qs})).out,
            u"Number  Name           Products  Published\n"
            "   109  Luci  [31m\"è\"         3          2\n"_qs);

  const Ran check = Batch(Here({u"check"_qs, u"--json"_qs}));
  EXPECT_EQ(check.exitCode, 0);
  EXPECT_EQ(Keys(check.Json()),
            (QStringList{u"command"_qs, u"damage"_qs, u"findings"_qs, u"folder"_qs, u"ok"_qs}));

  const Ran plugins = Batch(Here({u"plugins"_qs, u"--json"_qs}));
  EXPECT_EQ(plugins.exitCode, 0);
  EXPECT_EQ(plugins.err, QString());
  QStringList found;
  for (const QJsonValue plugin : plugins.Json()[u"plugins"].toArray())
    if (plugin[u"installed"].toBool())
      found +=
          plugin[u"identifier"].toString() + u' ' + (plugin[u"publishesToFolder"].toBool() ? u'y' : u'n');
  EXPECT_EQ(found, (QStringList{u"Test.Endless y"_qs, u"Test.Failing y"_qs, u"Test.Painting y"_qs,
                                u"Test.Windows n"_qs, u"VLHTML.HTML y"_qs}));

  const Ran publish = Batch(Here({u"publish"_qs, u"--catalog"_qs, u"109"_qs, u"--plugin"_qs,
                                  u"VLHTML.HTML"_qs, u"--to"_qs, u"site"_qs, u"--json"_qs}));
  EXPECT_EQ(publish.exitCode, 0) << publish.out << publish.err;
  EXPECT_EQ(publish.Json()[u"target"].toString(), Outside(u"site"_qs));
  EXPECT_TRUE(QFileInfo::exists(Outside(u"site/index.html"_qs)));
  EXPECT_EQ(publish.err, QString()) << "no progress where there is no terminal";

  for (const QString& name : {u"a.jpg"_qs, u"b.JPG"_qs})
    WriteFileSafely(Outside(u"photos/"_qs + name), MakeJpeg(MakePhoto({900, 600}, 1)));
  const Ran import = Batch(Here({u"import"_qs, u"photos"_qs, u"--catalog"_qs, u"109"_qs, u"--json"_qs}));
  EXPECT_EQ(import.exitCode, 0) << import.out << import.err;
  EXPECT_EQ(import.Json(), (QJsonObject{{u"catalog"_qs, 109},
                                        {u"command"_qs, u"import"_qs},
                                        {u"imported"_qs, 2},
                                        {u"ok"_qs, true},
                                        {u"passedOver"_qs, QJsonArray()},
                                        {u"pictures"_qs, 2},
                                        {u"source"_qs, Outside(u"photos"_qs)}}));
  EXPECT_EQ(Batch(Here({u"import"_qs, u"photos"_qs, u"--catalog"_qs, u"109"_qs})).out,
            u"Imported 2 products\n");

  const Ran clone = Batch(Here({u"clone"_qs, u"--catalog"_qs, u"109"_qs, u"--json"_qs}));
  EXPECT_EQ(clone.Json(), (QJsonObject{{u"catalog"_qs, 109},
                                       {u"clone"_qs, 110},
                                       {u"command"_qs, u"clone"_qs},
                                       {u"ok"_qs, true},
                                       {u"warnings"_qs, QJsonArray()}}));
  EXPECT_EQ(One(u"COUNT(*)"_qs, u"Prodotti"_qs, u"IDCatalogo=110"_qs), 7);
  EXPECT_EQ(Batch(Here({u"delete"_qs, u"--catalog"_qs, u"110"_qs, u"--yes"_qs})).out,
            u"Catalog 110 is deleted\n");
  EXPECT_EQ(Batch(Here({u"delete"_qs, u"--catalog"_qs, u"110"_qs, u"--yes"_qs})).exitCode, 1);

  const std::vector<std::pair<QStringList, QStringList>> safety{
      {{u"backup"_qs}, {u"missing"_qs, u"outside"_qs}}, {{u"restore"_qs, u"--yes"_qs}, {u"former"_qs}}};
  for (const auto& [command, members] : safety) {
    connection_.Close();
    const Ran run = Batch(Here(command + QStringList{u"b.zip"_qs, u"--json"_qs}));
    EXPECT_EQ(run.exitCode, 0) << run.out << run.err;
    QStringList keys =
        QStringList{u"bytes"_qs, u"command"_qs, u"file"_qs, u"files"_qs, u"folder"_qs, u"ok"_qs} + members;
    keys.sort();
    EXPECT_EQ(Keys(run.Json()), keys);
    EXPECT_EQ(run.Json()[u"files"].toInt(), 17);
  }
}

TEST_F(CommandsTest, ABackupThatLacksPicturesTellsWhich) {
  Fill("x", 30);
  QDir().rename(AppFile(u"Images"_qs), Outside(u"Images"_qs));
  const QStringList line{u"backup"_qs, u"b.zip"_qs};
  const Ran refused = Batch(Here(line));
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_TRUE(refused.err.contains(AppFile(u"Images/109-Logo.jpg"_qs))) << refused.err;
  EXPECT_TRUE(refused.err.contains(u"and 12 more\nPut them back, or add --allow-missing"_qs)) << refused.err;
  EXPECT_EQ(Batch(Here(line + QStringList{u"--json"_qs})).Json()[u"missing"].toArray().size(), 32);
  EXPECT_FALSE(QFileInfo::exists(Outside(u"b.zip"_qs)));
  const Ran allowed = Batch(Here(line + QStringList{u"--allow-missing"_qs}));
  EXPECT_EQ(allowed.exitCode, 0);
  EXPECT_TRUE(allowed.out.contains(u"Missing from the backup (32):"_qs)) << allowed.out;
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
  EXPECT_EQ(Batch(Here({u"restore"_qs, u"--yes"_qs, u"b.zip"_qs})).exitCode, 0);
}

TEST_F(CommandsTest, FindingsDecideTheExitCode) {
  Fill("x", 30);
  WriteFileSafely(AppFile(u"Images/spare.jpg"_qs), "x");
  const Ran notes = Batch(Here({u"check"_qs}));
  EXPECT_EQ(notes.exitCode, 0);
  EXPECT_EQ(notes.out, u"Note: Files in \"Images\" that no row uses (1)\n  spare.jpg\n"_qs);
  for (int i = 0; i < 25; ++i) QFile::remove(AppFile(u"Images/109-È %1.jpg"_qs.arg(i)));
  const Ran damage = Batch(Here({u"check"_qs}));
  EXPECT_EQ(damage.exitCode, 1);
  EXPECT_TRUE(damage.out.startsWith(u"DAMAGE: Pictures that are missing (25)\n")) << damage.out;
  EXPECT_TRUE(damage.out.contains(u"and 5 more")) << damage.out;
  const QJsonObject json = Batch(Here({u"check"_qs, u"--json"_qs})).Json();
  EXPECT_EQ(json[u"damage"].toInt(), 25);
  EXPECT_FALSE(json[u"ok"].toBool());
}

TEST_F(CommandsTest, WhatCannotBeDoneIsToldAndIsOne) {
  Fill("x", 1);
  WriteFileSafely(Outside(u"file"_qs), "a file");
  WriteFileSafely(Outside(u"broken.zip"_qs), "PK\3\4 and no more");
  const auto publish = [&](const char16_t* catalog, const char16_t* plugin, const char16_t* to) {
    return Here({u"publish"_qs, u"--catalog"_qs, QString::fromUtf16(catalog), u"--plugin"_qs,
                 QString::fromUtf16(plugin), u"--to"_qs, QString::fromUtf16(to)});
  };
  const std::vector<std::pair<QStringList, QString>> cases{
      {publish(u"7", u"VLHTML.HTML", u"out"), u"There is no catalog 7"_qs},
      {publish(u"109", u"No.Such", u"out"), u"No.Such is not installed"_qs},
      {publish(u"109", u"../x", u"out"), u"not the name of a plug-in"_qs},
      {publish(u"109", u"Test.Windows", u"out"), u"does not publish without windows"_qs},
      {publish(u"109", u"Test.Failing", u"out"), u"the paper is used up"_qs},
      {publish(u"109", u"VLHTML.HTML", u"file/sub"), u"file"_qs},
      {publish(u"109", u"VLHTML.HTML", u"/proc/vorlina"), u"/proc"_qs},
      {{u"catalogs"_qs, u"--app"_qs, u"nowhere"_qs}, u"does not exist"_qs},
      {{u"catalogs"_qs, u"--app"_qs, u"."_qs}, u"does not exist"_qs},
      {Here({u"backup"_qs, u"file"_qs}), u"is no backup"_qs},
      {Here({u"backup"_qs, u"nowhere/b.zip"_qs}), u"nowhere"_qs},
      {Here({u"restore"_qs, u"--yes"_qs, u"nothing.zip"_qs}), u"cannot be read"_qs},
      {Here({u"restore"_qs, u"--yes"_qs, u"broken.zip"_qs}), u"in another program"_qs},
  };
  const auto before = FilesIn(folder_.path());
  for (const auto& [line, tells] : cases) {
    const Ran run = Batch(line);
    EXPECT_EQ(run.exitCode, 1) << line.join(u' ');
    EXPECT_TRUE(run.err.contains(tells) || line[0] == u"restore") << line.join(u' ') << ": " << run.err;
    EXPECT_EQ(run.out, QString());
    const Ran json = Batch(line + QStringList{u"--json"_qs});
    EXPECT_EQ(json.exitCode, 1);
    EXPECT_FALSE(json.Json()[u"ok"].toBool(true)) << json.out;
    EXPECT_TRUE(run.err.contains(json.Json()[u"error"].toString()));
  }
  EXPECT_EQ(Differences(FilesIn(folder_.path()), before), QStringList());
  EXPECT_EQ(FilesIn(outside_.path()).size(), 2U);
  connection_.Close();
  EXPECT_TRUE(Batch(Here({u"restore"_qs, u"--yes"_qs, u"broken.zip"_qs})).err.contains(u"damaged"));
}

TEST_F(CommandsTest, AnImportTellsHowFarItCame) {
  AddCatalog(u"Catalog"_qs);
  const QStringList line = Here({u"import"_qs, u"photos"_qs, u"--catalog"_qs, u"1"_qs});
  EXPECT_EQ(Batch(line).err, u"No'jpg' images in the selected folder\n");
  WriteFileSafely(Outside(u"photos/a.jpg"_qs), MakeJpeg(MakePhoto({900, 600}, 1)));
  WriteFileSafely(Outside(u"photos/b.jpg"_qs), "no picture");
  const Ran run = Batch(line);
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.out, u"Imported 1 product\n");
  EXPECT_TRUE(run.err.contains(u"photos/b.jpg cannot be read: it is no JPEG picture"_qs)) << run.err;
  EXPECT_EQ(Batch(Here({u"check"_qs})).out, u"Everything is in order\n") << "nothing of the bad file stays";
  // What the program would show in a box goes to the error output, and the import goes on; so it does where
  // the settings cannot be saved.
  QDir(home_.filePath(u"Norsel"_qs)).removeRecursively();
  WriteFileSafely(home_.filePath(u"Norsel"_qs), "where the settings' folder would be");
  connection_.Execute(u"UPDATE Extensions SET C=0, P=0"_qs);
  QFile::remove(Outside(u"photos/b.jpg"_qs));
  const Ran faulty = Batch(line);
  EXPECT_EQ(faulty.exitCode, 0);
  EXPECT_TRUE(faulty.err.contains(u"Error in Extensions table"_qs)) << faulty.err;
  EXPECT_EQ(Batch(Here({u"import"_qs, u"nowhere"_qs, u"--catalog"_qs, u"1"_qs})).exitCode, 1);
  EXPECT_EQ(Batch(Here({u"import"_qs, u"photos"_qs, u"--catalog"_qs, u"7"_qs})).exitCode, 1);
}

TEST_F(CommandsTest, TwoImportsAtATimeKeepTheirPicturesApart) {
  AddCatalog(u"Catalog"_qs);
  for (const QString& colour : {u"red"_qs, u"blue"_qs}) {
    QDir(outside_.path()).mkdir(colour);
    QImage image(900, 600, QImage::Format_RGB32);
    image.fill(QColor(colour));
    for (int i = 0; i < 20; ++i)
      WriteFileSafely(Outside(u"%1/%1 %2.jpg"_qs.arg(colour).arg(i)), MakeJpeg(image));
  }
  QProcess red;
  QProcess blue;
  Start(red, Here({u"import"_qs, u"red"_qs, u"--catalog"_qs, u"1"_qs}));
  Start(blue, Here({u"import"_qs, u"blue"_qs, u"--catalog"_qs, u"1"_qs}));
  EXPECT_EQ(Ended(red).exitCode, 0);
  EXPECT_EQ(Ended(blue).exitCode, 0);
  EXPECT_EQ(Count(u"Prodotti"_qs), 40);
  Rows rows(connection_, u"SELECT Descrizione,Immagine FROM Prodotti"_qs);
  while (rows.Next()) {
    const QColor colour = QImage(rows.Value(1).toString()).pixelColor(100, 100);
    EXPECT_EQ(colour.red() > 200 ? u"red"_qs : u"blue"_qs, rows.Value(0).toString().section(u' ', 0, 0));
  }
}

TEST_F(CommandsTest, ADatabaseThatCannotBeUsedIsToldByEveryCommand) {
  Fill("x", 1);
  connection_.Close();
  QByteArray foreign = ContentOf(Path());
  foreign[68] = 'X';
  QByteArray newer = ContentOf(Path());
  newer[63] = 9;
  const std::vector<std::pair<QByteArray, QString>> cases{
      {QByteArray(), u"does not exist"_qs},
      {"", u"is empty"_qs},
      {QByteArray("a text\n").repeated(900), u"damaged"_qs},
      {foreign, u"no database of Vorlina"_qs},
      {newer, u"newer version"_qs}};
  for (const auto& [content, tells] : cases) {
    QFile::remove(Path());
    if (!content.isNull()) WriteFileSafely(Path(), content);
    for (const QStringList& command :
         {QStringList{u"catalogs"_qs}, {u"check"_qs}, {u"backup"_qs, u"b.zip"_qs}}) {
      const Ran run = Batch(Here(command));
      EXPECT_EQ(run.exitCode, 1);
      EXPECT_TRUE(run.err.contains(tells)) << tells << ": " << run.err;
    }
    EXPECT_EQ(QFile::exists(Path()), !content.isNull());
  }
  EXPECT_TRUE(FilesIn(outside_.path()).empty());
}

// A folder that was copied works on its own pictures alone, and one that was moved has all of them.
TEST_F(CommandsTest, ACopiedFolderLeavesTheOriginalAlone) {
  Fill("x", 3);
  connection_.Close();
  const auto original = FilesIn(folder_.path());
  const QString copy = Outside(u"copy"_qs);
  QDir().mkpath(copy + u"/Images"_qs);
  for (const auto& [name, content] : original) WriteFileSafely(copy + u'/' + name, content);
  const auto in = [&](const QString& folder, QStringList line) {
    return Batch(line << u"--app"_qs << folder);
  };
  EXPECT_EQ(in(copy, {u"clone"_qs, u"--catalog"_qs, u"109"_qs}).exitCode, 0);
  EXPECT_EQ(in(copy, {u"delete"_qs, u"--catalog"_qs, u"109"_qs, u"--yes"_qs}).exitCode, 0);
  EXPECT_EQ(in(copy, {u"check"_qs}).out, u"Everything is in order\n");
  EXPECT_EQ(FilesIn(copy + u"/Images"_qs).size(), 8U) << "the clone's seven and the logo that it shares";
  EXPECT_EQ(Differences(FilesIn(folder_.path()), original), QStringList());
  const QString moved = Outside(u"moved"_qs);
  ASSERT_TRUE(QDir().rename(copy, moved));
  EXPECT_EQ(in(moved, {u"check"_qs}).out, u"Everything is in order\n");
}

TEST_F(CommandsTest, ASignalStopsPublishing) {
  Fill("x", 1);
  for (const int signal : {SIGINT, SIGTERM}) {
    QFile::remove(Outside(u"out.begun"_qs));
    QProcess process;
    Start(process, Here({u"publish"_qs, u"--catalog"_qs, u"109"_qs, u"--plugin"_qs, u"Test.Endless"_qs,
                         u"--to"_qs, u"out"_qs}));
    while (!QFileInfo::exists(Outside(u"out.begun"_qs)) && !process.waitForFinished(5)) {
    }
    ::kill(pid_t(process.processId()), signal);
    const Ran run = Ended(process);
    EXPECT_FALSE(run.killed);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(u"stopped")) << run.err;
    EXPECT_TRUE(run.err.contains(u"as it was")) << run.err;
  }
}
