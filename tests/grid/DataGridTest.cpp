// Editing in a grid: cells, rows, and how a row is left.
#include <QClipboard>

#include "base/Helpers.h"
#include "grid/ShownGrid.h"

using namespace vorlina;

namespace {

class LeavingRows : public ShownGrid {
 protected:
  struct Way {
    const char* means;
    std::function<void()> leave;
  };
  // By which a row is left, whatever holds it.
  std::vector<Way> Ways() {
    return {
        {"arrow", [&] { Key(Qt::Key_Down); }},
        {"end", [&] { Key(Qt::Key_End, Qt::ControlModifier); }},
        {"click", [&] { Click(3, u"Note"_qs); }},
        {"shift and click", [&] { Click(3, u"Note"_qs, Qt::ShiftModifier); }},
        {"strip", [&] { Click(StripOf(2)); }},
        {"drag of the strip", [&] { Drag(StripOf(0), StripOf(3)); }},
        {"another control", [&] { Click(other_->geometry().center()); }},
        {"code", [&] { grid_->GoTo(2); }},
        {"a sort", [&] { grid_->SetSort(u"Note"_qs, SortDirection::Ascending); }},
        {"a binding", [&] { grid_->Bind(people_, Columns()); }},
    };
  }

 private:
  void Drag(const QPoint& from, const QPoint& to) {
    DragTo(from, to);
    Release(to);
  }
};

}  // namespace

