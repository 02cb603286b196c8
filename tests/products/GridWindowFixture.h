// The product grid's window over a catalog in a temporary application folder, worked by keys and the mouse as
// a user does. The fixture's own connection is another program on the same database.
#pragma once

#include <QAction>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMenu>
#include <QRegularExpression>
#include <memory>
#include <vector>

#include "grid/GridHands.h"
#include "products/WidgetProductGrid.h"
#include "products/frmEditCatalog.h"
#include "support/CatalogFixture.h"
#include "support/Messages.h"
#include "support/ScriptedDialogs.h"

namespace vorlina {

inline const QString Code = QStringLiteral("Codice");
inline const QString Description = QStringLiteral("Descrizione");

class GridWindow : public CatalogFixture, public GridHands {
 protected:
  GridWindow() : catalog_(AddCatalog(u"Catalog"_qs)) {}

  // Gives the catalog a name for a value or a filter, as it is stored.
  void Name(const QString& field, const QVariant& name) {
    connection_.Execute(u"UPDATE Cataloghi SET "_qs + field + u"=? WHERE IDCatalogo=?"_qs, {name, catalog_});
  }
  int AddFilterValue(int filter, const QString& value) {
    connection_.Execute(u"INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) VALUES (?,?,?)"_qs,
                        {catalog_, filter, value});
    return int(connection_.LastInsertId());
  }
  // With the orders 1, 2, 3 ...
  void AddProducts(const QStringList& codes) {
    for (const QString& code : codes) AddProduct(catalog_, code, ++products_);
  }

  // Opens a window and makes it the one that is worked.
  void Open() {
    auto window = std::make_unique<frmEditCatalog>();
    window->Connessione = std::make_unique<Connection>();
    window->Connessione->Open(connection_.ConnectionText());
    window->Connessione->Execute(u"PRAGMA synchronous=OFF"_qs);
    window->rsCatalogo.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {catalog_}},
                            *window->Connessione);
    window->Plugins = plugins_;
    window->LoadForm();
    window->resize(1300, 500);
    window->show();
    windows_.push_back(std::move(window));
    Activate(windows_.size() - 1);
  }
  void Activate(std::size_t number) {
    window_ = windows_[number].get();
    grid_ = window_->findChild<WidgetProductGrid*>(u"grdProducts"_qs);
    Activate(*window_);
  }
  // Some platforms make a window active later, and another one meanwhile.
  static void Activate(QWidget& window) {
    EXPECT_TRUE(QTest::qWaitFor([&] {
      if (QApplication::activeWindow() != &window) window.activateWindow();
      return QApplication::activeWindow() == &window;
    }));
  }
  bool Close() {
    const bool closed = window_->close();
    EXPECT_NE(closed, window_->isVisible());
    QCoreApplication::processEvents();
    return closed;
  }

  QWidget& Window() const override { return *window_; }
  DataGrid& Grid() const override { return *grid_; }
  // Types over what the cell holds, which takes it: the row stays in edit.
  void Type(int row, const QString& key, const QString& text) const {
    EXPECT_TRUE(grid_->GoTo(row, key));
    Key(Qt::Key_F2);
    QLineEdit* line = Editor();
    ASSERT_NE(line, nullptr) << key;
    line->selectAll();
    Key(Qt::Key_Delete);
    // As an input method hands over what keys alone do not give.
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(line, &event);
    grid_->GoTo(row);
  }
  // Types into a cell and goes to the row above or below, which writes it.
  void Change(int row, const QString& key, const QString& text) const {
    Type(row, key, text);
    Key(row == 0 ? Qt::Key_Down : Qt::Key_Up);
  }

  QPoint HeadOf(const QString& key) const {
    const QHeaderView& head = *grid_->horizontalHeader();
    const int column = Rows().ColumnOf(key);
    return head.viewport()->mapTo(
        window_, QPoint(head.sectionViewportPosition(column) + head.sectionSize(column) / 2, 5));
  }
  // Selects rows, counted from 1, as with Ctrl, and drags them by the first of them.
  void Drag(const QList<int>& rows, const QPoint& to) const {
    Select(rows);
    DragTo(PointOf(rows.first() - 1, Code), to);
    Release(to);
  }
  void Drag(const QList<int>& rows, int to) const { Drag(rows, PointOf(to - 1, Code)); }
  void Select(const QList<int>& rows) const {
    grid_->clearSelection();
    for (qsizetype i = 0; i < rows.size(); ++i)
      Click(rows[i] - 1, Code, i == 0 ? Qt::NoModifier : Qt::ControlModifier);
  }
  void DropFiles(int row, const QStringList& paths) const { GridHands::DropFiles(row, LocalUrls(paths)); }

  template <class T>
  T* Find(const QString& name) const {
    T* found = window_->findChild<T*>(name);
    EXPECT_NE(found, nullptr) << name;
    return found;
  }
  // Clicks an entry of the menu that is up.
  void Choose(const QString& entry) const {
    auto* action = Find<QAction>(entry);
    auto* menu = qobject_cast<QMenu*>(action->parent());
    ASSERT_TRUE(menu != nullptr && menu->isVisible()) << entry;
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
    QCoreApplication::processEvents();
  }

  RecordsetModel& Rows() const { return grid_->Rows(); }
  // The codes from above, without the add-new row.
  QString Codes() const {
    QStringList codes;
    for (int row = 0; row < Rows().RecordCount(); ++row) codes += Shown(row, Code);
    return codes.join(u' ');
  }
  QString Orders() { return StoreFixture::Orders(catalog_); }
  QString Stored(const QString& code, const QString& expression) {
    return NullToEmpty(
        One(expression, u"Prodotti"_qs, u"IDCatalogo=? AND CodiceProdotto=?"_qs, {catalog_, code}));
  }
  // The shown columns from left to right.
  QString Captions() const {
    QStringList captions;
    const QHeaderView& head = *grid_->horizontalHeader();
    for (int place = 0; place < head.count(); ++place)
      if (const int column = head.logicalIndex(place); !head.isSectionHidden(column))
        captions += Rows().headerData(column, Qt::Horizontal).toString();
    return captions.join(u'|');
  }
  int AddNewRow() const { return Rows().RecordCount(); }

  std::vector<PluginEntry> plugins_;
  ScriptedDialogs dialogs_;
  std::vector<std::unique_ptr<frmEditCatalog>> windows_;
  frmEditCatalog* window_ = nullptr;
  WidgetProductGrid* grid_ = nullptr;
  int catalog_;

 private:
  int products_ = 0;
};

}  // namespace vorlina
