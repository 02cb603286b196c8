#include "grid/RecordsetModel.h"

#include <QAbstractItemModelTester>

#include "base/Helpers.h"
#include "store/LockPatience.h"
#include "support/Print.h"
#include "support/StoreFixture.h"
#include "support/WritingConnection.h"

using namespace vorlina;

namespace {

enum { Code, Text, Filter, Public, Catalog, Order };

// A grid over products C, A, B in the order of their rows, under the eyes of Qt's own model tester.
class RecordsetModelTest : public StoreFixture {
 protected:
  RecordsetModelTest() : catalog_(AddCatalog(u"Uno"_qs)) {
    for (const QString& code : {u"C"_qs, u"A"_qs, u"B"_qs}) AddProduct(catalog_, code);
    connection_.Execute(
        u"UPDATE Prodotti SET IDFiltro1=CASE CodiceProdotto WHEN 'A' THEN 3 WHEN 'B' THEN 1 ELSE "
        u"0 END, OrdineTemp=IDProdotto"_qs);
    second_.Open(ConnectionTextFor(Path()));
    QObject::connect(&model_, &RecordsetModel::Failed, [this](const QString& text) { failures_ += text; });
    BindProducts();
  }

  void BindProducts() {
    products_.Open({u"CodiceProdotto As [Codice], Descrizione, IDFiltro1 As [Colore \"d'oro\"], Pubblica, "
                    "IDCatalogo As _IDCatalogo, OrdineTemp As Ordine"_qs,
                    u"Prodotti"_qs,
                    u"IDCatalogo=?"_qs,
                    u"IDProdotto"_qs,
                    {catalog_}},
                   connection_);
    model_.Bind(products_, Columns());
  }
  std::vector<GridColumn> Columns() const {
    std::vector<GridColumn> columns(6);
    columns[Code] = {.key = u"Codice"_qs, .caption = u"Code"_qs};
    columns[Text] = {.key = u"descrizione"_qs, .caption = u"Description"_qs};
    columns[Filter] = {.key = u"Colore \"d'oro\""_qs,
                       .caption = u"Colour"_qs,
                       .kind = ColumnKind::Lookup,
                       .lookup = Lookup({{1, u"verde"_qs}, {2, u"Blu"_qs}, {3, u"arancio"_qs}})};
    columns[Public] = {.key = u"Pubblica"_qs, .kind = ColumnKind::Boolean};
    columns[Catalog] = {
        .key = u"_IDCatalogo"_qs, .kind = ColumnKind::Number, .visible = false, .defaultValue = catalog_};
    columns[Order] = {.key = u"Ordine"_qs, .caption = u"<b>Order"_qs, .kind = ColumnKind::Number};
    return columns;
  }

  QModelIndex At(int row, int column) const { return model_.index(row, column); }
  QString Codes() const {
    QStringList codes;
    for (int row = 0; row < model_.RecordCount(); ++row) codes += At(row, Code).data().toString();
    return codes.join(u' ');
  }
  QVariant Stored(const QString& column, const QString& code) {
    return One(column, u"Prodotti"_qs, u"CodiceProdotto=? AND IDCatalogo=?"_qs, {code, catalog_});
  }
  // As another program would.
  void Elsewhere(const QString& sql) {
    second_.Execute(sql);
    model_.Refresh();
  }

  const int catalog_;
  WritingConnection second_;
  Recordset products_;
  RecordsetModel model_;
  QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::Fatal};
  QStringList failures_;
};

}  // namespace

TEST_F(RecordsetModelTest, SortsByWhatIsShownAndKeepsTheSelection) {
  const QPersistentModelIndex onB = At(2, Code);
  const QPersistentModelIndex onNew = At(3, Text);
  struct {
    int column;
    SortDirection direction;
    QString codes;
  } const cases[] = {{Code, SortDirection::Ascending, u"A B C"_qs},
                     {Filter, SortDirection::Ascending, u"C A B"_qs},
                     {Filter, SortDirection::Descending, u"B A C"_qs},
                     {Order, SortDirection::Descending, u"B A C"_qs},
                     {-1, SortDirection::None, u"C A B"_qs}};
  for (const auto& test : cases) {
    ASSERT_TRUE(model_.SortBy(test.column, test.direction));
    EXPECT_EQ(Codes(), test.codes) << test.column;
    EXPECT_EQ(onB.data(), u"B"_qs);
    EXPECT_EQ(onNew.row(), 3);
  }
}

