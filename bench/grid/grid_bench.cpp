// The model of a grid over catalogs of 1,000, 100,000 and 1,000,000 products in one table, against the bare
// SQLite statements that do the same: the two in turn, their medians compared.
#include <malloc.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "grid/RecordsetModel.h"
#include "store/Sqlite.h"

using namespace vorlina;

namespace {

constexpr int PageRows = 50;
constexpr qint64 Sizes[] = {1'000, 100'000, 1'000'000};
constexpr int FilterValues = 200;

const char* const List =
    "CodiceProdotto,Descrizione,Valore1,Valore2,Valore3,IDFiltro1,IDFiltro2,IDFiltro3,IDFiltro4,IDFiltro5,"
    "Pubblica,SchedaTecnica,Immagine,IDCatalogo,OrdineTemp";

// Products of the catalogs 1 to 3 come mixed, as they do when several catalogs are worked on.
class Data {
 public:
  explicit Data(const QString& folder) : folder_(folder + u"/grid_bench"_qs) {
    QFile schema(QStringLiteral(VORLINA_SOURCE_DIR "/data/schema.sql"));
    if (!schema.open(QIODevice::ReadOnly)) std::abort();
    const QString path = folder_.filePath(u"Catalog.db"_qs);
    {
      SQLite::Database database(path.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
      RegisterSqlExtensions(database);
      database.exec("PRAGMA synchronous=OFF");
      database.exec(schema.readAll().toStdString());
      database.exec(
          "INSERT INTO Cataloghi (NomeCatalogo) VALUES ('a'),('b'),('c');"
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<200) "
          "INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) SELECT 3,1,'Colour '||(i*7919%200) FROM n;"
          "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<1100999) "
          "INSERT INTO Prodotti "
          "(IDCatalogo,CodiceProdotto,Descrizione,Valore1,IDFiltro1,Immagine,OrdineTemp) "
          "SELECT CASE WHEN i%1101=0 THEN 1 WHEN i%11=1 AND i<1100000 THEN 2 ELSE 3 END, printf('P%07d',i),"
          "'Description of product '||(i*7919%1101000), i%977, i*31%201, 'C:\\Images\\'||i||'.jpg', i FROM "
          "n");
    }
    connection.Open(ConnectionTextFor(path));
    for (int i = 0; i < FilterValues; ++i)
      lookup.push_back({i + 1, u"Colour "_qs + QString::number((i + 1) * 7919 % FilterValues)});
  }

  Connection connection;
  std::vector<LookupItem> lookup;

 private:
  QTemporaryDir folder_;
};

struct Grid {
  Grid(Data& data, int catalog) {
    const QString list = QString::fromUtf8(List);
    recordset.Open(u"SELECT "_qs + list + u" FROM Prodotti WHERE IDCatalogo=?"_qs, data.connection,
                   CursorType::Keyset, LockType::Optimistic, {catalog});
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

double Milliseconds(const std::function<void()>& step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

void Compare(const std::string& what, int rounds, double bound, const std::function<void()>& bare,
             const std::function<void()>& ours) {
  std::vector<double> bareTimes;
  std::vector<double> ourTimes;
  for (int i = 0; i < rounds; ++i) {
    bareTimes.push_back(Milliseconds(bare));
    ourTimes.push_back(Milliseconds(ours));
  }
  const double bareTime = Median(bareTimes);
  const double ourTime = Median(ourTimes);
  std::printf("%-34s bare %9.2f ms, model %9.2f ms, ratio %5.2f (at most %.2f)\n", what.c_str(), bareTime,
              ourTime, ourTime / bareTime, bound);
  std::fflush(stdout);
}

// A statement of the bare interface, stepped to its end.
class Bare {
 public:
  Bare(Data& data, const std::string& sql) : handle_(data.connection.Database().getHandle()) {
    if (sqlite3_prepare_v2(handle_, sql.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
      std::fprintf(stderr, "%s\n", sqlite3_errmsg(handle_));
      std::abort();
    }
  }
  ~Bare() { sqlite3_finalize(statement_); }
  Bare(const Bare&) = delete;
  Bare& operator=(const Bare&) = delete;

  std::vector<sqlite3_int64> Keys(int catalog) {
    sqlite3_bind_int(statement_, 1, catalog);
    std::vector<sqlite3_int64> keys;
    while (sqlite3_step(statement_) == SQLITE_ROW) keys.push_back(sqlite3_column_int64(statement_, 0));
    return keys;
  }
  void Row(sqlite3_int64 key) {
    sqlite3_bind_int64(statement_, 1, key);
    while (sqlite3_step(statement_) == SQLITE_ROW)
      for (int i = 0; i < sqlite3_column_count(statement_); ++i) sqlite3_column_text(statement_, i);
    sqlite3_reset(statement_);
  }
  void Update(const std::string& text, sqlite3_int64 key) {
    sqlite3_bind_text(statement_, 1, text.c_str(), -1, SQLITE_TRANSIENT);
    sqlite3_bind_int64(statement_, 2, key);
    if (sqlite3_step(statement_) != SQLITE_DONE) std::abort();
  }

 private:
  sqlite3* handle_;
  sqlite3_stmt* statement_ = nullptr;
};

std::string Rows(int catalog) { return " of " + std::to_string(Sizes[catalog - 1]); }

void Open(Data& data, int catalog) {
  const auto bare = [&] {
    const std::vector<sqlite3_int64> keys =
        Bare(data, "SELECT rowid FROM Prodotti WHERE IDCatalogo=?").Keys(catalog);
    Bare row(data, std::string("SELECT ") + List + " FROM Prodotti WHERE rowid=?");
    for (int i = 0; i < PageRows; ++i) row.Row(keys[std::size_t(i)]);
  };
  Compare("open and one page" + Rows(catalog), catalog == 1 ? 101 : 11, 1.5, bare,
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
  std::printf("%-34s %.2f bytes a row (at most 16); %.1f MB in all\n", ("memory" + Rows(catalog)).c_str(),
              (large - small) / double(Sizes[catalog - 1] - Sizes[0]), large / 1e6);
}

void Write(Data& data, int catalog, int rounds) {
  Grid grid(data, catalog);
  const int row = grid.model.RecordCount() / 2;
  const qint64 key = grid.model.BookmarkOf(row + 1);
  int number = 0;
  Compare(
      "one changed row" + Rows(catalog), rounds, 1.3,
      [&] {
        Bare(data, "UPDATE Prodotti SET Descrizione=? WHERE rowid=?")
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
        "sort by " + test.name + Rows(catalog), rounds, 1.5, [&] { Bare(data, test.sql).Keys(catalog); },
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
              ("scrolling by pages" + Rows(catalog)).c_str(), 1000 * pages / time, slowest);
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
