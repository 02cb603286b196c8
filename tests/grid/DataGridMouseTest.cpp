// What a grid does apart from editing: selection, order, layout, what is dragged and copied, and many rows.
#include <QClipboard>
#include <QDialog>
#include <QElapsedTimer>
#include <QFile>
#include <QToolTip>

#include "base/Helpers.h"
#include "grid/ShownGrid.h"
#include "support/ScriptedDialogs.h"

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
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"1 2 3"_qs);
  Click(2, u"Name"_qs, Qt::ControlModifier);
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"1 3"_qs);
  Click(StripOf(4), Qt::ControlModifier);
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"1 3 4"_qs);
  EXPECT_EQ(grid_->SelectedCount(), 3);
  Click(PointOf(3, u"Name"_qs), {}, Qt::RightButton);
  EXPECT_EQ(grid_->SelectedCount(), 3) << "a menu is for the whole selection";
  Key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"0 1 2 3 4"_qs);
  EXPECT_EQ(grid_->SelectedCount(), 5) << "not the add-new row";

  connection_.Execute(u"UPDATE People SET Note='a;b' || char(10) || 'c' WHERE Name='Ada'"_qs);
  Row().Refresh();
  grid_->SetColumnPosition(u"Colour"_qs, 0);
  Click(1, u"Name"_qs);
  Click(0, u"Name"_qs, Qt::ControlModifier);
  EXPECT_EQ(grid_->CopySelection(u";"_qs, u"\r\n"_qs), u"blue;Carla;;Yes\r\nblue;Ada;a;b\nc;Yes"_qs);
  EXPECT_EQ(grid_->CopySelection(u";"_qs, u"\r\n"_qs, [](qint64, qint64, const QString&) { return false; }),
            QString());
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), u"blue\tCarla\t\tYes\nblue\tAda\ta;b\nc\tYes"_qs);
  int copies = 0;
  grid_->OnCopy = [&] { ++copies; };
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copies, 1);

  Key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(Listed(grid_->SelectedRows()), QString()) << "the add-new row, and none that is out of sight";
  grid_->GoTo(2, u"Name"_qs);
  Key(Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"0 1 2"_qs);

  // A click on the one selected row edits its cell, once it is no double click.
  Click(0, u"Name"_qs);
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"0"_qs);
  Click(0, u"Note"_qs);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Editor() != nullptr; }));
  Key(Qt::Key_Escape);
}

TEST_F(ShownGrid, TellsWhereItIsClicked) {
  QStringList told;
  const auto tell = [&](const QString& what, int row, const QString& key) {
    told += u"%1 %2 %3"_qs.arg(what).arg(row).arg(key);
  };
  QObject::connect(grid_, &DataGrid::CellPressed,
                   [&](int row, const QString& key, Qt::MouseButton button, const QPoint&) {
                     tell(button == Qt::RightButton ? u"right"_qs : u"press"_qs, row, key);
                   });
  QObject::connect(grid_, &DataGrid::CellHovered,
                   [&](int row, const QString& key, const QPoint&) { tell(u"over"_qs, row, key); });
  QObject::connect(grid_, &DataGrid::DoubleClicked,
                   [&](int row, const QString& key) { tell(u"double"_qs, row, key); });
  QObject::connect(grid_, &DataGrid::HeaderPressed, [&](const QString& key, Qt::MouseButton button, QPoint) {
    tell(u"header"_qs, button == Qt::RightButton ? 2 : 1, key);
  });
  QObject::connect(grid_, &DataGrid::HeaderClicked,
                   [&](const QString& key, SortDirection present) { tell(u"click"_qs, int(present), key); });
  Move(PointOf(2, u"Note"_qs));
  Click(2, u"Note"_qs);
  QTest::mouseDClick(window_.windowHandle(), Qt::LeftButton, {}, PointOf(2, u"Note"_qs));
  QCoreApplication::processEvents();
  Click(PointOf(0, u"Picture"_qs), {}, Qt::RightButton);
  Click(PointOf(0, u"Note"_qs) + QPoint(0, 300));
  EXPECT_EQ(told,
            (QStringList{u"over 2 Note"_qs, u"press 2 Note"_qs, u"press 2 Note"_qs, u"double 2 Note"_qs,
                         u"over 0 Picture"_qs, u"right 0 Picture"_qs, u"over -1 "_qs, u"press -1 "_qs}));
  told.clear();
  const QHeaderView& header = *grid_->horizontalHeader();
  const int note = Row().ColumnOf(u"Note"_qs);
  const QPoint head = header.mapTo(&window_, QPoint(header.sectionViewportPosition(note) + 20, 8));
  grid_->SetSort(u"Note"_qs, SortDirection::Descending);
  Click(head);
  Click(head, {}, Qt::RightButton);
  EXPECT_EQ(told, (QStringList{u"header 1 Note"_qs, u"click 2 Note"_qs, u"header 2 Note"_qs}));
  EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder) << "the arrow does not turn by itself";
  int enters = 0;
  grid_->OnEnter = [&] { ++enters; };
  grid_->setFocus();
  Key(Qt::Key_Enter);
  EXPECT_EQ(enters, 1);
}

