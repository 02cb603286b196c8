// The publication order as it is set in the grid, and the grid's sort.
#include "GridWindowFixture.h"

using namespace vorlina;

namespace {

class GridOrder : public GridWindow {
 protected:
  QString Sort() const {
    const QString mark = Rows().Sorted() == SortDirection::Descending ? u"-"_qs : u"+"_qs;
    return Rows().SortColumn() < 0 ? QString() : mark + Rows().Column(Rows().SortColumn()).key;
  }
};

const QString Order = QStringLiteral("Ordine");

}  // namespace

TEST_F(GridOrder, TheThirdClickOnAHeadTakesTheSortAway) {
  AddProducts({u"b"_qs, u"c"_qs});
  AddProduct(catalog_, u"a"_qs);
  Open();
  EXPECT_EQ(Orders(), u"b1 c2 a3"_qs) << "numbered when it is opened";
  for (const auto& [sort, codes] : {std::pair{u"+Codice"_qs, u"a b c"_qs},
                                    {u"-Codice"_qs, u"c b a"_qs},
                                    {QString(), u"b c a"_qs},
                                    {u"+Codice"_qs, u"a b c"_qs}}) {
    Click(HeadOf(Code));
    EXPECT_EQ(Sort() + Codes(), sort + codes);
    EXPECT_EQ(Shown(grid_->CurrentRow(), Code), u"b"_qs) << "the current row goes with its product";
  }
  Type(0, Description, u"changed"_qs);
  Click(HeadOf(Description));
  EXPECT_EQ(Sort(), u"+Descrizione"_qs) << "another column begins anew";
  EXPECT_EQ(Stored(u"a"_qs, Description), u"changed"_qs) << "the row in edit is written first";
}

TEST_F(GridOrder, TheMenuNumbersWhatIsShownAsItIsShown) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs});
  Open();
  Click(HeadOf(Code));
  Click(HeadOf(Code));
  Type(1, Description, u"typed"_qs);
  Click(PointOf(1, Description), Qt::NoModifier, Qt::RightButton);
  Choose(u"mnuOrdinePubbl"_qs);
  EXPECT_EQ(Orders(), u"d1 c2 b3 a4"_qs);
  EXPECT_EQ(Stored(u"c"_qs, Description), u"typed"_qs) << "the row in edit is not lost";
  EXPECT_EQ(Codes() + Shown(0, Order), u"d c b a1"_qs);
}

// In the order in which they came, selected from below, behind a sort by another column, and of some that
// were searched for. A selection with holes stays where it is.
TEST_F(GridOrder, WhatIsUnderTheHandIsWhatIsMoved) {
  const QString came = u"d a c b"_qs;
  const std::tuple<QString, QString, QString, QList<int>, int, QString> cases[] = {
      {{}, {}, came, {2}, 3, u"b1 d2 c3 a4"_qs},
      {{}, {}, came, {4, 3}, 1, u"a1 d2 b3 c4"_qs},
      {Code, {}, u"a b c d"_qs, {1}, 4, u"b1 d2 a3 c4"_qs},
      {Order, u" AND CodiceProdotto IN ('c','b')"_qs, u"b c"_qs, {2}, 1, u"c1 b2 a3 d4"_qs}};
  for (const auto& [sort, search, shown, from, to, after] : cases) {
    catalog_ = AddCatalog(u"Catalog"_qs);
    for (const auto& [code, order] : {std::pair{u"d"_qs, 3}, {u"a"_qs, 2}, {u"c"_qs, 4}, {u"b"_qs, 1}})
      AddProduct(catalog_, code, order);
    Open();
    grid_->CondizioneRicerca = search;
    grid_->LoadGrid(true);
    if (!sort.isEmpty()) Click(HeadOf(sort));
    EXPECT_EQ(Codes(), shown);
    const QString before = Orders();
    if (shown == came) Drag({2, 4}, 1);
    EXPECT_EQ(Orders(), before);
    Drag(from, to);
    EXPECT_EQ(Orders(), after) << shown;
    EXPECT_EQ(Sort(), u"+Ordine"_qs);
    EXPECT_TRUE(Close());
  }
}

TEST_F(GridOrder, KeysSortAndMoveRows) {
  AddProducts({u"b"_qs, u"a"_qs, u"c"_qs});
  Open();
  grid_->GoTo(0, Code);
  Key(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Sort() + Codes(), u"+Codicea b c"_qs);
  Select({1, 2});
  for (const auto& [key, after] :
       {std::pair{Qt::Key_PageDown, u"c1 b2 a3"_qs}, {Qt::Key_PageUp, u"b1 a2 c3"_qs}}) {
    Key(key, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Orders(), after);
  }
}
