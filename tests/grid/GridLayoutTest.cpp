// A grid's layout as text and as file.
#include "grid/GridLayout.h"

#include "support/CatalogFixture.h"
#include "support/Print.h"

using namespace vorlina;

TEST(GridLayout, WhatIsNoLayoutIsRefusedAndOddValuesAreNot) {
  SetLanguage(u"English"_qs);
  const QString text = LayoutText({});
  const std::pair<QString, QString> refused[] = {
      {{}, u"incomplete"_qs},
      {text.left(text.size() / 2), u"incomplete"_qs},
      {u"[]"_qs, u"another format"_qs},
      {QString(text).replace(u"\"version\": 1"_qs, u"\"version\": 2"_qs), u"another version"_qs}};
  for (const auto& one : refused)
    EXPECT_TRUE(FailureOf([&] { ParseLayout(one.first); }).contains(one.second)) << one.first.left(40);
  const GridLayout odd = ParseLayout(
      u"{\"format\":\"vorlina-grid-layout\",\"version\":1,\"sort\":7,\"columns\":[3,{},{\"key\":\"a\","
      u"\"width\":-5,"
      "\"alignment\":9},{\"key\":\"a\",\"width\":50},{\"key\":\"b\",\"width\":1e9}]}"_qs);
  ASSERT_EQ(odd.columns.size(), 2);
  EXPECT_EQ(odd.columns[0], (GridColumnLayout{.key = u"a"_qs}));
  EXPECT_EQ(odd.columns[1].width, 10'000);
  EXPECT_EQ(odd.sortKey, QString());
}