TEST_F(ShownGrid, ASortKeepsTheCurrentRowAndTheSelection) {
  Click(4, u"Note"_qs);
  Click(0, u"Note"_qs, Qt::ControlModifier);
  for (const bool changed : {false, true}) {
    if (changed) Elsewhere(u"DELETE FROM People WHERE Name='Dora'"_qs);
    ASSERT_TRUE(grid_->SetSort(u"Name"_qs, changed ? SortDirection::Descending : SortDirection::Ascending));
    EXPECT_EQ(Names(), changed ? u"Emma Carla Bruno Ada"_qs : u"Ada Bruno Carla Dora Emma"_qs);
    EXPECT_EQ(Shown(grid_->CurrentRow(), u"Name"_qs), u"Carla"_qs) << changed;
    EXPECT_EQ(grid_->CurrentKey(), u"Note"_qs);
    EXPECT_TRUE(grid_->horizontalHeader()->isSortIndicatorShown());
    EXPECT_EQ(changed ? u"2 4"_qs : Listed(grid_->SelectedRows()), u"2 4"_qs);
  }
  EXPECT_FALSE(grid_->SetSort(u"Picture"_qs, SortDirection::Ascending));
  EXPECT_EQ(Names(), u"Emma Carla Bruno Ada"_qs);
  EXPECT_TRUE(grid_->SetSort({}, SortDirection::None));
  EXPECT_EQ(Names(), u"Carla Ada Bruno Emma"_qs);
  EXPECT_FALSE(grid_->horizontalHeader()->isSortIndicatorShown());
}

TEST_F(ShownGrid, ItsLayoutIsKept) {
  grid_->SetColumnPosition(u"Colour"_qs, 0);
  grid_->SetAlignment(u"Note"_qs, GridAlignment::Right);
  grid_->SetWordWrap(u"Note"_qs, true);
  grid_->setColumnWidth(Row().ColumnOf(u"Name"_qs), 321);
  grid_->SetSort(u"Name"_qs, SortDirection::Descending);
  const GridLayout layout = ParseLayout(LayoutText(grid_->Layout()));
  EXPECT_EQ(layout, grid_->Layout());

  // A binding keeps it; so does one under other names, of which a stored layout knows nothing.
  Open();
  EXPECT_EQ(grid_->Layout(), layout);
  people_.Close();
  people_.Open(u"SELECT ID As _ID, Name, Note As Remark, Colour, Active FROM People"_qs, connection_,
               CursorType::Keyset, LockType::Optimistic);
  std::vector<GridColumn> renamed = Columns();
  renamed[3].key = u"Remark"_qs;
  ASSERT_TRUE(grid_->Bind(people_, renamed));
  EXPECT_EQ(grid_->Layout().columns[0].key, u"Colour"_qs);
  EXPECT_EQ(grid_->Layout().columns[3].width, 321);
  EXPECT_EQ(Names(), u"Emma Dora Carla Bruno Ada"_qs);

  DataGrid fresh;
  Recordset again;
  again.Open(u"SELECT ID As _ID, Name, Note, Colour, Active FROM People"_qs, connection_, CursorType::Keyset,
             LockType::Optimistic);
  fresh.Bind(again, Columns());
  GridLayout stored = layout;
  stored.columns.removeIf([](const GridColumnLayout& column) { return column.key == u"Active"_qs; });
  stored.columns.prepend({.key = u"gone"_qs, .width = 50});
  for (GridColumnLayout& column : stored.columns) column.visible = true;
  fresh.ApplyLayout(stored);
  EXPECT_EQ(fresh.Layout(), layout) << "what the window hides stays hidden";
  fresh.Rows().Unbind();
}

