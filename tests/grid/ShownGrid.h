// A grid over a table of people in a window with another control, worked by keys and the mouse as a user
// works it.
#pragma once

#include <gtest/gtest.h>

#include <QScrollBar>
#include <QVBoxLayout>

#include "grid/GridHands.h"
#include "support/Print.h"
#include "support/StoreFixture.h"
#include "support/WritingConnection.h"

namespace vorlina {

class ShownGrid : public StoreFixture, public GridHands {
 protected:
  ShownGrid() {
    connection_.Execute(
        u"CREATE TABLE People (ID INTEGER PRIMARY KEY AUTOINCREMENT, Name VARCHAR(50) NOT NULL UNIQUE "
        u"COLLATE "
        u"NOCASE, Note TEXT, Colour INTEGER, Active BOOLEAN NOT NULL DEFAULT 1)"_qs);
    for (const QString& name : {u"Carla"_qs, u"Ada"_qs, u"Bruno"_qs, u"Dora"_qs, u"Emma"_qs})
      connection_.Execute(u"INSERT INTO People (Name,Colour) VALUES (?,2)"_qs, {name});
    grid_ = new DataGrid(&window_);
    auto* layout = new QVBoxLayout(&window_);
    layout->addWidget(grid_);
    layout->addWidget(other_ = new QLineEdit(&window_));
    QObject::connect(grid_, &DataGrid::RowFailed, [this](const QString& text) { failures_ += text; });
    grid_->Rows().OnUnboundData = [](int, int, int role) {
      return role == Qt::DecorationRole ? QVariant(QColor(Qt::darkGreen)) : QVariant();
    };
    people_.Open({u"ID As _ID, Name, Note, Colour, Active"_qs, u"People"_qs, {}, u"ID"_qs, {}}, connection_);
    grid_->Bind(people_, Columns());
    window_.resize(700, 500);
    window_.show();
    window_.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
    grid_->setFocus();
    grid_->GoTo(0, u"Name"_qs);
  }
  ~ShownGrid() override { grid_->Rows().Unbind(); }

  static std::vector<GridColumn> Columns() {
    return {{.key = u"Picture"_qs, .bound = false},
            {.key = u"_ID"_qs, .kind = ColumnKind::Number, .visible = false},
            {.key = u"Name"_qs, .caption = u"Name"_qs},
            {.key = u"Note"_qs, .caption = u"Note"_qs},
            {.key = u"Colour"_qs,
             .caption = u"Colour"_qs,
             .kind = ColumnKind::Lookup,
             .lookup = Lookup({{1, u"green"_qs}, {2, u"blue"_qs}, {3, u"red"_qs}, {4, u"grey"_qs}})},
            {.key = u"Active"_qs, .caption = u"Active"_qs, .kind = ColumnKind::Boolean}};
  }

  QWidget& Window() const override { return window_; }
  DataGrid& Grid() const override { return *grid_; }
  void Type(const QString& text) {
    for (const QChar letter : text) QTest::keyClick(window_.windowHandle(), letter.toLatin1());
    QCoreApplication::processEvents();
  }
  // The cell takes what is typed; the row stays in edit.
  void TakeCell() {
    grid_->GoTo(grid_->CurrentRow());
    QCoreApplication::processEvents();
  }
  QPoint StripOf(int row) const {
    const QRect strip = grid_->verticalHeader()->geometry();
    return grid_->mapTo(&window_, QPoint(strip.center().x(), 0)) +
           QPoint(0, PointOf(row, u"Name"_qs).y() - grid_->y());
  }
  RecordsetModel& Row() const { return grid_->Rows(); }
  QString Typed() const { return Editor() != nullptr ? Editor()->text() : u"no editor"_qs; }
  QString Where() const { return u"%1 %2"_qs.arg(grid_->CurrentRow()).arg(grid_->CurrentKey()); }
  QString Names() const {
    QStringList names;
    for (int row = 0; row < Row().RecordCount(); ++row) names += Shown(row, u"Name"_qs);
    return names.join(u' ');
  }
  QVariant Stored(const QString& column, const QString& name) {
    return One(column, u"People"_qs, u"Name=?"_qs, {name});
  }
  // As another program would.
  void Elsewhere(const QString& sql) {
    if (!second_.IsOpen()) second_.Open(ConnectionTextFor(Path()));
    second_.Execute(sql);
  }

  WritingConnection second_;
  Recordset people_;
  mutable QWidget window_;
  DataGrid* grid_;
  QLineEdit* other_;
  QStringList failures_;
};

}  // namespace vorlina
