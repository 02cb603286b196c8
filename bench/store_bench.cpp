// How the keyset compares with the bare SQLite read of the same keys, and whether a page costs the same
// wherever it lies. 100,000 products of one catalog stand in a table of 1,000,000.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>

#include "base/Language.h"
#include "store/Connection.h"
#include "store/Query.h"
#include "store/Recordset.h"

using namespace vorlina;

namespace {

constexpr int Products = 1'000'000;
constexpr int Catalog = 7;        // has Products / 10 of them
constexpr int SmallCatalog = 11;  // has Products / 100 more
const QString Columns = QStringLiteral(
    "SELECT Prodotti.CodiceProdotto As [Codice], Prodotti.Descrizione, Valore1, Pubblica, Immagine As "
    "_Immagine,"
    " OrdineTemp As Ordine FROM Prodotti WHERE Prodotti.IDCATALOGO=%1");

QString path;

Connection& Open() {
  static Connection connection;
  if (!connection.IsOpen()) connection.Open(ConnectionTextFor(path));
  return connection;
}

// The products of the catalogs are mixed, as they are after years of work.
void MakeTables() {
  QFile schema(QStringLiteral(VORLINA_SOURCE_DIR "/data/schema.sql"));
  if (!schema.open(QIODevice::ReadOnly)) std::abort();
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) std::abort();
  file.close();
  Connection connection;
  connection.Open(ConnectionTextFor(path));
  connection.Execute(QStringLiteral("PRAGMA synchronous=OFF"));
  connection.Execute(QString::fromUtf8(schema.readAll()));
  connection.Execute(
      QStringLiteral("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<11) INSERT INTO "
                     "Cataloghi (IDCatalogo)"
                     " SELECT i FROM n"));
  const QString insert = QStringLiteral(
      "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<?-1) INSERT INTO Prodotti "
      "(IDCatalogo,"
      "CodiceProdotto,Descrizione,Valore1,Immagine,OrdineTemp) SELECT %1, 'ART-' || printf('%07d', i * 7919 "
      "% 1000003),"
      " 'Lampada da tavolo in ottone numero ' || i, '12,50', '/home/anna/Vorlina/Images/' || i || '.jpg', i "
      "FROM n");
  connection.Execute(insert.arg(QStringLiteral("i % 10 + 1")), {Products});
  connection.Execute(insert.arg(SmallCatalog), {Products / 100});
}

const QString KeysSql = QStringLiteral("SELECT rowid FROM Prodotti WHERE IDCatalogo=?");

qint64 ReadBareKeys() {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(Open().Handle(), KeysSql.toUtf8().constData(), -1, &statement, nullptr);
  sqlite3_bind_int(statement, 1, Catalog);
  std::vector<qint64> keys;
  while (sqlite3_step(statement) == SQLITE_ROW) keys.push_back(sqlite3_column_int64(statement, 0));
  sqlite3_finalize(statement);
  return qint64(keys.size());
}

qint64 OpenKeyset() {
  Recordset rows;
  rows.Open(Columns.arg(Catalog), Open(), CursorType::Keyset, LockType::Optimistic);
  return rows.RecordCount();
}

void BareKeys(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(ReadBareKeys());
}
BENCHMARK(BareKeys)->Unit(benchmark::kMillisecond);

void KeysetOpen(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(OpenKeyset());
}
BENCHMARK(KeysetOpen)->Unit(benchmark::kMillisecond);

// One page of 64 rows, read anew, at this many per cent of the keyset.
void Page(benchmark::State& state, int catalog) {
  Recordset rows;
  rows.Open(Columns.arg(catalog), Open(), CursorType::Keyset, LockType::Optimistic);
  const qint64 position = std::max<qint64>(1, rows.RecordCount() * state.range(0) / 100);
  for (auto _ : state) {
    rows.Refresh();
    rows.SetAbsolutePosition(position);
    benchmark::DoNotOptimize(rows.Value(0));
  }
}
BENCHMARK_CAPTURE(Page, of_100000, Catalog)->Arg(0)->Arg(50)->Arg(99)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(Page, of_10000, SmallCatalog)->Arg(0)->Arg(50)->Arg(99)->Unit(benchmark::kMicrosecond);

double Milliseconds(qint64 (*step)()) {
  const auto start = std::chrono::steady_clock::now();
  benchmark::DoNotOptimize(step());
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// Run in turn, so that whatever else the computer does meets both; the medians are compared.
void PrintRatio() {
  std::vector<double> bare;
  std::vector<double> keyset;
  for (int i = 0; i < 31; ++i) {
    bare.push_back(Milliseconds(ReadBareKeys));
    keyset.push_back(Milliseconds(OpenKeyset));
  }
  std::sort(bare.begin(), bare.end());
  std::sort(keyset.begin(), keyset.end());
  std::printf("keys %lld, bare %.2f ms, keyset %.2f ms, ratio %.2f (at most 1.50)\n", OpenKeyset(), bare[15],
              keyset[15], keyset[15] / bare[15]);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  SetLanguage(QStringLiteral("English"));
  QTemporaryDir folder;
  path = folder.filePath(QStringLiteral("Catalog.db"));
  MakeTables();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  PrintRatio();
  Open().Close();
  return 0;
}
