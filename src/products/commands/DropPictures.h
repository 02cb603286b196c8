// Picture files that are dropped on a row of the grid.
#pragma once

#include <QObject>
#include <QStringList>
#include <functional>
#include <vector>

namespace vorlina {

struct GridContext;

class DropPictures : public QObject {
 public:
  // Has the grid take them. The context outlives it.
  explicit DropPictures(GridContext& context);

  // Takes what had to wait until no box is up, behind what the box still has to bring to its end.
  void TakeHeld();

 private:
  void DropOn(int row, const QStringList& files);
  void Take(int catalog, const QString& code, const QStringList& files);

  GridContext& context_;
  std::vector<std::function<void()>> held_;
};

}  // namespace vorlina
