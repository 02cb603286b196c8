// Changes one product of the benchmark's catalog. usage: change_product CATALOG_DB NUMBER
#include <QCoreApplication>

#include "store/Connection.h"
#include "store/Transaction.h"

int main(int argc, char** argv) {
  QCoreApplication application(argc, argv);
  if (argc != 3) return 2;
  vorlina::Connection connection;
  connection.Open(vorlina::ConnectionTextFor(QString::fromLocal8Bit(argv[1])));
  vorlina::Transaction transaction(connection);
  connection.Execute(u"UPDATE Prodotti SET Descrizione='changed '||? WHERE CodiceProdotto=?"_qs,
                     {QString::fromLocal8Bit(argv[2]),
                      u"P%1"_qs.arg(QString::fromLocal8Bit(argv[2]).toInt() * 771, 6, 10, QChar(u'0'))});
  const int changes = connection.Changes();
  transaction.Commit();
  return changes == 1 ? 0 : 1;
}
