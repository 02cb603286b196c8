// The menu over a column's head: word wrap and alignment, sort and place. The entries with a check only move
// it; what they say is applied when the menu closes, whatever closed it. The others have shortcuts, which are
// for the column of the current cell.
#pragma once

#include <QMenu>
#include <array>
#include <functional>

namespace vorlina {

class DataGrid;

class WidgetColumnMenu : public QMenu {
 public:
  explicit WidgetColumnMenu(DataGrid& grid);

  void Localize();
  // Shows it for a column, at a point of the screen.
  void PopUp(const QString& key, const QPoint& position);

  // Sort was chosen for a column.
  std::function<void(const QString& key)> OnSort;

 private:
  void Run(const QString& entry);
  void Apply();

  DataGrid& grid_;
  QString key_;
  bool up_ = false;  // until what it says is applied
  QAction* mnuTestoACapo;
  QMenu* mnuAllineamento;
  std::array<QAction*, 3> mnuTipoAllineamento;
};

}  // namespace vorlina