TEST_F(LeavingRows, TypingEditsACellAndLeavingTheRowWritesIt) {
  for (const Way& way : Ways()) {
    for (const bool open : {true, false}) {
      SCOPED_TRACE(way.means + std::string(open ? " from the editor" : " from the row"));
      grid_->SetSort({}, SortDirection::None);
      grid_->setFocus();
      ASSERT_TRUE(grid_->GoTo(0, u"Note"_qs));
      const QString text = QLatin1String(way.means) + (open ? u"1"_qs : u"2"_qs);
      Type(text);
      EXPECT_EQ(Typed(), text) << "what was there is replaced";
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
  EXPECT_EQ(Shown(0, u"Name"_qs) + Shown(0, u"Note"_qs), u"Carla B"_qs);
  EXPECT_EQ(Row().EditRow(), 0);
  Key(Qt::Key_Escape);
  EXPECT_EQ(Shown(0, u"Name"_qs), u"Carla"_qs);
  EXPECT_EQ(Row().EditRow(), -1);
}

TEST_F(ShownGrid, TabGoesThroughTheRowsAndAddsNewOnes) {
  for (const QString& place : {u"0 Note"_qs, u"0 Colour"_qs, u"0 Active"_qs, u"1 Name"_qs}) {
    Key(Qt::Key_Tab);
    EXPECT_EQ(Where(), place);
  }
  // From an editor the next cell is edited; a row that is left is written.
  grid_->GoTo(4, u"Note"_qs);
  Type(u"last"_qs);
  Key(Qt::Key_Tab);
  EXPECT_EQ(Typed(), u"blue"_qs);
  for (int i = 0; i < 2; ++i) Key(Qt::Key_Tab);
  EXPECT_EQ(Stored(u"Note"_qs, u"Emma"_qs), u"last"_qs);
  for (const QString& name : {u"Fay"_qs, u"Gus"_qs}) {
    Type(name);
    for (int i = 0; i < 4; ++i) Key(Qt::Key_Tab);
  }
  EXPECT_EQ(Where(), u"7 Name"_qs);
  EXPECT_EQ(Names(), u"Carla Ada Bruno Dora Emma Fay Gus"_qs);

  // Behind the last cell, and before the first, the focus goes on, also from an editor.
  grid_->setColumnHidden(Row().ColumnOf(u"Active"_qs), true);
  grid_->GoTo(7, u"Colour"_qs);
  Key(Qt::Key_F2);
  Key(Qt::Key_Tab);
  EXPECT_TRUE(other_->hasFocus());
  grid_->setFocus();
  grid_->GoTo(0, u"Name"_qs);
  Key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_TRUE(other_->hasFocus());
}

TEST_F(ShownGrid, AKeyAfterAClickIsTheFirstOfTheCell) {
  Click(0, u"Name"_qs);
  Click(0, u"Note"_qs);
  Type(u"12,50"_qs);
  EXPECT_EQ(Typed(), u"12,50"_qs);
  const QModelIndex mark = Row().index(2, Row().ColumnOf(u"Active"_qs));
  Click(grid_->viewport()->mapTo(&window_, grid_->visualRect(mark).topLeft() + QPoint(10, 10)));
  EXPECT_EQ(Row().Value(2, u"Active"_qs), 0);
  EXPECT_EQ(Where(), u"2 Active"_qs) << "also on the check mark itself";
}

TEST_F(ShownGrid, TheClipboardIsPastedAsIfItWereTyped) {
  const auto paste = [&](const QString& key, const QString& text) {
    grid_->GoTo(0, key);
    QApplication::clipboard()->setText(text);
    Key(Qt::Key_V, Qt::ControlModifier);
    return Shown(0, key);
  };
  EXPECT_EQ(paste(u"Note"_qs, u"a cell\r\n"_qs), u"a cell"_qs);
  EXPECT_EQ(paste(u"Colour"_qs, u"RED"_qs), u"red"_qs);
  EXPECT_EQ(paste(u"Note"_qs, u"two\tcells"_qs), u"a cell"_qs);
  EXPECT_EQ(failures_.size(), 1);
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
TEST_F(LeavingRows, AFailedWriteKeepsTheRow) {
  for (const Way& way : Ways()) {
    for (const bool open : {true, false}) {
      SCOPED_TRACE(way.means + std::string(open ? " from the editor" : " from the row"));
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
  EXPECT_EQ(Names(), u"Carla Ada Bruno Dora Emma"_qs);
}

TEST_F(LeavingRows, ARefusedCellKeepsItsEditor) {
  int asked = 0;
  Row().OnCellChanging = [&](CellChange& change) {
    change.cancel = change.newValue == u"no"_qs;
    asked += change.cancel ? 1 : 0;
  };
  std::vector<Way> ways = Ways();
  ways.push_back({"enter", [&] { Key(Qt::Key_Return); }});
  ways.push_back({"tab", [&] { Key(Qt::Key_Tab); }});
  ways.push_back({"another cell", [&] { Click(0, u"Name"_qs); }});
  for (const Way& way : ways) {
    SCOPED_TRACE(way.means);
    ASSERT_TRUE(grid_->GoTo(0, u"Note"_qs));
    asked = 0;
    Type(u"no"_qs);
    way.leave();
    QCoreApplication::processEvents();
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Typed() + u' ' + Where(), u"no 0 Note"_qs);
    EXPECT_EQ(QApplication::focusWidget(), Editor());
    Key(Qt::Key_Escape);
    EXPECT_EQ(Row().EditRow(), -1);
  }

  Type(u"no"_qs);
  grid_->setFocus();
  EXPECT_TRUE(grid_->DeleteSelected());
  Type(u"kept"_qs);
  Key(Qt::Key_Down);
  EXPECT_EQ(Stored(u"Note"_qs, u"Ada"_qs), u"kept"_qs) << "the editor has gone with its row";
}

TEST_F(ShownGrid, ADropDownIsTypedInto) {
  grid_->GoTo(0, u"Colour"_qs);
  Type(u"gree"_qs);
  EXPECT_EQ(Typed(), u"green"_qs) << "the rest is found";
  Key(Qt::Key_Tab);
  EXPECT_EQ(Row().Value(0, u"Colour"_qs), 1);
  grid_->GoTo(1, u"Colour"_qs);
  Type(u"pink"_qs);
  Click(3, u"Note"_qs);
  EXPECT_EQ(Typed(), u"pink"_qs) << "nobody knows it";
}

TEST_F(ShownGrid, AClosedDropDownIsNotChangedUnseen) {
  grid_->GoTo(0, u"Colour"_qs);
  Key(Qt::Key_F2);
  QWheelEvent wheel({5, 5}, {5, 5}, {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(Editor()->parent(), &wheel);
  Key(Qt::Key_PageUp);
  EXPECT_EQ(Typed(), u"blue"_qs);
  ASSERT_NE(QApplication::activePopupWidget(), nullptr);
  QApplication::activePopupWidget()->close();
  Key(Qt::Key_Escape);
  Key(Qt::Key_Down, Qt::AltModifier);
  auto* combo = qobject_cast<QComboBox*>(Editor()->parent());
  ASSERT_TRUE(combo != nullptr && combo->view()->isVisible()) << "at once from the cell";
  QTest::keyClick(combo->view(), Qt::Key_Down);
  QTest::keyClick(combo->view(), Qt::Key_Tab);
  QCoreApplication::processEvents();
  EXPECT_EQ(Shown(0, u"Colour"_qs) + Where(), u"green0 Active"_qs);
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

TEST_F(ShownGrid, ARowThatOthersDeleteWhileItIsEdited) {
  grid_->GoTo(1, u"Note"_qs);
  Type(u"mine"_qs);
  Elsewhere(u"DELETE FROM People WHERE Name='Ada'"_qs);
  Row().Refresh();
  EXPECT_EQ(Typed(), u"mine"_qs) << "what is being typed stays";
  TakeCell();
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_EQ(Editor(), nullptr) << "a row that is gone holds nobody";
  Key(Qt::Key_Down);
  EXPECT_TRUE(grid_->Reload());
  EXPECT_EQ(Names(), u"Carla Bruno Dora Emma"_qs);
  EXPECT_EQ(Where(), u"1 Note"_qs) << "the current cell stays on its row";
}

TEST_F(ShownGrid, TheDeleteKeyDeletesTheSelectionAndARowInEdit) {
  // The add-new row is not there yet.
  grid_->GoTo(5, u"Name"_qs);
  Type(u"Emma"_qs);
  TakeCell();
  Key(Qt::Key_Delete);
  EXPECT_EQ(Row().EditRow(), 5);
  Key(Qt::Key_Escape);
  Click(1, u"Name"_qs);
  Click(3, u"Name"_qs, Qt::ControlModifier);
  Type(u"Carla"_qs);
  TakeCell();
  Key(Qt::Key_Delete);
  EXPECT_EQ(Names() + Where(), u"Carla Ada Bruno Emma3 Name"_qs);
  EXPECT_EQ(failures_, QStringList());
}
