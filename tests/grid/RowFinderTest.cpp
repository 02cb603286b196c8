// Finding in the rows of a table of people, a slice at a time.

#include <random>

#include "base/Error.h"
#include "grid/RowFinder.h"
#include "grid/RowSignatures.h"
#include "support/Print.h"
#include "support/StoreFixture.h"

using namespace vorlina;

namespace {

class RowFinderTest : public StoreFixture {
 protected:
  // Person i, from 0, is "Person i"; each thousandth is a "Caffè", and every second likes "blue".
  RowFinderTest() {
    connection_.Execute(
        u"CREATE TABLE People (ID INTEGER PRIMARY KEY, Name TEXT, Note TEXT, Colour INTEGER, Size NUMERIC)"_qs);
    connection_.Execute(
        u"INSERT INTO People WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<2999) "
        u"SELECT i+100,'Person '||i,CASE WHEN i%1000=999 THEN 'Caffè' END,i%2+1,CASE WHEN i=7 THEN 4711 "
        u"WHEN i=8 THEN 2.5 END FROM n"_qs);
    people_.Open({u"ID, Name, Note, Colour, Size"_qs, u"People"_qs, {}, u"ID"_qs, {}}, connection_);
    rows_.Bind(people_, {{.key = u"ID"_qs, .kind = ColumnKind::Number},
                         {.key = u"Name"_qs},
                         {.key = u"Note"_qs},
                         {.key = u"Colour"_qs,
                          .kind = ColumnKind::Lookup,
                          .lookup = Lookup({{1, u"grün"_qs}, {2, u"blue"_qs}})},
                         {.key = u"Size"_qs, .kind = ColumnKind::Number}});
    finder_.Columns = [this] { return rows_.columnCount() > 0 ? QList<int>{1, 2, 3, 4} : QList<int>(); };
  }
  ~RowFinderTest() override { rows_.Unbind(); }

  // The row that is sought, "~" before it where it was come to round the end, and how many match in all.
  QString Answer(bool whole = true) {
    QString answer;
    while (finder_.IsRunning() && (whole || finder_.IsSeeking())) finder_.Work(0);
    if (const auto place = finder_.Take())
      answer = (place->wrapped ? u"~"_qs : QString()) + QString::number(place->row);
    return whole ? answer + u" of "_qs + QString::number(finder_.Count()) : answer;
  }
  QString Find(const QString& text, int from = 0, int step = 1) {
    finder_.Find(TextNeedle(text), from, step);
    return Answer();
  }
  // Reads all rows for what is to be found, as nothing else is.
  void Prepare() {
    finder_.Find({}, 0, 1);
    while (finder_.Work(0)) {
    }
  }
  // Once more, when all is looked through.
  QString Seek(int from, int step) {
    Answer();
    finder_.Seek(from, step);
    return Answer();
  }

  Recordset people_;
  RecordsetModel rows_;
  RowFinder finder_{rows_};
};

}  // namespace

TEST_F(RowFinderTest, FindsInAllThatCellsShowRoundTheEnd) {
  EXPECT_EQ(Find(u"CAFFE"_qs, 1000), u"1999 of 3"_qs);
  EXPECT_EQ(Seek(2000, 1), u"2999 of 3"_qs);
  EXPECT_EQ(Seek(3000, 1), u"~999 of 3"_qs);
  EXPECT_EQ(Seek(998, -1), u"~2999 of 3"_qs);
  EXPECT_EQ(Seek(2998, -1), u"1999 of 3"_qs);
  EXPECT_EQ(finder_.NumberOf(1999) * 10 + finder_.NumberOf(1998), 20);
  EXPECT_EQ(finder_.ColumnIn(999), 2);
  EXPECT_EQ(Find(u"GRUN"_qs, 1), u"2 of 1500"_qs);
  EXPECT_EQ(Find(u"4711"_qs), u"7 of 1"_qs);
  EXPECT_EQ(Find(u"2.5"_qs), u"8 of 1"_qs);
  EXPECT_EQ(Find(u"person 2999"_qs, 2999, -1), u"2999 of 1"_qs);
  EXPECT_EQ(Find(u"nobody"_qs), u"-1 of 0"_qs);
}

