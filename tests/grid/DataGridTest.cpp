// Editing in a grid: cells, rows, and how a row is left.
#include <QClipboard>

#include "base/Helpers.h"
#include "grid/ShownGrid.h"

using namespace vorlina;

TEST_F(ShownGrid, TypingEditsACellAndLeavingTheRowWritesIt) {
  struct {
    QString means;
    std::function<void()> leave;
  } const ways[] = {{u"arrow"_qs, [&] { Key(Qt::Key_Down); }},
                    {u"page"_qs, [&] { Key(Qt::Key_PageDown); }},
                    {u"enter"_qs,
                     [&] {
                       const bool open = Editor() != nullptr;
                       Key(Qt::Key_Return);
                       EXPECT_EQ(Where(), open ? u"1 Note"_qs : u"0 Colour"_qs);
                       if (!open) grid_->LeaveRow();
                     }},
                    {u"click"_qs, [&] { Click(3, u"Name"_qs); }},
                    {u"strip"_qs, [&] { Click(StripOf(2)); }},
                    {u"another control"_qs, [&] { other_->setFocus(); }},
                    {u"a click on another control"_qs, [&] { Click(other_->geometry().center()); }},
                    {u"another window"_qs,
                     [&] {
                       QWidget second;
                       new QLineEdit(&second);
                       second.show();
                       second.activateWindow();
                       EXPECT_TRUE(QTest::qWaitForWindowActive(&second));
                       second.close();
                       window_.activateWindow();
                       EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
                     }},
                    {u"code"_qs, [&] { grid_->LeaveRow(); }},
                    {u"a reload"_qs, [&] { grid_->Reload(); }},
                    {u"a sort"_qs, [&] { grid_->SetSort(u"Note"_qs, SortDirection::Ascending); }}};
  for (const auto& way : ways) {
    for (const bool open : {true, false}) {
      SCOPED_TRACE(way.means.toStdString() + (open ? " from the editor" : " from the row"));
      grid_->SetSort({}, SortDirection::None);
      grid_->setFocus();
      ASSERT_TRUE(grid_->GoTo(0, u"Note"_qs));
      const QString text = way.means + (open ? u"1"_qs : u"2"_qs);
      Type(text);
      EXPECT_EQ(Typed(), text) << "what was there is replaced";
      EXPECT_NE(Stored(u"Note"_qs, u"Carla"_qs), text);
      if (!open) {
        TakeCell();
        EXPECT_EQ(Row().EditRow(), 0) << "the cell is taken, not the row";
        EXPECT_EQ(Where(), u"0 Note"_qs);
        EXPECT_NE(Stored(u"Note"_qs, u"Carla"_qs), text);
      }
      way.leave();
      EXPECT_EQ(Stored(u"Note"_qs, u"Carla"_qs), text);
      EXPECT_EQ(Editor(), nullptr);
      EXPECT_EQ(Row().EditRow(), -1);
    }
  }
  EXPECT_EQ(failures_, QStringList());
}

TEST_F(ShownGrid, EscapeUndoesTheCellAndThenTheRow) {
  Key(Qt::Key_F2);
  EXPECT_EQ(Typed(), u"Carla"_qs) << "F2 keeps what is there";
  Key(Qt::Key_End);
  Type(u" B"_qs);
  TakeCell();
  Key(Qt::Key_Right);
  Type(u"note"_qs);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Editor(), nullptr);
  EXPECT_EQ(Shown(0, u"Note"_qs), QString());
  EXPECT_EQ(Shown(0, u"Name"_qs), u"Carla B"_qs);
  EXPECT_EQ(Row().EditRow(), 0);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(0, u"Name"_qs), u"Carla"_qs);
  EXPECT_EQ(Row().EditRow(), -1);

  Click(0, u"Active"_qs);
  Key(Qt::Key_Space);
  EXPECT_EQ(Row().Value(0, u"Active"_qs), 0);
  Type(u"x"_qs);
  EXPECT_EQ(Where(), u"0 Active"_qs) << "a letter looks for nothing";
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored(u"Active"_qs, u"Carla"_qs), 0);
}

