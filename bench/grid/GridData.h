// What the grid's benchmarks share: three catalogs of 1,000, 100,000 and 1,000,000 products in one table, the
// bare SQLite statements, and the comparison of the two.
#pragma once

#include <sqlite3.h>

#include <QDir>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "../EmptyDatabase.h"
#include "grid/Lookup.h"
#include "store/Connection.h"

namespace vorlina {

inline constexpr qint64 Sizes[] = {1'000, 100'000, 1'000'000};
inline constexpr int FilterCount = 200;

inline const char* const List =
    "CodiceProdotto,Descrizione,Valore1,Valore2,Valore3,IDFiltro1,IDFiltro2,IDFiltro3,IDFiltro4,IDFiltro5,"
    "Pubblica,SchedaTecnica,Immagine,IDCatalogo,OrdineTemp";

// Products of the catalogs 1 to 3 come mixed, as they do when several catalogs are worked on.
class Data {
 public:
  explicit Data(const QString& folder) : folder_(folder + u"/grid_bench"_qs) {
    const QString path = folder_.filePath(u"Catalog.db"_qs);
    {
      SQLite::Database database = EmptyDatabase(path);
      database.exec(
          "INSERT INTO Cataloghi (NomeCatalogo) VALUES ('a'),('b'),('c');"
          "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<200) "
          "INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) SELECT 3,1,'Colour '||(i*7919%200) FROM n;"
          "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<1100999) "
          "INSERT INTO Prodotti "
          "(IDCatalogo,CodiceProdotto,Descrizione,Valore1,Valore2,Valore3,IDFiltro1,IDFiltro2,IDFiltro3,"
          "IDFiltro4,IDFiltro5,Immagine,Height,Width,OrdineTemp) "
          "SELECT CASE WHEN i%1101=0 THEN 1 WHEN i%11=1 AND i<1100000 THEN 2 ELSE 3 END, printf('P%07d',i),"
          "'Vaso cilindrico, decoro a stampo e smalto verde, numero '||(i*7919%1101000), i%977||',00', "
          "(i%40)||' x '||(i%30), i%9||' kg', "
          "i*31%201, i%50, i%12, i%7, i%3, "
          "'/home/anna/.local/share/Vorlina/Images/3-'||printf('P%07d',i)||'.jpg', 600, 800, i FROM "
          "n");
    }
    connection.Open(ConnectionTextFor(path));
    // The bare statements write without a transaction of the program's.
    sqlite3_commit_hook(connection.Database().getHandle(), nullptr, nullptr);
    for (int i = 0; i < FilterCount; ++i)
      lookup.push_back({i + 1, u"Colour "_qs + QString::number((i + 1) * 7919 % FilterCount)});
  }

  Connection connection;
  std::vector<LookupItem> lookup;

 private:
  QTemporaryDir folder_;
};

inline double Milliseconds(const std::function<void()>& step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

inline double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// In turn, the medians compared. A bound of 0 is none.
inline void Compare(const std::string& what, int rounds, double bound, const std::function<void()>& bare,
                    const std::function<void()>& ours, const std::function<void()>& between = {}) {
  std::vector<double> bareTimes;
  std::vector<double> ourTimes;
  for (int i = 0; i < rounds; ++i) {
    bareTimes.push_back(Milliseconds(bare));
    if (between) between();
    ourTimes.push_back(Milliseconds(ours));
  }
  const double bareTime = Median(bareTimes);
  const double ourTime = Median(ourTimes);
  std::printf("%-44s bare %9.2f ms, ours %9.2f ms, ratio %5.2f", what.c_str(), bareTime, ourTime,
              ourTime / bareTime);
  std::printf(bound > 0 ? " (at most %.2f)\n" : "\n", bound);
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

  void Run() {
    while (sqlite3_step(statement_) == SQLITE_ROW) {
    }
    if (sqlite3_reset(statement_) != SQLITE_OK) std::abort();
  }

 private:
  sqlite3* handle_;
  sqlite3_stmt* statement_ = nullptr;
};

inline std::string OfRows(int catalog) { return " of " + std::to_string(Sizes[catalog - 1]); }

}  // namespace vorlina