TEST_F(RecordsetModelTest, WritesARowWhenItIsLeft) {
  EXPECT_TRUE(model_.setData(At(0, Text), QString())) << "an editor that was left empty";
  EXPECT_EQ(model_.EditRow(), -1);
  model_.setData(At(0, Text), QString(100'000, u'x'));
  model_.setData(At(0, Public), Qt::Unchecked, Qt::CheckStateRole);
  model_.setData(At(0, Order), QString());
  EXPECT_LT(At(0, Text).data().toString().size(), 10'000) << "the cell shows a part, its editor all";
  EXPECT_EQ(At(0, Text).data(Qt::EditRole).toString().size(), 100'000);
  EXPECT_TRUE(model_.setData(At(1, Text), u"b"_qs)) << "another row: this one is left";
  EXPECT_EQ(Stored(u"length(Descrizione)||Pubblica"_qs, u"C"_qs), u"1000000"_qs);
  EXPECT_TRUE(Stored(u"OrdineTemp"_qs, u"C"_qs).isNull());
  model_.setData(At(1, Text), QString());
  EXPECT_TRUE(model_.Submit());
  EXPECT_EQ(Stored(u"typeof(Descrizione)"_qs, u"A"_qs), u"text"_qs) << "emptied is not Null";
  EXPECT_FALSE(model_.setData(At(0, Order), u"many"_qs));
  EXPECT_EQ(failures_,
            QStringList{u"\"many\" is no number fit for <b>Order. Press Esc to give up the change."_qs});
  EXPECT_EQ(model_.headerData(Order, Qt::Horizontal, Qt::ToolTipRole), u"<qt>&lt;b&gt;Order</qt>"_qs);
}

TEST_F(RecordsetModelTest, AnAddedRowIsWrittenWholeOrStaysInEdit) {
  model_.OnRowWriting = [](int, qint64, bool) { throw std::runtime_error("disk"); };
  model_.setData(At(3, Code), u"8"_qs);
  EXPECT_FALSE(model_.Submit());
  EXPECT_EQ(model_.StateOf(3), RowState::Added);
  EXPECT_EQ(Count(u"Prodotti"_qs), 3);
  EXPECT_FALSE(model_.Reload()) << "a reload would lose the row";
  model_.OnRowWriting = nullptr;
  ASSERT_TRUE(model_.Submit());
  EXPECT_EQ(Codes(), u"C A B 8"_qs);
  EXPECT_EQ(products_.PositionOf(model_.BookmarkOf(3)), 4) << "the window's own recordset knows the row";
}

TEST_F(RecordsetModelTest, WhatOthersDidShowsAndIsNotOverwritten) {
  const auto change = [this](const QString& text) {
    Elsewhere(u"UPDATE Prodotti SET Descrizione='%1' WHERE CodiceProdotto='A'"_qs.arg(text));
  };
  Codes();
  // Changed while the editor was open, and while the row was in edit.
  model_.Pin(1);
  change(u"again"_qs);
  EXPECT_FALSE(model_.setData(At(1, Text), u"mine"_qs));
  model_.setData(At(1, Text), u"mine"_qs);
  change(u"third"_qs);
  EXPECT_FALSE(model_.Submit());
  model_.Revert();
  EXPECT_EQ(At(1, Text).data(), u"third"_qs);

  // Deleted while in edit: the row keeps its place.
  model_.setData(At(1, Text), u"mine"_qs);
  Elsewhere(u"DELETE FROM Prodotti WHERE CodiceProdotto='A'"_qs);
  EXPECT_FALSE(model_.Submit());
  model_.Revert();
  EXPECT_EQ(Codes(), u"C #Deleted B"_qs);
  EXPECT_FALSE(model_.setData(At(1, Text), u"mine"_qs));
  EXPECT_TRUE(model_.DeleteRows({1})) << "it can be taken out of the list";
  EXPECT_EQ(Codes(), u"C B"_qs);
}

TEST_F(RecordsetModelTest, DeletesASelectionWholeOrNotAtAll) {
  for (int i = 0; i < 200; ++i) AddProduct(catalog_, u"n%1"_qs.arg(i));
  model_.Reload();
  model_.DeleteBy = [&](const std::vector<qint64>& bookmarks) {
    if (bookmarks.back() > 3) throw std::runtime_error("in use");
    for (const qint64 bookmark : bookmarks)
      connection_.Execute(u"DELETE FROM Prodotti WHERE rowid=?"_qs, {bookmark});
  };
  EXPECT_FALSE(model_.DeleteRows({2, 8}));
  EXPECT_EQ(failures_, QStringList{u"in use"_qs});
  EXPECT_EQ(Count(u"Prodotti"_qs), 203) << "all or none";

  model_.setData(At(0, Text), u"given up"_qs);
  EXPECT_TRUE(model_.DeleteRows({2, 0, 0, model_.rowCount() - 1}));
  EXPECT_EQ(Count(u"Prodotti"_qs), 201);
  EXPECT_EQ(At(0, Code).data(), u"A"_qs);

  model_.DeleteBy = nullptr;
  QList<int> scattered;
  for (int row = 20; row < 200; row += 3) scattered += row;
  EXPECT_TRUE(model_.DeleteRows(scattered));
  EXPECT_EQ(model_.rowCount(), 202 - int(scattered.size()));
  EXPECT_EQ(products_.RecordCount(), model_.RecordCount());
}

TEST_F(RecordsetModelTest, ALockedDatabaseIsToldAndTheRowKept) {
  Codes();
  second_.Execute(u"BEGIN EXCLUSIVE"_qs);
  int waits = 0;
  LockPatience::WhileWaiting = [&](bool) { ++waits; };
  model_.Refresh();
  LockPatience::WhileWaiting = nullptr;
  EXPECT_EQ(waits, 0) << "who only looks does not wait";
  const LockPatience none(0);
  EXPECT_FALSE(model_.Reload());
  model_.SortBy(Code, SortDirection::Ascending);
  EXPECT_EQ(Codes(), u"C A B"_qs) << "what was read is shown on";
  EXPECT_EQ(failures_.size(), 2);
  second_.Execute(u"ROLLBACK"_qs);
  model_.setData(At(0, Text), u"mine"_qs);
  second_.Execute(u"BEGIN IMMEDIATE"_qs);
  EXPECT_FALSE(model_.Submit());
  second_.Execute(u"ROLLBACK"_qs);
  EXPECT_TRUE(model_.Submit());

  // Rows that cannot be read are tried again.
  for (int i = 0; i < 700; ++i) AddProduct(catalog_, u"n%1"_qs.arg(i));
  model_.Reload();
  second_.Execute(u"BEGIN EXCLUSIVE"_qs);
  EXPECT_EQ(At(303, Code).data(), u"#Unreadable"_qs);
  EXPECT_FALSE(model_.setData(At(303, Text), u"mine"_qs));
  second_.Execute(u"ROLLBACK"_qs);
  EXPECT_TRUE(model_.setData(At(303, Text), u"mine"_qs));
}