TEST_F(ShownGrid, TabGoesThroughTheRowsAndAddsNewOnes) {
  const QStringList places{u"0 Note"_qs, u"0 Colour"_qs, u"0 Active"_qs, u"1 Name"_qs};
  for (const QString& place : places) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(Where(), place);
  }
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(Where(), u"0 Active"_qs);
  Key(Qt::Key_Return);
  EXPECT_EQ(Where(), u"1 Name"_qs) << "Enter goes on where the window has nothing else for it";

  // From an editor the next cell is edited; a row that is left is written.
  grid_->GoTo(4, u"Note"_qs);
  Type(u"last"_qs);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Typed(), u"blue"_qs);
  Key(Qt::Key_Tab);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Where(), u"5 Name"_qs);
  EXPECT_EQ(Stored(u"Note"_qs, u"Emma"_qs), u"last"_qs);
  for (const QString& name : {u"Fay"_qs, u"Gus"_qs}) {
    Type(name);
    for (int i = 0; i < 4; ++i) Key(Qt::Key_Tab);
  }
  EXPECT_EQ(Where(), u"7 Name"_qs);
  EXPECT_EQ(Names(), u"Carla Ada Bruno Dora Emma Fay Gus"_qs);
  EXPECT_EQ(Stored(u"Active"_qs, u"Gus"_qs), 1);

  // Behind the last cell, and before the first, the focus goes on.
  for (int i = 0; i < 4; ++i) Key(Qt::Key_Tab);
  EXPECT_TRUE(other_->hasFocus());
  grid_->setColumnHidden(Row().ColumnOf(u"Active"_qs), true);
  grid_->setFocus();
  grid_->GoTo(7, u"Colour"_qs);
  Key(Qt::Key_F2);
  Key(Qt::Key_Tab);
  EXPECT_TRUE(other_->hasFocus()) << "from the last editor as well";
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(grid_->hasFocus());
  grid_->GoTo(0, u"Name"_qs);
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(other_->hasFocus());
}

TEST_F(ShownGrid, AKeyAfterAClickIsTheFirstOfTheCell) {
  Click(0, u"Name"_qs);
  Click(0, u"Note"_qs);
  Type(u"12,50"_qs);
  EXPECT_EQ(Typed(), u"12,50"_qs);
  Click(0, u"Name"_qs);
  Key(Qt::Key_F2);
  EXPECT_EQ(Typed(), u"Carla"_qs);
  Click(5, u"Name"_qs);
  Type(u"Fay"_qs);
  Click(5, u"Note"_qs);
  Type(u"new"_qs);
  Click(0, u"Name"_qs);
  EXPECT_EQ(Stored(u"Note"_qs, u"Carla"_qs), u"12,50"_qs);
  EXPECT_EQ(Stored(u"Note"_qs, u"Fay"_qs), u"new"_qs);
  const QModelIndex mark = Row().index(2, Row().ColumnOf(u"Active"_qs));
  Click(grid_->viewport()->mapTo(&window_, grid_->visualRect(mark).topLeft() + QPoint(10, 10)));
  EXPECT_EQ(Row().Value(2, u"Active"_qs), 0);
  EXPECT_EQ(Where(), u"2 Active"_qs) << "also on the check mark itself";
}

TEST_F(ShownGrid, TheNextNewRowBeginsInItsColumnAndNothingElseMoves) {
  grid_->SetNewRowKey(u"Name"_qs);
  struct {
    const char* name;
    std::function<void()> leave;
    QString where;
  } const ways[] = {{"down", [&] { Key(Qt::Key_Down); }, u"6 Name"_qs},
                    {"enter", [&] { Key(Qt::Key_Return); }, u"7 Name"_qs},
                    {"up", [&] { Key(Qt::Key_Up); }, u"6 Note"_qs},
                    {"click", [&] { Click(2, u"Colour"_qs); }, u"2 Colour"_qs},
                    {"code", [&] { grid_->LeaveRow(); }, u"9 Note"_qs}};
  int row = 5;
  for (const auto& way : ways) {
    grid_->GoTo(row, u"Name"_qs);
    Type(u"New %1"_qs.arg(row));
    Key(Qt::Key_Tab);
    Type(u"note"_qs);
    way.leave();
    EXPECT_EQ(Where(), way.where) << way.name;
    EXPECT_EQ(Row().RecordCount(), ++row) << way.name;
  }
  grid_->GoTo(row, u"Name"_qs);
  Type(u"Last"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Where(), u"11 Name"_qs) << "in one press also from the first editor";
}

