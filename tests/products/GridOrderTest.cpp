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

TEST_F(GridOrder, OpeningNumbersTheProductsThatHaveNoNumberAlone) {
  struct Case {
    QVariantList orders;  // of the products a, c, b
    QString after;
  };
  const QVariant none;
  for (const Case& c : {Case{{7, 9, 7}, u"a7 b7 c9"_qs}, Case{{3, 2, none}, u"c2 a3 b4"_qs},
                        Case{{none, none, none}, u"a1 c2 b3"_qs}}) {
    catalog_ = AddCatalog(u"Catalog"_qs);
    for (int i = 0; i < 3; ++i) AddProduct(catalog_, QStringList{u"a"_qs, u"c"_qs, u"b"_qs}[i], c.orders[i]);
    const int other = AddCatalog(u"Other"_qs);
    AddProduct(other, u"x"_qs);
    Open();
    EXPECT_EQ(Orders(), c.after);
    EXPECT_EQ(Codes(), u"a c b"_qs) << "as they came";
    EXPECT_TRUE(c.after.contains(u'b' + Shown(2, Order)));
    EXPECT_TRUE(One(u"OrdineTemp"_qs, u"Prodotti"_qs, u"IDCatalogo=?"_qs, {other}).isNull());
    EXPECT_EQ(grid_->CurrentRow(), 0);
    EXPECT_TRUE(Close());
  }
}

TEST_F(GridOrder, TheThirdClickOnAHeadTakesTheSortAway) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
  connection_.Execute(
      u"UPDATE Prodotti SET Descrizione=CASE CodiceProdotto WHEN 'a' THEN 'mid' WHEN 'b' "
      "THEN 'zinc' ELSE 'ash' END"_qs);
  Open();
  const QString key = u"Descrizione"_qs;
  struct Case {
    QString sort, codes;
  };
  for (const Case& c : {Case{u"+"_qs + key, u"c a b"_qs},
                        {u"-"_qs + key, u"b a c"_qs},
                        {{}, u"a b c"_qs},
                        {u"+"_qs + key, u"c a b"_qs}}) {
    Click(HeadOf(key));
    EXPECT_EQ(Sort(), c.sort);
    EXPECT_EQ(Codes(), c.codes);
    EXPECT_EQ(Shown(grid_->CurrentRow(), Code), u"a"_qs) << "the current row goes with its product";
  }
  Click(HeadOf(Code));
  EXPECT_EQ(Sort(), u"+Codice"_qs) << "another column begins anew";
  Type(0, key, u"changed"_qs);
  Click(HeadOf(Code));
  EXPECT_EQ(Stored(u"a"_qs, key), u"changed"_qs) << "the row in edit is written first";
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

  // Under a search the rows that were found are numbered alone.
  grid_->CondizioneRicerca = u" AND CodiceProdotto IN ('a','b')"_qs;
  grid_->LoadGrid(true);
  Click(PointOf(0, Code), Qt::NoModifier, Qt::RightButton);
  Choose(u"mnuOrdinePubbl"_qs);
  EXPECT_EQ(Orders(), u"b1 d1 a2 c2"_qs);
}

