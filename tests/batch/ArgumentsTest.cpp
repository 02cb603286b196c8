// Which command lines are refused.
#include "batch/Arguments.h"

#include <gtest/gtest.h>

#include "support/Language.h"
#include "support/Print.h"

using namespace vorlina;

TEST(Arguments, WhatMakesNoSenseIsToldWithWhatIsRight) {
  SetLanguage(u"English"_qs);
  const std::vector<std::pair<QString, QString>> cases{
      {u""_qs, u"command is missing"_qs},
      {u"publish --catalog 1 --plugin A"_qs, u"needs the option --to"_qs},
      {u"publish --catalog x --plugin A --to b"_qs, u"number of a catalog"_qs},
      {u"publish --catalog 1 --catalog 2 --plugin A --to b"_qs, u"given twice"_qs},
      {u"publish --catalog 1 --plugin A --to"_qs, u"after --to is missing"_qs},
      {u"delete --catalog 1"_qs, u"needs the option --yes"_qs},
      {u"catalogs --json=1"_qs, u"Unknown option"_qs},
      {u"catalogs more"_qs, u"Too much: more"_qs},
      {u"backup"_qs, u"takes one file name"_qs},
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
