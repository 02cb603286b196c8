// What a grid does apart from editing: selection, order, layout, what is dragged and copied, and many rows.
#include <QClipboard>

#include "base/Helpers.h"
#include "grid/ShownGrid.h"

using namespace vorlina;

TEST_F(ShownGrid, SelectsSeveralRowsAndCopiesThem) {
  Click(1, u"Name"_qs);
  Click(3, u"Note"_qs, Qt::ShiftModifier);
  Click(2, u"Name"_qs, Qt::ControlModifier);
  Click(StripOf(4), Qt::ControlModifier);
  EXPECT_EQ(grid_->SelectedRows(), (QList<int>{1, 3, 4}));
  Click(PointOf(3, u"Name"_qs), {}, Qt::RightButton);
  EXPECT_EQ(grid_->SelectedCount(), 3) << "a menu is for the whole selection";
  grid_->SetColumnPosition(u"Colour"_qs, 0);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"blue\tAda\t\tYes\nblue\tDora\t\tYes\nblue\tEmma\t\tYes"_qs);
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(grid_->SelectedCount(), 5) << "not the add-new row";
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(grid_->SelectedRows(), QList<int>()) << "the add-new row, and none that is out of sight";

  // A click on the one selected row edits its cell, once it is no double click.
  Click(0, u"Name"_qs);
  Click(0, u"Note"_qs);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Editor() != nullptr; }));
}

TEST_F(ShownGrid, SelectedRowsAreDragged) {
  QStringList told;
  QObject::connect(grid_, &DataGrid::RowDragStarted, [&] { told += u"start"_qs; });
  QObject::connect(grid_, &DataGrid::RowDragMoved, [&](int row) { told += u"over %1"_qs.arg(row); });
  QObject::connect(grid_, &DataGrid::RowDropped, [&](int row) { told += u"drop %1"_qs.arg(row); });
  QObject::connect(grid_, &DataGrid::RowDragCancelled, [&] { told += u"cancel"_qs; });
  const auto drag = [&](const QPoint& from, const QPoint& to) -> QString {
    told.clear();
    DragTo(from, to);
    Release(to);
    return told.value(0) + u' ' + told.value(told.size() - 1);
  };
  // What is not selected yet is selected by dragging.
  EXPECT_EQ(drag(PointOf(1, u"Note"_qs), PointOf(2, u"Note"_qs)), u" "_qs);
  for (const bool strip : {false, true}) {
    const auto at = [&](int row) { return strip ? StripOf(row) : PointOf(row, u"Note"_qs); };
    EXPECT_EQ(drag(at(2), at(4)), u"start drop 4"_qs);
    EXPECT_EQ(grid_->SelectedRows(), (QList<int>{1, 2})) << "the selection is what was dragged";
    EXPECT_EQ(drag(at(1), at(5)), u"start drop 4"_qs) << "the add-new row is no row";
    DragTo(at(1), at(0));
    Key(Qt::Key_Escape);
    Move(at(3));
    Release(at(3));
    EXPECT_EQ(told.last(), u"cancel"_qs);
  }
  EXPECT_EQ(drag(StripOf(1), other_->geometry().center()), u"start cancel"_qs);
  Click(StripOf(2));
  EXPECT_EQ(grid_->SelectedRows(), (QList<int>{2})) << "a click in the strip selects the row alone";

  // The row in edit is written first; where that fails nothing is dragged.
  grid_->GoTo(1, u"Name"_qs);
  Type(u"Carla"_qs);
  EXPECT_EQ(drag(PointOf(1, u"Note"_qs), PointOf(3, u"Note"_qs)), u" "_qs);
  EXPECT_EQ(failures_.size(), 1);
}

TEST_F(ShownGrid, TakesFilesOnRows) {
  QStringList told;
  QObject::connect(grid_, &DataGrid::FilesDropped, [&](int row, const QStringList& paths) {
    told += u"%1 %2"_qs.arg(row).arg(paths.join(u' '));
  });
  const QUrl one = QUrl::fromLocalFile(u"/tmp/a b.JPG"_qs);
  const QUrl other = QUrl::fromLocalFile(u"/tmp/c.txt"_qs);
  const QUrl far(u"https://example.org/x.JPG"_qs);
  grid_->SetAcceptsFiles(true);
  grid_->TakesFile = [](const QString& path) { return path.endsWith(u".JPG"); };
  DropFiles(2, {far, other});
  DropFiles(5, {one});
  EXPECT_EQ(told, QStringList()) << "none that is taken, and the add-new row";
  DropFiles(2, {one, far});
  EXPECT_EQ(told, QStringList{u"2 /tmp/a b.JPG"_qs});
  Type(u"Ada"_qs);
  DropFiles(2, {one});
  EXPECT_EQ(told.size(), 1) << "the row in edit cannot be left";
}
