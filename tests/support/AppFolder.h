#pragma once
#include "store/SampleData.h"
#include "support/StoreFixture.h"
namespace vorlina {
class AppFolder {
 public:
  AppFolder() {
    const QString path = folder_.filePath(u"Catalog.db"_qs);
    MakeDatabase(path);
    Connection connection;
    connection.Open(ConnectionTextFor(path));
    for (const int id : {109, 110})
      connection.Execute(
          u"INSERT INTO Cataloghi (IDCatalogo,NomeCatalogo,Logo) VALUES (?,?,?)"_qs,
          {id, u"Catalog %1"_qs.arg(id), QString(SampleDataRoot + u"/Images/%1-Logo.jpg"_qs.arg(id))});
  }
  QString Path() const { return folder_.path(); }

 private:
  QTemporaryDir folder_;
};
}  // namespace vorlina
