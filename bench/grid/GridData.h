// What the grid's benchmarks share: three catalogs of 1,000, 100,000 and 1,000,000 products in one table.
#pragma once

#include <QDir>
#include <QTemporaryDir>

#include "../Compare.h"
#include "../EmptyDatabase.h"
#include "grid/Lookup.h"

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

inline std::string OfRows(int catalog) { return " of " + std::to_string(Sizes[catalog - 1]); }

}  // namespace vorlina
