// The grid's model beside Qt's own model of an SQL table: opening a catalog and showing its last row, the
// time and the memory that is held then. Each runs in a process of its own.
#include <malloc.h>

#include <QCoreApplication>
#include <QProcess>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlTableModel>

#include "GridData.h"
#include "grid/RecordsetModel.h"

using namespace vorlina;

namespace {

constexpr int Rounds = 5;

std::size_t MemoryInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

void ShowLastRow(const QAbstractItemModel& model) {
  for (int column = 0; column < model.columnCount(); ++column)
    if (!model.data(model.index(model.rowCount() - 1, column)).isValid()) std::abort();
}

void Report(double milliseconds, std::size_t before) {
  std::printf("%.3f %.3f\n", milliseconds, double(MemoryInUse() - before) / 1e6);
}

void RunOurs(const QString& path, int catalog) {
  Connection connection;
  connection.Open(ConnectionTextFor(path));
  const std::size_t before = MemoryInUse();
  Recordset recordset;
  RecordsetModel model;
  const double time = Milliseconds([&] {
    recordset.Open({.columns = u"CodiceProdotto,Descrizione,Valore1,IDFiltro1,Immagine,OrdineTemp"_qs,
                    .table = u"Prodotti"_qs,
                    .where = u"IDCatalogo=?"_qs,
                    .values = {catalog}},
                   connection);
    std::vector<GridColumn> columns;
    columns.reserve(std::size_t(recordset.Fields().Count()));
    for (int i = 0; i < recordset.Fields().Count(); ++i)
      columns.push_back({.key = recordset.Fields().At(i).name, .field = i});
    model.SetAddNewRow(false);
    model.Bind(recordset, columns);
    ShowLastRow(model);
  });
  Report(time, before);
}

void RunQt(const QString& path, int catalog) {
  QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_qs);
  database.setDatabaseName(path);
  if (!database.open()) std::abort();
  const std::size_t before = MemoryInUse();
  QSqlTableModel model(nullptr, database);
  const double time = Milliseconds([&] {
    model.setTable(u"Prodotti"_qs);
    model.setFilter(u"IDCatalogo=%1"_qs.arg(catalog));
    if (!model.select()) {
      std::fprintf(stderr, "%s\n", qPrintable(model.lastError().text()));
      std::abort();
    }
    while (model.canFetchMore()) model.fetchMore();
    ShowLastRow(model);
  });
  Report(time, before);
}

struct Held {
  double milliseconds = 0;
  double megabytes = 0;
};

Held Start(const QString& kind, const QString& path, int catalog) {
  QProcess process;
  process.start(QCoreApplication::applicationFilePath(), {kind, path, QString::number(catalog)});
  if (!process.waitForFinished(-1) || process.exitCode() != 0) {
    std::fprintf(stderr, "%s", process.readAllStandardError().constData());
    std::abort();
  }
  const QList<QByteArray> figures = process.readAllStandardOutput().split(' ');
  return {figures[0].toDouble(), figures[1].trimmed().toDouble()};
}

Held Middle(std::vector<Held> figures) {
  std::sort(figures.begin(), figures.end(),
            [](const Held& a, const Held& b) { return a.milliseconds < b.milliseconds; });
  return figures[figures.size() / 2];
}

}  // namespace

// Takes the folder in which the database is made; the temporary one where none is given.
int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc == 4) {
    const QString path = QString::fromLocal8Bit(argv[2]);
    (qstrcmp(argv[1], "qt") == 0 ? RunQt : RunOurs)(path, std::atoi(argv[3]));
    return 0;
  }
  const Data data(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QDir::tempPath());
  for (const int catalog : {2, 3}) {
    std::vector<Held> qts;
    std::vector<Held> all;
    for (int round = 0; round < Rounds; ++round) {
      qts.push_back(Start(u"qt"_qs, data.connection.DataSource(), catalog));
      all.push_back(Start(u"ours"_qs, data.connection.DataSource(), catalog));
    }
    const Held qt = Middle(qts);
    const Held ours = Middle(all);
    std::printf(
        "last row%s: Qt's model %.0f ms, %.0f MB; ours %.1f ms, %.1f MB: %.0f times as fast, 1/%.0f of the "
        "memory\n",
        OfRows(catalog).c_str(), qt.milliseconds, qt.megabytes, ours.milliseconds, ours.megabytes,
        qt.milliseconds / ours.milliseconds, qt.megabytes / ours.megabytes);
  }
  return 0;
}