TEST_F(ShownGrid, SelectedRowsAreDragged) {
  QStringList told;
  QObject::connect(grid_, &DataGrid::RowDragStarted, [&] { told += u"start"_qs; });
  QObject::connect(grid_, &DataGrid::RowDragMoved, [&](int row) { told += u"over %1"_qs.arg(row); });
  QObject::connect(grid_, &DataGrid::RowDropped, [&](int row) { told += u"drop %1"_qs.arg(row); });
  QObject::connect(grid_, &DataGrid::RowDragCancelled, [&] { told += u"cancel"_qs; });

  // What is not selected yet is selected by dragging.
  DragTo(PointOf(1, u"Note"_qs), PointOf(2, u"Note"_qs));
  Release(PointOf(2, u"Note"_qs));
  EXPECT_EQ(told, QStringList());
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"1 2"_qs);

  for (const bool strip : {false, true}) {
    const auto at = [&](int row) { return strip ? StripOf(row) : PointOf(row, u"Note"_qs); };
    told.clear();
    DragTo(at(2), at(4));
    EXPECT_EQ(told.value(0), u"start"_qs);
    EXPECT_EQ(told.last(), u"over 4"_qs);
    Release(at(4));
    EXPECT_EQ(told.last(), u"drop 4"_qs);
    EXPECT_EQ(told.count(u"start"_qs), 1);
    EXPECT_EQ(Listed(grid_->SelectedRows()), u"1 2"_qs) << "the selection is what was dragged";

    told.clear();
    DragTo(at(1), at(0));
    Key(Qt::Key_Escape);
    EXPECT_EQ(told.last(), u"cancel"_qs);
    Move(at(3));
    Release(at(3));
    EXPECT_EQ(told.last(), u"cancel"_qs);

    // Beyond the rows, and on the add-new row, it is the last one.
    told.clear();
    DragTo(at(1), at(5));
    EXPECT_EQ(told.last(), u"over 4"_qs);
    Move(at(5) + QPoint(0, 100));
    Release(at(5) + QPoint(0, 100));
    EXPECT_EQ(told.last(), u"drop 4"_qs);
  }

  told.clear();
  DragTo(StripOf(1), other_->geometry().center());
  Release(other_->geometry().center());
  EXPECT_EQ(told.last(), u"cancel"_qs) << "beside the grid nothing is dropped";

  Click(StripOf(2));
  EXPECT_EQ(Listed(grid_->SelectedRows()), u"2"_qs) << "a click in the strip selects the row alone";
  told.clear();
  Click(StripOf(5));
  DragTo(StripOf(5), StripOf(1));
  Release(StripOf(1));
  EXPECT_EQ(told, QStringList()) << "the add-new row is no row";

  // The row in edit is written first; where that fails nothing is dragged.
  grid_->GoTo(1, u"Note"_qs);
  Type(u"new"_qs);
  DragTo(PointOf(1, u"Name"_qs), PointOf(3, u"Name"_qs));
  EXPECT_EQ(told.value(0), u"start"_qs);
  EXPECT_EQ(Stored(u"Note"_qs, u"Ada"_qs), u"new"_qs);
  Release(PointOf(3, u"Name"_qs));
  told.clear();
  grid_->GoTo(1, u"Name"_qs);
  Type(u"Carla"_qs);
  DragTo(PointOf(1, u"Note"_qs), PointOf(3, u"Note"_qs));
  Release(PointOf(3, u"Note"_qs));
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_EQ(told, QStringList());
  EXPECT_EQ(Where(), u"1 Name"_qs);
}

