// The product grid's window over catalogs of 100,000 and 1,000,000 products, against the bare SQLite
// statements that do the same: the two in turn, their medians compared.
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <memory>

#include "GridData.h"
#include "base/AppPath.h"
#include "grid/DataGrid.h"
#include "products/PublicationOrder.h"
#include "products/frmEditCatalog.h"
#include "store/Transaction.h"
#include "support/Language.h"

using namespace vorlina;

namespace {

constexpr int MovedRows = 100;
constexpr int Places = 100'000;
constexpr int MostPages = 5'000;

// As the main window's Edit command does it.
std::unique_ptr<frmEditCatalog> Edit(Data& data, int catalog) {
  auto window = std::make_unique<frmEditCatalog>();
  window->Connessione = std::make_unique<Connection>();
  window->Connessione->Open(data.connection.ConnectionText());
  window->rsCatalogo.Open({.table = u"Cataloghi"_qs, .where = u"IDCatalogo=?"_qs, .values = {catalog}},
                          *window->Connessione);
  window->LoadForm();
  window->show();
  QApplication::processEvents();
  return window;
}

void Painted(Data& data, int catalog, int rounds) {
  std::unique_ptr<frmEditCatalog> window;
  Compare(
      "from Edit to painted rows" + OfRows(catalog), rounds, catalog == 3 ? 4 : 0,
      [&] { Bare(data.connection, "SELECT rowid FROM Prodotti WHERE IDCatalogo=?").Keys(catalog); },
      [&] {
        window = Edit(data, catalog);
        if (window->grab().isNull()) std::abort();
      });
}

void Press(QWidget& grid, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QKeyEvent event(QEvent::KeyPress, key, modifiers);
  QApplication::sendEvent(&grid, &event);
  if (grid.grab().isNull()) std::abort();
}

// Page by page through the catalog, each painted.
void Scroll(Data& data, int catalog) {
  const std::unique_ptr<frmEditCatalog> window = Edit(data, catalog);
  auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
  int pages = 0;
  double slowest = 0;
  const double time = Milliseconds([&] {
    for (; grid->CurrentRow() < grid->Rows().RecordCount() && pages < MostPages; ++pages)
      slowest = std::max(slowest, Milliseconds([&] { Press(*grid, Qt::Key_PageDown); }));
  });
  std::printf("%-44s %.0f pages a second (at least 60), the slowest took %.1f ms; row %d\n",
              ("page keys" + OfRows(catalog)).c_str(), 1000 * pages / time, slowest, grid->CurrentRow() + 1);
}

// What touches one row, or the selection as a whole, against the same in the smallest catalog.
void Keys(Data& data, int catalog) {
  const std::unique_ptr<frmEditCatalog> small = Edit(data, 1);
  const std::unique_ptr<frmEditCatalog> large = Edit(data, catalog);
  const auto grid = [](const std::unique_ptr<frmEditCatalog>& window) {
    return window->findChild<DataGrid*>(u"grdProducts"_qs);
  };
  const struct {
    std::string name;
    int key;
    Qt::KeyboardModifiers modifiers;
  } cases[] = {{"select all", Qt::Key_A, Qt::ControlModifier},
               {"to the end", Qt::Key_End, Qt::ControlModifier},
               {"select to the start", Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier},
               {"one row up", Qt::Key_Up, Qt::NoModifier}};
  for (const auto& test : cases)
    Compare(
        test.name + OfRows(catalog) + ", of 1000", 31, 3,
        [&] { Press(*grid(small), test.key, test.modifiers); },
        [&] { Press(*grid(large), test.key, test.modifiers); });
}

// A changed cell and the row left, with the product's marks, against the row's bare UPDATE.
void Write(Data& data, int catalog) {
  const std::unique_ptr<frmEditCatalog> window = Edit(data, catalog);
  auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
  RecordsetModel& rows = grid->Rows();
  const qint64 key = rows.BookmarkOf(101);
  int number = 0;
  Compare(
      "one changed row and its marks" + OfRows(catalog), 31, 0,
      [&] {
        Bare(data.connection, "UPDATE Prodotti SET Descrizione=? WHERE rowid=?")
            .Update("text " + std::to_string(++number), key);
      },
      [&] {
        rows.setData(rows.index(100, 1), u"text %1"_qs.arg(++number));
        if (!grid->LeaveRow()) std::abort();
      });
}

// The first hundred rows of the catalog to far below.
void Move(Data& data, int catalog) {
  const std::string id = std::to_string(catalog);
  const int last = Places + MovedRows;
  std::vector<qint64> keys;
  qint64 target = 0;
  Compare(
      "100 rows 100,000 places down" + OfRows(catalog), 7, 2,
      [&] {
        Bare(data.connection,
             "UPDATE Prodotti SET OrdineTemp=CASE WHEN OrdineTemp<=" + std::to_string(MovedRows) +
                 " THEN OrdineTemp+" + std::to_string(Places) + " ELSE OrdineTemp-" +
                 std::to_string(MovedRows) + " END WHERE IDCatalogo=" + id +
                 " AND OrdineTemp BETWEEN 1 AND " + std::to_string(last))
            .Run();
      },
      [&] {
        if (!MoveProducts(catalog, keys, target, data.connection)) std::abort();
      },
      [&] {
        const auto numbered = [&](int from, int to) {
          std::vector<qint64> found;
          Rows rows(data.connection,
                    u"SELECT rowid FROM Prodotti WHERE IDCatalogo=? AND OrdineTemp BETWEEN ? AND ?"_qs,
                    {catalog, from, to});
          while (rows.Next()) found.push_back(rows.Value(0).toLongLong());
          return found;
        };
        keys = numbered(1, MovedRows);
        target = numbered(last, last).at(0);
      });
}

void Renumber(Data& data, int catalog) {
  const std::unique_ptr<frmEditCatalog> window = Edit(data, catalog);
  auto* grid = window->findChild<DataGrid*>(u"grdProducts"_qs);
  auto* command = window->findChild<QAction*>(u"mnuOrdinePubbl"_qs);
  const std::string id = std::to_string(catalog);
  bool descending = false;
  Compare(
      "renumbering all" + OfRows(catalog), 7, 2,
      [&] {
        Bare(data.connection,
             "UPDATE Prodotti SET OrdineTemp=n.place FROM (SELECT rowid AS id, row_number() OVER (ORDER BY "
             "Descrizione) AS place FROM Prodotti WHERE IDCatalogo=" +
                 id + ") n WHERE Prodotti.rowid=n.id")
            .Run();
      },
      [&] { command->trigger(); },
      [&] {
        descending = !descending;
        grid->SetSort(u"Codice"_qs, descending ? SortDirection::Descending : SortDirection::Ascending);
      });
}

}  // namespace

// Takes the folder in which the database is made; the temporary one where none is given.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  SetLanguage(u"English"_qs);
  QTemporaryDir home;
  SetAppPath(home.path());
  Data data(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
  Transaction transaction(data.connection);
  data.connection.Execute(
      u"UPDATE Prodotti SET OrdineTemp=n.place FROM (SELECT rowid AS id, row_number() OVER (PARTITION BY "
      u"IDCatalogo ORDER BY rowid) AS place FROM Prodotti) n WHERE Prodotti.rowid=n.id"_qs);
  transaction.Commit();
  Painted(data, 2, 11);
  Painted(data, 3, 5);
  Scroll(data, 2);
  Scroll(data, 3);
  Keys(data, 3);
  Write(data, 2);
  Write(data, 3);
  Move(data, 3);
  Renumber(data, 2);
  return 0;
}
