// Pictures that are dropped on a product: the first becomes its main picture where it has none, the others
// additional ones.
#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace vorlina {

class Connection;

class PictureDrop {
 public:
  // Gives the description of an additional picture, asked for with the dropped file's path; "" gives it up.
  using AskDescription = std::function<QString(const QString& file)>;

  PictureDrop(int IDCatalogo, QString CodiceProdotto, Connection& connection)
      : IDCatalogo_(IDCatalogo), CodiceProdotto_(std::move(CodiceProdotto)), connection_(connection) {}

  // Whether the name ends as a JPEG file's does, in any letter case.
  static bool IsPicture(const QString& file);

  // Adds those of the files that are pictures, in the order given. A row is written once its picture is
  // complete, and no transaction is open while a description is asked for. Those that cannot be added are
  // passed over, as is a main picture whose file another row names: gives a text for each, which names it. A
  // picture that was copied before then stays without a row. Throws Error where the product is gone.
  QStringList Add(const QStringList& files, const AskDescription& ask);

 private:
  bool HasMainPicture() const;
  void AddMain(const QString& file);
  void AddAdditional(const QString& file, const AskDescription& ask);

  int IDCatalogo_;
  QString CodiceProdotto_;
  Connection& connection_;
};

}  // namespace vorlina