TEST_F(ShownGrid, TakesFilesOnRows) {
  QStringList told;
  QObject::connect(grid_, &DataGrid::FilesOver, [&](int row) { told += u"over %1"_qs.arg(row); });
  QObject::connect(grid_, &DataGrid::FilesDropped, [&](int row, const QStringList& paths) {
    told += u"drop %1 %2"_qs.arg(row).arg(paths.join(u' '));
  });
  const auto drop = [&](int row, const QList<QUrl>& urls) {
    told.clear();
    QMimeData data;
    data.setUrls(urls);
    const QPoint point = grid_->visualRect(Row().index(row, 2)).center();
    QDragEnterEvent enter(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(grid_->viewport(), &enter);
    QDragMoveEvent move(point, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(grid_->viewport(), &move);
    if (!move.isAccepted()) return false;
    EXPECT_EQ(move.dropAction(), Qt::CopyAction) << "nobody's file is to be moved away";
    QDropEvent dropped(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(grid_->viewport(), &dropped);
    return dropped.isAccepted();
  };
  const QUrl one = QUrl::fromLocalFile(u"/tmp/a b.jpg"_qs);
  const QUrl two = QUrl::fromLocalFile(u"/tmp/c.JPG"_qs);
  EXPECT_FALSE(grid_->acceptDrops());
  grid_->SetAcceptsFiles(true);
  EXPECT_TRUE(grid_->viewport()->acceptDrops());
  EXPECT_TRUE(drop(2, {one, QUrl(u"https://example.org/x.jpg"_qs), two}));
  EXPECT_EQ(told.last(), u"drop 2 /tmp/a b.jpg /tmp/c.JPG"_qs);
  EXPECT_EQ(told.first(), u"over 2"_qs);
  EXPECT_FALSE(drop(2, {QUrl(u"https://example.org/x.jpg"_qs)}));
  EXPECT_FALSE(drop(5, {one})) << "the add-new row";
  grid_->TakesFile = [](const QString& path) { return path.endsWith(u".JPG"); };
  EXPECT_FALSE(drop(2, {one}));
  EXPECT_TRUE(drop(2, {one, two}));
  QDialog box;
  box.setObjectName(u"box"_qs);
  UnexpectedModalGuard::allowed = QStringList{box.objectName()};
  box.setModal(true);
  box.show();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
  EXPECT_FALSE(drop(2, {two})) << "not under a box";
  box.close();
  UnexpectedModalGuard::allowed.clear();
  window_.activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  grid_->setFocus();
  Type(u"Ada"_qs);
  EXPECT_FALSE(drop(2, {two})) << "the row in edit cannot be left";
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_EQ(told.filter(u"drop"_qs), QStringList());
}

TEST_F(ShownGrid, ACutTextIsWholeInItsToolTip) {
  connection_.Execute(u"UPDATE People SET Note='<b>'||hex(zeroblob(90)) WHERE Name='Ada'"_qs);
  Row().Refresh();
  for (const int row : {0, 1}) {
    const QPoint at = grid_->visualRect(Row().index(row, Row().ColumnOf(u"Note"_qs))).center();
    QHelpEvent help(QEvent::ToolTip, at, grid_->viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(grid_->viewport(), &help);
    EXPECT_EQ(QToolTip::text(), row == 1 ? PlainToolTip(Shown(1, u"Note"_qs)) : QString());
  }
}

TEST_F(ShownGrid, OneHeightForAllRows) {
  QHeaderView& strip = *grid_->verticalHeader();
  const int before = grid_->rowHeight(0);
  const int boundary = strip.sectionViewportPosition(2) - 1;
  const QPoint grip = strip.mapTo(&window_, QPoint(5, boundary));
  Move(grip);
  DragTo(grip, grip + QPoint(0, 20));
  Release(grip + QPoint(0, 20));
  EXPECT_EQ(grid_->rowHeight(1), before + 20);
  EXPECT_EQ(grid_->rowHeight(4), before + 20);
  EXPECT_EQ(grid_->rowViewportPosition(4), 4 * (before + 20));
  EXPECT_EQ(Row().EditRow(), -1);
}

TEST_F(ShownGrid, WrappedTextsMakeTheRowsHigher) {
  const QString key = u"Note"_qs;
  const int column = Row().ColumnOf(key);
  connection_.Execute(u"UPDATE People SET Note=? WHERE Name='Ada'"_qs, {u"several words "_qs.repeated(6)});
  Row().Refresh();
  const int single = grid_->rowHeight(0);
  grid_->SetWordWrap(key, true);
  const int wrapped = grid_->rowHeight(0);
  EXPECT_GT(wrapped, 2 * single) << "also where the row itself has no text";
  EXPECT_EQ(ParseLayout(LayoutText(grid_->Layout())).rowHeight, wrapped);
  grid_->setColumnWidth(column, 2000);
  EXPECT_EQ(grid_->rowHeight(0), single);
  connection_.Execute(u"UPDATE People SET Note=?"_qs, {QString(1000, u'\n')});
  Row().Refresh();
  grid_->setColumnWidth(column, 100);
  EXPECT_GT(grid_->rowHeight(0), wrapped);
  EXPECT_LT(grid_->rowHeight(0), 12 * single) << "there are other rows as well";
  GridLayout layout = grid_->Layout();
  layout.rowHeight = wrapped;
  grid_->ApplyLayout(layout);
  EXPECT_EQ(grid_->rowHeight(0), wrapped);
  grid_->SetWordWrap(key, false);
  EXPECT_EQ(grid_->rowHeight(0), single);
}
