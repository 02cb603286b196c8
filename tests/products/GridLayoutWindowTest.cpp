// How a user arranges the grid, what stays of it, and the two menus.
#include <QClipboard>
#include <QGuiApplication>

#include "GridWindowFixture.h"

using namespace vorlina;

namespace {

class GridLayoutWindow : public GridWindow {
 protected:
  GridLayoutWindow() {
    Name(u"NomeValore1"_qs, u"Size"_qs);
    Name(u"NomeFiltro2"_qs, u"Colour"_qs);
    AddProducts({u"a"_qs, u"b"_qs});
  }
  int Width(const QString& key) const { return grid_->columnWidth(Rows().ColumnOf(key)); }
  // Drags a column's head onto another's.
  void DragHead(const QString& key, const QString& onto) const {
    DragTo(HeadOf(key), HeadOf(onto));
    Release(HeadOf(onto));
  }
  void RightClickHead(const QString& key) const { Click(HeadOf(key), Qt::NoModifier, Qt::RightButton); }
};

}  // namespace

TEST_F(GridLayoutWindow, AnArrangementIsFoundAgainAtTheNextOpening) {
  Open();
  DragHead(u"Size"_qs, Code);
  DragHead(u"Immagine"_qs, u"Colour"_qs);
  const QString moved = Captions();
  grid_->setColumnWidth(Rows().ColumnOf(Description), 345);
  Click(HeadOf(Code));
  Click(HeadOf(Code));
  RightClickHead(Description);
  Choose(u"mnuTestoACapo"_qs);
  RightClickHead(u"Ordine"_qs);
  QTest::keyClick(Find<QMenu>(u"mnuColonna"_qs), Qt::Key_Escape);
  QCoreApplication::processEvents();
  grid_->LoadGrid(true);
  EXPECT_EQ(Captions(), moved) << "a reload keeps it";
  EXPECT_EQ(grid_->AlignmentOf(u"Ordine"_qs), GridAlignment::Right) << "Escape applies what was there";
  EXPECT_EQ(Codes(), u"b a"_qs);
  EXPECT_TRUE(Close());

  // A filter that has lost its name since, and a value that has got one: the captions are the catalog's.
  Name(u"NomeFiltro2"_qs, {});
  Name(u"NomeValore3"_qs, u"Weight"_qs);
  Open();
  EXPECT_EQ(Captions().remove(u"Weight|"_qs).remove(u"|Weight"_qs), QString(moved).remove(u"|Colour"_qs));
  EXPECT_EQ(Width(Description), 345);
  EXPECT_EQ(Codes(), u"b a"_qs);
  EXPECT_TRUE(Rows().Column(Rows().ColumnOf(Description)).wordWrap);
}

TEST_F(GridLayoutWindow, AFolderThatCannotBeWrittenStopsNothing) {
  WriteFileSafely(AppFile(u"Layouts"_qs), "a file in the folder's place");
  Open();
  Type(0, Description, u"typed"_qs);
  EXPECT_TRUE(Close());
  EXPECT_EQ(Stored(u"a"_qs, Description), u"typed"_qs);
}

TEST_F(GridLayoutWindow, TheMenuOverTheRows) {
  Open();
  for (const QString& entry : {u"mnuCopia"_qs, u"mnuResizeCol"_qs}) {
    Click(PointOf(1, Code), Qt::NoModifier, Qt::RightButton);
    Choose(entry);
  }
  EXPECT_EQ(QGuiApplication::clipboard()->text(), u"b;;;;Yes;2"_qs);
  EXPECT_EQ(Width(Code) + Width(u"Ordine"_qs), 200);
}

TEST_F(GridLayoutWindow, KeysAndTheMenuMoveColumns) {
  Open();
  grid_->GoTo(0, u"Size"_qs);
  for (const auto& [key, times, after] :
       {std::tuple{Qt::Key_Left, 1, u"||Code|Size|Description|Colour|Publish|Order"_qs},
        {Qt::Key_Right, 9, u"||Code|Description|Colour|Publish|Order|Size"_qs}}) {
    for (int i = 0; i < times; ++i) Key(key, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Captions(), after);
  }
  RightClickHead(Code);
  Choose(u"mnuSpostaDestra"_qs);
  EXPECT_EQ(Captions(), u"||Description|Code|Colour|Publish|Order|Size"_qs) << "of the head, not of the cell";
}
