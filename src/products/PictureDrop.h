// Pictures that are dropped on a product: the first becomes its main picture where it has none, the others
// additional ones.
#pragma once

#include <QString>
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

  // Adds a picture file. Its row is written once the picture is complete, and no transaction is open while
  // the description is asked for. Throws Error, also for a product that is gone and for a
  // main picture whose file another row names; a picture that was copied before it then stays without a row.
  void Add(const QString& file, const AskDescription& ask);

 private:
  bool HasMainPicture() const;
  void AddMain(const QString& file);
  void AddAdditional(const QString& file, const AskDescription& ask);

  int IDCatalogo_;
  QString CodiceProdotto_;
  Connection& connection_;
};

}  // namespace vorlina
