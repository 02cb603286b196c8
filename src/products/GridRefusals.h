// Tells the user what a grid refuses: at once, or, while its window closes, all in one box with the way out.
#pragma once

#include <QStringList>
#include <optional>

class QWidget;

namespace vorlina {

class DataGrid;

class GridRefusals {
 public:
  // Tells what the grid sends by RowFailed. The grid goes before it.
  GridRefusals(QWidget& window, DataGrid& grid);

  void Tell(const QString& text);
  // Leaves the grid's row before its window closes. False where that has to stay open.
  bool MayClose();

 private:
  QWidget* Owner() const;
  void TellWhyOpen(QStringList refusals);

  QWidget& window_;
  DataGrid& grid_;
  std::optional<QStringList> refusals_;  // while the window is closing
};

}  // namespace vorlina
