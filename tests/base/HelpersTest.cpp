#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>

#include "base/Error.h"
#include "base/Helpers.h"
#include "base/Texts.h"
#include "support/Language.h"
#include "support/Messages.h"

using namespace vorlina;

TEST(Helpers, FileNamesRefuseEachOfTheNineCharacters) {
  EXPECT_TRUE(IsValidFileName(u"A-1.jpg"_qs));
  for (const QChar c : QStringView(u"/\\:*?\"<>|"))
    EXPECT_FALSE(IsValidFileName(u"a"_qs + c + u"b")) << QString(c);
}

TEST(Helpers, PathsSplitAtBothSeparators) {
  const std::array<QString, 4> cases[] = {
      {u"C:\\a\\\\b\\foto.jpg"_qs, u"foto.jpg"_qs, u"foto"_qs, u"C:\\a\\b\\"_qs},
      {u"C:\\a\\foto.jpeg"_qs, u"foto.jpeg"_qs, u"foto."_qs, u"C:\\a\\"_qs},
      {u"\\\\srv\\share\\foto.jpg"_qs, u"foto.jpg"_qs, u"foto"_qs, u"\\\\srv\\share\\"_qs},
      {u"/home/a//b/foto.jpg"_qs, u"foto.jpg"_qs, u"foto"_qs, u"/home/a/b/"_qs},
      {u"foto.jpg"_qs, u"foto.jpg"_qs, u"foto"_qs, u"foto.jpg"_qs + QDir::separator()}};
  for (const auto& [path, name, bare, folder] : cases) {
    EXPECT_EQ(FileNameOf(path, true), name);
    EXPECT_EQ(FileNameOf(path, false), bare);
    EXPECT_EQ(FolderOf(path), folder);
  }
  EXPECT_THROW(FileNameOf(u"C:\\a\\abc"_qs, false), Error);
}

TEST(Messages, SpeakTheLanguageAndNoneInAnother) {
  SetLanguage(u"English"_qs);
  EXPECT_EQ(NumberedText(BaseConferma + 11), u"All the additional images will be deleted. Continue?"_qs);
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Cancel"_qs);
  SetLanguage(u"Italian"_qs);
  EXPECT_EQ(NumberedText(BaseConferma + 1), u"Inserire il nuovo valore in tabella ?"_qs);
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), u"Annulla"_qs);
  SetLanguage(u"English"_qs);
  EXPECT_EQ(NumberedText(408).left(31), u"Insert here the company informa"_qs) << "the steps' order differs";
  SetLanguage(u"italian"_qs);
  EXPECT_EQ(NumberedText(BaseErrore) + Texts::tr("Annulla"),
            u"Inserire almeno un nome di catalogoAnnulla"_qs);
}
