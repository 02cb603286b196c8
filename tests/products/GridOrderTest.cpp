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
  Type(1, u"Descrizione"_qs, u"typed"_qs);
  Click(PointOf(1, u"Descrizione"_qs), Qt::NoModifier, Qt::RightButton);
  Choose(u"mnuOrdinePubbl"_qs);
  EXPECT_EQ(Orders(), u"d1 c2 b3 a4"_qs);
  EXPECT_EQ(Stored(u"c"_qs, u"Descrizione"_qs), u"typed"_qs) << "the row in edit is not lost";
  EXPECT_EQ(Codes(), u"d c b a"_qs);
  EXPECT_EQ(Shown(0, Order), u"1"_qs);
  EXPECT_EQ(grid_->CurrentRow(), 0);
}

TEST_F(GridOrder, OneBlockIsDraggedAndNothingElse) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs});
  Open();
  Drag({2, 4}, 1);
  EXPECT_EQ(Orders() + Sort(), u"a1 b2 c3 d4"_qs) << "with holes";
  EXPECT_EQ(grid_->SelectedCount(), 0);
  Drag({4, 3}, 1);
  EXPECT_EQ(Orders() + Sort(), u"c1 d2 a3 b4+Ordine"_qs) << "selected from below";
  EXPECT_EQ(grid_->viewport()->cursor().shape(), Qt::ArrowCursor);
}

// In the order in which they came, behind a sort by another column, and of some that were searched for.
TEST_F(GridOrder, WhatIsUnderTheHandIsWhatIsMoved) {
  struct Case {
    QString sort, search, shown;
    int from, to;
    QString after;
  };
  const QString came = u"d a c b"_qs;
  for (const Case& c :
       {Case{{}, {}, came, 2, 3, u"b1 d2 c3 a4"_qs}, Case{{}, {}, came, 3, 1, u"b1 a2 c3 d4"_qs},
        Case{Code, {}, u"a b c d"_qs, 1, 4, u"b1 d2 a3 c4"_qs},
        Case{Order, u" AND CodiceProdotto IN ('c','b')"_qs, u"b c"_qs, 2, 1, u"c1 b2 a3 d4"_qs}}) {
    catalog_ = AddCatalog(u"Catalog"_qs);
    for (const auto& [code, order] : {std::pair{u"d"_qs, 3}, {u"a"_qs, 2}, {u"c"_qs, 4}, {u"b"_qs, 1}})
      AddProduct(catalog_, code, order);
    Open();
    grid_->CondizioneRicerca = c.search;
    grid_->LoadGrid(true);
    if (!c.sort.isEmpty()) Click(HeadOf(c.sort));
    EXPECT_EQ(Codes(), c.shown);
    Drag({c.from}, c.to);
    EXPECT_EQ(Orders(), c.after) << c.shown;
    EXPECT_EQ(Sort(), u"+Ordine"_qs);
    EXPECT_TRUE(Close());
  }
}

TEST_F(GridOrder, KeysSortAndMoveRows) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs});
  Open();
  grid_->GoTo(0, Code);
  Key(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Sort(), u"+Codice"_qs);
  Select({2, 3});
  for (const auto& [key, after] : {std::pair{Qt::Key_PageDown, u"a1 d2 b3 c4"_qs},
                                   {Qt::Key_PageDown, u"a1 d2 b3 c4"_qs},
                                   {Qt::Key_PageUp, u"a1 b2 c3 d4"_qs}}) {
    Key(key, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Orders(), after);
    EXPECT_EQ(grid_->SelectedCount(), 2) << "to be moved on";
  }
}
