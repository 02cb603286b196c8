// What a grid does apart from editing: selection, order, layout, what is dragged and copied, and many rows.
#include <QClipboard>

#include "base/Helpers.h"
#include "grid/ShownGrid.h"

using namespace vorlina;

namespace {

QString Listed(const QList<int>& rows) {
  QStringList texts;
  for (const int row : rows) texts += QString::number(row);
  return texts.join(u' ');
}

}  // namespace

TEST_F(ShownGrid, SelectsSeveralRowsAndCopiesThem) {
  Click(1, u"Name"_qs);
  Click(3, u"Note"_qs, Qt::ShiftModifier);
  Click(2, u"Name"_qs, Qt::ControlModifier);
  Click(StripOf(4), Qt::ControlModifier);
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"1 3 4"_qs);
  Click(PointOf(3, u"Name"_qs), {}, Qt::RightButton);
  EXPECT_EQ(grid_->SelectedCount(), 3) << "a menu is for the whole selection";
  grid_->SetColumnPosition(u"Colour"_qs, 0);
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"blue\tAda\t\tYes\nblue\tDora\t\tYes\nblue\tEmma\t\tYes"_qs);
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(grid_->SelectedCount(), 5) << "not the add-new row";
  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Listed(grid_->SelectedRows()), QString()) << "the add-new row, and none that is out of sight";

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
    EXPECT_EQ(Listed(grid_->SelectedRows()), u"1 2"_qs) << "the selection is what was dragged";
    EXPECT_EQ(drag(at(1), at(5)), u"start drop 4"_qs) << "the add-new row is no row";
    EXPECT_EQ(drag(at(1), at(5) + QPoint(0, 100)), u"start drop 4"_qs);
    DragTo(at(1), at(0));
    Key(Qt::Key_Escape);
    Move(at(3));
    Release(at(3));
    EXPECT_EQ(told.last(), u"cancel"_qs);
  }
  EXPECT_EQ(drag(StripOf(1), other_->geometry().center()), u"start cancel"_qs);
  Click(StripOf(2));
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"2"_qs) << "a click in the strip selects the row alone";

  // The row in edit is written first; where that fails nothing is dragged.
  grid_->GoTo(1, u"Note"_qs);
  Type(u"new"_qs);
  EXPECT_EQ(drag(PointOf(1, u"Name"_qs), PointOf(3, u"Name"_qs)), u"start drop 3"_qs);
  EXPECT_EQ(Stored(u"Note"_qs, u"Ada"_qs), u"new"_qs);
  grid_->GoTo(1, u"Name"_qs);
  Type(u"Carla"_qs);
  EXPECT_EQ(drag(PointOf(1, u"Note"_qs), PointOf(3, u"Note"_qs)), u" "_qs);
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_EQ(Where(), u"1 Name"_qs);
}

TEST_F(ShownGrid, TakesFilesOnRows) {
  QStringList told;
  QObject::connect(grid_, &DataGrid::FilesDropped, [&](int row, const QStringList& paths) {
    told += u"%1 %2"_qs.arg(row).arg(paths.join(u' '));
  });
  const auto drop = [&](int row, const QList<QUrl>& urls) {
    QMimeData data;
    data.setUrls(urls);
    const QPoint point = grid_->visualRect(Row().index(row, 2)).center();
    QDragEnterEvent enter(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(grid_->viewport(), &enter);
    if (!enter.isAccepted()) return false;
    EXPECT_EQ(enter.dropAction(), Qt::CopyAction) << "nobody's file is to be moved away";
    QDropEvent dropped(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(grid_->viewport(), &dropped);
    return dropped.isAccepted();
  };
  const QUrl one = QUrl::fromLocalFile(u"/tmp/a b.jpg"_qs);
  const QUrl two = QUrl::fromLocalFile(u"/tmp/c.JPG"_qs);
  const QUrl far(u"https://example.org/x.jpg"_qs);
  grid_->SetAcceptsFiles(true);
  grid_->TakesFile = [](const QString& path) { return path.endsWith(u".JPG"); };
  EXPECT_FALSE(drop(2, {far, one}));
  EXPECT_FALSE(drop(5, {two})) << "the add-new row";
  EXPECT_TRUE(drop(2, {one, far, two}));
  EXPECT_EQ(told, QStringList{u"2 /tmp/a b.jpg /tmp/c.JPG"_qs});
  Type(u"Ada"_qs);
  EXPECT_FALSE(drop(2, {two})) << "the row in edit cannot be left";
  EXPECT_EQ(failures_.size(), 1);
}

TEST_F(ShownGrid, WrappedTextsMakeTheRowsHigher) {
  connection_.Execute(u"UPDATE People SET Note=? WHERE Name='Ada'"_qs, {QString(1000, u'\n')});
  Row().Refresh();
  const int single = grid_->rowHeight(0);
  grid_->SetWordWrap(u"Note"_qs, true);
  EXPECT_GT(grid_->rowHeight(0), 2 * single) << "also where the row itself has no text";
  EXPECT_LT(grid_->rowHeight(0), 12 * single) << "there are other rows as well";
}