TEST_F(ShownGrid, HomeGoesToTheFirstCellThatCanBeTypedInto) {
  grid_->SetColumnPosition(u"Active"_qs, 0);
  grid_->GoTo(3, u"Colour"_qs);
  Key(Qt::Key_Home);
  EXPECT_EQ(Where(), u"3 Name"_qs);
  Key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(Where(), u"0 Name"_qs);
}

TEST_F(ShownGrid, TheClipboardIsPastedAsIfItWereTyped) {
  Row().OnCellChanging = [](CellChange& change) { change.cancel = change.newValue == u"no"_qs; };
  const auto paste = [&](const QString& key, const QString& text) {
    grid_->GoTo(0, key);
    QApplication::clipboard()->setText(text);
    Key(Qt::Key_V, Qt::ControlModifier);
    return Shown(0, key);
  };
  EXPECT_EQ(paste(u"Note"_qs, u"a cell\r\n"_qs), u"a cell"_qs);
  EXPECT_EQ(paste(u"Colour"_qs, u"RED"_qs), u"red"_qs);
  EXPECT_EQ(paste(u"Active"_qs, u"x"_qs), QString());
  EXPECT_EQ(Row().EditRow(), 0) << "the row is not left";
  EXPECT_EQ(failures_.size(), 0);
  EXPECT_EQ(paste(u"Note"_qs, u"two\tcells"_qs), u"a cell"_qs);
  EXPECT_EQ(failures_.size(), 1);
  paste(u"Note"_qs, u"no"_qs);
  EXPECT_EQ(Typed(), u"no"_qs) << "refused, with its editor open";
}

// A box is up while a cell takes a text: nothing else that comes meanwhile may change the rows under it.
TEST_F(ShownGrid, NothingLeavesARowWhileACellIsAsked) {
  Row().OnCellChanging = [&](CellChange& change) {
    change.cancel = true;
    EXPECT_FALSE(grid_->LeaveRow());
    EXPECT_FALSE(grid_->Reload());
  };
  for (const auto key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Up}) {
    grid_->GoTo(1, u"Note"_qs);
    Type(u"x"_qs);
    Key(key);
    EXPECT_EQ(Typed(), u"x"_qs);
    Key(Qt::Key_Escape);
  }
}

// Whichever way the user tries to leave, it is told once, and the grid stays.
TEST_F(ShownGrid, AFailedWriteKeepsTheRow) {
  struct {
    QString means;
    std::function<void()> leave;
  } const ways[] = {{u"arrow"_qs, [&] { Key(Qt::Key_Down); }},
                    {u"end"_qs, [&] { Key(Qt::Key_End, Qt::ControlModifier); }},
                    {u"shift and arrow"_qs, [&] { Key(Qt::Key_Down, Qt::ShiftModifier); }},
                    {u"click"_qs, [&] { Click(3, u"Note"_qs); }},
                    {u"shift and click"_qs, [&] { Click(3, u"Note"_qs, Qt::ShiftModifier); }},
                    {u"double click"_qs,
                     [&] {
                       Click(3, u"Note"_qs);
                       QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {},
                                          grid_->visualRect(Row().index(3, 3)).center());
                     }},
                    {u"strip"_qs, [&] { Click(StripOf(2)); }},
                    {u"another control"_qs, [&] { Click(other_->geometry().center()); }},
                    {u"code"_qs, [&] { EXPECT_FALSE(grid_->GoTo(2)); }},
                    {u"other code"_qs, [&] { grid_->setCurrentIndex(Row().index(2, 2)); }},
                    {u"a sort"_qs, [&] { grid_->SetSort(u"Note"_qs, SortDirection::Ascending); }},
                    {u"a reload"_qs, [&] { grid_->Reload(); }},
                    {u"a binding"_qs, [&] { EXPECT_FALSE(grid_->Bind(people_, Columns())); }},
                    {u"drag"_qs,
                     [&] {
                       DragTo(PointOf(0, u"Note"_qs), PointOf(3, u"Note"_qs));
                       Release(PointOf(3, u"Note"_qs));
                     }},
                    {u"drag of the strip"_qs, [&] {
                       DragTo(StripOf(0), StripOf(3));
                       Release(StripOf(3));
                     }}};
  int doubleClicks = 0;
  QObject::connect(grid_, &DataGrid::DoubleClicked, [&] { ++doubleClicks; });
  for (const auto& way : ways) {
    for (const bool open : {true, false}) {
      SCOPED_TRACE(way.means.toStdString() + (open ? " from the editor" : " from the row"));
      ASSERT_TRUE(grid_->GoTo(0, u"Name"_qs));
      Type(u"Ada"_qs);
      if (!open) TakeCell();
      way.leave();
      QCoreApplication::processEvents();
      EXPECT_EQ(
          failures_,
          QStringList{u"There is already a row with Name \"Ada\". Choose another value. Press Esc to give up "
                      "the change."_qs});
      failures_.clear();
      EXPECT_EQ(Row().EditRow(), 0);
      EXPECT_EQ(Where(), u"0 Name"_qs) << "where it can be mended";
      EXPECT_FALSE(other_->hasFocus());
      Key(Qt::Key_Escape);
      EXPECT_EQ(Row().EditRow(), -1);
    }
  }
  EXPECT_EQ(doubleClicks, 0);
  EXPECT_EQ(Names(), u"Carla Ada Bruno Dora Emma"_qs);
}