TEST_F(GridOrder, ABlockIsDraggedAboveOrBelowOthers) {
  struct Case {
    const char* name;
    QList<int> rows;
    int to;
    QString after;
  };
  constexpr int Below = 99;
  const QString unmoved = u"a1 b2 c3 d4 e5"_qs;
  for (const Case& c :
       {Case{"up", {3, 4}, 1, u"c1 d2 a3 b4 e5"_qs},
        Case{"the last to the first", {5}, 1, u"e1 a2 b3 c4 d5"_qs},
        Case{"down", {1, 2}, 4, u"c1 d2 a3 b4 e5"_qs}, Case{"by one", {2}, 3, u"a1 c2 b3 d4 e5"_qs},
        Case{"all but one", {2, 3, 4, 5}, 1, u"b1 c2 d3 e4 a5"_qs},
        Case{"in place", {2, 3}, 2, u"a1 b2 c3 d4 e5"_qs},
        Case{"selected from below", {4, 3}, 1, u"c1 d2 a3 b4 e5"_qs},
        Case{"onto the row for new products", {1}, 6, u"b1 c2 d3 e4 a5"_qs},
        Case{"below the rows", {1}, Below, u"b1 c2 d3 e4 a5"_qs},
        Case{"with holes", {2, 4}, 1, u"a1 b2 c3 d4 e5"_qs}}) {
    catalog_ = AddCatalog(u"Catalog"_qs);
    for (int i = 0; i < 5; ++i) AddProduct(catalog_, QString(QChar(u'a' + i)), i + 1);
    Open();
    const QPoint below = PointOf(AddNewRow(), Code) + QPoint(0, 100);
    Drag(c.rows, c.to == Below ? below : PointOf(c.to - 1, Code));
    EXPECT_EQ(Orders(), c.after) << c.name;
    EXPECT_EQ(Sort(), c.after != unmoved ? u"+Ordine"_qs : QString()) << c.name;
    EXPECT_EQ(Codes(), QString(c.after).remove(QRegularExpression(u"\\d"_qs))) << c.name;
    EXPECT_EQ(grid_->SelectedCount(), c.after == unmoved && c.to > 1 ? c.rows.size() : 0) << c.name;
    EXPECT_EQ(grid_->viewport()->cursor().shape(), Qt::ArrowCursor) << c.name;
    EXPECT_TRUE(Close());
  }
}

TEST_F(GridOrder, ADropThatChangesNothingEndsTheDrag) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs});
  Open();
  Drag({2, 3}, 3);
  EXPECT_EQ(grid_->viewport()->cursor().shape(), Qt::ArrowCursor);
  EXPECT_EQ(grid_->SelectedCount(), 2);
  Move(PointOf(3, Code));
  Release(PointOf(3, Code));
  EXPECT_EQ(Orders(), u"a1 b2 c3 d4"_qs);
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

TEST_F(GridOrder, DeletionsAreFollowedByTheNumberOfANewProduct) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
  Open();
  EXPECT_EQ(Shown(AddNewRow(), Order), u"4"_qs);
  Select({2, 3});
  dialogs_.ExpectQuestion(u"Do you want to delete selected products and their images?\r\nContinue?"_qs, true);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Shown(AddNewRow(), Order), u"2"_qs);
}

TEST_F(GridOrder, KeysSortAndMoveRows) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs, u"d"_qs});
  Open();
  grid_->GoTo(0, Code);
  for (const QString& sort : {u"+Codice"_qs, u"-Codice"_qs, QString()}) {
    Key(Qt::Key_O, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Sort(), sort);
  }
  Select({2, 3});
  for (const auto& [key, after] : {std::pair{Qt::Key_PageDown, u"a1 d2 b3 c4"_qs},
                                   {Qt::Key_PageDown, u"a1 d2 b3 c4"_qs},
                                   {Qt::Key_PageUp, u"a1 b2 c3 d4"_qs},
                                   {Qt::Key_PageUp, u"b1 c2 a3 d4"_qs}}) {
    Key(key, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Orders(), after);
    EXPECT_EQ(grid_->SelectedCount(), 2) << "to be moved on";
  }
}

TEST_F(GridOrder, ADragWritesTheRowInEditOrDoesNotBegin) {
  AddProducts({u"a"_qs, u"b"_qs, u"c"_qs});
  Open();
  Type(2, u"Descrizione"_qs, u"typed"_qs);
  Drag({3}, 1);
  EXPECT_EQ(Orders(), u"c1 a2 b3"_qs);
  EXPECT_EQ(Stored(u"c"_qs, u"Descrizione"_qs), u"typed"_qs);

  Type(2, Code, u"a"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Code \"a\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  Drag({3}, 1);
  EXPECT_EQ(Orders(), u"c1 a2 b3"_qs);
  EXPECT_EQ(Rows().EditRow(), 2);
  Key(Qt::Key_Escape);
}
