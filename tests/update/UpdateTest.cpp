// The start of the update programme.
#include <QTest>

#include "base/AppPath.h"
#include "base/SafeFile.h"
#include "base/Settings.h"
#include "support/CatalogFixture.h"
#include "update/UpdateLauncher.h"

using namespace vorlina;

TEST(Update, StartsTheProgrammeOfTheLanguageOnceTheWindowsAreClosed) {
  const QTemporaryDir folder;
  const QTemporaryDir settings;
  SetAppPath(folder.path());
  SetSettingsFolder(settings.path());
  const auto start = [](bool closes) { return AvviaAggiornamento([closes] { return closes; }); };
  SetLanguage(u"Italian"_qs);
  EXPECT_EQ(start(true), UpdateStart::NoUpdater);
  EXPECT_EQ(GetSetting(u"Vorlina"_qs, u"Generali"_qs, u"DownloadPath"_qs, {}),
            folder.path() + u"/Download/"_qs);

  const QString updater = folder.filePath(u"VorlinaUpdaterEN"_qs);
  WriteFileSafely(updater, "#!/bin/sh\necho \"$#\" > \"$0.started\"\n");
  EXPECT_EQ(start(true), UpdateStart::NoUpdater) << "that is another language's";
  SetLanguage(u"English"_qs);
  EXPECT_THROW(start(true), Error) << "no program";
  QFile(updater).setPermissions(QFile::ReadOwner | QFile::ExeOwner);
  EXPECT_EQ(start(false), UpdateStart::Refused);
  EXPECT_FALSE(QFile::exists(updater + u".started"_qs));
  EXPECT_EQ(start(true), UpdateStart::Started);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ContentOf(updater + u".started"_qs) == "0\n"; }));
  SetLanguage(u"Klingon"_qs);
  EXPECT_EQ(start(true), UpdateStart::NoUpdater);
  SetLanguage(u"English"_qs);
}
