// A real application folder in a temporary place, deleted at the end: the delivered database with its paths
// made to point into the folder, and as many of the delivered pictures as a test needs.
#pragma once

#include <QString>
#include <QTemporaryDir>

namespace vorlina {

// The folder of the delivered data: "Catalog.db" and "Images".
QString DeliveredData();

class Connection;

class AppFolder {
 public:
  // Copies, for each catalog, the pictures of that many products in publication order: main picture,
  // thumbnail and additional pictures; and the logos where there is any picture. The folder becomes
  // AppPath(). Throws Error when the delivered data has not been made.
  // rebased is false where a test wants the paths as they are delivered.
  explicit AppFolder(int productsWithPictures = 0, bool rebased = true);

  // In native separators, with no trailing one.
  QString Path() const;
  // A file below the folder, such as "Images/109-VS-101.jpg".
  QString File(const QString& name) const;

 private:
  void CopyPictures(Connection& connection, int products);
  QTemporaryDir folder_;
};

}  // namespace vorlina
