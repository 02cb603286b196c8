// The model of a grid over catalogs of 1,000, 100,000 and 1,000,000 products in one table, against the bare
// SQLite statements that do the same: the two in turn, their medians compared.
#include <malloc.h>

#include <QCoreApplication>

#include "GridData.h"
#include "grid/RecordsetModel.h"

using namespace vorlina;

namespace {

constexpr int PageRows = 50;

struct Grid {
  Grid(Data& data, int catalog) {
    const QString list = QString::fromUtf8(List);
    recordset.Open(
        {.columns = list, .table = u"Prodotti"_qs, .where = u"IDCatalogo=?"_qs, .values = {catalog}},
        data.connection);
    std::vector<GridColumn> columns;
    for (const QString& name : list.split(u',')) columns.push_back({.key = name, .caption = name});
    columns[5].kind = ColumnKind::Lookup;
    columns[5].lookup = Lookup(data.lookup);
    columns[10].kind = columns[11].kind = ColumnKind::Boolean;
    columns[14].kind = ColumnKind::Number;
    model.Bind(recordset, columns);
  }
  // As a view paints a page.
  void ReadPage(int first) const {
    const int end = std::min(first + PageRows, model.RecordCount());
    for (int row = first; row < end; ++row)
      for (int column = 0; column < model.columnCount(); ++column)
        for (const int role : {int(Qt::DisplayRole), int(Qt::CheckStateRole)})
          characters += std::size_t(model.data(model.index(row, column), role).toString().size());
  }

  Recordset recordset;
  RecordsetModel model;
  mutable std::size_t characters = 0;
};

void Open(Data& data, int catalog) {
  const auto bare = [&] {
    const std::vector<sqlite3_int64> keys =
        Bare(data.connection, "SELECT rowid FROM Prodotti WHERE IDCatalogo=?").Keys(catalog);
    Bare row(data.connection, std::string("SELECT ") + List + " FROM Prodotti WHERE rowid=?");
    for (int i = 0; i < PageRows; ++i) row.Row(keys[std::size_t(i)]);
  };
  Compare("open and one page" + OfRows(catalog), catalog == 1 ? 101 : 11, 1.5, bare,
          [&] { Grid(data, catalog).ReadPage(0); });
}

std::size_t MemoryInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// Everything that the grid holds once it was scrolled through, against a grid over the smallest catalog.
void Memory(Data& data, int catalog) {
  const auto heldBy = [&](int which) {
    const std::size_t before = MemoryInUse();
    Grid grid(data, which);
    grid.model.SortBy(14, SortDirection::Ascending);
    for (int place = 0; place < 40; ++place) grid.ReadPage(int(grid.model.RecordCount() / 40 * place));
    return double(MemoryInUse()) - double(before);
  };
  heldBy(1);
  const double small = heldBy(1);
  const double large = heldBy(catalog);
  std::printf("%-34s %.2f bytes a row (at most 16); %.1f MB in all\n", ("memory" + OfRows(catalog)).c_str(),
              (large - small) / double(Sizes[catalog - 1] - Sizes[0]), large / 1e6);
}

void Write(Data& data, int catalog, int rounds) {
  Grid grid(data, catalog);
  const int row = grid.model.RecordCount() / 2;
  const qint64 key = grid.model.BookmarkOf(row + 1);
  int number = 0;
  Compare(
      "one changed row" + OfRows(catalog), rounds, 1.3,
      [&] {
        Bare(data.connection, "UPDATE Prodotti SET Descrizione=? WHERE rowid=?")
            .Update("text " + std::to_string(++number), key);
      },
      [&] {
        grid.model.setData(grid.model.index(row, 1), u"text %1"_qs.arg(++number));
        if (!grid.model.Submit()) std::abort();
      });
}

void Sort(Data& data, int catalog, int rounds) {
  const struct {
    int column;
    std::string name;
    std::string sql;
  } cases[] = {
      {0, "code",
       "SELECT rowid FROM Prodotti WHERE IDCatalogo=? ORDER BY CodiceProdotto COLLATE VORLINA_LOCALE"},
      {1, "text",
       "SELECT rowid FROM Prodotti WHERE IDCatalogo=? ORDER BY Descrizione COLLATE VORLINA_LOCALE"},
      {5, "drop-down",
       "SELECT p.rowid FROM Prodotti p LEFT JOIN Filtri f ON f.IDValore=p.IDFiltro1 WHERE p.IDCatalogo=? "
       "ORDER "
       "BY f.Valore COLLATE VORLINA_LOCALE"},
      {10, "boolean", "SELECT rowid FROM Prodotti WHERE IDCatalogo=? ORDER BY Pubblica"},
      {14, "number", "SELECT rowid FROM Prodotti WHERE IDCatalogo=? ORDER BY OrdineTemp"}};
  Grid grid(data, catalog);
  for (const auto& test : cases)
    Compare(
        "sort by " + test.name + OfRows(catalog), rounds, 1.5,
        [&] { Bare(data.connection, test.sql).Keys(catalog); },
        [&] {
          if (!grid.model.SortBy(test.column, SortDirection::Ascending)) std::abort();
        });
}

void Scroll(Data& data, int catalog) {
  Grid grid(data, catalog);
  grid.model.SortBy(1, SortDirection::Ascending);
  const int pages = std::min(grid.model.RecordCount() / PageRows, 5'000);
  double slowest = 0;
  const double time = Milliseconds([&] {
    for (int page = 0; page < pages; ++page)
      slowest = std::max(slowest, Milliseconds([&] { grid.ReadPage(page * PageRows); }));
  });
  std::printf("%-34s %.0f pages a second (at least 60), the slowest took %.1f ms\n",
              ("scrolling by pages" + OfRows(catalog)).c_str(), 1000 * pages / time, slowest);
}

}  // namespace

// Takes the folder in which the database is made; the temporary one where none is given.
int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const QString folder = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath();
  Data data(folder);
  for (const int catalog : {1, 2, 3}) {
    Open(data, catalog);
    if (catalog > 1) Memory(data, catalog);
    Write(data, catalog, 31);
    Sort(data, catalog, catalog < 3 ? 3 : 1);
    Scroll(data, catalog);
  }
  return 0;
}