TEST_F(RowFinderTest, MoreLettersLookAtWhatMatchedAlone) {
  Find(u"person 2"_qs, 30);
  connection_.Execute(u"UPDATE People SET Name='Person 299x' WHERE ID=105"_qs);
  EXPECT_EQ(Find(u"person 29"_qs, 30), u"290 of 111"_qs) << "not read where it could not match before";
  EXPECT_EQ(Find(u"person 2999"_qs, 2999), u"2999 of 1"_qs);
  EXPECT_EQ(Find(u"person 299"_qs, 2999), u"2999 of 12"_qs);
  EXPECT_EQ(Find(u"person 1"_qs, 2500), u"~1 of 1111"_qs);
  EXPECT_EQ(Find(u"person 10"_qs, 2500), u"~10 of 111"_qs) << "the first of many, none of them further down";
}

TEST_F(RowFinderTest, GoesByTheOrderThatIsShown) {
  rows_.SortBy(0, SortDirection::Descending);
  EXPECT_EQ(Find(u"caffe"_qs, 1), u"1000 of 3"_qs);
  EXPECT_EQ(Seek(999, -1), u"0 of 3"_qs);
  EXPECT_EQ(Seek(2001, 1), u"~0 of 3"_qs);
  finder_.Clear();
  finder_.Find(TextNeedle(u"caffe"_qs), 1, 1);
  EXPECT_EQ(Answer(false), u"1000"_qs) << "known before all is looked through";
  EXPECT_FALSE(finder_.IsComplete());
  rows_.SortBy(-1, SortDirection::None);
  EXPECT_EQ(Seek(1, 1), u"999 of 3"_qs);
}

TEST_F(RowFinderTest, StaysTrueWhenRowsComeGoAndChange) {
  Find(u"caffe"_qs);
  rows_.setData(rows_.index(5, 2), u"un caffè"_qs);
  EXPECT_EQ(Answer(), u" of 3"_qs) << "still in edit";
  EXPECT_TRUE(rows_.Submit());
  EXPECT_EQ(Seek(1, 1), u"5 of 4"_qs);
  EXPECT_TRUE(rows_.DeleteRows({3, 999}));
  EXPECT_EQ(Seek(5, 1), u"1997 of 3"_qs);
  // Another program's.
  WritingConnection other;
  other.Open(ConnectionTextFor(Path()));
  other.Execute(u"DELETE FROM People WHERE ID=105"_qs);
  rows_.Refresh();
  EXPECT_EQ(Seek(0, 1), u"1997 of 2"_qs);
  finder_.Find(TextNeedle(u"person"_qs), 0, 1);
  finder_.Work(0);
  people_.Open({u"ID, Name, Note, Colour, Size"_qs, u"People"_qs, u"ID<103"_qs, {}, {}}, connection_);
  EXPECT_TRUE(rows_.Bind(people_, {{.key = u"ID"_qs},
                                   {.key = u"Name"_qs},
                                   {.key = u"Note"_qs},
                                   {.key = u"Colour"_qs},
                                   {.key = u"Size"_qs}}));
  EXPECT_EQ(Answer(), u"0 of 3"_qs);
  rows_.Unbind();
  EXPECT_EQ(Answer(), u" of 0"_qs);
}

TEST_F(RowFinderTest, ALockLetsItGoOnAndAStopKeepsWhatIsKnown) {
  WritingConnection other;
  other.Open(ConnectionTextFor(Path()));
  other.Execute(u"BEGIN EXCLUSIVE"_qs);
  finder_.Find(TextNeedle(u"caffe"_qs), 0, 1);
  EXPECT_THROW(Answer(), Error);
  other.Execute(u"ROLLBACK"_qs);
  EXPECT_EQ(Answer(), u"999 of 3"_qs);
  finder_.Find(TextNeedle(u"person"_qs), 2, 1);
  EXPECT_EQ(Answer(false), u"2"_qs);
  finder_.Stop();
  EXPECT_FALSE(finder_.IsRunning());
  finder_.Seek(1, -1);
  EXPECT_EQ(Answer(false), u"1"_qs) << "walked to all the same";
  finder_.Clear();
  finder_.Find(TextNeedle(u"caffe"_qs), 0, 1);
  finder_.Stop();
  finder_.Seek(1, 1);
  EXPECT_EQ(Answer(false), u"999"_qs) << "also where nothing was begun";
}

