#include <gtest/gtest.h>

#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryDir>

#include "base/AppPath.h"
#include "base/Error.h"
#include "base/SafeFile.h"
#include "base/Settings.h"
#include "support/CatalogFixture.h"
#include "support/FullDisk.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

QStringList Below(const QString& folder) {
  return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

QString Setting(const QString& key, const QString& fallback = u"default"_qs) {
  return GetSetting(u"Test"_qs, u"Section"_qs, key, fallback);
}
void Save(const QString& key, const QString& value) { SaveSetting(u"Test"_qs, u"Section"_qs, key, value); }

}  // namespace

TEST(SafeFile, AFullDiskLeavesTheFormerFile) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"a.txt"_qs);
  WriteFileSafely(path, "former");
  // Sizes below and above the buffer of QSaveFile fail in different places.
  for (const int size : {9000, 17000, 400000}) {
    const FullDisk full(8192);
    EXPECT_THROW(WriteFileSafely(path, QByteArray(size, 'x')), DiskFullError) << size;
    EXPECT_THROW(
        WriteStagedFile(folder.filePath(u"staged"_qs),
                        [&](QIODevice& device) { return device.write(QByteArray(size, 'x')) == size; }),
        DiskFullError)
        << size;
    QFile::remove(folder.filePath(u"staged"_qs));
    EXPECT_EQ(ContentOf(path), "former") << size;
    EXPECT_EQ(Below(folder.path()), QStringList{u"a.txt"_qs}) << "a temporary file was left";
  }
  WriteFileSafely(path, QByteArray(400000, 'x'));
  EXPECT_EQ(QFileInfo(path).size(), 400000);
}

TEST(SafeFile, AWriterThatThrowsOrRefusesLeavesTheFormerFile) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(u"a.txt"_qs);
  WriteFileSafely(path, "former");
  EXPECT_THROW(WriteFileSafely(path, [](QIODevice&) { return false; }), Error);
  EXPECT_THROW(WriteFileSafely(path, [](QIODevice&) -> bool { throw std::runtime_error("no"); }),
               std::runtime_error);
  EXPECT_THROW(CopyFileSafely(folder.filePath(u"gone"_qs), path), Error);
  EXPECT_EQ(ContentOf(path), "former");
  EXPECT_EQ(Below(folder.path()).size(), 1);
}

TEST(Settings, KeepAnyTextAndGiveTheDefaultUnstored) {
  EXPECT_EQ(Setting(u"Missing"_qs), u"default"_qs);
  EXPECT_EQ(Setting(u"Missing"_qs, u"other"_qs), u"other"_qs);
  for (const QString& text :
       {u""_qs, u" leading and trailing "_qs, u"C:\\new\\readme"_qs, u"a=b;c\n[x]\r\nd"_qs, u"È €"_qs}) {
    Save(u"Key"_qs, text);
    EXPECT_EQ(Setting(u"Key"_qs), text);
  }
}

// What a person wrote is read, and a save changes its own line alone. Neither a lock that another program
// left nor what a killed save left is in the way.
TEST(Settings, KeepWhatAPersonWroteByHand) {
  const QTemporaryDir folder;
  SetSettingsFolder(folder.path());
  const QString path = folder.filePath(u"Norsel/ByHand.settings"_qs);
  ASSERT_TRUE(QDir(folder.path()).mkpath(u"Norsel"_qs));
  WriteFileSafely(
      path,
      "\xEF\xBB\xBFnonsense\r\n# mine\r\n\r\n [Riservati] \r\nResizeTo=640\r\n=x\r\n\xff\xfe broken\r\n"
      " Also\t=  yes \r\nEmpty=\r\n\r\n# Also=x\r\n[Other]\r\nAlso=no");
  WriteFileSafely(folder.filePath(u"Norsel/ByHand.settings.lock"_qs), "1\nVorlina\nelsewhere\n");
  WriteFileSafely(folder.filePath(u"Norsel/.ByHand.settings.saving"_qs), "cut sh");
  const auto value = [](const QString& key) {
    return GetSetting(u"ByHand"_qs, u"Riservati"_qs, key, u"-"_qs);
  };
  EXPECT_EQ(value(u"ResizeTo"_qs), u"640"_qs);
  EXPECT_EQ(value(u"Also"_qs), u"yes"_qs);
  EXPECT_EQ(value(u"Empty"_qs), u""_qs);
  EXPECT_EQ(value(u"nonsense"_qs), u"-"_qs);
  SaveSetting(u"ByHand"_qs, u"Riservati"_qs, u"Also"_qs, u" no "_qs);
  SaveSetting(u"ByHand"_qs, u"Riservati"_qs, u"New"_qs, u"1"_qs);
  SaveSetting(u"ByHand"_qs, u"Third"_qs, u"Key"_qs, u"2"_qs);
  EXPECT_EQ(value(u"Also"_qs), u" no "_qs);
  EXPECT_EQ(ContentOf(path),
            "\xEF\xBB\xBFnonsense\r\n# mine\r\n\r\n [Riservati] \r\nResizeTo=640\r\n=x\r\n\xff\xfe broken\r\n"
            " Also\t=  \\sno\\s\r\nEmpty=\r\nNew=1\r\n\r\n# "
            "Also=x\r\n[Other]\r\nAlso=no\n\r\n[Third]\r\nKey=2\r\n");
  EXPECT_EQ(Below(folder.filePath(u"Norsel"_qs)).size(), 2) << "the settings, and the lock that is not ours";
}

