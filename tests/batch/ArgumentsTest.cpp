// What a command line means, which ones are refused, and how tables are laid out.
#include "batch/Arguments.h"

#include <gtest/gtest.h>

#include "batch/Output.h"
#include "support/Language.h"
#include "support/Print.h"

using namespace vorlina;

TEST(Arguments, AreReadInAnyOrder) {
  for (const QString& line : {u"publish --catalog 109 --plugin A.B --to out --app x --json"_qs,
                              u"--json --to=out --app=x publish --plugin=A.B --catalog=109"_qs}) {
    const Arguments arguments = ParseArguments(line.split(u' '));
    EXPECT_EQ(QStringList({arguments.command, arguments.plugin, arguments.target, arguments.application}),
              u"publish A.B out x"_qs.split(u' '));
    EXPECT_TRUE(arguments.json && arguments.catalog == 109);
  }
  EXPECT_EQ(ParseArguments({u"backup"_qs, u"--"_qs, u"--json"_qs}).file, u"--json"_qs);
  EXPECT_TRUE(ParseArguments({u"nonsense"_qs, u"-h"_qs}).help);
  EXPECT_EQ(ParseArguments({u"catalogs"_qs, u"--app"_qs, u"--to"_qs}).application, u"--to"_qs);
}

TEST(Arguments, WhatMakesNoSenseIsToldWithWhatIsRight) {
  SetLanguage(u"English"_qs);
  const std::vector<std::pair<QString, QString>> cases{
      {u""_qs, u"command is missing"_qs},
      {u"publich"_qs, u"Unknown command: publich"_qs},
      {u"publish --catalog 1 --plugin A"_qs, u"needs the option --to"_qs},
      {u"publish --catalog x --plugin A --to b"_qs, u"number of a catalog"_qs},
      {u"publish --catalog 1 --catalog 2 --plugin A --to b"_qs, u"given twice"_qs},
      {u"publish --catalog 1 --plugin A --to"_qs, u"after --to is missing"_qs},
      {u"catalogs --to b"_qs, u"has no option --to"_qs},
      {u"delete --catalog 1"_qs, u"needs the option --yes"_qs},
      {u"catalogs --json=1"_qs, u"Unknown option"_qs},
      {u"catalogs more"_qs, u"Too much: more"_qs},
      {u"backup"_qs, u"takes one file name"_qs},
      {u"import --catalog 1"_qs, u"takes one folder"_qs},
  };
  for (const auto& [line, tells] : cases) {
    QString told;
    try {
      ParseArguments(line.split(u' ', Qt::SkipEmptyParts));
    } catch (const UsageError& error) {
      told = error.Description();
    }
    EXPECT_TRUE(told.contains(tells)) << line << ": " << told;
  }
}

TEST(Output, TablesAreAligned) {
  EXPECT_EQ(Table({u"No"_qs, u"Name"_qs, u"Size"_qs}, {{u"9"_qs, u"è"_qs, u"1"_qs},
                                                       {u"109"_qs, u"日本"_qs, u"12345"_qs},
                                                       {u"7"_qs, u"abcdef"_qs, u"3"_qs}}),
            u" No  Name     Size\n"
            "  9  è           1\n"
            "109  日本    12345\n"
            "  7  abcdef      3"_qs);
  EXPECT_EQ(Table({u"No"_qs, u"Name"_qs}, {}), u"No  Name"_qs);
}