TEST_F(ShownGrid, ARefusedCellKeepsItsEditor) {
  int asked = 0;
  Row().OnCellChanging = [&](CellChange& change) {
    change.cancel = change.newValue == u"no"_qs;
    asked += change.cancel ? 1 : 0;
  };
  const std::function<void()> ways[] = {[&] { Key(Qt::Key_Return); },
                                        [&] { Key(Qt::Key_Tab); },
                                        [&] { Key(Qt::Key_Down); },
                                        [&] { Click(2, u"Note"_qs); },
                                        [&] { Click(0, u"Name"_qs); },
                                        [&] { Click(StripOf(3)); },
                                        [&] { grid_->LeaveRow(); },
                                        [&] { other_->setFocus(); },
                                        [&] { Click(other_->geometry().center()); }};
  int way = 0;
  for (const auto& leave : ways) {
    SCOPED_TRACE(way++);
    ASSERT_TRUE(grid_->GoTo(0, u"Note"_qs));
    asked = 0;
    Type(u"no"_qs);
    leave();
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Typed(), u"no"_qs);
    EXPECT_EQ(Where(), u"0 Note"_qs);
    EXPECT_EQ(QApplication::focusWidget(), Editor());
    Key(Qt::Key_Escape);
    EXPECT_EQ(Editor(), nullptr);
    EXPECT_EQ(Row().EditRow(), -1);
  }
  Type(u"no"_qs);
  Key(Qt::Key_Return);
  Type(u"t"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored(u"Note"_qs, u"Carla"_qs), u"not"_qs) << "mended in the editor";

  Type(u"no"_qs);
  grid_->setFocus();
  EXPECT_TRUE(grid_->DeleteSelected());
  EXPECT_EQ(grid_->SelectedRows(), QList<int>{1}) << "the editor has gone with its row";
  Type(u"kept"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored(u"Note"_qs, u"Bruno"_qs), u"kept"_qs);
}

