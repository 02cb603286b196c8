// A keyset over one catalog of 100,000 products in a table of 1,000,000, against the bare read of the same
// keys; and the fetching of one page of keysets of different sizes.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "../EmptyDatabase.h"
#include "store/Connection.h"
#include "store/Recordset.h"

using namespace vorlina;

namespace {

constexpr int PageRows = 50;

// Catalogs of 1,000 (1), 100,000 (2) and 899,000 (3) products.
class Data {
 public:
  Data() {
    const QString path = folder_.filePath(u"Catalog.db"_qs);
    {
      SQLite::Database database = EmptyDatabase(path);
      database.exec(
          "INSERT INTO Cataloghi (NomeCatalogo) VALUES ('a'),('b'),('c');"
          "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<999999) "
          "INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,Descrizione,Valore1,OrdineTemp) "
          "SELECT CASE WHEN i%10=0 THEN 2 WHEN i%1000=1 THEN 1 ELSE 3 END, printf('P%07d',i), "
          "'Description of product '||i, i%977, i FROM n");
    }
    connection.Open(ConnectionTextFor(path));
  }

  Connection connection;

 private:
  QTemporaryDir folder_;
};

Data& TheData() {
  static Data data;
  return data;
}

std::vector<sqlite3_int64> ReadBareKeys(qint64 catalog) {
  sqlite3* handle = TheData().connection.Database().getHandle();
  std::vector<sqlite3_int64> keys;
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(handle, "SELECT rowid FROM Prodotti WHERE IDCatalogo=?", -1, &statement, nullptr);
  sqlite3_bind_int64(statement, 1, catalog);
  while (sqlite3_step(statement) == SQLITE_ROW) keys.push_back(sqlite3_column_int64(statement, 0));
  sqlite3_finalize(statement);
  return keys;
}

void BareKeys(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ReadBareKeys(state.range(0)).data());
}

void OpenProducts(Recordset& products, qint64 catalog) {
  products.Open({.table = u"Prodotti"_qs, .where = u"IDCatalogo=?"_qs, .values = {catalog}},
                TheData().connection);
}

void Keyset(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    Recordset products;
    OpenProducts(products, state.range(0));
    benchmark::DoNotOptimize(products.RecordCount());
  }
}

// A page at the first, the middle and the last place of a keyset of the catalog's size.
void Page(benchmark::State& state) {
  Recordset products;
  OpenProducts(products, state.range(0));
  const qint64 pages = products.RecordCount() / PageRows;
  qint64 page = 1;
  for ([[maybe_unused]] auto _ : state) {
    products.SetAbsolutePosition((page - 1) * PageRows + 1);
    for (int i = 0; i < PageRows && !products.IsEOF(); ++i, products.MoveNext())
      benchmark::DoNotOptimize(products.Value(1));
    page = page == 1 ? (pages + 1) / 2 : page == pages ? 1 : pages;
  }
}

BENCHMARK(BareKeys)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(Keyset)->Arg(2)->Unit(benchmark::kMillisecond);
BENCHMARK(Page)->Arg(1)->Arg(2)->Arg(3)->Unit(benchmark::kMicrosecond);

double Milliseconds(const std::function<void()>& step) {
  const auto start = std::chrono::steady_clock::now();
  step();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// The two in turn, so that whatever else the computer does meets both; their medians are compared.
void PrintRatio() {
  constexpr int Rounds = 31;
  std::vector<double> bare;
  std::vector<double> keyset;
  for (int i = 0; i < Rounds; ++i) {
    bare.push_back(Milliseconds([] { benchmark::DoNotOptimize(ReadBareKeys(2).data()); }));
    keyset.push_back(Milliseconds([] {
      Recordset products;
      OpenProducts(products, 2);
      benchmark::DoNotOptimize(products.RecordCount());
    }));
  }
  std::sort(bare.begin(), bare.end());
  std::sort(keyset.begin(), keyset.end());
  const double ratio = keyset[Rounds / 2] / bare[Rounds / 2];
  std::printf("bare %.2f ms, keyset %.2f ms, ratio %.2f (at most 1.50)\n", bare[Rounds / 2],
              keyset[Rounds / 2], ratio);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  TheData();  // made before the clock runs
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  PrintRatio();
  return 0;
}