TEST_F(RowFinderTest, PassesOverRowsThatWereReadBefore) {
  const auto atOnce = [this] {
    finder_.Find(TextNeedle(u"caffe"_qs), 1998, -1);
    finder_.Work(0);
    const auto place = finder_.Take();
    return place ? place->row : -1;
  };
  EXPECT_EQ(atOnce(), -1);
  Prepare();
  EXPECT_EQ(atOnce(), 999);
  EXPECT_EQ(Find(u"GRÜN"_qs, 1), u"2 of 1500"_qs);
  EXPECT_EQ(Find(u"4711"_qs), u"7 of 1"_qs);
  EXPECT_EQ(Find(u"person 2999"_qs, 2990, -1), u"~2999 of 1"_qs);
  EXPECT_EQ(Find(u"2.5"_qs, 9), u"~8 of 1"_qs);
}

TEST_F(RowFinderTest, WhatIsTakenBackIsFoundAsItWas) {
  EXPECT_EQ(Find(u"Person 2999"_qs), u"2999 of 1"_qs);
  connection_.BeginTrans();
  connection_.Execute(u"UPDATE People SET Name='Zed' WHERE ID=3099"_qs);
  rows_.Refresh();
  Answer();
  connection_.RollbackTrans();
  rows_.Refresh();
  Answer();
  EXPECT_EQ(rows_.index(2999, 1).data().toString(), u"Person 2999"_qs);
  EXPECT_EQ(Seek(0, 1), u"2999 of 1"_qs);
}

TEST_F(RowFinderTest, WhatWasReadHoldsUntilSomebodyWrites) {
  Prepare();
  connection_.Execute(u"UPDATE People SET Name='zebra' WHERE ID=105"_qs);
  EXPECT_EQ(Find(u"zebra"_qs), u"5 of 1"_qs);
  Prepare();
  WritingConnection other;
  other.Open(ConnectionTextFor(Path()));
  other.Execute(u"UPDATE People SET Name='horse' WHERE ID=105"_qs);
  EXPECT_EQ(Find(u"horse"_qs), u"5 of 1"_qs);
  {
    Transaction transaction(connection_);
    connection_.Execute(u"UPDATE People SET Name='zebra' WHERE ID=105"_qs);
    Prepare();
  }
  EXPECT_EQ(Find(u"horse"_qs), u"5 of 1"_qs) << "what was written meanwhile is taken back";
  Prepare();
  rows_.SetLookup(u"Colour"_qs, Lookup({{1, u"zebra"_qs}, {2, u"blue"_qs}}));
  EXPECT_EQ(Find(u"zebra"_qs), u"0 of 1500"_qs);
  finder_.Columns = [] { return QList<int>{3}; };
  Prepare();
  finder_.Columns = [] { return QList<int>{1}; };
  EXPECT_EQ(Find(u"horse"_qs), u"5 of 1"_qs);
}

// Of letters that are folded to several or to none, and of bytes that are cut.
TEST(RowSignatures, NeverRuleOutWhatIsThere) {
  const std::vector<QByteArray> letters = {
      "a", "B",  "s",    "S",        " ",    "1",        "ß",      "ẞ",  "è",      "E\u0301",  "İ", "ı",
      "ﬁ", "ŉ",  "ΐ",    "ς",        "Σ",    "Å",        "\u212B", "壺", "が",     "か\u3099", "😀", "𐐀",
      "𐐨", "한", "\xC3", "\xF0\x9F", "\x80", "\xE2\x82", "\xFF",   "Ǆ",  "\u0345", "ᾳ",        "ﷺ"};
  std::mt19937 random(7);
  const auto some = [&](int most) {
    QByteArray text;
    for (int left = 1 + int(random() % unsigned(most)); left > 0; --left)
      text += letters[random() % letters.size()];
    return text;
  };
  int found = 0;
  int ruledOut = 0;
  for (int round = 0; round < 20'000; ++round) {
    const QByteArray text = some(12);
    const auto start = qsizetype(random() % unsigned(text.size()));
    const TextNeedle needle(QString::fromUtf8(round % 2 == 0 ? text.mid(start, 1 + start % 7) : some(5)));
    RowSignatures::Signature marks{};
    RowSignatures::Mark(text.toStdString(), marks);
    const RowSignatures::Signature wanted = RowSignatures::Of(needle);
    bool hasAll = true;
    for (std::size_t i = 0; i < marks.size(); ++i) hasAll = hasAll && (wanted[i] & ~marks[i]) == 0;
    const bool is = needle.IsIn(text.toStdString());
    found += is ? 1 : 0;
    ruledOut += hasAll ? 0 : 1;
    ASSERT_TRUE(hasAll || !is) << text.toHex().constData() << " in round " << round;
  }
  EXPECT_GT(found, 1000);
  EXPECT_GT(ruledOut, 1000);
}