TEST_F(ShownGrid, ADropDownIsTypedIntoOrPickedFrom) {
  QStringList asked;
  bool known = false;
  Row().OnNotInList = [&](int, const QString& text) {
    asked += text;
    if (known) Row().SetLookup(u"Colour"_qs, Lookup({{1, u"green"_qs}, {2, u"blue"_qs}, {9, text}}));
    return known;
  };
  grid_->GoTo(0, u"Colour"_qs);
  Type(u"gree"_qs);
  EXPECT_EQ(Typed(), u"green"_qs) << "the rest is found";
  TakeCell();
  EXPECT_EQ(Row().Value(0, u"Colour"_qs), 1);
  Type(u"RED"_qs);
  Key(Qt::Key_Down, Qt::AltModifier);
  EXPECT_TRUE(Editor() != nullptr) << "the list opens";
  if (QWidget* list = QApplication::activePopupWidget()) QTest::keyClick(list, Qt::Key_Escape);
  QCoreApplication::processEvents();
  Key(Qt::Key_Tab);
  EXPECT_EQ(Shown(0, u"Colour"_qs), u"red"_qs);

  // From the opened list with the mouse.
  grid_->GoTo(1, u"Colour"_qs);
  EXPECT_EQ(Stored(u"Colour"_qs, u"Carla"_qs), 3);
  Key(Qt::Key_F2);
  auto* combo = qobject_cast<QComboBox*>(Editor());
  ASSERT_NE(combo, nullptr);
  combo->showPopup();
  const QModelIndex picked = combo->model()->index(1, 0);
  ASSERT_EQ(picked.data(), u"green"_qs) << "sorted by the user's locale";
  QTest::mouseMove(combo->view()->viewport(), combo->view()->visualRect(picked).center());
  QTest::qWait(QApplication::doubleClickInterval() + 50);  // else it is the click that opened the list
  QTest::mouseClick(combo->view()->viewport(), Qt::LeftButton, {},
                    combo->view()->visualRect(picked).center());
  ASSERT_NE(Editor(), nullptr) << "the list is not another control";
  TakeCell();
  EXPECT_EQ(Row().Value(1, u"Colour"_qs), 1);

  const std::function<void()> ways[] = {[&] { Key(Qt::Key_Return); }, [&] { Key(Qt::Key_Tab); },
                                        [&] { Click(3, u"Note"_qs); }, [&] { other_->setFocus(); }};
  for (const auto& leave : ways) {
    grid_->GoTo(1, u"Colour"_qs);
    asked.clear();
    Type(u"pink"_qs);
    leave();
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, QStringList{u"pink"_qs});
    EXPECT_EQ(Typed(), u"pink"_qs);
    Key(Qt::Key_Escape);
    EXPECT_EQ(Shown(1, u"Colour"_qs), u"green"_qs);
  }
  known = true;
  asked.clear();
  Type(u"pink"_qs);
  other_->setFocus();
  EXPECT_EQ(asked.size(), 1);
  EXPECT_EQ(Stored(u"Colour"_qs, u"Ada"_qs), 9);
  grid_->setFocus();
  Key(Qt::Key_F2);
  Key(Qt::Key_Backspace);
  grid_->LeaveRow();
  EXPECT_TRUE(Row().Value(1, u"Colour"_qs).isNull()) << "an emptied drop-down is no value";
}

TEST_F(ShownGrid, AListIsAsWideAsItsTextsAndAsHighAsTheyAreMany) {
  const auto screen = window_.screen()->availableGeometry();
  for (const auto& [count, rows, length] :
       {std::tuple{1, 2, 5}, {8, 9, 60}, {9, 9, 5}, {300, 9, 60}, {3, 4, 1000}}) {
    std::vector<LookupItem> items{{1, QString(length, u'W')}};
    while (int(items.size()) < count) items.push_back({qint64(items.size()) + 1, u"%1"_qs.arg(items.size())});
    Row().SetLookup(u"Colour"_qs, Lookup(items));
    grid_->GoTo(1, u"Colour"_qs);
    Key(Qt::Key_F4);
    auto* combo = qobject_cast<QComboBox*>(Editor());
    ASSERT_TRUE(combo != nullptr && combo->view()->isVisible());
    const QWidget& list = *combo->view();
    EXPECT_EQ(combo->view()->viewport()->height(), rows * grid_->rowHeight(0)) << count;
    EXPECT_GE(combo->view()->viewport()->width(),
              std::min(list.fontMetrics().horizontalAdvance(items[0].text), screen.width() * 9 / 10));
    EXPECT_LE(list.window()->width(), screen.width()) << count;
    Key(Qt::Key_Escape);
    Key(Qt::Key_Escape);
  }
}

TEST_F(ShownGrid, AClosedDropDownIsNotChangedUnseen) {
  grid_->GoTo(0, u"Colour"_qs);
  for (const int key : {Qt::Key_Down, Qt::Key_PageUp, Qt::Key_F4}) {
    Key(Qt::Key_F2);
    QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(Editor(), &wheel);
    Key(key);
    EXPECT_EQ(Typed(), u"blue"_qs);
    ASSERT_NE(QApplication::activePopupWidget(), nullptr) << key;
    QApplication::activePopupWidget()->close();
    Key(Qt::Key_Escape);
  }
  Key(Qt::Key_Down, Qt::AltModifier);
  auto* combo = qobject_cast<QComboBox*>(Editor());
  ASSERT_TRUE(combo != nullptr && combo->view()->isVisible()) << "at once from the cell";
  QTest::keyClick(combo->view(), Qt::Key_Down);
  QTest::keyClick(combo->view(), Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(Shown(0, u"Colour"_qs), u"green"_qs);
  EXPECT_EQ(Where(), u"0 Active"_qs);
}

TEST_F(ShownGrid, ThePicturesBeforeTheFirstValueAreSeenWithIt) {
  window_.resize(300, 300);
  grid_->GoTo(0, u"Active"_qs);
  ASSERT_GT(grid_->horizontalScrollBar()->value(), 0);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Where(), u"1 Name"_qs);
  EXPECT_EQ(grid_->horizontalScrollBar()->value(), 0);
}

