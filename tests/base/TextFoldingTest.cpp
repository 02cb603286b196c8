#include <gtest/gtest.h>

#include "base/TextFolding.h"
#include "support/Print.h"

using namespace vorlina;

namespace {

// The text with brackets around what is found.
QString Found(const QString& needle, const QString& text) {
  QString shown = text;
  const std::vector<TextNeedle::Piece> pieces = TextNeedle(needle).PiecesIn(text);
  for (auto piece = pieces.rbegin(); piece != pieces.rend(); ++piece)
    shown.insert(piece->start + piece->length, u']').insert(piece->start, u'[');
  return shown;
}

}  // namespace

TEST(TextFolding, FindsWithoutRegardToLetterCaseAndAccents) {
  const std::array<QString, 3> cases[] = {
      {u"CAFFE"_qs, u"Un caffè"_qs, u"Un [caffè]"_qs},
      {u"è"_qs, u"Vetro e legno"_qs, u"V[e]tro [e] l[e]gno"_qs},
      {u"e"_qs, u"perche\u0301 no"_qs, u"p[e]rch[e\u0301] no"_qs},
      {u"e\u0301"_qs, u"PERCHÉ"_qs, u"P[E]RCH[É]"_qs},
      {u"strasse"_qs, u"Große Straße 5"_qs, u"Große [Straße] 5"_qs},
      {u"s"_qs, u"Maß"_qs, u"Ma[ß]"_qs},
      {u"istanbul"_qs, u"İSTANBUL"_qs, u"[İSTANBUL]"_qs},
      {u"ΜΥΡΤΙΑ"_qs, u"μυρτιά"_qs, u"[μυρτιά]"_qs},
      {u"йод"_qs, u"ЙОД"_qs, u"[ЙОД]"_qs},
      {u"壺"_qs, u"花瓶と壺"_qs, u"花瓶と[壺]"_qs},
      {u"😀"_qs, u"è 😀!"_qs, u"è [😀]!"_qs},
      {u"aa"_qs, u"aaaaa"_qs, u"[aa][aa]a"_qs},
      {u"ab"_qs, u"a b"_qs, u"a b"_qs},
      {u"ø"_qs, u"Oslo"_qs, u"Oslo"_qs},
      {u"vaso di vetro"_qs, u"vaso"_qs, u"vaso"_qs},
      {u"\u0301"_qs, u"é\u0301"_qs, u"é\u0301"_qs},
  };
  for (const auto& [needle, text, shown] : cases) {
    EXPECT_EQ(Found(needle, text), shown);
    EXPECT_EQ(TextNeedle(needle).IsIn(text), shown != text) << needle.toStdString();
  }
}

TEST(TextFolding, WhatIsNoTextHoldsNothingAndDoesNoHarm) {
  for (const char* bytes : {"", "\xC3", "\xF0\x9F", "\xFF\xFE", "\x80\xE2\x82"})
    EXPECT_FALSE(TextNeedle(u"è"_qs).IsIn(std::string_view(bytes))) << bytes;
}

TEST(TextFolding, KnowsWhatCanBeNarrowerAndInNumbers) {
  EXPECT_TRUE(TextNeedle(u"caffè"_qs).Includes(TextNeedle(u"FE"_qs)));
  EXPECT_FALSE(TextNeedle(u"caffè"_qs).Includes(TextNeedle(u"cafe"_qs)));
  EXPECT_TRUE(TextNeedle(u"12.5"_qs).IsOfNumbers());
  EXPECT_FALSE(TextNeedle(u"n. 1"_qs).IsOfNumbers());
}
