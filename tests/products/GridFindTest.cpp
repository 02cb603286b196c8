// Finding in the rows of the product grid's window, by keys.

#include "GridWindowFixture.h"
#include "grid/GridColours.h"
#include "grid/RowFinder.h"

using namespace vorlina;

namespace {

class GridFind : public GridWindow {
 protected:
  // As fast as the keys come, and when all is found.
  void TypeKeys(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(window_->windowHandle(), letter.toLatin1());
  }
  void Settle() {
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return !Find<QWidget>(u"findBar"_qs)->findChild<RowFinder*>()->IsRunning(); }));
  }
  QString Told() {
    Settle();
    return u"%1 %2 %3"_qs.arg(grid_->CurrentRow())
        .arg(grid_->CurrentKey(), Find<QLabel>(u"lblFound"_qs)->text());
  }
  QLineEdit& Line() const { return *Find<QLineEdit>(u"txtFind"_qs); }
  // How much of the cell has the colour of marks.
  int Marked(int row, const QString& key) const {
    const QImage cell =
        grid_->viewport()->grab(grid_->visualRect(Rows().index(row, Rows().ColumnOf(key)))).toImage();
    int count = 0;
    for (int y = 0; y < cell.height(); ++y)
      for (int x = 0; x < cell.width(); ++x) count += cell.pixelColor(x, y) == GridColours().mark ? 1 : 0;
    return count;
  }
};

}  // namespace

TEST_F(GridFind, FindsAsOneTypesAndGoesOnByKeys) {
  Name(u"NomeFiltro1"_qs, u"Colour"_qs);
  AddProducts({u"a1"_qs, u"b2"_qs, u"a3"_qs, u"c4"_qs});
  connection_.Execute(u"UPDATE Prodotti SET Descrizione='Un caffè' WHERE CodiceProdotto IN ('b2','c4')"_qs);
  connection_.Execute(u"UPDATE Prodotti SET IDFiltro1=? WHERE CodiceProdotto='a3'"_qs,
                      {AddFilterValue(1, u"café au lait"_qs)});
  Open();
  grid_->GoTo(2, Code);
  Key(Qt::Key_F, Qt::ControlModifier);
  TypeKeys(u"CAFFE"_qs);
  EXPECT_EQ(Told(), u"3 Descrizione 2 of 2"_qs);
  EXPECT_GT(Marked(1, Description), 20);
  EXPECT_EQ(Marked(2, u"Colour"_qs), 0);
  Key(Qt::Key_Backspace);
  Key(Qt::Key_Backspace);
  EXPECT_EQ(Told(), u"2 Colour 2 of 3"_qs) << "from where the search began";
  EXPECT_GT(Marked(2, u"Colour"_qs), 20);
  // Typed faster than it is found.
  QTest::keyClick(window_->windowHandle(), Qt::Key_Backspace);
  QTest::keyClick(window_->windowHandle(), Qt::Key_Return);
  EXPECT_EQ(Told(), u"3 Descrizione 3 of 3"_qs);
  Key(Qt::Key_F3);
  EXPECT_EQ(Told(), u"1 Descrizione 1 of 3, continued from the top"_qs);
  Key(Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(Told(), u"3 Descrizione 3 of 3, continued from the end"_qs);
  EXPECT_TRUE(Line().hasFocus());
  Key(Qt::Key_Escape);
  EXPECT_TRUE(grid_->hasFocus() && !Line().isVisible());
  EXPECT_EQ(Marked(3, Description), 0);
  Key(Qt::Key_F3);
  EXPECT_EQ(Told(), u"1 Descrizione 1 of 3, continued from the top"_qs);
  EXPECT_TRUE(grid_->hasFocus());
}

TEST_F(GridFind, ARowInEditIsLeftBeforeTheGridMoves) {
  AddProducts({u"a"_qs, u"b"_qs, u"bb"_qs});
  Open();
  Type(0, Description, u"typed"_qs);
  Key(Qt::Key_F, Qt::ControlModifier);
  EXPECT_EQ(Stored(u"a"_qs, Description), u"typed"_qs);
  TypeKeys(u"b"_qs);
  EXPECT_EQ(Told(), u"1 Codice 1 of 2"_qs);
  // A refused row stays.
  grid_->setFocus();
  Type(2, Code, u"a"_qs);
  dialogs_.ExpectMessage(
      u"There is already a row with Code \"a\". Choose another value. Press Esc to give up the change."_qs,
      BoxStyle::Stop);
  Key(Qt::Key_F3);
  EXPECT_EQ(grid_->CurrentRow(), 2);
  EXPECT_EQ(Rows().EditRow(), 2);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Rows().EditRow(), -1);
  // Rows that are sorted and rows that another program has taken away.
  grid_->SetSort(Code, SortDirection::Descending);
  EXPECT_EQ(Told(), u"0 Codice 1 of 2"_qs);
  connection_.Execute(u"DELETE FROM Prodotti WHERE CodiceProdotto='bb'"_qs);
  Rows().Refresh();
  EXPECT_EQ(Told(), u"0 Codice Found: 1"_qs);
  EXPECT_TRUE(Close());
}