TEST(Settings, WhatWasDeliveredCountsWhereTheUserHasNothing) {
  const QString delivered = DeliveredPath() + u"/Set.settings"_qs;
  WriteFileSafely(delivered, "[A]\nKey=delivered\nOther=as well\n");
  const auto value = [](const QString& key) { return GetSetting(u"Set"_qs, u"A"_qs, key, u"-"_qs); };
  EXPECT_EQ(value(u"Key"_qs) + value(u"Missing"_qs), u"delivered-"_qs);
  EXPECT_FALSE(IsSetByUser(u"Set"_qs, u"A"_qs, u"Key"_qs));
  SaveSetting(u"Set"_qs, u"A"_qs, u"Key"_qs, u""_qs);
  EXPECT_EQ(value(u"Key"_qs) + value(u"Other"_qs), u"as well"_qs);
  EXPECT_TRUE(IsSetByUser(u"Set"_qs, u"A"_qs, u"Key"_qs));
  QFile::remove(delivered);
}

TEST(Settings, AFullDiskLeavesTheFormerSettings) {
  Save(u"Kept"_qs, u"former"_qs);
  {
    const FullDisk full(4096);
    EXPECT_THROW(Save(u"Big"_qs, QString(20000, u'x')), DiskFullError);
  }
  Save(u"After"_qs, u"works"_qs);
  EXPECT_EQ(Setting(u"Kept"_qs) + Setting(u"Big"_qs) + Setting(u"After"_qs), u"formerdefaultworks"_qs);
}

TEST(Language, ComesFromTheSettingOrTheSystemAndIsNotSaved) {
  for (const auto& [setting, language, base] : {std::tuple{u"Italian"_qs, u"Italian"_qs, 200},
                                                {u"English"_qs, u"English"_qs, 500},
                                                {u"italian"_qs, u"italian"_qs, 200},
                                                {u""_qs, u"English"_qs, 500}}) {
    SaveSetting(ApplicationTitle(), u"Generali"_qs, u"Language"_qs, setting);
    ChooseLanguage();
    EXPECT_EQ(Language, language);
    EXPECT_EQ(BaseErrore, base);
    EXPECT_EQ(GetSetting(ApplicationTitle(), u"Generali"_qs, u"Language"_qs, u"-"_qs), setting);
  }
}

// What a user's own folder gets from a delivered folder that cannot be written, and what a second start
// leaves alone.
TEST(AppPath, TheUsersFolderIsFilledOnceAndThenKept) {
  const QDir delivered(DeliveredPath());
  const QStringList names{u"Images/1.jpg"_qs,  u"PubWiz/Own/skin.txt"_qs, u"PubWiz/Own.so"_qs,
                          u"Catalog.db"_qs,    u"Catalog.db-journal"_qs,  u"Layouts/1.lyt"_qs,
                          u"CardLayout.lyt"_qs};
  for (const QString& name : names) {
    ASSERT_TRUE(QDir().mkpath(QFileInfo(delivered.filePath(name)).path()));
    WriteFileSafely(delivered.filePath(name), "delivered");
  }
  const QTemporaryDir user;
  SetAppPath(user.path() + u"/x/../"_qs);
  EXPECT_EQ(AppPath(), QDir::toNativeSeparators(user.path()));
  PrepareAppPath();
  for (const QString& name : names)
    EXPECT_EQ(ContentOf(AppFile(name)), name.endsWith(u".so") ? "(missing)" : "delivered")
        << name.toStdString();
  WriteFileSafely(AppFile(u"Catalog.db"_qs), "the user's");
  PrepareAppPath();
  EXPECT_EQ(ContentOf(AppFile(u"Catalog.db"_qs)), "the user's");
  for (const QString& name : names) QFile::remove(delivered.filePath(name));
}

TEST(AppPath, IsTheUsersFolderForAnInstalledProgramAlsoWhereItMayWrite) {
  const QString mark = DeliveredPath() + u"/installed"_qs;
  SetAppPath({});
  EXPECT_EQ(QDir(AppPath()), QDir(DeliveredPath()));
  WriteFileSafely(mark, "");
  SetAppPath({});
  EXPECT_EQ(QDir(AppPath()), QDir(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)));
  QFile::remove(mark);
}

TEST(AppPath, SamplesThatLieApartReplaceNothing) {
  const QDir delivered(DeliveredPath());
  const auto deliver = [&](const QByteArray& bytes) {
    for (const QString& name : {u"Samples/Images/1.jpg"_qs, u"Samples/Catalog.db"_qs}) {
      ASSERT_TRUE(delivered.mkpath(QFileInfo(name).path()));
      WriteFileSafely(delivered.filePath(name), bytes);
    }
    SetAppPath({});
    PrepareAppPath();
  };
  deliver("first");
  deliver("second");
  EXPECT_EQ(AppPath(), QDir::toNativeSeparators(delivered.path()));
  // On a stick that cannot be written any more.
  const QTemporaryDir user;
  SetAppPath(user.path());
  PrepareAppPath();
  EXPECT_EQ(ContentOf(AppFile(u"Catalog.db"_qs)), "first");
  QFile::remove(AppFile(u"Catalog.db"_qs));
  WriteFileSafely(delivered.filePath(u".restore-journal"_qs), "");
  PrepareAppPath();
  EXPECT_EQ(ContentOf(AppFile(u"Catalog.db"_qs)), "second") << "a restore was cut short there";
  SetAppPath(delivered.path());
  QFile::remove(AppFile(u".restore-journal"_qs));
  for (const QString& name : {u"Images/1.jpg"_qs, u"Catalog.db"_qs}) {
    EXPECT_EQ(ContentOf(AppFile(name)), "first") << name.toStdString();
    QFile::remove(AppFile(name));
  }
  QDir(delivered.filePath(u"Samples"_qs)).removeRecursively();
}
