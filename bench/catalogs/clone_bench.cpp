// Cloning a catalog of 10,000 products against one SQL script that copies the same rows set by set, in turn
// on equal databases. usage: clone_bench [ROUNDS]
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

#include "../EmptyDatabase.h"
#include "base/AppPath.h"
#include "catalogs/CloneCatalog.h"
#include "store/Connection.h"
#include "store/Transaction.h"

using namespace vorlina;

namespace {

// Five filters of 40 values, four rows of tech data, two extensions and one additional picture a product; no
// files.
const char Content[] = R"(
INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) VALUES (1,'Source');
INSERT INTO Extensions (ExtensionName,P) VALUES ('a',1),('b',1);
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<199)
  INSERT INTO Filtri (IDValore,IDCatalogo,IDNomeFiltro,Valore) SELECT i+1, 1, i/40+1, 'Value '||i FROM n;
WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<9999)
  INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,Descrizione,IDFiltro1,IDFiltro2,IDFiltro3,IDFiltro4,IDFiltro5,Valore1)
  SELECT 1, printf('P%05d',i), 'Description of product '||i, i%40+1, i%40+41, i%40+81, i%40+121, i%40+161, i FROM n;
INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore)
  SELECT 1, CodiceProdotto, c, 'Value of '||c FROM Prodotti,
  (SELECT 'Weight' c UNION ALL SELECT 'Height' UNION ALL SELECT 'Width' UNION ALL SELECT 'Material');
INSERT INTO PExtension SELECT CodiceProdotto, 1, IDExtension, '1' FROM Prodotti, Extensions;
INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Descrizione) SELECT 1, CodiceProdotto, 'side' FROM Prodotti;
)";

const char* const Script[] = {
    "INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo) SELECT 2,'Copy of '||NomeCatalogo FROM Cataloghi WHERE "
    "IDCatalogo=1",
    "INSERT INTO Prodotti "
    "(IDCatalogo,CodiceProdotto,Descrizione,IDFiltro1,IDFiltro2,IDFiltro3,IDFiltro4,IDFiltro5,Valore1,"
    "Valore2,Valore3,SchedaTecnica,Immagine,Height,Width) SELECT "
    "2,CodiceProdotto,Descrizione,IDFiltro1,IDFiltro2,IDFiltro3,"
    "IDFiltro4,IDFiltro5,Valore1,Valore2,Valore3,SchedaTecnica,Immagine,Height,Width FROM Prodotti WHERE "
    "IDCatalogo=1",
    "INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore,Pubblica) SELECT 2,IDNomeFiltro,Valore,Pubblica FROM "
    "Filtri "
    "WHERE IDCatalogo=1",
    "INSERT INTO PExtension SELECT CodiceProdotto,2,IDExtension,Valore FROM PExtension WHERE IDCatalogo=1",
    "INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) SELECT "
    "2,CodiceProdotto,Caratteristica,"
    "Valore FROM SchedeTecniche WHERE IDCatalogo=1",
    "INSERT INTO Immagini (IDCatalogo,CodiceProdotto,Immagine,Height,Width,Descrizione) SELECT "
    "2,CodiceProdotto,Immagine,"
    "Height,Width,Descrizione FROM Immagini WHERE IDCatalogo=1"};

void MakeDatabase(const QString& path) {
  SQLite::Database database = EmptyDatabase(path);
  database.exec(Content);
}

// Milliseconds of one run on a fresh copy of the database.
double Run(const QTemporaryDir& folder, const std::function<void(Connection&)>& work) {
  const QString path = folder.filePath(QStringLiteral("work.db"));
  QFile::remove(path);
  QFile::copy(folder.filePath(QStringLiteral("Catalog.db")), path);
  Connection connection;
  connection.Open(ConnectionTextFor(path));
  const auto start = std::chrono::steady_clock::now();
  work(connection);
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  const int rounds = argc > 1 ? std::atoi(argv[1]) : 11;
  QTemporaryDir folder;
  SetAppPath(folder.path());
  MakeDatabase(folder.filePath(QStringLiteral("Catalog.db")));
  std::vector<double> clone;
  std::vector<double> script;
  for (int i = 0; i < rounds; ++i) {
    clone.push_back(Run(folder, [](Connection& connection) {
      CatalogClone(1, connection).DuplicaCatalogo(QStringLiteral("Copy of "), {});
    }));
    script.push_back(Run(folder, [](Connection& connection) {
      Transaction transaction(connection);
      for (const char* statement : Script) connection.Execute(QString::fromLatin1(statement));
      transaction.Commit();
    }));
  }
  std::printf("clone %.0f ms, script %.0f ms, ratio %.2f (at most 3)\n", Median(clone), Median(script),
              Median(clone) / Median(script));
  return 0;
}
