// What the benchmarks of the windows around a product share: a catalog of 100,000 products, alone or beside
// one of a million, whose first filter offers 10,000 values.
#pragma once

#include <QDir>
#include <QTemporaryDir>

#include "../Compare.h"
#include "../EmptyDatabase.h"
#include "base/AppPath.h"

namespace vorlina {

inline constexpr int ProductCount = 100'000;
inline constexpr int ValueCount = 10'000;

enum class Others { None, AMillion };

// Catalog 1 is the one that is worked on. Its products come mixed with those of the other one, as they do
// when several catalogs are worked on; each has four rows of tech data.
class CardData {
 public:
  CardData(const QString& folder, Others others) : folder_(folder + u"/card_bench"_qs) {
    SetAppPath(folder_.path());
    const std::string catalogs = others == Others::None ? "1" : "1,2";
    SQLite::Database database = EmptyDatabase(AppFile(u"Catalog.db"_qs));
    const std::string mixed =
        " WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<1099999), "
        "p(i,catalog) AS (SELECT i,iif(i%11=0,1,2) FROM n WHERE iif(i%11=0,1,2) IN (" +
        catalogs + ")) ";
    database.exec(
        "INSERT INTO Cataloghi (NomeCatalogo,NomeFiltro1,NomeFiltro2,NomeFiltro3,NomeFiltro4,NomeFiltro5,"
        "NomeValore1) VALUES ('a','Colour','Line','Size','Style','Place','Price'),"
        "('b','Colour','Line','Size','Style','Place','Price');"
        "INSERT INTO Extensions (ExtensionName,C,P) SELECT column1,FALSE,TRUE FROM (VALUES "
        "('ImmagineModificata'),('SchedaModificata')) WHERE column1 NOT IN (SELECT ExtensionName FROM "
        "Extensions);"
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i+1 FROM n WHERE i<" +
        std::to_string(ValueCount - 1) +
        ") INSERT INTO Filtri (IDCatalogo,IDNomeFiltro,Valore) SELECT IDCatalogo,filter,"
        "printf('Value %05d',i*7919%10000) FROM n, Cataloghi, (SELECT column1 AS filter FROM (VALUES "
        "(1),(2),(3),(4),(5))) WHERE (filter=1 OR i<50) AND IDCatalogo IN (" +
        catalogs + ");" + mixed +
        "INSERT INTO Prodotti (IDCatalogo,CodiceProdotto,Descrizione,Valore1,IDFiltro1,IDFiltro2,"
        "SchedaTecnica,OrdineTemp) SELECT catalog,printf('P%07d',i),'Vaso cilindrico, smalto verde, numero "
        "'||(i*7919%1101000),i%977||',00',1+i%10000,10001+i%50,TRUE,i FROM p;" +
        mixed +
        "INSERT INTO SchedeTecniche (IDCatalogo,CodiceProdotto,Caratteristica,Valore) SELECT catalog,"
        "printf('P%07d',i),'Feature '||((i*4+column1)%40),column1||' kg' FROM p, (VALUES (0),(1),(2),(3))");
  }
  // A connection for the program, and one whose statements may write without a transaction of the program's.
  void OpenBoth(Connection& ours, Connection& bare) const {
    for (Connection* connection : {&ours, &bare})
      connection->Open(ConnectionTextFor(AppFile(u"Catalog.db"_qs)));
    sqlite3_commit_hook(bare.Database().getHandle(), nullptr, nullptr);
  }

 private:
  QTemporaryDir folder_;
};

// The statements that a step runs on a connection, with their values, to be run again by the bare interface.
class Recorded {
 public:
  void Record(const Connection& connection, const std::function<void()>& step) {
    statements_.clear();
    sqlite3* handle = connection.Database().getHandle();
    sqlite3_trace_v2(handle, SQLITE_TRACE_STMT, Take, this);
    step();
    sqlite3_trace_v2(handle, 0, nullptr, nullptr);
  }
  void Run(const Connection& bare) const {
    for (const std::string& sql : statements_) Bare(bare, sql).Run();
  }

 private:
  static int Take(unsigned, void* recorded, void* statement, void*) {
    char* sql = sqlite3_expanded_sql(static_cast<sqlite3_stmt*>(statement));
    static_cast<Recorded*>(recorded)->statements_.emplace_back(sql);
    sqlite3_free(sql);
    return 0;
  }

  std::vector<std::string> statements_;
};

}  // namespace vorlina