// As the second key after a dead one gives it.
TEST_F(ShownGrid, ALetterThatComesWholeBeginsTheCell) {
  grid_->GoTo(0, u"Note"_qs);
  QInputMethodEvent letter;
  letter.setCommitString(u"\u00C8"_qs);
  QCoreApplication::sendEvent(grid_, &letter);
  Type(u" qui"_qs);
  EXPECT_EQ(Typed(), u"\u00C8 qui"_qs);
}

TEST_F(ShownGrid, ARowThatOthersChangeWhileItIsEdited) {
  grid_->GoTo(1, u"Note"_qs);
  Type(u"mine"_qs);
  Elsewhere(u"DELETE FROM People WHERE Name='Ada'"_qs);
  Row().Refresh();
  EXPECT_EQ(Typed(), u"mine"_qs) << "what is being typed stays";
  TakeCell();
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_EQ(Editor(), nullptr) << "a row that is gone holds nobody";
  EXPECT_EQ(Shown(1, u"Name"_qs), u"#Deleted"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Where(), u"2 Note"_qs);

  Type(u"mine"_qs);
  TakeCell();
  Elsewhere(u"DELETE FROM People WHERE Name='Bruno'"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(failures_.size(), 2);
  EXPECT_EQ(Where(), u"2 Note"_qs);
  Key(Qt::Key_Escape);
  Key(Qt::Key_Down);
  EXPECT_EQ(Where(), u"3 Note"_qs);
  EXPECT_EQ(failures_.size(), 2);
  EXPECT_TRUE(grid_->Reload());
  EXPECT_EQ(Names(), u"Carla Dora Emma"_qs);
  EXPECT_EQ(Where(), u"1 Note"_qs) << "the current cell stays on its row";

  Elsewhere(u"UPDATE People SET Note='theirs'"_qs);
  EXPECT_TRUE(QTest::qWaitFor([&] { return Shown(1, u"Note"_qs) == u"theirs"_qs; }));
}

TEST_F(ShownGrid, TheDeleteKeyAsksOnceAndDeletesTheSelection) {
  QList<qint64> told;
  int asked = 0;
  bool answer = false;
  Row().OnRowsDeleting = [&](int count) { return asked = count, answer; };
  Row().OnRowDeleting = [&](qint64 bookmark) { told += bookmark; };
  Click(1, u"Name"_qs);
  Click(3, u"Name"_qs, Qt::ControlModifier);
  Key(Qt::Key_Delete);
  EXPECT_EQ(asked, 2);
  EXPECT_EQ(Names(), u"Carla Ada Bruno Dora Emma"_qs);
  answer = true;
  grid_->SetAllowDelete(false);
  Key(Qt::Key_Delete);
  EXPECT_EQ(told, QList<qint64>());
  grid_->SetAllowDelete(true);
  Key(Qt::Key_Delete);
  EXPECT_EQ(told, (QList<qint64>{2, 4}));
  EXPECT_EQ(Names(), u"Carla Bruno Emma"_qs);
  EXPECT_EQ(Where(), u"1 Name"_qs);

  // In an editor it is a key like others; the add-new row is not there yet, and a row in edit is given up.
  Key(Qt::Key_F2);
  Key(Qt::Key_Delete);
  EXPECT_EQ(Typed(), QString());
  Key(Qt::Key_Escape);
  grid_->clearSelection();
  asked = 0;
  Key(Qt::Key_Delete);
  EXPECT_EQ(asked, 0) << "nothing is selected";
  grid_->GoTo(3, u"Name"_qs);
  Key(Qt::Key_Delete);
  EXPECT_EQ(asked, 0);
  Type(u"Emma"_qs);
  TakeCell();
  Key(Qt::Key_Delete);
  EXPECT_EQ(asked, 0);
  Key(Qt::Key_Escape);
  grid_->GoTo(2, u"Name"_qs);
  Type(u"Carla"_qs);
  TakeCell();
  Key(Qt::Key_Delete);
  EXPECT_EQ(Names(), u"Carla Bruno"_qs);
  EXPECT_EQ(Where(), u"2 Name"_qs);
  EXPECT_EQ(failures_, QStringList());
}
